// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <filesystem>

#include "tests/cli/child_program.h"
#include "tests/support/sqlite_file.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using testing::HasSubstr;

/// The command line twin, also on a virtual unit behind a real pseudo terminal.
class CliTest : public testing::Test {
 protected:
  std::string Link() const { return folder_.File("unit"); }
  std::vector<std::string> Words(std::vector<std::string> words) const {
    words.insert(words.end(), {"--settings", folder_.File("settings.ini")});
    return words;
  }
  std::vector<std::string> Virtual(std::vector<std::string> words = {}) const {
    words.insert(words.begin(), {"--clock", "virtual"});
    return Words(std::move(words));
  }
  /// A virtual unit with these options, ready.
  std::unique_ptr<UnitProgram> Unit(std::vector<std::string> options = {}) const {
    options.insert(options.begin(), {"--link", Link()});
    auto unit = std::make_unique<UnitProgram>(options);
    EXPECT_THAT(unit->ReadLine(), HasSubstr("ready"));
    return unit;
  }

  TempFolder folder_;
};

TEST_F(CliTest, ASetupGoesToTheUnitByScript) {
  const auto unit = Unit({"--model", "32"});
  Script script(Words({"--com1", Link(), "--answer", "yes"}));
  EXPECT_EQ(script.start, json::parse(R"({"ok":true,"messages":[]})"));
  script.Expect({{"log on", ""},
                 {R"(choose comVS "1080i/60")", ""},
                 {"click bSConfig", R"({"messages":[]})"},
                 {"get StatBar(4)", R"({"text":"HD7340Q"})"}});
  script.Tell("get StatBar(3)");
  EXPECT_EQ(script.ReadLine(),
            R"json({"ok":true,"name":"StatBar(3)","kind":"panel","text":"7340 Configuration Complete. ",)json"
            R"json("picture":"Image2(0)","messages":[]})json");
  const json log = script.Answer("log")["log"];
  EXPECT_EQ(log[0]["dir"].dump() + log[0]["hex"].dump() + log[1]["dir"].dump(), R"("tx""02030f0035b9""rx")");
  EXPECT_EQ(log[4]["hex"].dump() + log[4]["verdict"].dump(), R"("02090f00c00002080000001e""acknowledged")");
  script.Expect({{"log", R"({"log":[]})"}});
  script.Tell("quit");
  EXPECT_EQ(script.End(), 0);
}

TEST_F(CliTest, AScriptDoesWhatAnOperatorCould) {
  Script script(Virtual({"--command", "MCAM"}));
  script.Expect({{"variable OperatingMode", R"({"value":"Multi-Camera Episodic"})"},
                 {"get upVitc1(5)", R"({"kind":"spin","value":14,"min":20,"max":10,"increment":1,
                                        "enabled":true,"visible":false,"color":2147483653})"},
                 {"step upVitc1(1) down 2", ""},
                 {"step upVitc1(1) up", ""},
                 {"get upVitc1(1)", R"({"value":15})"},
                 {"spin udVer(0) 60", ""},
                 {"check chPrev 1", ""},
                 {"check chPrev 0", ""},
                 {"get chPrev", R"({"value":0})"},
                 {R"(type tWinMess "roll \"4\" é")", ""},
                 {R"(key tWinMess "\b")", ""},
                 {"get tWinMess", R"({"text":"roll \"4\" "})"},
                 {R"(type tWinMess "\u0416")", ""},
                 {"state", R"({"state":{"text message":"?"}})"},
                 {"variable tClearStat", R"({"value":{"enabled":true,"interval":10000}})"},
                 {"activate off", ""},
                 {"variable MainFormActive", R"({"value":false})"},
                 {R"(row CharWindows 0 "Symbol Length" 3)", ""},
                 {"wait 60000", ""},
                 {"setting nothing", R"({"value":""})"},
                 {"choose ComWin(2) #1", ""},
                 {"get ComWin(2)", R"({"index":1})"},
                 {"hover frmStart", ""},
                 {"leave tWinMess", ""},
                 {"scroll VScroll1 255", ""},
                 {"get VScroll1", R"({"value":255})"},
                 // What is disabled can be pointed at, but does nothing.
                 {"click bGetID", ""},
                 {"check chField(3) 1", ""},
                 {"get StatBar(4)", R"({"text":""})"},
                 {"get chField(3)", R"({"value":0})"}});
  EXPECT_EQ(script.Answer("records CharWindows")["rows"][0]["Symbol Length"], 3);
  EXPECT_THAT(script.Answer("click bOpen")["messages"][0].dump(),
              testing::AllOf(HasSubstr(R"("answer":"ok")"), HasSubstr("port 1")));
  for (const char* line :
       {"jump comVS", "get comXX", "get comTB(9)", "get", "get comVS more", R"(choose comVS "no such")",
        "choose comVS #99", "check comVS 1", "check chPrev 2", "spin udVer(0) ten", "click comVS",
        R"(type comVS "open)", "key tWinMess \"ab\"", "wait -1", "answer perhaps", "variable Nothing",
        R"(row CharWindows 999 "Top" 1)", R"(row CharWindows 0 "Top" 70000)", "get frmNowhere.lName"}) {
    const json answer = script.Answer(line);
    EXPECT_TRUE(answer["ok"] == false && !answer["error"].get<std::string>().empty()) << line;
  }
  EXPECT_EQ(script.End(), 2);
}

TEST_F(CliTest, AScriptAnswersQuestionsAndCloses) {
  Script script(Virtual());
  script.Expect({{"click oView(2)", ""}, {"answer no cancel yes", ""}});
  for (const char* answer : {"no", "no", "yes", "no"}) {  // cancel is No, as is what comes by itself
    script.Expect({{"step udVal(20) up", ""}});
    const json messages = script.Answer("click mnuNew")["messages"];
    EXPECT_EQ(messages[0]["answer"], answer);
    EXPECT_EQ(messages.size(), std::string_view(answer) == "yes" ? 2U : 1U) << "Yes saves first";
  }
  script.Expect({{"step udVal(20) up", ""}});
  const json questions = script.Answer("close")["messages"];
  EXPECT_EQ(questions[0]["text"], "Save Changes before Exit?");
  EXPECT_EQ(questions[1]["text"], "Restart next time with this configuration?");
  EXPECT_EQ(script.End(), 0);
  Script next(Virtual({folder_.Write("look.script", "get oView(2)\n")}));
  EXPECT_THAT(next.ReadLine(), HasSubstr("\"value\":true"));
  Script missing(Virtual({folder_.File("none.script")}));
  EXPECT_THAT(missing.ReadDiagnostic(), HasSubstr("none.script"));
  EXPECT_EQ(missing.End(), 2);
  Script folder(Virtual({folder_.Path()}));
  EXPECT_THAT(folder.ReadDiagnostic(), HasSubstr("cannot be read"));
  EXPECT_EQ(folder.End(), 2);
}

TEST_F(CliTest, AScriptWorksTheWindowsOverTheMainWindow) {
  Script script(Virtual());
  script.Expect({{"click frmAbout.cmdOK", R"({"ok":false})"},
                 {"click mnuAbout", R"({"messages":[{"kind":"dialog","name":"frmAbout"}]})"},
                 {"variable MainFormActive", R"({"value":false})"},
                 {"get frmAbout", R"({"kind":"form","text":"About 7340 Marlinset","visible":true})"},
                 {"get frmAbout.cmdOK", R"({"name":"frmAbout.cmdOK"})"},
                 {"click frmAbout.cmdOK", ""},
                 {"variable MainFormActive", R"({"value":true})"}});
  for (const char* number : {"30", "31"}) {
    script.Expect({{"click mnuAddParameter", ""},
                   {std::string("type frmEditParameters.txtClass \"") + number + "\"", ""},
                   {"click frmEditParameters.cmdUpdate", ""}});
  }
  script.Expect({{"click frmEditParameters.cmdDone", R"({"ok":false})"},
                 {"click mnuRemoveParameter", ""},
                 {R"(choose frmDeleteParameter.lstParameter "31")", ""},
                 {"choose frmDeleteParameter.lstParameter #2", R"({"ok":false})"}});
  EXPECT_EQ(script.Answer("click frmDeleteParameter.Command2")["messages"][0]["text"],
            "The Parameter entry has been deleted");
  script.Expect({{"get frmDeleteParameter.lstParameter", R"({"list":[["30","0","","0","0"]],"index":0})"}});
}

TEST_F(CliTest, AStartThatFailsSaysWhy) {
  for (const char* box : {"3024  ", "DataBase Error. Expected file at Path "}) {
    Script script(Virtual({"--program-folder", folder_.Path()}));
    EXPECT_EQ(script.start["ok"], false);
    EXPECT_THAT(script.start["messages"][0]["text"].get<std::string>(), testing::StartsWith(box));
    EXPECT_EQ(script.End(), 3);
    RunSql(folder_.File("shotsys.mdb"),
           "create table if not exists \"Operating Mode\"(ModeId, Name, \"Order\", Description, Ignore1);"
           "insert into \"Operating Mode\" values('A', 'HD Video Downconvert', 1, '', 0)");
  }
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
      {{}, "drop 1", {}, 6, "1 of 93 messages were not acknowledged: 1 unacknowledged."},
      {{}, "nak 1", {}, 6, "refused          Parameter 2/0 'LTC Reader Flywheel (frames)' = 8"},
      {{}, "nak 1\nstray 20", {}, 7, "93 messages were not acknowledged: 1 uncertain."},
      {{}, "unplug 40", {}, 4, "Ended as portClosed: 40 of 93 messages went out."},
      {{"--standard", "0"}, "", {}, 5, "Video Standard not detected. Verify communications."},
      {{"--standard", "1"}, "", {}, 1, "Video Standard Mismatch, Switch to Manual Mode?"},
      {{"--standard", "1", "--manual"}, "", {"--answer", "yes"}, 0, "Video Standard will be changed!"},
      {{"--standard", "5"}, "", {"--answer", "yes"}, 0, "Video Standard Mismatch"},
      {{"--standard", "1"}, "unplug", {}, 4, "there is no device"},
      {{}, "", {"--baud", "9600"}, 2, "--baud"},
  };
  for (const Case& testCase : cases) {
    SCOPED_TRACE(testCase.diagnostic);
    const auto unit = Unit(testCase.unit);
    unit->State(testCase.steer);
    std::vector<std::string> words = Words({"send", "--com1", Link()});
    words.insert(words.end(), testCase.options.begin(), testCase.options.end());
    CliProgram send(words);
    std::string told;
    for (std::string line; !(line = send.ReadDiagnostic()).empty();) told += line;
    EXPECT_EQ(send.End(), testCase.status);
    EXPECT_THAT(told, HasSubstr(testCase.diagnostic));
  }
}

TEST_F(CliTest, SendTellsEachMessageUntilASignalStopsIt) {
  const auto unit = Unit({"--ack-ms", "60"});
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    CliProgram send(Words({"send", "--verbose", "--com1", Link()}));
    EXPECT_THAT(send.ReadLine(),
                testing::MatchesRegex(" *1  acknowledged +Identification\\? +02 03 0F 00 35 B9"));
    send.Send(signal);
    EXPECT_THAT(send.ReadDiagnostic(), HasSubstr("Stopped"));
    EXPECT_EQ(send.End(), 128 + signal) << "between two messages";
  }
}

TEST_F(CliTest, ASignalEndsAScriptInAWaitAndThePortIsFree) {
  const auto unit = Unit();
  const std::string lock = "/var/lock/LCK..pts_" + std::filesystem::read_symlink(Link()).filename().string();
  Script script(Words({"--com1", Link()}));
  script.Expect({{"click bOpen", ""}});
  script.Tell("wait 3600000");
  script.Send(SIGTERM);
  EXPECT_EQ(script.ReadLine(), "");
  EXPECT_EQ(script.End(), 128 + SIGTERM);
  EXPECT_FALSE(std::filesystem::exists(lock));
}

TEST_F(CliTest, IdentifyTellsModelStandardAndFirmware) {
  const auto unit = Unit({"--standard", "2", "--manual", "--no-video", "--pace", "57600", "--pieces", "3"});
  CliProgram identify(Words({"identify", "--com2", Link()}));
  EXPECT_EQ(identify.ReadLine(), "Model: HDSD7340");
  EXPECT_EQ(identify.ReadLine(), "Video standard: PAL, manual selection");
  EXPECT_EQ(identify.ReadLine(), "Video: No Video Present");
  EXPECT_THAT(identify.ReadLine(), testing::StartsWith("Firmware: "));
  EXPECT_EQ(identify.End(), 0);
}

TEST_F(CliTest, TheUnitIsSteeredByLinesAndOutlivesTheCable) {
  const auto unit = Unit({"--trace", folder_.File("trace")});
  Script script(Words({"--com1", Link()}));
  script.Expect({{"click bOpen", ""}});
  EXPECT_THAT(unit->State("local on\nstandard 5\nmanual on"), HasSubstr(R"("standard":5,"manual":true)"));
  EXPECT_THAT(unit->State("local off\nbroadcast"), HasSubstr(R"("local":false,"broadcast":true)"));
  EXPECT_EQ(script.Answer("wait 1000")["messages"][0]["text"],
            "Broadcast Mode detected, switched to Select Mode");
  for (const std::string bad : {"explode", "drop", "drop many", "drop -1", "local maybe", "state now"}) {
    unit->Tell(bad);
    EXPECT_THAT(unit->ReadDiagnostic(), HasSubstr(bad));
  }
  for (const char* received : {R"(["02030f0021cd"])", "[]"}) {
    unit->Tell("trace");
    EXPECT_EQ(unit->ReadLine(), received);
  }
  EXPECT_THAT(unit->State("unplug\nflood 5"), HasSubstr(R"("held":{})"));
  EXPECT_FALSE(std::filesystem::is_symlink(Link()));
  EXPECT_THAT(unit->State("plug"), testing::StartsWith("ready "));
  EXPECT_THAT(unit->ReadLine(), HasSubstr(R"("held":{})")) << "the same unit as before";
  while (script.Answer("get StatBar(2)")["text"] != "Offline") script.Answer("wait 10");
  script.Expect({{"click bOpen", ""}, {"get StatBar(2)", R"({"text":"Port Open "})"}});
  unit->Tell("state text");
  EXPECT_EQ(unit->ReadLine(), "unit        HDSD7340, 1080i/50, manual, video");
  EXPECT_EQ(unit->End(), 0);
  EXPECT_THAT(folder_.Read("trace"), HasSubstr(" tx 02030f00bb33\n"));
}

TEST_F(CliTest, TheUnitRefusesWrongOptionsAndTakenNames) {
  const std::vector<std::string> wrong[] = {{"--model", "3"},
                                            {"--standard", "64"},
                                            {"--pieces", "0"},
                                            {"--firmware", "MARLIN40 0A"},
                                            {"--explode"}};
  for (const auto& options : wrong) EXPECT_EQ(UnitProgram(options).End(), 2) << options[0];
  EXPECT_EQ(UnitProgram({"--link", folder_.Write("unit", "a file of somebody's")}).End(), 1);
  EXPECT_EQ(folder_.Read("unit"), "a file of somebody's");
}

}  // namespace
}  // namespace marlinset
