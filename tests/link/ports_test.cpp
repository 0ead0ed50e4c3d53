// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/interactive_mode.h"
#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using Texts = std::vector<std::string>;

/// The numbers of the ticked or of the enabled ports in the menu.
std::string Which(LinkRig& rig, bool (MenuItem::*are)() const) {
  std::string digits;
  for (int port = kLowestPort; port <= kHighestPort; ++port) {
    if ((rig.form.ComMenu(port).*are)()) digits += std::to_string(port);
  }
  return digits;
}

TEST(Ports, ChooseTheRememberedOneOrTheFirst) {
  const struct {
    std::set<int> present;
    Texts named;
    const char *remembered, *list, *port;
  } kCases[] = {{{1, 3, 4}, {}, "", "134", "1"},     {{1, 3, 4}, {}, "4", "134", "4"},
                {{3, 4}, {}, "2", "34", "3"},        {{}, {}, "3", "", "1"},
                {{1, 2, 3}, {"a"}, "2", "123", "1"}, {{1, 2, 3}, {"", "b", "c"}, "3", "123", "3"}};
  for (const auto& c : kCases) {
    SCOPED_TRACE(c.list);
    LinkRig rig;
    rig.line.SetPorts(c.present);
    if (*c.remembered) rig.settings.SaveSetting("Comm", c.remembered);
    rig.ports.NamePorts(c.named);
    rig.ports.SetUpCom();
    EXPECT_EQ(rig.vars.PortList, c.list);
    EXPECT_EQ(Which(rig, &MenuItem::Enabled), c.list);
    EXPECT_EQ(Which(rig, &MenuItem::Checked), c.port);
    EXPECT_EQ(std::to_string(rig.vars.ComPortNumber), c.port);
    EXPECT_FALSE(rig.line.PortOpen());
    EXPECT_EQ(rig.line.Looks(), 0) << "which takes a while, and a start has just done it";
  }
}

TEST(Ports, AreNotTriedWhereTheyLeadOverANetwork) {
  LinkRig rig;
  rig.line.SetPorts({1, 3});
  rig.line.NameDevice(3, "tcp://rack7:4001");
  rig.line.RefuseOpen("connection refused");
  rig.ports.SetUpCom();
  EXPECT_EQ(rig.vars.PortList, "3");
  EXPECT_EQ(Which(rig, &MenuItem::Enabled), "3");
  EXPECT_EQ(rig.vars.ComPortNumber, 3);
  rig.line.RefuseOpen("");
  rig.form.bOpen.Press();
  rig.line.Vanish();
  EXPECT_THAT(rig.dialogs.shown.back().remedy, testing::HasSubstr("Check the network, the device server"));
}

TEST(Ports, OpenAndCloseAndShowIt) {
  LinkRig rig;
  rig.line.SetPorts({3});
  rig.ports.SetUpCom();
  rig.form.tInput.SetText("2,3,");
  rig.form.StatBar(1).SetText("Ack In");
  rig.form.bOpen.Press();
  EXPECT_EQ(rig.line.CommPort(), 3);
  EXPECT_EQ(rig.form.tInput.Text(), "");
  EXPECT_EQ(rig.Panel(1), "");
  EXPECT_EQ(rig.Panel(2), "Port Open ");
  EXPECT_EQ(rig.form.pComBut.BackColor(), kGreen);
  rig.form.bOpen.Press();
  EXPECT_EQ(rig.Panel(2), "Port Open Already ");
  rig.form.bClose.Press();
  EXPECT_EQ(rig.Panel(2), "Port Closed ");
  EXPECT_EQ(rig.form.StatBar(3).Picture(), "Image2(2)");
  rig.form.bClose.Press();
  EXPECT_EQ(rig.Panel(2), "Port Closed Already ");
  rig.Open();
  rig.line.Vanish();
  EXPECT_EQ(rig.Panel(2), "Offline");
  rig.form.mnuInter.SetChecked(true);
  rig.form.mnuOff.SetChecked(false);
  rig.form.InterTime.SetEnabled(true);
  rig.ports.ClosePort();
  EXPECT_TRUE(rig.form.mnuOff.Checked() && !rig.form.mnuInter.Checked() && !rig.form.InterTime.Enabled());
}

const char* const kInUse = "/dev/ttyUSB0 is in use by another program.";
const char* const kTimeout = "CTS Timeout Transfer aborted";
const char* const kGone = "The device behind port 1 (unit1) is gone. The tool is off line.";

/// A way off line.
struct Loss {
  void (*lose)(LinkRig& rig);
  Texts panel2;  ///< each text with "+" while the port is open
  bool enablesButtons;
  Texts boxes;
};

TEST(Ports, LeaveInteractiveModeBeforeTheyClose) {
  const Loss kLosses[] = {
      {[](LinkRig& rig) { LeaveInteractiveMode(rig.form); }, {"Offline+"}, false, {}},
      {[](LinkRig& rig) { rig.form.bClose.Press(); }, {"Offline+", "Port Closed "}, false, {}},
      {[](LinkRig& rig) { rig.form.mnuCom2.OperatorClick(); }, {"Offline+", "Port Closed "}, false, {}},
      {[](LinkRig& rig) { rig.ports.ClosePort(); }, {"Offline+"}, true, {}},
      {[](LinkRig& rig) { rig.line.RaiseEvent(kCommCtsTimeout); }, {"Offline+"}, true, {kTimeout}},
      {[](LinkRig& rig) { rig.line.Vanish(); }, {"Offline"}, true, {kGone}},
  };
  for (const Loss& loss : kLosses) {
    LinkRig rig;
    rig.form.bOpen.Press();
    rig.form.mnuInter.SetChecked(true);
    rig.form.mnuOff.SetChecked(false);
    for (MenuItem* model : {&rig.form.mnuHD7340, &rig.form.mnuHD7340Q}) model->SetEnabled(false);
    rig.form.InterTime.SetEnabled(true);
    rig.form.chPrev.SetValue(1);
    EnableLinkButtons(rig.form, false);
    rig.line.RaiseEvent(kCommOverflow);
    EXPECT_TRUE(rig.form.mnuInter.Checked()) << "other events of the line change nothing";
    Texts texts;
    rig.form.StatBar(2).Changed.Connect(
        [&] { texts.push_back(rig.Panel(2) + (rig.line.PortOpen() ? "+" : "")); });
    loss.lose(rig);
    EXPECT_EQ(texts, loss.panel2);
    EXPECT_EQ(rig.dialogs.Texts(), loss.boxes);
    EXPECT_EQ(rig.EnabledButtons(), loss.enablesButtons ? 6 : 0);
    EXPECT_EQ(rig.line.PortOpen(), &loss == kLosses) << "the mode alone can be left, too";
    EXPECT_TRUE(rig.form.mnuOff.Checked() && !rig.form.mnuInter.Checked());
    EXPECT_TRUE(rig.form.mnuHD7340.Enabled() && rig.form.mnuHD7340Q.Enabled());
    EXPECT_FALSE(rig.form.InterTime.Enabled());
    EXPECT_EQ(rig.form.chPrev.Value(), 0);
    EXPECT_EQ(rig.form.pComBut.BackColor(), kRed);
    EXPECT_EQ(rig.form.StatBar(3).Picture(), "Image2(2)");
  }
}

TEST(Ports, TellOnceWhyOneCannotBeOpened) {
  for (const char* button : {"bOpen", "bGetID", "bSend", "bBroad", "bSConfig"}) {
    SCOPED_TRACE(button);
    LinkRig rig;
    rig.line.RefuseOpen(kInUse);
    rig.form.pComBut.SetBackColor(kGreen);
    dynamic_cast<Button*>(rig.form.Find(button))->Press();
    EXPECT_THAT(rig.dialogs.Texts(), ElementsAre(kInUse));
    EXPECT_EQ(rig.Panel(2), "Port Closed");
    EXPECT_EQ(rig.Panel(3), "") << "nothing was sent";
    EXPECT_EQ(rig.form.pComBut.BackColor(), kRed);
    EXPECT_EQ(rig.EnabledButtons(), 6);
    EXPECT_EQ(rig.form.dPause.Interval(), button == std::string("bGetID") ? 100 : 10000);
  }
}

TEST(Ports, ChangeByTheMenuAlsoToDevicesThatComeLater) {
  LinkRig busy;
  busy.line.RefuseOpen(kInUse);
  busy.ports.SetUpCom();
  busy.ports.LookForDevices();
  EXPECT_EQ(Which(busy, &MenuItem::Enabled), "") << "it was there before";
  for (const std::set<int>& present : {std::set<int>(), std::set<int>{1}}) {
    busy.line.SetPorts(present);
    busy.ports.LookForDevices();
  }
  EXPECT_EQ(Which(busy, &MenuItem::Enabled), "1") << "pulled out and plugged in again";
  LinkRig rig;
  rig.line.SetPorts({1, 2});
  rig.ports.SetUpCom();
  rig.form.mnuCom1.OperatorClick();
  EXPECT_EQ(rig.settings.GetSetting("Comm", "none"), "none") << "it was chosen already";
  rig.form.bOpen.Press();
  rig.line.SetPorts({4});
  rig.ports.LookForDevices();
  EXPECT_EQ(Which(rig, &MenuItem::Enabled), "124");
  EXPECT_EQ(rig.line.Looks(), 2) << "at the opening and for the menu, once each";
  EXPECT_EQ(Which(rig, &MenuItem::Checked), "1") << "only the operator chooses";
  rig.form.mnuCom4.OperatorClick();  // closes the port first
  EXPECT_EQ(Which(rig, &MenuItem::Checked), "4");
  EXPECT_EQ(rig.settings.GetSetting("Comm", ""), "4");
  rig.form.bOpen.Press();
  EXPECT_EQ(rig.line.CommPort(), 4);
  rig.ports.SetComMenu(1, false);
  EXPECT_THAT(rig.dialogs.Texts(),
              ElementsAre("Close port before changing port allocations. Port change ignored."));
  EXPECT_EQ(Which(rig, &MenuItem::Checked), "4");
}

}  // namespace
}  // namespace marlinset
