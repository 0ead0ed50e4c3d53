// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_serial_port.h"

#include <grp.h>
#include <gtest/gtest.h>
#include <sys/stat.h>

#include <QCoreApplication>
#include <QTimer>
#include <algorithm>
#include <optional>
#include <vector>

#include "platform/runtime_error.h"
#include "tests/platform/qt/qt_environment.h"
#include "tests/support/memory_settings.h"
#include "tests/support/pseudo_terminal.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using Bytes = std::vector<std::uint8_t>;

const Bytes kReply = {0x02, 0x11, 0x0F, 0x00, 0x36, 'H', 'D', '7', '3', '4',
                      '0',  ' ',  'V',  '1',  '.',  '2', ' ', '0', '7', 0x7F};

std::vector<std::string> NoneFound() {
  return {};
}

/// The tool's end of a line to a pseudo terminal on port 1, with a record of what OnComm reported.
class QtSerialPortTest : public testing::Test {
 protected:
  QtSerialPortTest() {
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
  /// The unit sends and the tool's end takes it.
  void SendPart(const Bytes& bytes) {
    unit.Send(bytes);
    EXPECT_TRUE(bench.Wait([this] { return unit.Unread() == 0; }));
  }
  /// The next event of the line and the bytes that lie in the buffer then.
  Bytes NextReply() {
    events.clear();
    EXPECT_TRUE(bench.Wait([this] { return !events.empty(); }));
    return ReadAll();
  }

  QtBench bench;
  PseudoTerminal unit;
  MemorySettings settings;
  PortMap ports{{unit.Device()}, settings, NoneFound};
  QtSerialPort port{bench.guard, ports};
  std::vector<int> events;
  std::function<void()> onEvent;
};

TEST_F(QtSerialPortTest, CarriesBytesBothWaysAsTheyAre) {
  port.SetPortOpen(true);
  Bytes all(256);
  for (std::size_t i = 0; i < all.size(); ++i) all[i] = static_cast<std::uint8_t>(i);
  port.Output(all);
  EXPECT_EQ(unit.Receive(all.size()), all);
  EXPECT_TRUE(bench.Wait([this] { return port.OutBufferCount() == 0; }));

  all[0] = 0x04;  // a reply that is released at once
  unit.Send(all);
  EXPECT_EQ(NextReply(), all);
  EXPECT_EQ(events, std::vector<int>{kCommReceive});
  EXPECT_EQ(port.CommEvent(), 0);
}

TEST_F(QtSerialPortTest, ReportsOnceAFrameThatComesByteByByte) {
  port.SetPortOpen(true);
  for (const std::uint8_t byte : kReply) {
    EXPECT_TRUE(events.empty());
    EXPECT_EQ(port.InBufferCount(), 0U);
    SendPart({byte});
  }
  EXPECT_TRUE(bench.Wait([this] { return !events.empty(); }));
  EXPECT_EQ(ReadAll(), kReply);
  EXPECT_EQ(events, std::vector<int>{kCommReceive});
}

TEST_F(QtSerialPortTest, ReportsRepliesOneByOne) {
  port.SetPortOpen(true);
  const Bytes part(kReply.begin(), kReply.begin() + 5);
  for (const Bytes& reply : {Bytes{0x04}, kReply, Bytes{0x06}, part, Bytes{0x00}, kReply}) {
    unit.Send(reply);
    EXPECT_EQ(NextReply(), reply);
  }
}

TEST_F(QtSerialPortTest, LooksForTheRestBeforeItGivesUpOnAFrame) {
  port.SetPortOpen(true);
  const Bytes head(kReply.begin(), kReply.begin() + 5);
  const Bytes tail(kReply.begin() + 5, kReply.end());
  SendPart(head);
  unit.Send(tail);
  // A stall: the gap's timer is due as well as the rest, and comes first.
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

TEST_F(QtSerialPortTest, HearsTheLineWhileAHandlerPumps) {
  port.SetPortOpen(true);
  std::vector<Bytes> replies;
  onEvent = [&] {
    replies.push_back(ReadAll());
    if (replies.size() > 1) return;
    unit.Send(kReply);  // while a box of the first reply's handler stands
    EXPECT_TRUE(bench.Wait([&] { return replies.size() == 2; }));
  };
  unit.Send(Bytes{0x04});
  EXPECT_TRUE(bench.Wait([&] { return replies.size() == 2; }));
  EXPECT_EQ(replies, (std::vector<Bytes>{{0x04}, kReply}));
}

TEST_F(QtSerialPortTest, ShowsAFailureOfAHandlerAndGoesOn) {
  port.SetPortOpen(true);
  onEvent = [] { throw SubscriptOutOfRange(); };
  unit.Send(Bytes{0x04});
  EXPECT_EQ(NextReply(), Bytes{0x04});
  EXPECT_EQ(bench.dialogs.Texts(), std::vector<std::string>{"9  Subscript out of range"});
  onEvent = nullptr;
  unit.Send(kReply);
  EXPECT_EQ(NextReply(), kReply);
}

TEST_F(QtSerialPortTest, ReportsEachOverflowOnce) {
  port.SetPortOpen(true);
  const Bytes flood(3000, 0xEE);
  for (int round = 1; round <= 2; ++round) {
    unit.Send(flood);
    bench.Wait([&] { return std::count(events.begin(), events.end(), kCommOverflow) == round; });
    bench.pump.Pass(200);
    EXPECT_EQ(std::count(events.begin(), events.end(), kCommOverflow), round);
    EXPECT_EQ(port.InBufferCount(), kInBufferSize);
    port.DiscardInput();
    EXPECT_EQ(port.InBufferCount(), 0U);
    EXPECT_THROW(port.Input(), RuntimeError);
  }
  unit.Send(kReply);
  EXPECT_EQ(NextReply(), kReply);
}

TEST_F(QtSerialPortTest, ForgetsWhatCameBeforeTheOpening) {
  port.SetPortOpen(true);
  unit.Send(Bytes{0x04});
  EXPECT_TRUE(bench.Wait([this] { return port.InBufferCount() == 1; }));
  SendPart({0x02, 0x11});
  port.SetPortOpen(false);
  EXPECT_EQ(port.InBufferCount(), 0U);
  port.Output(kReply);  // nothing happens on a closed port
  EXPECT_EQ(port.OutBufferCount(), 0U);

  unit.Send(Bytes{0x00, 0x02});
  port.SetPortOpen(true);
  unit.Send(kReply);
  EXPECT_EQ(NextReply(), kReply);
}

TEST_F(QtSerialPortTest, ClosesItselfWhenTheDeviceGoes) {
  const auto goneEvents = [this] { return std::count(events.begin(), events.end(), kCommDeviceGone); };
  bool openInHandler = true;
  onEvent = [&] {
    if (port.CommEvent() == kCommDeviceGone) openInHandler = port.PortOpen();
  };
  port.SetPortOpen(true);
  SendPart({0x02, 0x11});
  unit.Unplug();
  EXPECT_TRUE(bench.Wait([&] { return goneEvents() == 1; }));
  EXPECT_FALSE(openInHandler);
  EXPECT_FALSE(port.PortOpen());
  port.Output(kReply);
  EXPECT_EQ(port.OutBufferCount(), 0U);
  EXPECT_EQ(port.InBufferCount(), 0U);
  bench.pump.Pass(100);
  EXPECT_EQ(goneEvents(), 1);
  EXPECT_THROW(port.SetPortOpen(true), RuntimeError);
}

TEST_F(QtSerialPortTest, NoticesByASendingThatTheDeviceIsGone) {
  port.SetPortOpen(true);
  unit.Unplug();
  port.Output(kReply);
  EXPECT_TRUE(events.empty()) << "never in the middle of the tool's own call";
  EXPECT_EQ(port.OutBufferCount(), 0U) << "nothing to drain";
  EXPECT_TRUE(bench.Wait([this] { return !events.empty(); }));
  EXPECT_EQ(events, std::vector<int>{kCommDeviceGone});
}

/// The text of the failure to open `device` as port 2, empty when the port opened.
std::string FailureOf(Guard& guard, const std::string& device) {
  const MemorySettings settings;
  PortMap ports({"", device}, settings, NoneFound);
  QtSerialPort port(guard, ports);
  port.SetCommPort(2);
  try {
    port.SetPortOpen(true);
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), kErrPort);
    EXPECT_FALSE(port.PortOpen());
    return error.Description();
  }
  return {};
}

TEST_F(QtSerialPortTest, SaysWhyAPortCannotBeOpenedAndWhatHelps) {
  const TempFolder folder;
  const std::string plain = folder.Write("plain", "text");
  const std::string missing = folder.File("ttyUSB7");
  const std::string begin = "Port 2 cannot be opened: ";
  EXPECT_EQ(FailureOf(bench.guard, missing),
            begin + "there is no device " + missing + ". Plug it in, or choose another port.");
  for (const std::string& path : {folder.Path(), plain}) {
    EXPECT_EQ(FailureOf(bench.guard, path),
              begin + path + " is not a serial device. Name the device of the port instead.");
  }
  EXPECT_EQ(FailureOf(bench.guard, "/dev/null").find(begin + "opening /dev/null failed ("), 0U);
  EXPECT_EQ(FailureOf(bench.guard, "").find("No device stands behind port 2. "), 0U);

  port.SetPortOpen(true);
  EXPECT_EQ(
      FailureOf(bench.guard, unit.Device()),
      begin + unit.Device() + " is in use by another program. Close that program, or choose another port.");
  port.SetPortOpen(false);
  EXPECT_EQ(FailureOf(bench.guard, unit.Device()), "") << "free again";
}

/// Lowers a privileged test to a user without any rights, and takes that back.
class WithoutRights {
 public:
  WithoutRights() : privileged_(geteuid() == 0) {
    if (privileged_ && (setgroups(0, nullptr) != 0 || setresgid(kNobody, kNobody, 0) != 0 ||
                        setresuid(kNobody, kNobody, 0) != 0)) {
      throw std::runtime_error("cannot drop the rights of the test");
    }
  }
  ~WithoutRights() {
    if (privileged_ && (setresuid(0, 0, 0) != 0 || setresgid(0, 0, 0) != 0)) std::abort();
  }
  WithoutRights(const WithoutRights&) = delete;
  WithoutRights& operator=(const WithoutRights&) = delete;

 private:
  static constexpr id_t kNobody = 65534;
  bool privileged_;
};

TEST_F(QtSerialPortTest, NamesTheGroupThatMayOpenTheDevice) {
  const std::string begin = "Port 2 cannot be opened: you have no permission to use " + unit.Device() + ". ";
  const group* dialout = getgrnam("dialout");
  if (geteuid() == 0 && dialout) {
    ASSERT_EQ(chown(unit.Device().c_str(), 0, dialout->gr_gid), 0);
    ASSERT_EQ(chmod(unit.Device().c_str(), 0660), 0);
    const WithoutRights nobody;
    EXPECT_EQ(FailureOf(bench.guard, unit.Device()),
              begin + "Add yourself to the group dialout, which owns the device, and log in again.");
  }
  ASSERT_EQ(chmod(unit.Device().c_str(), 0), 0);
  const WithoutRights nobody;
  EXPECT_EQ(FailureOf(bench.guard, unit.Device()).find(begin + "Ask the administrator of this computer"), 0U);
}

TEST_F(QtSerialPortTest, TakesOtherNamesOfADevice) {
  const TempFolder folder;
  const std::string link = folder.File("unit");
  ASSERT_EQ(symlink(unit.Device().c_str(), link.c_str()), 0);
  EXPECT_EQ(FailureOf(bench.guard, link), "");
  const std::string name = unit.Device().substr(std::string("/dev/").size());
  EXPECT_EQ(FailureOf(bench.guard, name), "");
  port.SetPortOpen(true);
  EXPECT_NE(FailureOf(bench.guard, link).find(link + " is in use"), std::string::npos);
}

TEST_F(QtSerialPortTest, HasFourPorts) {
  for (const int outside : {0, 5, -1}) EXPECT_THROW(port.SetCommPort(outside), RuntimeError);
  EXPECT_EQ(port.CommPort(), 1);
  EXPECT_EQ(port.DeviceName(1), unit.Device());
  EXPECT_EQ(port.DeviceName(2), "");
}

}  // namespace
}  // namespace marlinset
