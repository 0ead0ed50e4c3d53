// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/port_map.h"

#include <gtest/gtest.h>

#include <filesystem>

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
  present = {"/dev/ttyUSB10", "/dev/ttyUSB2", "/dev/ttyUSB1"};
  EXPECT_EQ(Names(PortMap({"/dev/fromLine"}, settings, finder)),
            (Devices{"/dev/fromLine", "/dev/ttyUSB1", "/dev/fromSetting3", "/dev/ttyUSB2"}));
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
}

}  // namespace
}  // namespace marlinset
