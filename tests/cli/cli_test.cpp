// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <optional>

#include "tests/cli/child_program.h"
#include "tests/support/table.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using testing::HasSubstr;

/// The programs as processes, also with a virtual unit on a real pseudo terminal.
struct CliTest : testing::Test {
  /// A text of a sample, with the paths of folders in it.
  std::string Filled(std::string text) const {
    for (const auto& [name, path] :
         {std::pair{std::string("$folder"), folder_.Path()}, {"$data/", SAMPLE_FOLDER}}) {
      for (std::size_t at; (at = text.find(name)) != std::string::npos;) text.replace(at, name.size(), path);
    }
    return text;
  }
  std::string Link() const { return folder_.File("unit"); }
  std::vector<std::string> Words(std::vector<std::string> words) const {
    words.insert(words.end(), {"--settings", folder_.File("settings.ini")});
    return words;
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
  Script script(Words({"script", "--com1", Link(), "--answer", "yes"}));
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

/// Plays a transcript of tests/samples/scripts: $ starts a script with these options, > is an action, < what
/// the answer to either holds, ! a command of the shell, = the exit status.
class TranscriptTest : public CliTest, public testing::WithParamInterface<const char*> {};

TEST_P(TranscriptTest, IsWhatTheScriptAnswers) {
  std::ifstream transcript(std::string(SAMPLE_FOLDER "scripts/") + GetParam() + ".txt");
  std::optional<Script> script;
  int scripts = 0;
  for (std::string line; std::getline(transcript, line);) {
    const std::string rest = Filled(line.substr(std::min<std::size_t>(2, line.size())));
    std::string part;
    if (transcript.peek() == '<') std::getline(transcript, part);
    part = part.empty() ? R"({"ok":true})" : Filled(part.substr(2));
    if (line[0] == '$') {
      script.emplace(Words(Split("script --clock virtual " + rest, ' ')));
      EXPECT_TRUE(Holds(script->start, json::parse(part))) << script->start;
      ++scripts;
    }
    if (line[0] == '>') script->Expect({{rest, part}});
    const int status = line[0] == '!' ? std::system(rest.c_str()) : line[0] == '=' ? script->End() : 0;
    EXPECT_EQ(status, line[0] == '=' ? std::stoi(rest) : 0) << line;
  }
  EXPECT_GT(scripts, 0);
}

INSTANTIATE_TEST_SUITE_P(Scripts, TranscriptTest,
                         testing::Values("dialogs", "load", "operator", "questions", "windows", "parameters",
                                         "files", "links", "recent", "saving", "settings", "print",
                                         "new_modes", "new_windows", "history"));

/// Each line runs in a shell of its own, in one folder, on a machine without a display.
TEST_F(CliTest, ShellsSeeOutputAndStatus) {
  std::ifstream lines(SAMPLE_FOLDER "scripts/shell.txt");
  const std::string start = "exec 2>&1; unset DISPLAY WAYLAND_DISPLAY LC_ALL; cli=" CLI_PROGRAM
                            " unit=" UNIT_PROGRAM " old=" SAMPLE_FOLDER "version_1.qcf sample=" SAMPLE_FOLDER
                            "version_2.qcf; cd " +
                            folder_.Path() + "; ";
  std::string printed;
  int status = -1;
  for (std::string line; std::getline(lines, line);) {
    SCOPED_TRACE(line);
    if (line[0] == '$') {
      ChildProgram shell("/bin/sh", {"-c", start + line.substr(2)});
      printed.clear();
      for (std::string part; !(part = shell.ReadLine()).empty();) printed += part + "\n";
      status = shell.End();
    }
    if (line[0] != '=') continue;
    EXPECT_EQ(status, line[2] - '0') << printed;
    EXPECT_THAT(printed, HasSubstr(line.substr(std::min<std::size_t>(4, line.size()))));
  }
  EXPECT_NE(status, -1);
}

TEST_F(CliTest, SendEndsWithTheStatusOfWhatHappened) {
  folder_.Write("bad.qcf", "QCF");
  folder_.Write("empty.qcf", "");
  for (const TableRow& row : TableOf("sends")) {
    SCOPED_TRACE(row[4]);
    const auto unit = Unit(Split(row[0], ' '));
    for (const std::string& line : Split(row[1], ';')) unit->State(line);
    CliProgram send(Words(Split("send --com1 " + Link() + " " + Filled(row[2]), ' ')));
    std::string told;
    for (std::string line; !(line = send.ReadDiagnostic()).empty();) told += line;
    EXPECT_EQ(std::to_string(send.End()), row[3]);
    EXPECT_THAT(told, HasSubstr(row[4]));
    EXPECT_THAT(unit->State(""), HasSubstr(row[5]));
  }
}

TEST_F(CliTest, ASignalEndsASendBetweenTwoMessagesAndAScriptInItsWait) {
  const auto unit = Unit({"--ack-ms", "20"});  // two seconds of a send, with 80 ms to spare for each answer
  const std::string lock = "/var/lock/LCK..pts_" + std::filesystem::read_symlink(Link()).filename().string();
  for (const int signal : {SIGINT, SIGTERM, SIGHUP}) {
    CliProgram send(Words({"send", "--verbose", "--com1", Link()}));
    EXPECT_THAT(send.ReadLine(),
                testing::MatchesRegex(" *1  acknowledged +Identification\\? +02 03 0F 00 35 B9"));
    send.Send(signal);
    EXPECT_THAT(send.ReadDiagnostic(), HasSubstr("Stopped"));
    EXPECT_EQ(send.End(), 128 + signal);
  }
  Script script(Words({"script", "--com1", Link()}));
  script.Expect({{"click bOpen", ""}});
  script.Tell("wait 3600000");
  script.Send(SIGTERM);
  EXPECT_EQ(script.ReadLine(), "");
  EXPECT_EQ(script.End(), 128 + SIGTERM);
  EXPECT_FALSE(std::filesystem::exists(lock)) << "the port is free";
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
  // Opening a file changes the folder; the port's relative path still counts from where the program began.
  const std::filesystem::path device = Link();
  Script script(Words({"script", "--com1", device.lexically_relative(std::filesystem::current_path())}));
  script.Expect({{"open " SAMPLE_FOLDER "version_2.qcf", ""}, {"click bOpen", R"({"messages":[]})"}});
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

}  // namespace
}  // namespace marlinset
