// SPDX-License-Identifier: GPL-3.0-or-later
#include <fcntl.h>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <chrono>
#include <filesystem>
#include <fstream>
#include <sstream>

#include "tests/app/child_program.h"
#include "tests/support/hex.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using testing::HasSubstr;
using testing::StartsWith;

constexpr auto kGetId = "02 03 0F 00 35 B9";
constexpr auto kVideoSense = "02 03 0F 00 34 BA";
constexpr auto kVitcOn = "02 03 01 05 2E C9";

// A serial port as the tool opens it.
class SerialPort {
 public:
  explicit SerialPort(const std::filesystem::path& path)
      : descriptor_(open(path.c_str(), O_RDWR | O_NOCTTY)) {
    termios mode{};
    tcgetattr(descriptor_, &mode);
    cfmakeraw(&mode);
    cfsetspeed(&mode, B57600);
    tcsetattr(descriptor_, TCSANOW, &mode);
  }
  ~SerialPort() { close(descriptor_); }
  SerialPort(const SerialPort&) = delete;
  SerialPort& operator=(const SerialPort&) = delete;

  void Send(std::string_view frame) const {
    const auto bytes = FromHex(frame);
    EXPECT_EQ(write(descriptor_, bytes.data(), bytes.size()), static_cast<ssize_t>(bytes.size()));
  }
  // `count` bytes, or what came before the device went away or the limit passed.
  std::vector<std::uint8_t> Receive(std::size_t count) const {
    std::vector<std::uint8_t> bytes;
    pollfd event{descriptor_, POLLIN, 0};
    for (std::uint8_t byte = 0; bytes.size() < count; bytes.push_back(byte))
      if (poll(&event, 1, 20000) <= 0 || read(descriptor_, &byte, 1) != 1) break;
    return bytes;
  }
  std::string Ask(std::string_view frame, std::size_t count) const {
    Send(frame);
    return ToHex(Receive(count));
  }

 private:
  int descriptor_;
};

class UnitProgramTest : public testing::Test {
 protected:
  std::string Link() const { return folder_.File("unit"); }

  TempFolder folder_;
};

TEST_F(UnitProgramTest, AnswersOnItsPseudoTerminalAgainAndAgain) {
  UnitProgram unit({"--link", Link(), "--model", "32", "--standard", "2", "--manual", "--no-video"});
  const std::string ready = unit.ReadLine();
  EXPECT_EQ(ready, "ready " + std::filesystem::read_symlink(Link()).string());
  for (int opening = 0; opening < 2; ++opening) {
    const SerialPort port(Link());
    EXPECT_EQ(port.Ask(kGetId, 8), "02 05 0F 00 35 20 00 97");
    EXPECT_EQ(port.Ask(kVideoSense, 7), "02 04 0F 00 34 C2 F7");
  }
  EXPECT_EQ(unit.End(), 0);
  EXPECT_FALSE(std::filesystem::is_symlink(Link()));
}

TEST_F(UnitProgramTest, IsSteeredByLines) {
  const std::string traceFile = folder_.File("trace");
  UnitProgram unit({"--link", Link(), "--trace", traceFile});
  unit.ReadLine();
  const SerialPort port(Link());
  // An answer to "state" says that the lines before it were taken.
  const auto tell = [&](const std::string& line) {
    unit.Tell(line);
    unit.Tell("state");
    return unit.ReadLine();
  };
  EXPECT_THAT(tell("local on"), HasSubstr(R"("local":true)"));
  EXPECT_EQ(port.Ask(kGetId, 1), "06");
  tell("local off");
  EXPECT_THAT(tell("nak 1"), HasSubstr(R"("held":{})"));
  EXPECT_EQ(port.Ask(kVitcOn, 1), "05");
  EXPECT_EQ(port.Ask(kVitcOn, 1), "04");
  EXPECT_THAT(tell("standard 5"), HasSubstr(R"("held":{"cmdVitcOn":[1,5,46]})"));
  EXPECT_EQ(port.Ask(kVideoSense, 7), "02 04 0F 00 34 05 B4");
  tell("flood 4");
  EXPECT_EQ(port.Receive(4).size(), 4U);
  unit.Tell("broadcast");
  EXPECT_EQ(ToHex(port.Receive(6)), "02 03 0F 00 BB 33");

  for (const std::string bad : {"explode", "drop", "drop many", "drop -1", "local maybe", "state now"}) {
    unit.Tell(bad);
    EXPECT_THAT(unit.ReadDiagnostic(), HasSubstr(bad));
  }
  unit.Tell("trace");
  EXPECT_EQ(unit.ReadLine(), R"(["02030f0035b9","020301052ec9","020301052ec9","02030f0034ba"])");
  unit.Tell("trace");
  EXPECT_EQ(unit.ReadLine(), "[]");
  EXPECT_EQ(unit.End(), 0);
  std::ostringstream trace;
  trace << std::ifstream(traceFile).rdbuf();
  EXPECT_THAT(trace.str(), HasSubstr(" rx 02030f0034ba\n"));
  EXPECT_THAT(trace.str(), HasSubstr(" tx 02040f003405b4\n"));
}

TEST_F(UnitProgramTest, IsNoFasterThanItsLine) {
  UnitProgram unit({"--link", Link(), "--pace", "9600", "--pieces", "3"});
  unit.ReadLine();
  const SerialPort port(Link());
  const auto begin = std::chrono::steady_clock::now();
  constexpr int kTimes = 10;
  for (int i = 0; i < kTimes; ++i) EXPECT_EQ(port.Ask(kGetId, 8), "02 05 0F 00 35 0A 00 AD");
  // Six bytes there and eight back, ten bits each, less what it wakes up early to be on time.
  const auto least =
      kTimes * (std::chrono::microseconds{14 * 10 * 1000000 / 9600} - std::chrono::microseconds{300});
  EXPECT_GE(std::chrono::steady_clock::now() - begin, least);
}

TEST_F(UnitProgramTest, UnplugsAndLivesOn) {
  UnitProgram unit({"--link", Link()});
  unit.ReadLine();
  const SerialPort port(Link());
  EXPECT_EQ(port.Ask(kVitcOn, 1), "04");
  unit.Tell("unplug");
  EXPECT_TRUE(port.Receive(1).empty());
  EXPECT_FALSE(std::filesystem::is_symlink(Link()));
  for (const char* line : {"unplug", "flood 5", "state"}) unit.Tell(line);
  EXPECT_THAT(unit.ReadLine(), HasSubstr(R"("held":{"cmdVitcOn")"));
  EXPECT_EQ(unit.End(), 0);
}

TEST_F(UnitProgramTest, RefusesWrongOptions) {
  const std::vector<std::string> wrong[] = {{"--model", "3"},
                                            {"--standard", "64"},
                                            {"--pieces", "0"},
                                            {"--firmware", "MARLIN40 0A"},
                                            {"--explode"}};
  for (const auto& options : wrong) {
    UnitProgram unit(options);
    EXPECT_EQ(unit.End(), 2) << options[0];
  }
  std::ofstream(Link()) << "a file of somebody's";
  UnitProgram unit({"--link", Link()});
  EXPECT_THAT(unit.ReadDiagnostic(), StartsWith("marlinset-unit: "));
  EXPECT_EQ(unit.End(), 1);
  EXPECT_TRUE(std::filesystem::is_regular_file(Link()));
}

}  // namespace
}  // namespace marlinset
