// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/port_map.h"

#include <gtest/gtest.h>

#include <filesystem>

#include "platform/no_line.h"
#include "tests/support/memory_settings.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

using Devices = std::vector<std::string>;

struct PortMapTest : testing::Test {
  Devices Names(const PortMap& map) const {
    Devices names;
    for (int port = kLowestPort; port <= kHighestPort; ++port) names.push_back(map.Device(port));
    return names;
  }
  MemorySettings settings;
  Devices present;
  PortMap::Finder finder = [this] { return present; };
};

TEST_F(PortMapTest, GivesANumberToTheCommandLineThenToTheSettingThenToWhatIsFound) {
  settings.values = {{"Port1", "/dev/fromSetting1"}, {"port3", "/dev/fromSetting3"}};
  present = {"/dev/ttyUSB10", "/dev/ttyUSB2", "/dev/ttyACM0"};
  EXPECT_EQ(Names(PortMap({"/dev/fromLine"}, settings, finder)),
            (Devices{"/dev/fromLine", "/dev/ttyACM0", "/dev/fromSetting3", "/dev/ttyUSB2"}));
}

TEST_F(PortMapTest, ListsNoDeviceTwiceWhateverItsName) {
  const TempFolder folder;
  const std::string device = folder.Write("ttyUSB0", "");
  const std::string byId = folder.File("by-id");
  std::filesystem::create_symlink(device, byId);
  settings.values = {{"Port4", "/dev/ttyS9"}};
  present = {device, "/dev/ttyS9", "/dev/ttyUSB1", "/dev/ttyUSB1"};
  EXPECT_EQ(Names(PortMap({"", byId}, settings, finder)), (Devices{"/dev/ttyUSB1", byId, "", "/dev/ttyS9"}));
}

TEST_F(PortMapTest, KeepsTheNumberOfADeviceWhileOthersComeAndGo) {
  present = {"/dev/ttyUSB0", "/dev/ttyUSB1"};
  PortMap map({}, settings, finder);
  present = {"/dev/ttyUSB1", "/dev/ttyACM0"};
  map.Refresh();
  EXPECT_EQ(Names(map), (Devices{"/dev/ttyUSB0", "/dev/ttyUSB1", "/dev/ttyACM0", ""}));
  present = {"/dev/ttyUSB1", "/dev/ttyACM0", "/dev/ttyUSB2", "/dev/ttyUSB3", "/dev/ttyUSB4"};
  map.Refresh();
  EXPECT_EQ(Names(map), (Devices{"/dev/ttyUSB3", "/dev/ttyUSB1", "/dev/ttyACM0", "/dev/ttyUSB2"}))
      << "no free number is left: the one of the device that has gone";
  EXPECT_EQ(map.Device(0) + map.Device(5), "");
}

TEST(NaturalLess, CountsAsPeopleDo) {
  const Devices ascending = {"/dev/ttyACM2",
                             "/dev/ttyUSB0",
                             "/dev/ttyUSB2",
                             "/dev/ttyUSB10",
                             "/dev/ttyUSB010a",
                             "COM3",
                             "tty20190101000000000000001",
                             "tty20190101000000000000002"};
  for (std::size_t i = 0; i + 1 < ascending.size(); ++i) {
    EXPECT_TRUE(NaturalLess(ascending[i], ascending[i + 1])) << ascending[i];
    EXPECT_FALSE(NaturalLess(ascending[i + 1], ascending[i])) << ascending[i];
    EXPECT_FALSE(NaturalLess(ascending[i], ascending[i])) << ascending[i];
  }
}

TEST(NoLine, CannotBeOpenedAndSaysSo) {
  NoLine line;
  line.SetCommPort(3);
  EXPECT_THROW(line.SetCommPort(5), RuntimeError);
  try {
    line.SetPortOpen(true);
    FAIL();
  } catch (const RuntimeError& error) {
    EXPECT_EQ(error.Number(), kErrPort);
    EXPECT_EQ(error.Description(),
              "No device stands behind port 3. Plug in a serial adapter, or name its device with --com3=PATH "
              "or the "
              "setting Port3.");
  }
  EXPECT_FALSE(line.PortOpen());
  line.SetPortOpen(false);
}

}  // namespace
}  // namespace marlinset
