// SPDX-License-Identifier: GPL-3.0-or-later
// Parameters and windows as tables of text: what is read, what is refused, what changes.
#include "csv/csv.h"
#include "files/panel_document.h"
#include "files/qcf_writer.h"
#include "tests/panels/panel_rig.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::StartsWith;

struct TablesTest : testing::Test {
  /// The values of a table and the rows that it has besides, or what is wrong with it.
  std::string Said(TableKind kind, std::string_view text) {
    std::string said;
    try {
      const TableImport import = tables_.Read(kind, folder_.Write("table.csv", text));
      for (const NewValue& value : import.values)
        said += value.name.substr(value.name.find("/ ") + 2) + "=" + TextOf(value.value) + "; ";
      for (const std::string& unknown : import.unknown) said += "no " + unknown + "; ";
    } catch (const TableError& wrong) {
      said = wrong.what();
    }
    return said;
  }
  std::vector<std::uint8_t> Composition() { return WriteDocument(DocumentOfPanels(rig_.vars, rig_.form)); }
  int ValueOf(int parameterClass, int number) {
    for (const SystemParameterRec& parameter : rig_.vars.SystemParameters) {
      if (parameter.Class == parameterClass && parameter.Parameter == number) return parameter.Value;
    }
    return -1;
  }

  const TempFolder folder_;
  PanelRig rig_;
  TableCommands& tables_ = rig_.tool.tables;
};

TEST_F(TablesTest, ReadsWhatSpreadsheetsWriteAndRefusesTheRest) {
  using enum TableKind;
  rig_.vars.CharWindows[1].Name = rig_.vars.CharWindows[0].Name;
  const std::string twice = rig_.vars.CharWindows[0].Name;
  using std::string_literals::operator""s;
  const struct {
    TableKind kind;
    std::string text;
    std::string said;
  } cases[] = {
      {kParameters, "Class,Parameter,Value\n2,0,9\n", "2.0 / Value=9; "},
      {kParameters, "\xEF\xBB\xBFvalue;CLASS;Parameter\r\n-9;2;1\r\n\r\n 32767 ;2;0",
       "2.0 / Value=32767; 2.1 / Value=-9; "},
      {kParameters, "Class\tDescription\tParameter\tValue\r2\t\"a \"\"b\"\"\n\tc\"\t0\t7\r",
       "2.0 / Value=7; "},
      {kParameters, "Class,Parameter,Value\n99,1,5\n1,0,5\n,,\n", "no 99.1; no 1.0; "},
      {kParameters, "Class,Parameter\n2,0\n", ""},
      {kParameters, "", "line 1: the table is empty"},
      {kParameters, "\n \r\n", "line 1: the table is empty"},
      {kParameters, "Class,Value\n2,0\n", "line 1: the columns Class and Parameter have to say"},
      {kParameters, "Class,Parameter,Volume\n", "line 1: there is no column \"Volume\""},
      {kParameters, "Class,,Parameter\n", "line 1: there is no column \"\""},
      {kParameters, "Class,Parameter,Value,,\n2,0,9,,\n2,1,8\n2,2,7,,,\n",
       "2.0 / Value=9; 2.1 / Value=8; 2.2 / Value=7; "},
      {kParameters, "Class,Parameter,Value,\n2,0,1,2\n", "line 2: has 4 fields, and the first line 3"},
      {kParameters, "\xEF\xBB\xBFSep=;\r\n\"Class\";Parameter;Value\r\n2;0;9\r\n2;1;x\r\n",
       "line 4: Value is \"x\""},
      {kParameters, "sep=;\nClass;Description, and more;Parameter\n", "line 2: there is no column \"Desc"},
      {kParameters, "Class,Parameter,class\n", "line 1: the column Class is there twice"},
      {kParameters, "Class,Parameter,Value\n2,0,1\n\n2,0,1\n", "line 4: 2.0 is there twice"},
      {kParameters, "Class,Parameter,Value\n99,0,1\n99,0,2\n", "line 3: 99.0 is there twice"},
      {kParameters, "Class,Parameter,Value\n2,0\n", "line 2: has 2 fields, and the first line 3"},
      {kParameters, "Class,Parameter,Value\n2,0,1,2\n", "line 2: has 4 fields"},
      {kParameters, "Class,Parameter,Value\n2,0,32768\n",
       "line 2: Value is \"32768\" and has to be a number from -32768"},
      {kParameters, "Class,Parameter,Value\n2,0,\n", "line 2: Value is \"\""},
      {kParameters, "Class,Parameter,Value\n2,0,1F\n", "line 2: Value is \"1F\""},
      {kParameters, "Class,Parameter,Value\n2,0,99999999999999999999\n", "line 2: Value is"},
      {kParameters, "Class,Parameter,Description,Value\n2,0,\"a\nb\",1\n2,1,x,y\n", "line 4: Value is \"y\""},
      {kParameters, "Class,Parameter,Description,Value\n2,0,5\" or 6\",1\n",
       "line 2: has a quotation mark out of place"},
      {kParameters, "Class,Parameter,Description,Value\n2,0,x,1\n2,1,\"open,1\n",
       "line 3: opens a quotation mark"},
      {kParameters, "Class,Parameter,Description,Value\n2,0,\xB0,1\n", "line 2: is not UTF-8"},
      {kParameters,
       "\xFF\xFE"
       "C\0l\0"s,
       "line 1: holds a zero byte"},
      {kParameters, "Class,Parameter,Value\n2,\0,1\n"s, "line 2: holds a zero byte"},
      {kParameters, std::string(200, ','), "line 1: has more than 100 fields"},
      {kWindows, "On,Name,Vertical\n1, text ,255\n", "Text / On=1; Text / Vertical=255; "},
      {kWindows, "Number,Horizontal\n14,7\n77,7\n", "Text / Horizontal=7; no 77; "},
      {kWindows, "Name,Slate\nNowhere,1\nTime of Day,1\n", "no Nowhere; no Time of Day; "},
      {kWindows, "Name,On\n" + twice + ",1\n", "line 2: several windows are called"},
      {kWindows, "Number,Name,On\n1," + twice + ",0\n", twice + " / On=0; "},
      {kWindows, "On,Slate\n1,1\n", "line 1: a column Name or Number"},
      {kWindows, "Name,On\nText,2\n", "line 2: On is \"2\" and has to be 0 or 1"},
      {kWindows, "Name,Vertical\nText,256\n",
       "line 2: Vertical is \"256\" and has to be a number from 0 to 255"},
      {kWindows, "Name,Symbol\nText,1\n", "line 2: Text has no Symbol"},
      {kWindows, "Name,Symbol\nText,0\n", "Text / Symbol=0; "},
  };
  for (const auto& row : cases) {
    const std::string said = Said(row.kind, row.text);
    if (row.said.starts_with("line")) {
      EXPECT_THAT(said, StartsWith(row.said)) << row.text;
    } else {
      EXPECT_EQ(said, row.said) << row.text;
    }
  }
}

TEST_F(TablesTest, TakesALongTableAndNoneThatIsEndless) {
  std::string text = "Class,Parameter,Value\n2,0,9\n";
  for (int row = 0; row < 100'000; ++row)
    text += std::to_string(100 + row / 1000) + "," + std::to_string(row % 1000) + ",1\n";
  EXPECT_EQ(tables_.Read(TableKind::kParameters, folder_.Write("long.csv", text)).unknown.size(), 100'000U);
  text = "Class,Parameter\n";
  while (text.size() < 10'000'000) text += "1,2\n1,3\n1,4\n";
  EXPECT_THAT(Said(TableKind::kParameters, text), StartsWith("line 5: 1.2 is there twice"));
  EXPECT_THROW(tables_.Read(TableKind::kParameters, folder_.Path()), RuntimeError);
}

TEST_F(TablesTest, WhatIsExportedComesBackAsOneEntryAndGoesOnAir) {
  rig_.Do("spin udVal(5) -3; check chDblSize(13) 1; spin udVer(13) 48; type tWinMess \"A\"");
  const std::string parameters = folder_.File("p.csv"), windows = folder_.File("w.csv");
  tables_.Export(TableKind::kParameters, parameters);
  tables_.Export(TableKind::kWindows, windows);
  const auto exported = Composition();
  rig_.Do("spin udVal(5) 4; spin udVal(6) 4; check chDblSize(13) 0; spin udVer(13) 52");
  const auto changed = Composition();
  const TableImport import = tables_.Read(TableKind::kParameters, parameters);
  rig_.Do("click bDesc; click bClass");
  rig_.GoInteractive();
  rig_.Sent();
  EXPECT_EQ(tables_.Take(import), 2) << "whatever order the list had meanwhile";
  EXPECT_EQ(rig_.Sent().size(), 2U);
  EXPECT_EQ(tables_.Take(tables_.Read(TableKind::kWindows, windows)), 1);
  EXPECT_EQ(Composition(), exported);
  EXPECT_THAT(rig_.tool.history.UndoNames(), testing::IsSupersetOf({"Import p.csv", "Import w.csv"}));
  rig_.Do("click mnuUndo; click mnuUndo");
  EXPECT_EQ(Composition(), changed);
  EXPECT_EQ(
      tables_.Take(tables_.Read(TableKind::kParameters, folder_.Write("none.csv", "Class,Parameter\n2,0\n"))),
      0);
  EXPECT_THAT(rig_.TakeBoxes(), IsEmpty());
}

TEST_F(TablesTest, PastesTablesAndNumbersAndResets) {
  const std::vector<ParameterKey> two = {{2, 1}, {2, 0}};
  const std::string copied = tables_.CopyOf(two);
  EXPECT_THAT(
      copied,
      StartsWith("Class\tParameter\tDescription\tValue\n2\t1\tLTC Reader Lowest Level (mV)\t80\n2\t0\t"));
  const struct {
    std::string text;
    int first, second;  ///< of `two` afterwards
    std::string box;    ///< what its line below begins with
  } cases[] = {
      {"7", 7, 7, ""},
      {"8\r\n-9\r\n", 8, -9, ""},
      {"Parameter\tClass\tValue\n0\t2\t11\n5\t99\t1\n", 8, 11, "99.5"},
      {"1\n2\n3", 8, 11, "The clipboard holds 3 values, and 2 parameters are selected."},
      {"1\t2", 8, 11, "line 1: has several fields"},
      {"", 8, 11, "line 1: there is nothing to paste"},
      {"70000", 8, 11, "line 1: Value is \"70000\""},
      {"Kind regards", 8, 11, "The clipboard holds no parameters."},
      {"\x01\x02\"", 8, 11, "line 1: "},
      {copied, 80, 8, ""},
  };
  for (const auto& row : cases) {
    SCOPED_TRACE(row.text);
    tables_.Paste(row.text, two);
    EXPECT_THAT((std::vector{ValueOf(2, 1), ValueOf(2, 0)}), ElementsAre(row.first, row.second));
    ASSERT_EQ(rig_.dialogs.shown.size(), row.box.empty() ? 0U : 1U);
    for (const MessageBox& box : rig_.dialogs.shown) EXPECT_THAT(box.remedy, StartsWith(row.box));
    rig_.TakeBoxes();
  }
  tables_.Paste("1", {});
  EXPECT_THAT(rig_.TakeBoxes(), ElementsAre("Nothing was pasted."));
  tables_.Paste("1", two);
  tables_.Reset(two);
  EXPECT_EQ(ValueOf(2, 0), tables_.ReferenceOf({2, 0}));
  EXPECT_EQ(rig_.tool.history.UndoNames().front(), "Reset to Reference");
  EXPECT_EQ(tables_.ReferenceOf({99, 1}), std::nullopt);
}

TEST_F(TablesTest, TheMenuWritesAndOffersTables) {
  std::vector<ComparedValue> offered;
  rig_.tool.compareCommand.show = [&](const Offer& offer) { offered = offer.differences(); };
  rig_.fileDialog.choices = {folder_.File("windows")};
  rig_.form.mnuExportWin.OperatorClick();
  EXPECT_THAT(folder_.Read("windows.csv"), StartsWith("Name,Number,On,"));
  rig_.fileDialog.choices = {folder_.Write("p.csv", "Class,Parameter,Value\n2,0,9\n99,1,3\n"),
                             folder_.Write("bad.csv", "Class,Parameter,Value\n2,0,x\n")};
  rig_.form.mnuImportPar.OperatorClick();
  ASSERT_EQ(offered.size(), 2U);
  EXPECT_EQ(offered[0].name, "system parameters / 2.0 / Value");
  EXPECT_EQ(offered[0].about, "LTC Reader Flywheel (frames)");
  EXPECT_TRUE(offered[1].OneSided()) << "a row that the setup lacks is seen and not taken over";
  EXPECT_THAT(rig_.TakeBoxes(), IsEmpty());
  rig_.form.mnuImportPar.OperatorClick();
  EXPECT_THAT(rig_.TakeBoxes(), ElementsAre("This table cannot be imported."));
  EXPECT_EQ(ValueOf(2, 0), 8);
}

}  // namespace
}  // namespace marlinset
