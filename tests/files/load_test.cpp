// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <algorithm>

#include "files/panel_document.h"
#include "files/qcf_listing.h"
#include "files/qcf_reader.h"
#include "files/qcf_writer.h"
#include "tests/files/sample.h"

namespace marlinset {
namespace {

using ::testing::ElementsAre;
using ::testing::IsEmpty;

constexpr auto kCorrupt = "Data Process Error, file may be corrupt";
constexpr auto kNewWindows =
    "New character windows have been added to this configuration.  Please verify the settings.";
constexpr auto kNewParameters =
    "New parameters have been added to this configuration.  Please verify the settings.";
constexpr auto kExtraParameters = "Extra parameters have been removed from the QCF file";

struct Loading : ::testing::Test, FileRig {
  void SetUp() override { ASSERT_TRUE(started); }

  const CharWindowRec& Window(std::string_view name) {
    return *std::find_if(vars.CharWindows.begin(), vars.CharWindows.end(),
                         [&](const CharWindowRec& window) { return window.Name == name; });
  }
  const SystemParameterRec* Parameter(int parameterClass, int number) {
    const auto found = std::find_if(
        vars.SystemParameters.begin(), vars.SystemParameters.end(), [&](const SystemParameterRec& parameter) {
          return parameter.Class == parameterClass && parameter.Parameter == number;
        });
    return found == vars.SystemParameters.end() ? nullptr : &*found;
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
  FileBytes PanelBytes() { return WriteDocument(DocumentOfPanels(vars, form)); }
  /// Rows and arrays belong together, whatever a file did.
  void ExpectWholePanels() {
    EXPECT_EQ(form.lName.UBound(), UBound(vars.CharWindows));
    EXPECT_GE(form.lClass.UBound(), UBound(vars.SystemParameters));
    EXPECT_GE(form.lPara2.UBound(), UBound(vars.SystemParameters));
    for (int row = 0; row <= UBound(vars.CharWindows); ++row) {
      EXPECT_EQ(form.lName(row).Caption(), At(vars.CharWindows, row).Name);
      EXPECT_EQ(At(vars.CharWindows, row).Left, form.udHor(row).Value());
      EXPECT_EQ(form.tVert(row).Text(), std::to_string(form.udVer(row).Value()));
    }
  }
};

TEST_F(Loading, BringsAFileOfVersionTwoToThePanels) {
  EXPECT_EQ(Load(Sample(2)), ReadEnd::kLoaded);
  EXPECT_THAT(TakeBoxes(), ElementsAre(kNewWindows, kExtraParameters, kNewParameters));
  EXPECT_EQ(vars.OperatingMode, "Multi-Camera Episodic");
  EXPECT_EQ(form.comVS.Text(), "1080i/50");
  EXPECT_EQ(form.vitcModes.Selected(), 1);
  EXPECT_TRUE(form.mnuCharOff.Checked() && !form.mnuCharOn.Checked());
  EXPECT_EQ(form.udVer(2).Increment(), 2) << "a small font";
  EXPECT_TRUE(form.lName(form.lName.UBound()).Visible()) << "all windows have their row in this mode";
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
}

TEST_F(Loading, MergesWindowsAndParametersWithTheDatabase) {
  form.VScroll2.SetMax(0);
  Load(Sample(2));
  EXPECT_EQ(vars.CharWindows.front().Name, "Old Window") << "without a number it sorts first";
  EXPECT_EQ(vars.CharWindows.size(), 21U);
  const CharWindowRec& text = Window(" TEXT ");
  EXPECT_EQ(text.Number, 14);
  EXPECT_EQ(text.Length, 32);
  EXPECT_EQ(text.Top, 168);
  EXPECT_TRUE(text.DefaultSlateOnOff);
  EXPECT_TRUE(Window("Video Timecode").DoubleHeight);
  EXPECT_EQ(Window("Film Footage").DefaultHorPosn, 20) << "a window that the file lacks";
  EXPECT_EQ(form.udVer(5).Min(), 30);
  EXPECT_EQ(form.udHor(5).Max(), 32);
  EXPECT_EQ(Parameter(2, 9), nullptr);
  EXPECT_EQ(Parameter(7, 1)->Description, "Phase of mine");
  EXPECT_EQ(Parameter(7, 1)->Value, 300);
  EXPECT_EQ(Parameter(25, 1)->Value, 21);
  EXPECT_EQ(Parameter(2, 0)->Value, 8);
  EXPECT_EQ(vars.NextParameterClass, UBound(vars.SystemParameters));
  EXPECT_EQ(dialogs.shown.back().icon, BoxIcon::kInformation);
  int shown = 0;
  for (int row = 0; row <= UBound(vars.SystemParameters); ++row) {
    const SystemParameterRec parameter = At(vars.SystemParameters, row);
    const bool internal = parameter.Class == 1 || parameter.Class == 25;
    EXPECT_EQ(form.lClass(row).Caption(), std::to_string(parameter.Class)) << "rows and list in one order";
    EXPECT_EQ(form.udVal(row).Visible(), !internal) << row;
    if (!internal) ++shown;
  }
  EXPECT_EQ(form.VScroll2.Max(), (shown - 16) * 255) << "the last row can be scrolled to";
}

TEST_F(Loading, OfParametersWithOneDescriptionTheFirstGivesTheValue) {
  QcfDocument document = ReadDocument(Sample(2));
  for (QcfRecord& parameter : std::get<std::vector<QcfRecord>>(document.entries.back().value)) {
    parameter[2].value = "Level";
  }
  Load(WriteDocument(document));
  EXPECT_EQ(Parameter(7, 1)->Value, 300);
  EXPECT_EQ(Parameter(3, 2)->Value, 300) << "800 in the file";
}

TEST_F(Loading, CarriesAFileOfVersionOneForward) {
  form.ComWin(4).SetListIndex(2);
  form.ComDownConv(1).SetListIndex(3);
  form.ComDownConv(2).SetListIndex(4);
  EXPECT_EQ(Load(Sample(1)), ReadEnd::kLoaded);
  EXPECT_THAT(TakeBoxes(),
              ElementsAre("Input Time Bits not found, auto set to default",
                          "Window Style not found, auto set to default", kNewWindows, kNewParameters));
  EXPECT_EQ(vars.OperatingMode, "KeyKode Accuracy Test");
  EXPECT_EQ(form.ComUB(0).Text(), "Video LTC Reader User Bits");
  EXPECT_EQ(form.comTB(1).Text(), "Video Recorder Time");
  EXPECT_EQ(form.ComUB(1).Text(), "Video Recorder User Bits");
  EXPECT_EQ(form.comTB(2).Text(), "Output Video Recorder Time");
  EXPECT_EQ(form.ComUB(2).Text(), "Input Video Recorder Time");
  EXPECT_THAT(Lines(), ElementsAre(18, 19, 20, 10, 20, 20))
      << "the duplicates' box has lined the first three up";
  EXPECT_EQ(form.UpDown1.Value(), 255);
  EXPECT_EQ(form.ComWin(4).ListIndex(), 2) << "not in the file";
  EXPECT_EQ(form.ComDownConv(1).ListIndex(), 3);
  EXPECT_EQ(form.ComDownConv(2).ListIndex(), 4);
  EXPECT_EQ(form.ComDownConv(0).ListIndex(), 0) << "the first of the standard";
  EXPECT_TRUE(Window("Scene and Take").DoubleHeight) << "from the database";
  EXPECT_EQ(Window("video timecode").Number, 1);
  EXPECT_EQ(Parameter(2, 0)->Value, 266);
  ExpectWholePanels();
}

struct Missing {
  std::string_view field, message, box;
  int index;
};
constexpr Missing kMissing[] = {
    {"video standard", "Video Standard not found, auto set to default", "comVS", kNoIndex},
    {"input time bits", "Input Time Bits not found, auto set to default", "comTB", 0},
    {"input user bits", "Input User Bits not found, auto set to default", "ComUB", 0},
    {"output LTC time bits", "Output LTC Time Bit not found, auto set to default", "comTB", 1},
    {"output LTC user bits", "Output LTC User Bit not found, auto set to default", "ComUB", 1},
    {"output VITC1 time bits", "Output VITC1 Time Bit not found, auto set to default", "comTB", 2},
    {"output VITC1 user bits", "Output VITC1 User Bit not found, auto set to default", "ComUB", 1},
    {"output VITC2 time bits", "Output VITC2 Time Bit not found, auto set to default", "comTB", 3},
    {"output VITC3 time bits", "Output VITC3 Time Bit not found, auto set to default", "comTB", 4},
    {"output VITC3 user bits", "Output VITC3 User Bit not found, auto set to default", "ComUB", 4},
    {"window style", "Window Style not found, auto set to default", "ComWin", 2},
    {"font size", "Font Size not found, auto set to default", "ComWin", 3},
    {"slate mode", "Slate Mode not found, auto set to default", "ComWin", 1},
    {"down converter mode", "Downconverter Mode not found, auto set to default", "ComWin", 0},
    {"processing mode", "Downconverter Processing Mode not found, auto set to default", "ComDownConv", 0},
    {"vertical filter", "Horizontal Filter not found, auto set to default", "ComDownConv", 1},
    {"horizontal filter", "Horizontal Filter not found, auto set to default", "ComDownConv", 2},
    {"SDI program output", "Horizontal Filter not found, auto set to default", "ComWin", 4}};

TEST_F(Loading, ATextThatItsListLacksIsToldAndReplaced) {
  for (const auto& [field, message, box, index] : kMissing) {
    Load(Sample(2));
    TakeBoxes();
    EXPECT_EQ(Load(With(field, "nowhere")), ReadEnd::kLoaded) << field;
    EXPECT_EQ(TakeBoxes().front(), message);
    const auto& fallback = static_cast<const ComboBox&>(*form.Find(box, index));
    EXPECT_EQ(fallback.ListIndex(), fallback.ListCount() == 0 ? -1 : 0) << field;
  }
  Load(With("output VITC1 user bits", "nowhere"));
  EXPECT_EQ(form.ComUB(2).Text(), "Video Recorder User Bits") << "its default stands";
}

TEST_F(Loading, ALineOutsideTheRangeGoesToItsOtherEnd) {
  FileBytes bytes = Sample(1);
  std::uint8_t& vitcSelection = bytes[Behind(bytes, "1080i/60")];
  ASSERT_EQ(vitcSelection, 3);
  vitcSelection = 1;  // a single line leaves the others as they come
  Load(bytes);
  EXPECT_THAT(Lines(), ElementsAre(20, 9, 10, 10, 20, 20)) << "10 to 20 are the lines of 1080i/60";
}

TEST_F(Loading, AnEmptyListTakesAnEmptyTextOfTheFileOnly) {
  Load(Sample(2));
  ASSERT_EQ(form.ComUB(4).ListCount(), 0) << "a mode without user bits on the third line";
  EXPECT_EQ(TakeBoxes().size(), 3U);
  // A name that translates to nothing is another thing than no name.
  Load(With("output VITC3 user bits", "Video Recorder Time"));
  EXPECT_EQ(TakeBoxes().front(), "Output VITC3 User Bit not found, auto set to default");
  form.ComDownConv(2).Clear();
  Load(Sample(2));
  EXPECT_EQ(TakeBoxes().front(), "Horizontal Filter not found, auto set to default");
  EXPECT_EQ(form.ComDownConv(2).ListIndex(), -1) << "nothing to fall back to";
}

TEST_F(Loading, NumbersAtTheirBounds) {
  Load(Sample(2));
  tool.panels.SetDefaults();
  const int lines = form.vitcModes.Selected();
  for (const int byte : {0, 4, 255}) {
    Load(With("VITC selection", std::int64_t{byte}));
    EXPECT_EQ(form.vitcModes.Selected(), lines) << byte;
  }
  for (const int byte : {1, 2, 255}) {
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
    EXPECT_NE(Load(bytes), ReadEnd::kNone);
    bytes[i] ^= 0xFF;
  }
  EXPECT_EQ(Load(bytes), ReadEnd::kLoaded);
  ExpectWholePanels();
}

TEST_F(Loading, EachFailureHasItsMessage) {
  const FileBytes good = Sample(2);
  const auto with = [&](std::size_t at, std::uint8_t byte) {
    FileBytes bytes = good;
    bytes[at] = byte;
    return bytes;
  };
  const auto told = [&](const FileBytes& bytes) {
    form.tWinMess.SetText("left over");
    EXPECT_EQ(Load(bytes), ReadEnd::kNotReadable);
    EXPECT_EQ(form.tWinMess.Text(), "") << "the defaults";
    return TakeBoxes().back();
  };
  EXPECT_EQ(told(with(0, 'X')), "Data Process Error, file header corrupt or unreadable");
  EXPECT_EQ(told(with(16, 9)), "No 7340 Configuration found in file, using Default.");
  EXPECT_EQ(told(with(Behind(good, "Multi-Camera Episodi"), 'k')), kCorrupt) << "an unknown mode";
  EXPECT_EQ(told(with(Behind(good, "(16 lines/field)"), 0x80)), kCorrupt) << "a slate too long to count";
  EXPECT_EQ(told(with(Behind(good, "LTC Output Level (mV)") + 2, 0xFF)), kCorrupt) << "a negative parameter";
  EXPECT_EQ(told(with(Behind(good, "User Bit Generator") + 33, 7)), kCorrupt) << "a tick that is neither";
  EXPECT_EQ(Load({}), ReadEnd::kEmpty);
  files.refuseReading = true;
  EXPECT_EQ(told(good), "Import Error");
}

TEST_F(Loading, AFailureBehindTheWindowsKeepsWhatWasTaken) {
  std::vector<SystemParameterRec> before = vars.SystemParameters;
  vars.DatabasePath = folder.File("none.mdb");
  EXPECT_EQ(Load(Sample(2)), ReadEnd::kLoaded) << "a database that is gone is told by each merge";
  const auto boxes = TakeBoxes();
  ASSERT_EQ(boxes.size(), 3U);
  for (const std::string& box : boxes) EXPECT_TRUE(box.starts_with("3024 ")) << box;
  RunSql(folder.File("shotsys.mdb"),
         "CREATE TABLE \"Character Windows\" (\"Device\"); INSERT INTO \"Character Windows\" VALUES (0);"
         "CREATE TABLE \"Deleted Parameters\" (\"Class\")");
  vars.DatabasePath = folder.File("shotsys.mdb");
  EXPECT_EQ(Load(Sample(2)), ReadEnd::kIncomplete);
  EXPECT_TRUE(TakeBoxes().back().starts_with("3021    ")) << "no deleted parameter at all";
  EXPECT_EQ(form.tWinMess.Text(), "Take 3 é") << "no defaults";
}

TEST_F(Loading, AWindowTableWithoutRowsLeavesWindowsAndRowsInStep) {
  RunSql(folder.File("shotsys.mdb"), "CREATE TABLE \"Character Windows\" (\"Device\")");
  vars.DatabasePath = folder.File("shotsys.mdb");
  EXPECT_EQ(Load(Sample(2)), ReadEnd::kNotReadable);
  EXPECT_THAT(TakeBoxes(), ElementsAre("Data Process Error, file may be corrupt"));
  EXPECT_EQ(UBound(vars.CharWindows), form.lName.UBound());
}

TEST_F(Loading, AFileThatIsNotThereIsLookedFor) {
  fileDialog.FileName = folder.File("gone.qcf");
  tool.configurationFile.ReadConfigFile();
  EXPECT_THAT(TakeBoxes(),
              ElementsAre("Default folder could not found.  Please browse to the .qcf file location",
                          "Qcf file location was not set, Data will not be loaded properly"));
  EXPECT_EQ(fileDialog.shown.back().initDir, vars.AppPath);
  EXPECT_THAT(files.folders, ElementsAre(vars.AppPath));
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
  fileDialog.choices = {Write("odd.name.qcf", {1, 2, 3})};
  tool.configurationFile.LoadConfig();
  EXPECT_EQ(vars.CurrentFile, "odd");
  EXPECT_EQ(form.Caption(), "7340 Marlinset - odd");
  EXPECT_EQ(Panel(4), "File odd Loaded ");
  EXPECT_EQ(settings.GetSetting("Load", ""), folder.Path() + "/");
  EXPECT_EQ(fileDialog.shown.back().filter, "Brandal Marlinset File|*.qcf");
  EXPECT_EQ(fileDialog.shown.back().fileName, "*.qcf");
  EXPECT_EQ(fileDialog.shown.back().initDir, vars.AppPath) << "as long as there was no other";
  EXPECT_EQ(fileDialog.shown.back().flags, kHideReadOnly);
  EXPECT_THAT(files.folders, ElementsAre(vars.AppPath));
  TakeBoxes();

  const FileBytes before = PanelBytes();
  fileDialog.choices = {Write("empty.qcf", {})};
  files.refuseFolders = true;  // the dialog opens where it can then
  tool.configurationFile.LoadConfig();
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  EXPECT_EQ(Panel(4), "File empty Loaded ");
  EXPECT_EQ(PanelBytes(), before);

  fileDialog.choices = {Write("undotted", Sample(2))};
  tool.configurationFile.LoadConfig();
  EXPECT_EQ(TakeBoxes().back(), "Error during load, load aborted!") << "after it was taken";
  EXPECT_EQ(form.tWinMess.Text(), "Take 3 é");
}

TEST_F(Loading, ACancelledOpenChangesNothing) {
  fileDialog.FileName = "before.qcf";
  const FileBytes before = PanelBytes();
  tool.configurationFile.LoadConfig();
  EXPECT_THAT(TakeBoxes(), IsEmpty());
  EXPECT_EQ(fileDialog.FileName, "before.qcf");
  EXPECT_EQ(vars.CurrentFile, "Unsaved");
  EXPECT_EQ(PanelBytes(), before);
  EXPECT_EQ(Panel(4), "Getting Saved Data ");
  form.mnuNew.OperatorClick();
  EXPECT_EQ(fileDialog.FileName, vars.AppPath + "New.qcf") << "no folder was chosen so far";
}

}  // namespace
}  // namespace marlinset
