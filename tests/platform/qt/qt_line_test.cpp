// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_line.h"

#include <grp.h>
#include <sys/file.h>
#include <sys/stat.h>

#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <filesystem>
#include <numeric>
#include <vector>

#include "base/runtime_error.h"
#include "tests/platform/qt/qt_environment.h"
#include "tests/support/memory_settings.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

const Bytes kReply = {0x02, 0x11, 0x0F, 0x00, 0x36, 'H', 'D', '7', '3', '4',
                      '0',  ' ',  'V',  '1',  '.',  '2', ' ', '0', '7', 0x7F};

/// A port on a pseudo terminal that records what OnComm reports.
struct QtLineTest : testing::Test {
  QtLineTest() {
    port.OnComm([this] {
      events.push_back(port.CommEvent());
      if (onEvent) onEvent();
    });
  }

  Bytes ReadAll() {
    Bytes bytes;
    while (port.InBufferCount() > 0) bytes.push_back(port.Input());
    return bytes;
  }
  /// The unit sends, and the port reads it.
  void SendPart(const Bytes& bytes) {
    unit.Send(bytes);
    EXPECT_TRUE(bench.Wait([this] { return unit.Unread() == 0; }));
  }
  /// Waits for the next event; returns the bytes that the buffer holds then.
  Bytes NextReply() {
    events.clear();
    EXPECT_TRUE(bench.Wait([this] { return !events.empty(); }));
    return ReadAll();
  }

  QtBench bench;
  PseudoTerminal unit;
  MemorySettings settings;
  PortMap ports{{unit.Device()}, settings, [] { return std::vector<std::string>{}; }};
  QtLine port{bench.guard, ports, bench.pump};
  std::vector<int> events;
  std::function<void()> onEvent;
};

TEST_F(QtLineTest, CarriesBytesAsTheyAreAndForgetsThoseFromBeforeTheOpening) {
  port.SetPortOpen(true);
  SendPart({0x02, 0x11});
  port.SetPortOpen(false);
  port.Output(kReply);  // nothing happens on a closed port
  EXPECT_EQ(port.OutBufferCount(), 0U);
  unit.Send(Bytes{0x00, 0x02});
  port.SetPortOpen(true);
  Bytes all(256);
  std::iota(all.begin(), all.end(), std::uint8_t{0});
  port.Output(all);
  EXPECT_EQ(unit.Receive(all.size()), all);
  EXPECT_TRUE(bench.Wait([this] { return port.OutBufferCount() == 0; }));
  all[0] = 0x04;  // a reply that is released at once
  unit.Send(all);
  EXPECT_EQ(NextReply(), all);
  EXPECT_EQ(events, std::vector<int>{kCommReceive});
  EXPECT_EQ(port.CommEvent(), 0);
}

TEST_F(QtLineTest, LooksForTheRestBeforeItGivesUpOnAFrame) {
  port.SetPortOpen(true);
  SendPart({kReply.begin(), kReply.begin() + 5});
  unit.Send(std::span(kReply).subspan(5));
  // After a stall the gap's timer and the rest are both due, and the timer comes first.
  QTimer stall;
  stall.setSingleShot(true);
  stall.start(4 * ReplyGate::kQuietGapMs);
  while (stall.isActive()) {
    QCoreApplication::processEvents(QEventLoop::ExcludeSocketNotifiers | QEventLoop::WaitForMoreEvents);
  }
  EXPECT_TRUE(bench.Wait([this] { return !events.empty(); }));
  EXPECT_EQ(ReadAll(), kReply);
  EXPECT_EQ(events, std::vector<int>{kCommReceive});
}

TEST_F(QtLineTest, HearsTheLineWhileAHandlerPumpsAndAfterItFailed) {
  port.SetPortOpen(true);
  std::vector<Bytes> replies;
  onEvent = [&] {
    replies.push_back(ReadAll());
    if (replies.size() == 1) unit.Send(kReply);  // while a box of the first reply's handler stands
    EXPECT_TRUE(bench.Wait([&] { return replies.size() > 1; }));
    throw SubscriptOutOfRange();
  };
  unit.Send(Bytes{0x04});
  EXPECT_TRUE(bench.Wait([&] { return replies.size() == 2; }));
  unit.Send(kReply);
  EXPECT_EQ(NextReply(), Bytes{});
  EXPECT_EQ(replies, (std::vector<Bytes>{{0x04}, kReply, kReply}));
  EXPECT_EQ(bench.dialogs.Texts(), std::vector<std::string>(3, "9  Subscript out of range"));
}

TEST_F(QtLineTest, ReportsEachOverflowOnce) {
  port.SetPortOpen(true);
  const auto overflows = [this] { return std::count(events.begin(), events.end(), kCommOverflow); };
  for (int round = 1; round <= 2; ++round) {
    for (int part = 0; part < 3; ++part) SendPart(Bytes(1000, 0xEE));
    EXPECT_TRUE(bench.Wait([&] { return overflows() == round; }));
    EXPECT_EQ(port.InBufferCount(), kInBufferSize);
    port.DiscardInput();
  }
  unit.Send(kReply);
  EXPECT_TRUE(bench.Wait([this] { return port.InBufferCount() == kReply.size(); }));
  EXPECT_EQ(overflows(), 2);
}

/// Runs `action` as a user without rights, if the test may become one.
void WithoutRights(const std::function<void()>& action) {
  constexpr id_t kNobody = 65534;
  const bool lower = geteuid() == 0;
  if (lower) {
    ASSERT_EQ(setgroups(0, nullptr), 0);
    ASSERT_EQ(setresgid(kNobody, kNobody, 0), 0);
    ASSERT_EQ(setresuid(kNobody, kNobody, 0), 0);
  }
  action();
  if (lower && (setresuid(0, 0, 0) != 0 || setresgid(0, 0, 0) != 0)) std::abort();
}

/// Why `device` cannot be opened as port 2; empty if it can.
std::string FailureOf(Guard& guard, const std::string& device) {
  const MemorySettings settings;
  PortMap ports({"", device}, settings, [] { return std::vector<std::string>{}; });
  QtPump pump;
  QtLine port(guard, ports, pump);
  port.SetCommPort(2);
  std::string text;
  WithoutRights([&] {
    try {
      port.SetPortOpen(true);
    } catch (const RuntimeError& error) {
      EXPECT_EQ(error.Number(), kErrPort);
      text = error.Description();
    }
  });
  EXPECT_EQ(port.PortOpen(), text.empty());
  return text;
}

TEST_F(QtLineTest, TellsADeviceThatIsGoneFromAFullLine) {
  onEvent = [this] { EXPECT_FALSE(port.PortOpen()); };
  port.SetPortOpen(true);
  const Bytes much(20000, std::uint8_t{0x55});
  for (int i = 0; i < 3; ++i) {  // nobody reads, so the first fills it
    port.Output(much);
    EXPECT_TRUE(bench.Wait([this] { return port.OutBufferCount() == 0; })) << "whoever waits for it goes on";
    EXPECT_EQ(port.OutputDiscards(), i + 1);
  }
  EXPECT_TRUE(port.PortOpen() && !port.DeviceGone());
  EXPECT_TRUE(events.empty());
  port.Output(much);
  unit.Close();
  port.Output(kReply);
  EXPECT_TRUE(events.empty()) << "never in the middle of the tool's own call";
  EXPECT_EQ(port.OutBufferCount(), 0U) << "nothing to drain";
  EXPECT_TRUE(bench.Wait([this] { return !events.empty(); }));
  EXPECT_EQ(events, std::vector<int>{kCommDeviceGone});
  EXPECT_TRUE(port.DeviceGone());
  EXPECT_THAT(FailureOf(bench.guard, unit.Device()), testing::HasSubstr("there is no device"))
      << "neither held nor locked any more";
}

TEST_F(QtLineTest, SaysWhyAPortCannotBeOpenedAndWhatHelps) {
  const auto expect = [this](const std::string& device, const std::string& reason) {
    EXPECT_THAT(FailureOf(bench.guard, device), testing::StartsWith("Port 2 cannot be opened: " + reason));
  };
  expect("/dev/ttyUSB77", "there is no device /dev/ttyUSB77. Plug it in, or choose another port.");
  for (const std::string path : {"/", "/etc/passwd"}) {
    expect(path, path + " is not a serial device. Name the device of the port instead.");
  }
  expect("/dev/null", "opening /dev/null failed (");
  EXPECT_THAT(FailureOf(bench.guard, ""), testing::StartsWith("There is no device behind port 2. "));

  const std::string& device = unit.Device();
  const int other = open(device.c_str(), O_RDWR | O_NOCTTY);
  struct stat node {};
  ASSERT_EQ(fstat(other, &node), 0);
  const std::string denied = "you have no permission to use " + device + ". ";
  ASSERT_EQ(fchmod(other, 0060), 0);
  expect(device, denied + "Add yourself to the group " + getgrgid(node.st_gid)->gr_name +
                     ", which owns the device, and log in again.");
  ASSERT_EQ(fchmod(other, 0), 0);
  expect(device, denied + "Ask the administrator of this computer");

  // Two ways in which programs keep a port to themselves.
  ASSERT_EQ(fchmod(other, 0666), 0);
  const std::string inUse =
      device + " is in use by another program. Close that program, or choose another port.";
  ASSERT_EQ(flock(other, LOCK_EX), 0);
  expect(device, inUse);
  ASSERT_EQ(flock(other, LOCK_UN), 0);
  ASSERT_EQ(ioctl(other, TIOCEXCL), 0);
  expect(device, inUse);
  close(other);
  port.SetPortOpen(true);
  expect(device, inUse);
  port.SetPortOpen(false);
  EXPECT_EQ(FailureOf(bench.guard, device), "") << "free again";
}

TEST_F(QtLineTest, TakesOtherNamesOfADevice) {
  const TempFolder folder;
  const std::string link = folder.File("unit");
  std::filesystem::create_symlink(unit.Device(), link);
  ASSERT_EQ(chmod(folder.Path().c_str(), 0755), 0);
  ASSERT_EQ(chmod(unit.Device().c_str(), 0666), 0);
  for (const std::string& name : {link, unit.Device().substr(std::string("/dev/").size())}) {
    EXPECT_EQ(FailureOf(bench.guard, name), "");
  }
  port.SetPortOpen(true);
  EXPECT_THAT(FailureOf(bench.guard, link), testing::HasSubstr(link + " is in use"));
  const std::string dangling = folder.File("pulled");
  std::filesystem::create_symlink("/dev/ttyUSB77", dangling);
  PortMap named({link, dangling, "/dev/ttyUSB77"}, settings, [] { return std::vector<std::string>{}; });
  const QtLine other(bench.guard, named, bench.pump);
  EXPECT_TRUE(other.DeviceIsThere(1));
  for (const int absent : {2, 3, 4}) EXPECT_FALSE(other.DeviceIsThere(absent)) << absent;
}

}  // namespace
}  // namespace marlinset
