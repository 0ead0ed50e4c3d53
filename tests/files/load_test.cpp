// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>
#include <filesystem>

#include "files/panel_document.h"
#include "files/qcf_listing.h"
#include "files/qcf_reader.h"
#include "files/qcf_writer.h"
#include "tests/files/sample.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;
using ::testing::StartsWith;

constexpr auto kCorrupt = "Data Process Error, file may be corrupt";
constexpr auto kNewWindows =
    "New character windows have been added to this configuration.  Please verify the settings.";
constexpr auto kNewParameters =
    "New parameters have been added to this configuration.  Please verify the settings.";
constexpr auto kExtraParameters = "Extra parameters have been removed from the QCF file";

struct Loading : ::testing::Test, FileRig {
  const CharWindowRec& Window(std::string_view name) {
    return *std::find_if(vars.CharWindows.begin(), vars.CharWindows.end(),
                         [&](const CharWindowRec& window) { return window.Name == name; });
  }
  /// The value of a parameter of the working list, -1 for one that is not there.
  int Parameter(int parameterClass, int number) {
    for (const SystemParameterRec& parameter : vars.SystemParameters) {
      if (parameter.Class == parameterClass && parameter.Parameter == number) return parameter.Value;
    }
    return -1;
  }
  /// Sample 2 with another value in one field.
  static FileBytes With(std::string_view field, QcfValue value) {
    QcfDocument document = ReadDocument(Sample(2));
    for (QcfEntry& entry : document.entries) {
      if (entry.field->name == field) entry.value = value;
    }
    return WriteDocument(document);
  }
  std::vector<int> Lines() const {
    std::vector<int> lines;
    for (const int spin : FrmStart::kVitcLineIndices) lines.push_back(form.upVitc1(spin).Value());
    return lines;
  }
  /// Rows and arrays belong together, whatever a file did.
  void ExpectWholePanels() {
    EXPECT_EQ(form.lName.UBound(), UBound(vars.CharWindows));
    for (int row = 0; row <= UBound(vars.CharWindows); ++row) {
      EXPECT_EQ(form.lName(row).Caption(), At(vars.CharWindows, row).Name);
      EXPECT_EQ(At(vars.CharWindows, row).Left, form.udHor(row).Value());
      EXPECT_EQ(form.tVert(row).Text(), std::to_string(form.udVer(row).Value()));
    }
  }
};

TEST_F(Loading, BringsAFileOfVersionTwoToThePanels) {
  form.VScroll2.SetMax(0);
  form.bParam.OperatorClick();
  EXPECT_EQ(Load(Sample(2)), ReadEnd::kLoaded);
  EXPECT_EQ(form.bClass.Arrow(), SortArrow::kRising);
  EXPECT_EQ(dialogs.shown.back().icon, BoxIcon::kInformation);
  EXPECT_THAT(TakeBoxes(), ElementsAre(kNewWindows, kExtraParameters, kNewParameters));
  EXPECT_TRUE(form.mnuCharOff.Checked() && !form.mnuCharOn.Checked());
  ExpectWholePanels();
  std::vector<std::string> differing;
  for (const QcfComparison& value : Compare(ReadDocument(Sample(2)), DocumentOfPanels(vars, form))) {
    const bool equal = value.difference == QcfDifference::kEqual;
    if (!equal && value.difference != QcfDifference::kOnlyRight) differing.push_back(value.name);
  }
  EXPECT_THAT(differing, ElementsAre("identification / title", "identification / version",
                                     "system parameters / 2.9 / Class", "system parameters / 2.9 / Parameter",
                                     "system parameters / 2.9 / Description",
                                     "system parameters / 2.9 / Value", "system parameters / 25.1 / Value"));
  EXPECT_EQ(Parameter(2, 0), 8) << "of the database";
  const auto shown = std::count_if(vars.SystemParameters.begin(), vars.SystemParameters.end(),
                                   [](const auto& row) { return row.Class != 1 && row.Class != 25; });
  EXPECT_EQ(form.VScroll2.Max(), (shown - 16) * 255) << "the last row can be scrolled to";

  EXPECT_EQ(Window(" TEXT ").Length, 32);
  EXPECT_EQ(Window("Video Timecode").SymbolLength * 10 + Window("Video Timecode").FieldLength, 22);
  EXPECT_TRUE(Window("Video Timecode").DoubleHeight) << "by the file";
  EXPECT_EQ(Window("Film Footage").DefaultHorPosn, 20) << "a window that the file lacks";
  for (int row = 0; row <= 20; ++row) {
    EXPECT_EQ(At(vars.CharWindows, row).Number, row) << "the unknown one comes first";
    const SpinControl& spin = form.udVer(row);
    EXPECT_THAT((std::vector{spin.Min(), spin.Max(), spin.Increment()}), ElementsAre(30, 0, 2)) << row;
    EXPECT_EQ(form.udHor(row).Max(), 32);
    EXPECT_TRUE(form.lName(row).Visible()) << "all have their row in this mode";
  }
}

TEST_F(Loading, OfParametersWithOneDescriptionTheFirstGivesTheValue) {
  QcfDocument document = ReadDocument(Sample(2));
  for (QcfRecord& parameter : std::get<std::vector<QcfRecord>>(document.entries.back().value)) {
    parameter[2].value = "Level";
  }
  Load(WriteDocument(document));
  EXPECT_EQ(Parameter(3, 2), 300) << "that of 7.1; 800 in the file";
}

TEST_F(Loading, CarriesAFileOfVersionOneForward) {
  ComboBox* const newer[] = {&form.ComWin(4), &form.ComDownConv(1), &form.ComDownConv(2)};
  for (ComboBox* box : newer) box->SetListIndex(2);
  const int last = UBound(vars.SystemParameters);
  FileBytes bytes = Sample(1);
  EXPECT_EQ(Load(bytes), ReadEnd::kLoaded);
  EXPECT_THAT(TakeBoxes(),
              ElementsAre("Input Time Bits not found, auto set to default",
                          "Window Style not found, auto set to default", kNewWindows, kNewParameters));
  for (const ComboBox* box : newer) EXPECT_EQ(box->ListIndex(), 2) << "not in the file";
  EXPECT_EQ(form.ComDownConv(0).ListIndex(), 0) << "the first of the standard";
  EXPECT_EQ(vars.OperatingMode, "KeyKode Accuracy Test");
  EXPECT_EQ(form.ComUB(0).Text(), "Video LTC Reader User Bits");
  EXPECT_EQ(form.comTB(1).Text(), "Video Recorder Time");
  EXPECT_EQ(form.ComUB(1).Text(), "Video Recorder User Bits");
  EXPECT_EQ(form.comTB(2).Text(), "Output Video Recorder Time");
  EXPECT_EQ(form.ComUB(2).Text(), "Input Video Recorder Time");
  EXPECT_THAT(Lines(), ElementsAre(18, 19, 20, 10, 20, 20))
      << "the duplicates' box has lined the first three up";
  EXPECT_EQ(form.UpDown1.Value(), 255);
  EXPECT_TRUE(Window("Scene and Take").DoubleHeight) << "from the database";
  EXPECT_TRUE(form.chField(0).On() && form.chSym(0).On() && !form.chSlate(0).On() && !form.chOnOff(0).On());
  EXPECT_EQ(Parameter(2, 0), 266);
  EXPECT_EQ(vars.NextParameterClass, last) << "with the database's others";
  ExpectWholePanels();
  // A single line leaves the others as they come: outside the range, 10 to 20, each goes to its other end.
  bytes[Behind(bytes, "1080i/60")] = 1;
  Load(bytes);
  EXPECT_THAT(Lines(), ElementsAre(20, 9, 10, 10, 20, 20));
}

TEST_F(Loading, ATextThatItsListLacksIsToldAndReplaced) {
  Load(Sample(2));
  TakeBoxes();
  QcfDocument document = ReadDocument(Sample(2));
  for (QcfEntry& entry : document.entries) {
    if (!entry.field->missing.empty()) entry.value = "nowhere";
  }
  EXPECT_EQ(Load(WriteDocument(document)), ReadEnd::kLoaded);
  std::vector<std::string> told = TakeBoxes();
  told.resize(18);
  for (std::string& text : told) text = text.substr(0, text.find(" not found, auto set to default"));
  EXPECT_THAT(told, ElementsAre("Video Standard", "Input Time Bits", "Input User Bits", "Output LTC Time Bit",
                                "Output LTC User Bit", "Output VITC1 Time Bit", "Output VITC1 User Bit",
                                "Output VITC2 Time Bit", "Output VITC3 Time Bit", "Output VITC3 User Bit",
                                "Window Style", "Font Size", "Slate Mode", "Downconverter Mode",
                                "Downconverter Processing Mode", "Horizontal Filter", "Horizontal Filter",
                                "Horizontal Filter"));
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
  // A short length of the block lets a reader come to the place of the cut.
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

TEST_F(Loading, AFlippedByteNeverBringsTheToolDown) {
  FileBytes bytes = Sample(2);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    bytes[i] ^= 0xFF;
    Load(bytes);
    bytes[i] ^= 0xFF;
  }
  EXPECT_EQ(Load(bytes), ReadEnd::kLoaded);
  ExpectWholePanels();
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
  const CharWindowRec& window = Window("Video Timecode");
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

TEST_F(Loading, AFileThatIsNotThereIsLookedFor) {
  fileDialog.FileName = folder.File("gone.qcf");
  tool.configurationFile.ReadConfigFile();
  EXPECT_THAT(TakeBoxes(),
              ElementsAre("Default folder could not found.  Please browse to the .qcf file location",
                          "Qcf file location was not set, Data will not be loaded properly"));
  EXPECT_EQ(fileDialog.shown.back().initDir, vars.AppPath);
  EXPECT_EQ(fileDialog.FileName, folder.File("gone.qcf"));
  EXPECT_FALSE(settings.Has("Default"));
  const std::string found = Write("found.qcf", Sample(2));
  fileDialog.choices = {folder.Path(), found};
  tool.configurationFile.ReadConfigFile();
  EXPECT_EQ(TakeBoxes().size(), 2U + 3) << "a folder is no file: asked again";
  EXPECT_EQ(tool.configurationFile.LastRead(), ReadEnd::kLoaded);
  EXPECT_EQ(settings.GetSetting("Default", ""), found);
}

TEST_F(Loading, OpenNamesTheFileEvenWhenItCouldNotBeRead) {
  const FileBytes before = WriteDocument(DocumentOfPanels(vars, form));
  fileDialog.FileName = "before.qcf";
  fileDialog.FilterIndex = 2;
  tool.configurationFile.LoadConfig();
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  EXPECT_EQ(fileDialog.FileName, "before.qcf") << "a cancelled dialog changes nothing";
  EXPECT_EQ(vars.CurrentFile, "Unsaved");
  EXPECT_EQ(Panel(4), "Getting Saved Data ");
  const FakeFileDialog::Shown& shown = fileDialog.shown.back();
  EXPECT_EQ(shown.filter, "Brandal Marlinset File|*.qcf");
  EXPECT_EQ(shown.fileName, "*.qcf");
  EXPECT_EQ(shown.initDir, vars.AppPath) << "as long as there was no other";
  EXPECT_EQ(shown.flags, kHideReadOnly);
  EXPECT_EQ(fileDialog.FilterIndex, 1);
  EXPECT_THAT(files.folders, ElementsAre(vars.AppPath));

  fileDialog.choices = {Write("empty.qcf", {})};
  files.refuseFolders = true;  // the dialog opens where it can then
  tool.configurationFile.LoadConfig();
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  EXPECT_EQ(WriteDocument(DocumentOfPanels(vars, form)), before);

  fileDialog.choices = {Write("odd.name.qcf", {1, 2, 3})};
  tool.configurationFile.LoadConfig();
  EXPECT_EQ(vars.CurrentFile, "odd");
  EXPECT_EQ(form.Caption(), "7340 Marlinset - odd");
  EXPECT_EQ(Panel(4), "File odd Loaded ");
  EXPECT_EQ(settings.GetSetting("Load", ""), folder.Path() + "/");

  fileDialog.choices = {Write("undotted", Sample(2))};
  tool.configurationFile.LoadConfig();
  EXPECT_EQ(TakeBoxes().back(), "Error during load, load aborted!") << "after it was taken";
  EXPECT_EQ(form.tWinMess.Text(), "Take 3 é");
}

}  // namespace
}  // namespace marlinset
