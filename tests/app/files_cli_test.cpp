// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <filesystem>
#include <nlohmann/json.hpp>

#include "tests/app/child_program.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using json = nlohmann::ordered_json;
using testing::HasSubstr;
using testing::StartsWith;

/// Configuration files handled from the command line.
class FilesCliTest : public testing::Test {
 protected:
  static std::string Sample(int version) {
    return SAMPLE_FOLDER "version_" + std::to_string(version) + ".qcf";
  }
  static std::string Show(const std::string& file) {
    CliProgram show({"show", "--json", file});
    std::string line = show.ReadLine();
    EXPECT_EQ(show.End(), 0);
    return line;
  }
  static std::string Bytes(const std::string& file) {
    std::ifstream in(file, std::ios::binary);
    return {std::istreambuf_iterator<char>(in), std::istreambuf_iterator<char>()};
  }
  static int Compose(const std::string& from, const std::string& to) {
    return CliProgram({"compose", from, "-o", to}).End();
  }
  /// Compares; the lines that are not equal.
  static std::vector<std::string> Diff(const std::string& left, const std::string& right, int status) {
    CliProgram diff({"diff", left, right});
    std::vector<std::string> lines;
    for (std::string line = diff.ReadLine(); !line.empty(); line = diff.ReadLine()) {
      if (!line.starts_with("equal")) lines.push_back(line);
    }
    EXPECT_EQ(diff.End(), status);
    return lines;
  }
  TempFolder folder_;
};

TEST_F(FilesCliTest, ShowAndComposeAreLossless) {
  for (const int version : {1, 2}) {
    const std::string text = Show(Sample(version));
    folder_.Write("shown.json", text);
    EXPECT_EQ(Compose(folder_.File("shown.json"), folder_.File("composed.qcf")), 0);
    EXPECT_EQ(folder_.Read("composed.qcf"), Bytes(Sample(version))) << version;
  }
  EXPECT_EQ(folder_.Read("composed.qcf.bak"), Bytes(Sample(1))) << "what it took the place of";
  const json one = json::parse(Show(Sample(1)));
  EXPECT_EQ(one["tail"], "0000514346");
  EXPECT_EQ(one["format version"], 1);
  EXPECT_FALSE(one.contains("SDI program output"));
  EXPECT_EQ(one["system parameters"][0]["Value"], 4106);
  EXPECT_EQ(one["system parameters"][0]["loaded as"], 266);
  const json two = json::parse(Show(Sample(2)));
  EXPECT_EQ(two["identification"][1]["title"], "Sample tool");
  EXPECT_EQ(std::next(two.begin(), 3).key(), "video standard");
}

TEST_F(FilesCliTest, ComposeSaysWhatIsWrong) {
  const json good = json::parse(Show(Sample(2)));
  const auto refuses = [&](const json& wrong, const char* text) {
    folder_.Write("wrong.json", wrong.dump());
    CliProgram compose({"compose", folder_.File("wrong.json"), "-o", folder_.File("out.qcf")});
    EXPECT_THAT(compose.ReadDiagnostic(), HasSubstr(text));
    EXPECT_EQ(compose.End(), 1);
    EXPECT_TRUE(folder_.Read("out.qcf").empty());
  };
  json wrong = good;
  wrong["VITC on"] = 256;
  refuses(wrong, "\"VITC on\" is not from 0 to 255");
  wrong = good;
  wrong.erase("video standard");
  refuses(wrong, "\"video standard\" is missing");
  wrong = good;
  wrong["colour"] = "green";
  refuses(wrong, "\"colour\" is no field");
  wrong = good;
  wrong["character windows"] = json::array();
  refuses(wrong, "\"character windows\" is no list with something in it");
  wrong = good;
  wrong["text message"] = std::string(65536, 'x');
  refuses(wrong, "Overflow");
  for (const json& model : {json(7340), json("734"), json("734G")}) {
    wrong = good;
    wrong["identification"][0]["models"][0] = model;
    refuses(wrong, "\"identification\" holds a model that is not four hexadecimal digits");
  }
  refuses("{", "is no object");
  std::filesystem::create_directories(folder_.File("taken.qcf/full"));
  folder_.Write("good.json", good.dump());
  EXPECT_EQ(Compose(folder_.File("good.json"), folder_.File("taken.qcf")), 1);
  EXPECT_FALSE(std::filesystem::exists(folder_.File("taken.qcf.new"))) << "nothing half done stays";
}

TEST_F(FilesCliTest, ComposeLeavesLinksAndDevicesWhatTheyAre) {
  json shown = json::parse(Show(Sample(2)));
  shown["text message"] = "a\n\x1B[2J\u0090";
  folder_.Write("shown.json", shown.dump());
  std::filesystem::copy(Sample(2), folder_.File("real.qcf"));
  std::filesystem::create_symlink(folder_.File("real.qcf"), folder_.File("link.qcf"));
  EXPECT_EQ(Compose(folder_.File("shown.json"), folder_.File("link.qcf")), 0);
  EXPECT_TRUE(std::filesystem::is_symlink(folder_.File("link.qcf")));
  EXPECT_EQ(folder_.Read("link.qcf.bak"), Bytes(Sample(2)));
  EXPECT_EQ(Diff(Sample(2), folder_.File("real.qcf"), 1).at(0),
            R"(changed     text message: "Take 3 é" -> "a\x0A\x1B[2J\x90")")
      << "nothing in it steers the terminal";
  std::filesystem::create_symlink("/dev/full", folder_.File("full.qcf"));
  std::filesystem::create_symlink("/dev/null", folder_.File("null.qcf"));
  EXPECT_EQ(Compose(folder_.File("shown.json"), folder_.File("full.qcf")), 1);
  EXPECT_EQ(Compose(folder_.File("shown.json"), folder_.File("null.qcf")), 0);
  EXPECT_TRUE(std::filesystem::is_character_file(folder_.File("null.qcf")));
}

TEST_F(FilesCliTest, AFileThatMayNotGrowFailsTheSaveOnly) {
  ChildProgram script("/bin/sh", {"-c", R"(ulimit -f 1; exec "$0" script --clock virtual --settings "$1")",
                                  CLI_PROGRAM, folder_.File("settings.ini")});
  script.ReadLine();
  script.Tell("save " + folder_.File("large.qcf"));
  const json answer = json::parse(script.ReadLine(), nullptr, false);
  EXPECT_EQ(answer["messages"].back()["text"], "Error during save, save aborted!");
  EXPECT_EQ(script.End(), 0);
}

TEST_F(FilesCliTest, DiffNamesWhatDiffers) {
  EXPECT_TRUE(Diff(Sample(2), Sample(2), 0).empty());
  json other = json::parse(Show(Sample(2)));
  other["video standard"] = "PAL";
  other["character windows"].erase(2);
  folder_.Write("other.json", other.dump());
  ASSERT_EQ(Compose(folder_.File("other.json"), folder_.File("other.qcf")), 0);
  const auto lines = Diff(folder_.File("other.qcf"), Sample(2), 1);
  ASSERT_EQ(lines.size(), 9U);
  EXPECT_EQ(lines[0], "changed     video standard: \"PAL\" -> \"1080i/50\"");
  EXPECT_EQ(lines[1], "only right  character windows / Old Window / Name: \"Old Window\"");
  EXPECT_TRUE(Diff(Sample(2), folder_.File("none.qcf"), 2).empty());
}

TEST_F(FilesCliTest, ShowGoesOnAfterAFileThatCannotBeRead) {
  folder_.Write("other.qcf", "something else");
  folder_.Write("cut.qcf", Bytes(Sample(2)).substr(0, 100));
  CliProgram show({"show", "--json", folder_.File("other.qcf"), folder_.File("cut.qcf"), Sample(2)});
  EXPECT_THAT(json::parse(show.ReadLine())["error"].get<std::string>(),
              HasSubstr("is no configuration file"));
  EXPECT_THAT(json::parse(show.ReadLine())["error"].get<std::string>(), HasSubstr("is damaged"));
  EXPECT_EQ(json::parse(show.ReadLine())["video standard"], "1080i/50");
  EXPECT_EQ(show.End(), 1);
}

TEST_F(FilesCliTest, AScriptOpensSavesAndSeesTheState) {
  CliProgram script({"script", "--clock", "virtual", "--settings", folder_.File("settings.ini"), "--command",
                     "TEST", "--file", "cancel"});
  const auto answer = [&](const std::string& line) {
    script.Tell(line);
    return json::parse(script.ReadLine(), nullptr, false);
  };
  EXPECT_EQ(json::parse(script.ReadLine())["ok"], true);
  const json cancelled = answer("click mnuOpen")["messages"][0];
  EXPECT_EQ(cancelled["kind"], "open");
  EXPECT_EQ(cancelled["file"], nullptr);
  EXPECT_EQ(cancelled["filter"], "Brandal Marlinset File|*.qcf");
  EXPECT_EQ(answer("open " + Sample(2))["messages"].size(), 4U);
  const std::string saved = folder_.File("with blank.qcf");
  EXPECT_EQ(answer("save " + saved)["messages"][0]["file"], saved);
  EXPECT_EQ(answer("variable Caption")["value"], "7340 Marlinset - with blank");
  EXPECT_EQ(answer("state")["state"].dump(), Show(saved));
  EXPECT_EQ(answer("file")["ok"], false);

  // What is queued goes to the Save As of unsaved edits; the path of open only to its own dialog.
  const std::string kept = folder_.File("kept.qcf");
  const auto openEdited = [&] {
    answer("step udVal(8) up");
    answer("answer yes");
    json files = json::array();
    const json opened = answer("open " + Sample(2));
    for (const json& message : opened["messages"]) {
      if (message.contains("file")) files.push_back(message["file"]);
    }
    return files;
  };
  answer("file " + kept);
  EXPECT_EQ(openEdited(), json::array({kept, Sample(2)}));
  EXPECT_EQ(openEdited(), json::array({nullptr, Sample(2)}));
  EXPECT_EQ(answer("click mnuOpen")["messages"][0]["file"], nullptr) << "nothing is left over";
  script.Tell("quit");
  EXPECT_EQ(script.End(), 2);
}

TEST_F(FilesCliTest, SendTakesAFile) {
  UnitProgram unit({"--link", folder_.File("unit"), "--model", "32", "--standard", "5"});
  EXPECT_THAT(unit.ReadLine(), StartsWith("ready"));
  CliProgram send(
      {"send", "--settings", folder_.File("settings.ini"), "--com1", folder_.File("unit"), Sample(2)});
  EXPECT_EQ(send.ReadLine(), "7340 Configuration Complete. ");
  EXPECT_EQ(send.End(), 0);
  unit.Tell("state");
  EXPECT_THAT(unit.ReadLine(), HasSubstr("\"7/1\":300"));
  folder_.Write("bad.qcf", "QCF");
  CliProgram refused({"send", "--settings", folder_.File("settings.ini"), "--com1", folder_.File("unit"),
                      folder_.File("bad.qcf")});
  EXPECT_EQ(refused.ReadDiagnostic(), "Data Process Error, file may be corrupt");
  EXPECT_EQ(refused.End(), 1) << "nothing is sent in its place";
  folder_.Write("empty.qcf", "");
  CliProgram empty({"send", "--settings", folder_.File("settings.ini"), folder_.File("empty.qcf")});
  EXPECT_THAT(empty.ReadDiagnostic(), HasSubstr("empty.qcf: is empty"));
  EXPECT_EQ(empty.End(), 1);
}

TEST_F(FilesCliTest, AFileFromAnotherFolderLeavesTheNamedPortInPlace) {
  UnitProgram unit({"--link", folder_.File("unit")});
  ASSERT_THAT(unit.ReadLine(), StartsWith("ready"));
  const std::string link = std::filesystem::relative(folder_.File("unit")).string();
  CliProgram script({"script", "--com1", link, "--settings", folder_.File("settings.ini")});
  script.ReadLine();
  script.Tell("open " + Sample(2));
  EXPECT_THAT(script.ReadLine(), StartsWith(R"({"ok":true)"));
  script.Tell("click bOpen");
  EXPECT_EQ(script.ReadLine(), R"({"ok":true,"messages":[]})");
  EXPECT_EQ(script.End(), 0);
}

}  // namespace
}  // namespace marlinset
