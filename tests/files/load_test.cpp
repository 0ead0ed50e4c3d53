// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <filesystem>

#include "files/panel_document.h"
#include "files/qcf_reader.h"
#include "files/qcf_writer.h"
#include "tests/files/sample.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::StartsWith;

constexpr auto kCorrupt = "Data Process Error, file may be corrupt";
constexpr auto kNewWindows =
    "New character windows have been added to this configuration.  Please verify the settings.";
constexpr auto kNewParameters =
    "New parameters have been added to this configuration.  Please verify the settings.";
constexpr auto kExtraParameters = "Extra parameters have been removed from the QCF file";

struct Loading : ::testing::Test, FileRig {
  /// Sample 2 with another value in one field.
  static FileBytes With(std::string_view field, const QcfValue& value) {
    QcfDocument document = ReadDocument(Sample(2));
    for (QcfEntry& entry : document.entries) {
      if (entry.field->name == field) entry.value = value;
    }
    return WriteDocument(document);
  }
  /// Rows and arrays agree, whatever a file did.
  void ExpectWholePanels() {
    EXPECT_EQ(form.lName.UBound(), UBound(vars.CharWindows));
    for (int row = 0; row <= UBound(vars.CharWindows); ++row) {
      EXPECT_EQ(form.lName(row).Caption(), At(vars.CharWindows, row).Name);
      EXPECT_EQ(At(vars.CharWindows, row).Left, form.udHor(row).Value());
      EXPECT_EQ(form.tVert(row).Text(), std::to_string(form.udVer(row).Value()));
    }
  }
};

TEST_F(Loading, OfParametersWithOneDescriptionTheFirstGivesTheValue) {
  QcfDocument document = ReadDocument(Sample(2));
  for (QcfRecord& parameter : std::get<std::vector<QcfRecord>>(document.entries.back().value)) {
    parameter[2].value = "Level";
  }
  form.bParam.OperatorClick();
  Load(WriteDocument(document));
  EXPECT_EQ(form.bClass.Arrow(), SortArrow::kRising);
  const auto level = std::ranges::find_if(
      vars.SystemParameters, [](const auto& record) { return record.Class == 3 && record.Parameter == 2; });
  EXPECT_EQ(level->Value, 300) << "that of 7.1; 800 in the file";
}

TEST_F(Loading, ATextThatItsListLacksIsToldAndReplaced) {
  Load(Sample(2));
  TakeBoxes();
  QcfDocument document = ReadDocument(Sample(2));
  for (QcfEntry& entry : document.entries) {
    if (!entry.field->missing.empty()) entry.value = "nowhere";
  }
  EXPECT_EQ(Load(WriteDocument(document)), ReadEnd::kLoaded);
  const std::vector<std::string> told = TakeBoxes();
  const std::string behind = " not found, auto set to default";
  EXPECT_EQ(std::ranges::count_if(told, [&](const auto& text) { return text.ends_with(behind); }), 18);
  EXPECT_EQ(told[0] + told[7] + told[17],
            "Video Standard" + behind + "Output VITC2 Time Bit" + behind + "Horizontal Filter" + behind);
  for (const ComboBox* box : {&form.comVS, &form.comTB(0), &form.ComUB(0), &form.ComWin(4),
                              &form.ComDownConv(0), &form.ComDownConv(1), &form.ComDownConv(2)}) {
    EXPECT_EQ(box->ListIndex(), 0) << box->FullName();
  }
  Load(With("output VITC1 user bits", "nowhere"));
  EXPECT_EQ(form.ComUB(1).ListIndex(), 0) << "the one that is replaced";
  EXPECT_EQ(form.ComUB(2).Text(), "Video Recorder User Bits") << "its default stands";
  ASSERT_EQ(form.ComUB(4).ListCount(), 0) << "a mode without user bits on the third line";
  TakeBoxes();
  form.ComDownConv(2).Clear();
  Load(Sample(2));
  EXPECT_EQ(TakeBoxes().front(), "Horizontal Filter not found, auto set to default")
      << "none for the third line";
  EXPECT_EQ(form.ComDownConv(2).ListIndex(), -1) << "nothing to fall back to";
}

TEST_F(Loading, NumbersAtTheirBounds) {
  Load(Sample(2));
  for (const int byte : {0, 1, 2, 3, 4, 255}) {
    EXPECT_EQ(Load(With("VITC selection", std::int64_t{byte})), ReadEnd::kLoaded);
    EXPECT_EQ(form.vitcModes.Selected(), byte >= 1 && byte <= 3 ? byte - 1 : 1) << byte;
    Load(With("characters on", std::int64_t{byte}));
    EXPECT_EQ(form.mnuCharOn.Checked(), byte == 1) << byte;
    EXPECT_NE(form.mnuCharOff.Checked(), form.mnuCharOn.Checked()) << byte;
  }
  EXPECT_EQ(Load(With("slate duration", std::int64_t{2147483647})), ReadEnd::kLoaded);
  EXPECT_EQ(form.UDDur.Value(), 2147483647);
  EXPECT_EQ(Load(With("slate duration", std::int64_t{2147483648})), ReadEnd::kNotReadable);
}

TEST_F(Loading, AFileCutAnywhereLeavesDefaultsAndALivingTool) {
  // A block that claims to be short lets the reader get as far as the cut.
  FileBytes whole = Sample(2);
  std::fill_n(whole.begin() + 45, 4, std::uint8_t{0});
  const std::size_t mode = Behind(whole, "Multi-Camera Episodic");
  for (std::size_t length = 1; length < whole.size(); length += length < 120 ? 1 : 7) {
    vars.OperatingMode = "Test";
    EXPECT_EQ(Load({whole.begin(), whole.begin() + static_cast<std::ptrdiff_t>(length)}),
              ReadEnd::kNotReadable);
    EXPECT_EQ(TakeBoxes().back(), kCorrupt) << length;
    EXPECT_EQ(vars.OperatingMode, length < mode ? "Test" : "Multi-Camera Episodic") << length;
    EXPECT_EQ(form.tWinMess.Text(), "");
    ExpectWholePanels();
  }
  EXPECT_EQ(Load(whole), ReadEnd::kLoaded);
}

TEST_F(Loading, EachFailureHasItsMessage) {
  const FileBytes good = Sample(2);
  for (const auto& [at, byte, message, why] :
       {std::tuple(std::size_t{0}, 'X', "Data Process Error, file header corrupt or unreadable", "signature"),
        {16U, '\t', "No 7340 Configuration found in file, using Default.", "another model"},
        {Behind(good, "Multi-Camera Episodi"), 'k', kCorrupt, "an unknown mode"},
        {Behind(good, "(16 lines/field)"), '\x80', kCorrupt, "a slate too long to count"},
        {Behind(good, "LTC Output Level (mV)") + 2, '\xFF', kCorrupt, "a negative parameter"},
        {Behind(good, "User Bit Generator") + 33, '\7', kCorrupt, "a tick that is neither"},
        {0U, 'Q', "Import Error", "a file that does not give its bytes"}}) {
    FileBytes bytes = good;
    bytes[at] = static_cast<std::uint8_t>(byte);
    form.tWinMess.SetText("left over");
    files.refuseReading = byte == 'Q';
    EXPECT_EQ(Load(bytes), ReadEnd::kNotReadable) << why;
    EXPECT_EQ(form.tWinMess.Text(), "") << "the defaults";
    EXPECT_EQ(TakeBoxes().back(), message) << why;
  }
  EXPECT_EQ(Load({}), ReadEnd::kEmpty);
  for (const std::int64_t number : {std::int64_t{-1}, std::int64_t{4294967296}})
    EXPECT_THROW(With("slate duration", number), RuntimeError) << number;
  EXPECT_NE(With("slate duration", std::int64_t{4294967295}), good);
}

TEST_F(Loading, AFailureBehindTheWindowsKeepsWhatWasTaken) {
  vars.DatabasePath = folder.File("shotsys.mdb");
  RunSql(vars.DatabasePath, "CREATE TABLE \"Character Windows\" (\"Device\")");
  EXPECT_EQ(Load(Sample(2)), ReadEnd::kNotReadable) << "no window at all";
  EXPECT_THAT(TakeBoxes(), ElementsAre(kCorrupt));
  EXPECT_EQ(UBound(vars.CharWindows), form.lName.UBound());
  RunSql(vars.DatabasePath,
         "INSERT INTO \"Character Windows\" VALUES (0); CREATE TABLE \"Deleted Parameters\" (\"Class\")");
  EXPECT_EQ(Load(Sample(2)), ReadEnd::kIncomplete);
  EXPECT_THAT(TakeBoxes().back(), StartsWith("3021    ")) << "no deleted parameter at all";
  EXPECT_EQ(form.tWinMess.Text(), "Take 3 é") << "no defaults";
  vars.DatabasePath = folder.File("none.mdb");
  EXPECT_EQ(Load(Sample(2)), ReadEnd::kLoaded) << "a database that is gone is told by each merge";
  EXPECT_THAT(TakeBoxes(), ElementsAre(StartsWith("3024 "), StartsWith("3024 "), StartsWith("3024 ")));
}

TEST_F(Loading, ADatabaseOfAnEarlierVersionMayLackColumns) {
  const std::string old = folder.File("shotsys.mdb");
  std::filesystem::copy_file(vars.DatabasePath, old);
  vars.DatabasePath = old;
  RunSql(old,
         "UPDATE \"Character Windows\" SET \"On\" = 1, \"Slate On\" = 1, \"Symbol On\" = 1, \"Field On\" = "
         "1, Ignore1 = 1;"
         "ALTER TABLE \"Character Windows\" RENAME COLUMN \"Field Length\" TO n;"
         "ALTER TABLE \"Deleted Parameters\" RENAME COLUMN \"Value\" TO n");
  EXPECT_EQ(Load(Sample(2)), ReadEnd::kLoaded);
  EXPECT_THAT(TakeBoxes(), ElementsAre(kNewWindows, kExtraParameters, kNewParameters));
  const CharWindowRec& window = *std::ranges::find(vars.CharWindows, "Video Timecode", &CharWindowRec::Name);
  EXPECT_EQ(window.FieldLength, 0);
  EXPECT_TRUE(window.On && window.SlateOn && window.SymbolOn && window.FieldOn && window.Ignore1)
      << "the database knows better";
  ExpectWholePanels();
  RunSql(old,
         "PRAGMA ignore_check_constraints = ON; UPDATE \"Character Windows\" SET \"Number\" = \"Number\" + "
         "100000");
  Load(Sample(2));
  EXPECT_THAT(TakeBoxes(), ElementsAre(kCorrupt)) << "a value that fits into no field is a failure";
}

}  // namespace
}  // namespace marlinset
