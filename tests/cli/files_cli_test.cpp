// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include <cstdlib>
#include <filesystem>

#include "tests/cli/child_program.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

const std::string kSample = SAMPLE_FOLDER "version_2.qcf";

/// Configuration files and documents handled from the command line, on a machine without a display.
class FilesCliTest : public testing::Test {
 protected:
  FilesCliTest() {
    for (const char* display : {"DISPLAY", "WAYLAND_DISPLAY", "LC_ALL"}) unsetenv(display);
  }
  static std::string Show(const std::string& file) {
    CliProgram show({"show", "--json", file});
    std::string line = show.ReadLine();
    EXPECT_EQ(show.End(), 0);
    return line;
  }
  /// The exit status; in `told_` what it had to say.
  int Compose(const std::string& text, const std::string& to) {
    CliProgram compose({"compose", folder_.Write("shown.json", text), "-o", folder_.File(to)});
    told_ = compose.ReadDiagnostic();
    return compose.End();
  }
  /// Compares; what is told.
  static std::vector<std::string> Diff(const std::string& left, const std::string& right, int status) {
    CliProgram diff({"diff", left, right});
    std::vector<std::string> lines;
    for (std::string line; !(line = diff.ReadLine()).empty();) lines.push_back(line);
    EXPECT_EQ(diff.End(), status);
    return lines;
  }
  int Print(std::vector<std::string> options) const {
    options.insert(options.begin(), {"print", "--settings", folder_.File("settings.ini")});
    return CliProgram(options).End();
  }
  /// A line of a shell in the folder, with $cli, $unit and $sample. The exit status; in `told_` what is
  /// printed.
  int Shell(const std::string& line) {
    ChildProgram shell("/bin/sh", {"-c", "cd " + folder_.Path() +
                                             "; cli=" CLI_PROGRAM " unit=" UNIT_PROGRAM " sample=" + kSample +
                                             "; exec 2>&1; " + line});
    told_.clear();
    for (std::string part; !(part = shell.ReadLine()).empty();) told_ += part + "\n";
    return shell.End();
  }
  std::string TextOf(const std::string& name) const {
    EXPECT_EQ(ChildProgram(PDFTOTEXT, {"-layout", folder_.File(name), folder_.File("text")}).End(), 0);
    return folder_.Read("text");
  }
  TempFolder folder_;
  std::string told_;
};

TEST_F(FilesCliTest, ShowAndComposeAreLossless) {
  const std::string old = SAMPLE_FOLDER "version_1.qcf";
  for (const std::string& sample : {old, kSample}) {
    EXPECT_EQ(Compose(Show(sample), "composed.qcf"), 0);
    EXPECT_EQ(folder_.Read("composed.qcf"), BytesOf(sample));
  }
  EXPECT_EQ(folder_.Read("composed.qcf.bak"), BytesOf(old)) << "what it took the place of";
  Script script({"--clock", "virtual", "--settings", "/dev/null"});
  script.Expect({{"open " + kSample, ""}, {"save " + folder_.File("saved.qcf"), ""}});
  EXPECT_EQ(script.Answer("state")["state"].dump(), Show(folder_.File("saved.qcf")));
  const json one = json::parse(Show(old));
  EXPECT_EQ(one["tail"], "0000514346");
  EXPECT_FALSE(one.contains("SDI program output"));
  EXPECT_EQ(one["system parameters"][0]["Value"], 4106);
  EXPECT_EQ(one["system parameters"][0]["loaded as"], 266);
}

TEST_F(FilesCliTest, ComposeSaysWhatIsWrong) {
  const std::string good = Show(kSample);
  const std::pair<const char*, const char*> cases[] = {
      {R"({"VITC on":256})", "\"VITC on\" is not from 0 to 255"},
      {R"({"video standard":null})", "\"video standard\" is missing"},
      {R"({"colour":"green"})", "\"colour\" is no field"},
      {R"({"identification":[{"models":["734G"]}]})", "holds a model that is not four hexadecimal digits"},
      {R"({"character windows":[]})", "\"character windows\" is no list with something in it"},
      {R"({"text message":"a\u0416b"})",
       "\"text message\" holds \"\u0416\", which code page 1252 does not have"}};
  for (const auto& [change, told] : cases) {
    json wrong = json::parse(good);
    wrong.merge_patch(json::parse(change));
    EXPECT_EQ(Compose(wrong.dump(), "out.qcf"), 1);
    EXPECT_THAT(told_, HasSubstr(told));
  }
  EXPECT_EQ(Compose(R"({"tail":"","VITC on":1,"tail":""})", "out.qcf"), 1);
  EXPECT_THAT(told_, HasSubstr("\"tail\" stands there twice"));
  EXPECT_EQ(Compose("{", "out.qcf"), 1);
  EXPECT_FALSE(std::filesystem::exists(folder_.File("out.qcf")));
  std::filesystem::create_directories(folder_.File("taken.qcf/full"));
  EXPECT_EQ(Compose(good, "taken.qcf"), 1);
}

TEST_F(FilesCliTest, StreamsFoldersPipesAndDevicesAreToldApart) {
  std::ifstream lines(SAMPLE_FOLDER "scripts/shell.txt");
  int status = -1;
  for (std::string line; std::getline(lines, line);) {
    SCOPED_TRACE(line);
    if (line[0] == '$') status = Shell(line.substr(2));
    if (line[0] != '=') continue;
    EXPECT_EQ(status, line[2] - '0');
    EXPECT_THAT(told_, HasSubstr(line.substr(std::min<std::size_t>(4, line.size()))));
  }
  EXPECT_NE(status, -1);
}

TEST_F(FilesCliTest, ShowAndDiffNameWhatDiffersAndWhatCannotBeRead) {
  EXPECT_TRUE(Diff(kSample, kSample, 0).empty());
  json other = json::parse(Show(kSample));
  other["text message"] = "a\n\x1B[2J\u0090";
  other["character windows"].erase(2);
  EXPECT_EQ(Compose(other.dump(), "other.qcf"), 0);
  const auto lines = Diff(folder_.File("other.qcf"), kSample, 1);
  ASSERT_EQ(lines.size(), 9U);
  EXPECT_EQ(lines[0], R"(changed     text message: "a\x0A\x1B[2J\x90" -> "Take 3 é")")
      << "steers no terminal";
  EXPECT_EQ(lines[1], "only right  character windows / Old Window / Name: \"Old Window\"");
  EXPECT_TRUE(Diff(kSample, folder_.File("none.qcf"), 2).empty());
  CliProgram show({"show", "--json", folder_.Write("text.qcf", "something else"),
                   folder_.Write("cut.qcf", BytesOf(kSample).substr(0, 100)), kSample});
  EXPECT_THAT(show.ReadLine(), AllOf(HasSubstr("\"error\""), HasSubstr("is no configuration file")));
  EXPECT_THAT(show.ReadLine(), AllOf(HasSubstr("\"error\""), HasSubstr("is damaged")));
  EXPECT_THAT(show.ReadLine(), HasSubstr("1080i/50"));
  EXPECT_EQ(show.End(), 1);
}

TEST_F(FilesCliTest, SendTakesAFile) {
  UnitProgram unit({"--link", folder_.File("unit"), "--model", "32", "--standard", "5"});
  EXPECT_THAT(unit.ReadLine(), HasSubstr("ready"));
  const auto send = [&](const std::string& file) {
    return CliProgram(
        {"send", "--settings", folder_.File("settings.ini"), "--com1", folder_.File("unit"), file});
  };
  CliProgram sample = send(kSample);
  EXPECT_EQ(sample.ReadLine(), "7340 Configuration Complete. ");
  EXPECT_EQ(sample.End(), 0);
  EXPECT_THAT(unit.State(""), HasSubstr("\"7/1\":300"));
  CliProgram bad = send(folder_.Write("bad.qcf", "QCF"));
  EXPECT_EQ(bad.ReadDiagnostic(), "Data Process Error, file may be corrupt");
  EXPECT_EQ(bad.End(), 1) << "nothing is sent in its place";
  CliProgram empty = send(folder_.Write("empty.qcf", ""));
  EXPECT_THAT(empty.ReadDiagnostic(), HasSubstr("empty.qcf: is empty"));
  EXPECT_EQ(empty.End(), 1);

  // Opening a file changes the folder; the port's relative path still counts from where the program began.
  Script script({"--com1", std::filesystem::relative(folder_.File("unit")).string(), "--settings",
                 folder_.File("settings.ini")});
  script.Expect({{"open " + kSample, ""}, {"click bOpen", R"({"messages":[]})"}});
}

TEST_F(FilesCliTest, ADocumentCanBeReadAndSearched) {
  EXPECT_EQ(Print({kSample, "-o", folder_.File("a.pdf")}), 0);
  EXPECT_THAT(TextOf("a.pdf"), AllOf(HasSubstr("7340 Marlinset - version_2"), HasSubstr("Page 1 of 2"),
                                     HasSubstr("Page 2 of 2"), HasSubstr("x VITC Enabled"),
                                     HasSubstr("Take 3 \u00E9"), HasSubstr("Offset")))
      << "letters, no ligatures";
  for (const auto& [locale, paper] : {std::pair("de_DE.UTF-8", "[0 0 595."), {"en_US.UTF-8", "[0 0 612."}}) {
    setenv("LC_MEASUREMENT", locale, 1);
    EXPECT_EQ(Print({"-o", folder_.File("defaults.pdf")}), 0);
    EXPECT_THAT(folder_.Read("defaults.pdf"), HasSubstr(std::string("/MediaBox ") + paper));
  }
  unsetenv("LC_MEASUREMENT");
  EXPECT_THAT(TextOf("defaults.pdf"), AllOf(HasSubstr("1080i/60"), Not(HasSubstr("Processing Mode"))));
}

}  // namespace
}  // namespace marlinset
