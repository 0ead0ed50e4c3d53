// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/port_devices.h"

#include "platform/port_map.h"
#include "tests/panels/panel_rig.h"

namespace marlinset {
namespace {

using testing::HasSubstr;

/// A tool whose port 2 the command line names, with a unit behind each line apart from its own.
struct PortDevicesTest : testing::Test {
  PortDevicesTest() {
    rig.tool.platform.portMap = &map;
    rig.tool.platform.makeLine = [this](int port, const std::string& device) {
      tested.push_back(device);
      auto line = std::make_unique<UnitLine>(rig.pump, UnitSettings{.model = kModelHd7340Q});
      line->SetPorts({1, 2, 3, 4});
      line->SetCommPort(port);
      if (prepare) prepare(*line);
      return line;
    };
    form.SetVisible(false);
  }
  void Type(int port, const std::string& device) { EXPECT_TRUE(form.comDevice(port).OperatorType(device)); }
  std::string Note(int port) { return form.lblNote(port).Caption(); }
  std::string TestOf(int port) {
    form.cmdTest(port).OperatorClick();
    return Note(port);
  }

  PanelRig rig;
  std::vector<std::string> found = {"/dev/ttyUSB0"};
  PortMap map{PortMap::Paths{"", "tcp://rack7:4002"}, rig.settings, [this] { return found; }};
  FrmPorts& form = rig.tool.portDevices.form;
  std::vector<std::string> tested;
  std::function<void(UnitLine&)> prepare;
};

TEST_F(PortDevicesTest, KeepWhatTheOperatorNames) {
  rig.form.bClose.Press();
  rig.form.mnuPorts.OperatorClick();
  EXPECT_EQ(form.comDevice(1).List(), (std::vector<std::string>{"(as found)", "/dev/ttyUSB0"}));
  EXPECT_EQ(Note(1), "Found: /dev/ttyUSB0");
  EXPECT_THAT(Note(2), HasSubstr("--com2"));
  EXPECT_FALSE(form.comDevice(2).OperatorType("/dev/null"));
  Type(3, "tcp://rack7");
  EXPECT_THAT(Note(3), HasSubstr("The address names no port number."));
  form.cmdOK.OperatorClick();
  EXPECT_THAT(rig.TakeBoxes(), testing::ElementsAre(HasSubstr("Com 3: the address names no port number.")));
  EXPECT_TRUE(form.Visible() && rig.settings.GetSetting("Port3", "none") == "none");
  Type(3, " RFC2217://RACK7:4002 ");
  EXPECT_EQ(Note(3), "The same device as Com 2.");
  Type(4, "/dev/ttyUSB0");
  found.push_back("/dev/ttyUSB1");
  form.cmdLook.OperatorClick();
  EXPECT_EQ(form.comDevice(1).List().back(), "/dev/ttyUSB1");
  form.cmdOK.OperatorClick();
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(rig.settings.GetSetting("Port1", "none"), "none");
  EXPECT_EQ(rig.settings.GetSetting("Port2", "none"), "none");
  EXPECT_EQ(rig.settings.GetSetting("Port3", ""), "RFC2217://RACK7:4002");
  const char* const kDevices[] = {"/dev/ttyUSB1", "tcp://rack7:4002", "RFC2217://RACK7:4002", "/dev/ttyUSB0"};
  for (int port = 1; port <= 4; ++port) EXPECT_EQ(map.Device(port), kDevices[port - 1]);
  rig.form.mnuPorts.OperatorClick();
  form.comDevice(4).OperatorSelect(0);
  form.cmdCancel.OperatorClick();
  EXPECT_EQ(map.Chosen(4), "/dev/ttyUSB0");
  rig.form.mnuPorts.OperatorClick();
  form.comDevice(4).OperatorSelect(0);
  form.cmdOK.OperatorClick();
  EXPECT_EQ(rig.settings.GetSetting("Port4", "none"), "");
  EXPECT_EQ(map.Device(4), "/dev/ttyUSB0") << "as found";
}

TEST_F(PortDevicesTest, TestADeviceApartFromTheOpenPort) {
  rig.form.mnuPorts.OperatorClick();
  EXPECT_THAT(Note(1), HasSubstr("Close the port"));
  EXPECT_FALSE(form.comDevice(1).Enabled());
  Type(3, "unit1");
  EXPECT_THAT(TestOf(3), HasSubstr("port 1 is open on this device"));
  EXPECT_TRUE(tested.empty());
  Type(3, "tcp://rack7:4003");
  const std::int64_t begin = rig.pump.Now();
  EXPECT_EQ(TestOf(3), "HD7340Q, firmware MARLIN40 020E00");
  const std::pair<std::function<void(UnitLine&)>, const char*> kFaults[] = {
      {[](UnitLine& line) { line.Unit().Faults().mute = true; }, "No unit answers within a second."},
      {[](UnitLine& line) { line.Unit().SetLocal(true); }, "local mode"},
      {[this](UnitLine& line) {
         line.Unit().Faults().mute = true;
         line.Inject({0x41}, rig.pump.Now() + 100);
       },
       "Something answers"},
      {[](UnitLine& line) { line.RefuseOpen("Port 3 cannot be opened: unknown host rack7."); },
       "Unknown host rack7."},
      {[this](UnitLine& line) {
         line.Unit().Faults().mute = true;
         rig.pump.At(rig.pump.Now() + 100, [&line] { line.Vanish(); });
       },
       "went away"},
      {[this](UnitLine& line) {
         line.Unit().Faults().mute = true;
         rig.pump.At(rig.pump.Now() + 100, [this] {
           EXPECT_FALSE(form.cmdTest(1).Enabled() || form.cmdLook.Enabled());
           EXPECT_TRUE(form.cmdTest(3).Enabled()) << "it has the focus";
           form.cmdStop.OperatorClick();
         });
       },
       "stopped"},
      {[](UnitLine& line) {
         line.SetGate(false), line.Inject({0x41, 0x02, 0x00}, 0);
       },
       "HD7340Q, firmware"},
  };
  for (const auto& [fault, text] : kFaults) {
    prepare = fault;
    EXPECT_THAT(TestOf(3), HasSubstr(text));
  }
  EXPECT_LT(rig.pump.Now() - begin, 10000);
  EXPECT_EQ(tested, std::vector<std::string>(8, "tcp://rack7:4003"));
  EXPECT_TRUE(rig.line.PortOpen() && rig.Sent().empty()) << "the open port notices nothing";
  EXPECT_THAT(rig.Boxes(), testing::IsEmpty());
  EXPECT_FALSE(form.cmdStop.Enabled());
  EXPECT_TRUE(form.cmdTest(1).Enabled() && form.cmdLook.Enabled());
  Type(4, "unit1");
  EXPECT_THAT(TestOf(4), HasSubstr("Not tested"));
  rig.form.bClose.Press();
  EXPECT_EQ(Note(3), "HD7340Q, firmware MARLIN40 020E00");
  EXPECT_EQ(Note(4), "There is no such device now.");
  prepare = [this](UnitLine& line) {
    line.Unit().Faults().mute = true;
    rig.pump.At(rig.pump.Now() + 100, [this] { form.cmdOK.OperatorClick(); });
  };
  const std::int64_t pressed = rig.pump.Now();
  TestOf(3);
  EXPECT_LT(rig.pump.Now() - pressed, 200) << "OK does not wait for the end of a test";
  EXPECT_FALSE(form.Visible());
  EXPECT_EQ(rig.settings.GetSetting("Port4", ""), "unit1");
}

}  // namespace
}  // namespace marlinset
