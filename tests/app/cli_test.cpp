// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <nlohmann/json.hpp>

#include "tests/app/child_program.h"
#include "tests/support/sqlite_file.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using nlohmann::json;
using testing::HasSubstr;

/// The command line twin on a virtual unit behind a real pseudo terminal.
class CliTest : public testing::Test {
 protected:
  std::string Link() const { return folder_.File("unit"); }
  std::string Settings() const { return folder_.File("settings.ini"); }
  std::vector<std::string> Words(std::vector<std::string> words) const {
    for (const char* word : {"--settings"}) words.insert(words.begin() + 1, {word, Settings()});
    return words;
  }
  /// A virtual unit with these options, ready.
  std::unique_ptr<UnitProgram> Unit(std::vector<std::string> options = {}) const {
    options.insert(options.begin(), {"--link", Link()});
    auto unit = std::make_unique<UnitProgram>(options);
    EXPECT_THAT(unit->ReadLine(), HasSubstr("ready"));
    return unit;
  }
  static json Answer(CliProgram& script, const std::string& line) {
    script.Tell(line);
    return json::parse(script.ReadLine(), nullptr, false);
  }

  TempFolder folder_;
};

TEST_F(CliTest, ASetupGoesToTheUnitByScript) {
  const auto unit = Unit({"--model", "32"});
  CliProgram script(Words({"script", "--com1", Link(), "--answer", "yes"}));
  EXPECT_EQ(json::parse(script.ReadLine()), json::parse(R"({"ok":true,"messages":[]})"));
  Answer(script, "log on");
  EXPECT_EQ(Answer(script, R"(choose comVS "1080i/60")")["ok"], true);
  EXPECT_EQ(Answer(script, "click bSConfig")["messages"], json::array());
  script.Tell("get StatBar(3)");
  EXPECT_EQ(script.ReadLine(),
            R"json({"ok":true,"name":"StatBar(3)","kind":"panel","text":"7340 Configuration Complete. ",)json"
            R"json("picture":"Image2(0)","messages":[]})json");
  EXPECT_EQ(Answer(script, "get StatBar(4)")["text"], "HD7340Q");
  const json log = Answer(script, "log")["log"];
  ASSERT_GT(log.size(), 4U);
  EXPECT_EQ(log[0]["dir"], "tx");
  EXPECT_EQ(log[0]["hex"], "02030f0035b9");
  EXPECT_EQ(log[1]["dir"], "rx");
  EXPECT_EQ(Answer(script, "log")["log"], json::array()) << "taken";
  script.Tell("quit");
  EXPECT_EQ(script.End(), 0);
}

TEST_F(CliTest, ScriptAnswersOnTheVirtualClock) {
  struct Line {
    const char* action;
    const char* answer;  // without its messages
  };
  const Line lines[] = {
      {"get upVitc1(5)",
       R"json({"ok":true,"name":"upVitc1(5)","kind":"spin","value":14,"min":20,"max":10,)json"
       R"json("increment":1,"enabled":true,"visible":false,"color":2147483653})json"},
      {"step upVitc1(1) down 2", R"({"ok":true})"},
      {"spin udVer(0) 60", R"({"ok":true})"},
      {"step upVitc1(1) up", R"({"ok":true})"},
      {"check chPrev 1", R"({"ok":true})"},
      {"check chPrev 0", R"({"ok":true})"},
      {R"(type tWinMess "roll \"4\" é")", R"({"ok":true})"},
      {R"(key tWinMess "\b")", R"({"ok":true})"},
      {"variable ParDisType", R"({"ok":true,"value":"Dec"})"},
      {"variable tClearStat", R"({"ok":true,"value":{"enabled":true,"interval":10000}})"},
      {"activate off", R"({"ok":true})"},
      {"variable MainFormActive", R"({"ok":true,"value":false})"},
      {R"(row CharWindows 0 "Symbol Length" 3)", R"({"ok":true})"},
      {"wait 60000", R"({"ok":true})"},
      {"setting nothing", R"({"ok":true,"value":""})"},
      {"choose ComWin(2) #1", R"({"ok":true})"},
      {"hover frmStart", R"({"ok":true})"},
  };
  CliProgram script(Words({"script", "--clock", "virtual"}));
  script.ReadLine();
  for (const Line& line : lines) {
    json answer = Answer(script, line.action);
    answer.erase("messages");
    EXPECT_EQ(answer, json::parse(line.answer)) << line.action;
  }
  EXPECT_EQ(Answer(script, "get tWinMess")["text"], "roll \"4\" ");
  EXPECT_EQ(Answer(script, "get ComWin(2)")["index"], 1);
  EXPECT_EQ(Answer(script, "get upVitc1(1)")["value"], 15) << "two down, one up";
  EXPECT_EQ(Answer(script, "get chPrev")["value"], 0);
  EXPECT_EQ(Answer(script, "records CharWindows")["rows"][0]["Symbol Length"], 3);
  const json box = Answer(script, "click bOpen")["messages"][0];
  EXPECT_EQ(box["kind"], "message");
  EXPECT_EQ(box["answer"], "ok");
  EXPECT_THAT(box["text"].get<std::string>(), HasSubstr("port 1"));
  EXPECT_EQ(script.End(), 0);
}

TEST_F(CliTest, WhatAScriptCannotDoIsToldAndItGoesOn) {
  CliProgram script(Words({"script", "--clock", "virtual"}));
  script.ReadLine();
  for (const char* line : {"jump comVS",
                           "get comXX",
                           "get comTB(9)",
                           "get",
                           "get comVS more",
                           R"(choose comVS "no such")",
                           "choose comVS #99",
                           "check comVS 1",
                           "check chPrev 2",
                           "spin udVer(0) ten",
                           "step udVer(0) left",
                           "click comVS",
                           R"(type comVS "open)",
                           "key tWinMess \"ab\"",
                           "wait -1",
                           "answer perhaps",
                           "log maybe",
                           "variable Nothing",
                           "records Nothing",
                           R"(row CharWindows 999 "Top" 1)",
                           R"(row CharWindows 0 "Top" 70000)",
                           "activate",
                           "get frmNowhere.lName"}) {
    const json answer = Answer(script, line);
    EXPECT_EQ(answer["ok"], false) << line;
    EXPECT_FALSE(answer["error"].get<std::string>().empty()) << line;
  }
  EXPECT_EQ(Answer(script, "get comVS")["ok"], true);
  EXPECT_EQ(script.End(), 2);
}

TEST_F(CliTest, AScriptDoesWhatAnOperatorCould) {
  CliProgram script(Words({"script", "--clock", "virtual", "--command", "MCAM"}));
  script.ReadLine();
  EXPECT_EQ(Answer(script, "variable OperatingMode")["value"], "Multi-Camera Episodic");
  for (const char* line : {"scroll VScroll1 255", "hover lName(0)", "leave tWinMess", "log off"}) {
    EXPECT_EQ(Answer(script, line)["ok"], true) << line;
  }
  EXPECT_EQ(Answer(script, "get VScroll1")["value"], 255);

  // What is disabled can be pointed at, but does nothing.
  for (const char* line : {"click bGetID", "check chField(3) 1"}) {
    EXPECT_EQ(Answer(script, line)["ok"], true) << line;
  }
  EXPECT_EQ(Answer(script, "get StatBar(4)")["text"], "");
  EXPECT_EQ(Answer(script, "get chField(3)")["value"], 0);

  EXPECT_EQ(Answer(script, "answer no yes")["ok"], true);
  for (const char* answer : {"no", "yes", "no"}) {  // the third by itself
    Answer(script, "step udVal(20) up");
    const json messages = Answer(script, "click mnuNew")["messages"];
    ASSERT_FALSE(messages.empty());
    EXPECT_EQ(messages[0]["answer"], answer);
    EXPECT_EQ(messages.size(), std::string_view(answer) == "yes" ? 2U : 1U) << "Yes saves first";
  }

  Answer(script, "click oView(2)");
  Answer(script, "step udVal(20) up");
  const json questions = Answer(script, "close")["messages"];
  ASSERT_EQ(questions.size(), 2U);
  EXPECT_EQ(questions[0]["text"], "Save Changes before Exit?");
  EXPECT_EQ(questions[1]["text"], "Restart next time with this configuration?");
  EXPECT_EQ(script.End(), 0);
  CliProgram next(Words({"script", "--clock", "virtual"}));
  next.ReadLine();
  EXPECT_EQ(Answer(next, "get oView(2)")["value"], true);
}

TEST_F(CliTest, AScriptWorksTheWindowsOverTheMainWindow) {
  CliProgram script(Words({"script", "--clock", "virtual"}));
  script.ReadLine();
  EXPECT_EQ(Answer(script, "click frmAbout.cmdOK")["ok"], false) << "not open";
  EXPECT_EQ(Answer(script, "click mnuAbout")["messages"],
            json::parse(R"([{"kind":"dialog","name":"frmAbout"}])"));
  EXPECT_THAT(Answer(script, "get frmAbout.lblVersion")["text"].get<std::string>(),
              testing::StartsWith("Release "));
  EXPECT_EQ(Answer(script, "variable MainFormActive")["value"], false);
  EXPECT_EQ(Answer(script, "click frmAbout.cmdOK")["ok"], true);
  EXPECT_EQ(Answer(script, "variable MainFormActive")["value"], true);

  for (const char* number : {"30", "31"}) {
    Answer(script, "click mnuAddParameter");
    Answer(script, std::string("type frmEditParameters.txtClass \"") + number + "\"");
    EXPECT_EQ(Answer(script, "click frmEditParameters.cmdUpdate")["messages"][0]["icon"], "information");
  }
  EXPECT_EQ(Answer(script, "click frmEditParameters.cmdDone")["ok"], false) << "closed itself";
  Answer(script, "click mnuRemoveParameter");
  EXPECT_EQ(Answer(script, R"(choose frmDeleteParameter.lstParameter "31")")["ok"], true);
  EXPECT_EQ(Answer(script, "choose frmDeleteParameter.lstParameter #2")["ok"], false);
  EXPECT_EQ(Answer(script, "click frmDeleteParameter.Command2")["messages"][0]["text"],
            "The Parameter entry has been deleted");
  const json list = Answer(script, "get frmDeleteParameter.lstParameter");
  EXPECT_EQ(list["list"], json::parse(R"([["30","0","","0","0"]])"));
  EXPECT_EQ(list["index"], 0);
  EXPECT_EQ(Answer(script, "close")["messages"][0]["text"], "Save Changes before Exit?");
  EXPECT_EQ(script.End(), 2);
}

TEST_F(CliTest, AStartThatFailsSaysWhy) {
  struct Case {
    const char* sql;
    const char* box;
  };
  const Case cases[] = {
      {nullptr, "3024  "},
      {"create table \"Operating Mode\"(ModeId text, Name text, \"Order\", Description text, Ignore1);"
       "insert into \"Operating Mode\" values('A', 'HD Video Downconvert', 1, '', 0)",
       "DataBase Error. Expected file at Path "}};
  for (const Case& testCase : cases) {
    if (testCase.sql) RunSql(folder_.File("shotsys.mdb"), testCase.sql);
    CliProgram script(Words({"script", "--clock", "virtual", "--program-folder", folder_.Path()}));
    const json answer = json::parse(script.ReadLine());
    EXPECT_EQ(answer["ok"], false);
    EXPECT_THAT(answer["messages"][0]["text"].get<std::string>(), testing::StartsWith(testCase.box));
    EXPECT_EQ(script.End(), 3);
  }
}

TEST_F(CliTest, AScriptComesFromAFileThatMustBeThere) {
  const std::string file = folder_.File("look.script");
  CliProgram missing(Words({"script", "--clock", "virtual", file}));
  EXPECT_THAT(missing.ReadDiagnostic(), HasSubstr(file));
  EXPECT_EQ(missing.End(), 2);

  std::ofstream(file) << "variable CurrentFile\n";
  CliProgram script(Words({"script", "--clock", "virtual", file}));
  script.ReadLine();
  EXPECT_EQ(json::parse(script.ReadLine(), nullptr, false)["value"], "System Default Video");
  EXPECT_EQ(script.End(), 0);
}

TEST_F(CliTest, SendTellsEachMessageAndTheEnd) {
  const auto unit = Unit();
  CliProgram send(Words({"send", "--verbose", "--com2", Link()}));
  std::string line;
  std::string last;
  int acknowledged = 0;
  while (!(line = send.ReadLine()).empty()) {
    if (line.find(" acknowledged ") != std::string::npos) ++acknowledged;
    last = line;
  }
  EXPECT_EQ(last, "7340 Configuration Complete. ");
  EXPECT_GT(acknowledged, 60);
  EXPECT_EQ(send.End(), 0);
}

TEST_F(CliTest, SendEndsWithTheStatusOfWhatHappened) {
  struct Case {
    std::vector<std::string> unit;
    const char* steer;
    std::vector<std::string> options;
    int status;
    const char* diagnostic;
  };
  const Case cases[] = {
      {{}, "drop 1", {}, 6, "messages were not acknowledged"},
      {{"--standard", "0"}, "state", {}, 5, "Video Standard not detected. Verify communications."},
      {{"--standard", "1"}, "state", {}, 1, "Video Standard Mismatch, Switch to Manual Mode?"},
      {{"--standard", "1", "--manual"}, "state", {"--answer", "yes"}, 0, "Video Standard will be changed!"},
      {{"--standard", "5"}, "state", {"--answer", "yes"}, 0, "Video Standard Mismatch"},
      {{"--standard", "1"}, "unplug", {}, 4, "there is no device"},
      {{}, "state", {"--baud", "9600"}, 2, "--baud"},
  };
  for (const Case& testCase : cases) {
    SCOPED_TRACE(testCase.diagnostic);
    const auto unit = Unit(testCase.unit);
    // The state comes when the steering line has been taken in.
    unit->Tell(testCase.steer);
    unit->Tell("state");
    unit->ReadLine();
    std::vector<std::string> words = Words({"send", "--com1", Link()});
    words.insert(words.end(), testCase.options.begin(), testCase.options.end());
    CliProgram send(words);
    std::string told;
    for (std::string line = send.ReadDiagnostic(); !line.empty(); line = send.ReadDiagnostic()) told += line;
    EXPECT_EQ(send.End(), testCase.status);
    EXPECT_THAT(told, HasSubstr(testCase.diagnostic));
  }
}

TEST_F(CliTest, CtrlCStopsASendBetweenTwoMessages) {
  const auto unit = Unit({"--ack-ms", "60"});
  CliProgram send(Words({"send", "--verbose", "--com1", Link()}));
  EXPECT_THAT(send.ReadLine(), HasSubstr("02 03 0F 00 35 B9"));
  send.Interrupt();
  EXPECT_THAT(send.ReadDiagnostic(), HasSubstr("Stopped"));
  EXPECT_EQ(send.End(), 130);
}

TEST_F(CliTest, IdentifyTellsModelStandardAndFirmware) {
  const auto unit = Unit({"--model", "10", "--standard", "2", "--manual"});
  CliProgram identify(Words({"identify", "--com1", Link()}));
  EXPECT_EQ(identify.ReadLine(), "Model: HDSD7340");
  EXPECT_EQ(identify.ReadLine(), "Video standard: PAL, manual selection");
  EXPECT_EQ(identify.ReadLine(), "Video: Video Present");
  EXPECT_THAT(identify.ReadLine(), testing::StartsWith("Firmware: "));
  EXPECT_EQ(identify.End(), 0);
}

}  // namespace
}  // namespace marlinset
