// SPDX-License-Identifier: GPL-3.0-or-later
#include <filesystem>
#include <map>

#include "tests/cli/child_program.h"
#include "tests/support/table.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using testing::HasSubstr;
using Program = std::unique_ptr<ChildProgram>;

/// `marlinset-cli rack` with virtual units on pseudo terminals.
struct RackTest : testing::Test {
  RackTest() {
    std::filesystem::copy_file(SHIPPED_DATABASE_FOLDER "System Default Video.qcf", folder_.File("good.qcf"));
    folder_.Write("bad.qcf", "QCF");
  }
  std::unique_ptr<UnitProgram> Unit(const std::string& name, std::vector<std::string> options = {}) const {
    options.insert(options.begin(), {"--link", folder_.File(name)});
    auto unit = std::make_unique<UnitProgram>(options);
    EXPECT_THAT(unit->ReadLine(), HasSubstr("ready"));
    return unit;
  }
  /// A rack whose units have the names of their devices.
  Program Rack(const std::vector<std::string>& units, const std::string& options) const {
    json rack = {{"units", json::array()}};
    for (const std::string& unit : units)
      rack["units"].push_back({{"name", unit}, {"port", unit}, {"file", "good.qcf"}});
    return RackOf(rack.dump(), options);
  }
  Program RackOf(const std::string& text, const std::string& options) const {
    std::vector<std::string> words = Split(options, ' ');
    words.insert(words.begin(), {"rack", folder_.Write("rack.json", text)});
    return std::make_unique<CliProgram>(words);
  }
  static std::string Diagnostics(ChildProgram& program) {
    std::string text;
    for (std::string line; !(line = program.ReadDiagnostic()).empty();) text += line + "\n";
    return text;
  }
  /// The lines of --json by unit, without the seconds.
  static std::map<std::string, std::string> Results(ChildProgram& rack) {
    std::map<std::string, std::string> results;
    for (std::string line; !(line = rack.ReadLine()).empty();) {
      json result = json::parse(line);
      EXPECT_GE(result.at("seconds"), 0);
      result.erase("seconds");
      const auto name = result.at("name").get<std::string>();
      result.erase("name");
      EXPECT_TRUE(results.emplace(name, result.dump()).second) << "one line a unit";
    }
    return results;
  }

  TempFolder folder_;
};

TEST_F(RackTest, AMistakeIsNamedAndNothingIsSent) {
  const auto unit = Unit("unit");
  std::filesystem::create_symlink("unit", folder_.File("twin"));
  const std::string here = std::filesystem::path(folder_.Path()).filename();
  for (const TableRow& row : TableOf("racks")) {
    SCOPED_TRACE(row[0]);
    std::string text = row[0];
    for (const auto& [mark, part] : {std::pair{"\\n", std::string("\n")}, {"$here", here}}) {
      if (const std::size_t at = text.find(mark); at != std::string::npos)
        text.replace(at, std::string(mark).size(), part);
    }
    const Program rack = RackOf(text, row[1]);
    const std::string told = Diagnostics(*rack);
    EXPECT_THAT(told, testing::AllOf(HasSubstr(row[2]), HasSubstr("Nothing was sent.")));
    EXPECT_EQ(rack->ReadLine(), "");
    EXPECT_EQ(rack->End(), 2);
  }
  EXPECT_THAT(unit->State(""), HasSubstr(R"("held":{})"));
}

TEST_F(RackTest, EachUnitEndsForItself) {
  const auto good = Unit("good", {"--model", "32"});
  const auto doubtful = Unit("doubtful");
  doubtful->State("nak 1");
  const auto mismatched = Unit("mismatched", {"--standard", "1"});
  const auto silent = Unit("silent", {"--standard", "0"});
  const auto unplugged = Unit("unplugged");
  unplugged->State("unplug 40");
  const std::vector<std::string> all{"good", "doubtful", "mismatched", "silent", "unplugged", "missing"};

  const Program plan = Rack(all, "--dry-run --only good --json");
  EXPECT_EQ(json::parse(plan->ReadLine())["port"], folder_.File("good"));
  EXPECT_EQ(plan->End(), 0);
  EXPECT_THAT(good->State(""), HasSubstr(R"("held":{})"));

  const Program rack = Rack(all, "--json --jobs 3");
  EXPECT_THAT(
      Results(*rack),
      testing::ElementsAre(
          testing::Pair("doubtful",
                        R"({"end":"complete","model":"HDSD7340","messages":93,"unacknowledged":1})"),
          testing::Pair("good", R"({"end":"complete","model":"HD7340Q","messages":95,"unacknowledged":0})"),
          testing::Pair("mismatched",
                        R"({"end":"refused","model":"HDSD7340","messages":2,"unacknowledged":0})"),
          testing::Pair("missing", R"({"end":"portClosed","model":null,"messages":0,"unacknowledged":0})"),
          testing::Pair("silent", HasSubstr(R"({"end":"notDetected")")),
          testing::Pair("unplugged", HasSubstr(R"({"end":"portClosed","model":"HDSD7340","messages":40)"))));
  EXPECT_THAT(Diagnostics(*rack), HasSubstr("mismatched: Video Standard Mismatch"));
  EXPECT_EQ(rack->End(), 1);

  const Program answered = Rack(all, "--only mismatched --only doubtful --answer yes");
  const std::string lines = Diagnostics(*answered);
  EXPECT_EQ(answered->End(), 0) << lines;
}

TEST_F(RackTest, AnInterruptStopsEachUnitOnceAndStartsNoOther) {
  const auto slow = Unit("slow", {"--ack-ms", "20"});
  const auto next = Unit("next");
  const Program rack = Rack({"slow", "next"}, "--json --jobs 1");
  for (std::size_t received = 0; received < 100; received += slow->ReadLine().size() - 2) slow->Tell("trace");
  for (const int signal : {SIGINT, SIGTERM, SIGINT}) rack->Send(signal);
  const auto results = Results(*rack);
  EXPECT_EQ(results.at("next"), R"({"end":"stopped","model":null,"messages":0,"unacknowledged":0})");
  EXPECT_THAT(results.at("slow"), HasSubstr(R"({"end":"stopped","model":"HDSD7340","messages":)"));
  EXPECT_THAT(Diagnostics(*rack), HasSubstr("slow: Stopped between two messages."));
  EXPECT_EQ(rack->End(), 1);
  EXPECT_THAT(next->State(""), HasSubstr(R"("held":{})"));
}

}  // namespace
}  // namespace marlinset
