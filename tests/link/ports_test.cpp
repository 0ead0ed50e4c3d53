// SPDX-License-Identifier: GPL-3.0-or-later
#include <gmock/gmock.h>

#include "tests/support/link_rig.h"

namespace marlinset {
namespace {

using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// The digits of the ticked entries of the port menu.
std::string Ticked(const LinkRig& rig) {
  const MenuItem* const items[] = {&rig.form.mnuCom1, &rig.form.mnuCom2, &rig.form.mnuCom3,
                                   &rig.form.mnuCom4};
  std::string digits;
  for (const MenuItem* item : items) {
    if (item->Checked()) digits += item->Name().back();
  }
  return digits;
}

struct PortCase {
  const char* what;
  std::set<int> present;
  const char* remembered;
  const char* list;
  const char* ticked;
  int port;
};

TEST(Ports, ChooseTheRememberedOneOrTheFirst) {
  const PortCase kCases[] = {
      {"first", {1, 3, 4}, nullptr, "134", "1", 1},  {"first, not 1", {2, 4}, nullptr, "24", "2", 2},
      {"remembered", {1, 3, 4}, "4", "134", "4", 4}, {"remembered has gone", {3, 4}, "2", "34", "3", 3},
      {"not a port", {2, 3}, "7", "23", "2", 2},     {"none", {}, "3", "", "1", 1},
  };
  for (const PortCase& c : kCases) {
    SCOPED_TRACE(c.what);
    LinkRig rig;
    rig.line.SetPorts(c.present);
    if (c.remembered) rig.settings.SaveSetting("Comm", c.remembered);
    rig.ports.SetUpCom();
    EXPECT_EQ(rig.vars.PortList, c.list);
    EXPECT_EQ(Ticked(rig), c.ticked);
    EXPECT_EQ(rig.vars.ComPortNumber, c.port);
    EXPECT_FALSE(rig.line.PortOpen());
    for (const int port : {1, 2, 3, 4}) {
      EXPECT_EQ(rig.form.Find("mnuCom" + std::to_string(port))->Enabled(), c.present.contains(port));
    }
  }
}

TEST(Ports, OpenAndCloseAndShowIt) {
  LinkRig rig;
  rig.line.SetPorts({3});
  rig.ports.SetUpCom();
  rig.form.tInput.SetText("2,3,");
  rig.form.StatBar(1).SetText("Ack In");
  rig.form.bOpen.Press();
  EXPECT_TRUE(rig.line.PortOpen());
  EXPECT_EQ(rig.line.CommPort(), 3);
  EXPECT_EQ(rig.form.tInput.Text(), "");
  EXPECT_EQ(rig.Panel(1), "");
  EXPECT_EQ(rig.Panel(2), "Port Open ");
  EXPECT_EQ(rig.form.pComBut.BackColor(), kGreen);
  rig.form.bOpen.Press();
  EXPECT_EQ(rig.Panel(2), "Port Open Already ");
  rig.form.bClose.Press();
  EXPECT_FALSE(rig.line.PortOpen());
  EXPECT_EQ(rig.Panel(2), "Port Closed ");
  EXPECT_EQ(rig.form.pComBut.BackColor(), kRed);
  EXPECT_EQ(rig.form.StatBar(3).Picture(), "Image2(2)");
  rig.form.bClose.Press();
  EXPECT_EQ(rig.Panel(2), "Port Closed Already ");
}

void EnterInteractive(LinkRig& rig) {
  rig.form.bOpen.Press();
  rig.form.mnuInter.SetChecked(true);
  rig.form.mnuOff.SetChecked(false);
  for (MenuItem* model : {&rig.form.mnuHD7340, &rig.form.mnuHD7340Q}) model->SetEnabled(false);
  rig.form.InterTime.SetEnabled(true);
  rig.form.chPrev.SetValue(1);
}

void ExpectOffLine(const LinkRig& rig) {
  EXPECT_FALSE(rig.line.PortOpen());
  EXPECT_FALSE(rig.form.mnuInter.Checked());
  EXPECT_TRUE(rig.form.mnuOff.Checked());
  EXPECT_TRUE(rig.form.mnuHD7340.Enabled() && rig.form.mnuHD7340Q.Enabled());
  EXPECT_FALSE(rig.form.InterTime.Enabled());
  EXPECT_EQ(rig.form.chPrev.Value(), 0);
  EXPECT_EQ(rig.form.pComBut.BackColor(), kRed);
  EXPECT_TRUE(rig.form.bSConfig.Enabled());
}

TEST(Ports, LeaveInteractiveModeWhenTheLineGoes) {
  struct Loss {
    void (*lose)(LinkRig&);
    const char* panel2;
    const char* box;
  };
  const Loss kLosses[] = {
      {[](LinkRig& rig) { rig.form.bClose.Press(); }, "Port Closed ", nullptr},
      {[](LinkRig& rig) { rig.line.RaiseEvent(kCommCtsTimeout); }, "Offline", "CTS Timeout Transfer aborted"},
      {[](LinkRig& rig) { rig.line.Vanish(); }, "Offline", "The device behind port 1 (unit1) is gone."},
  };
  for (const Loss& loss : kLosses) {
    LinkRig rig;
    EnterInteractive(rig);
    EnableLinkButtons(rig.form, loss.box == nullptr);
    loss.lose(rig);
    ExpectOffLine(rig);
    EXPECT_EQ(rig.Panel(2), loss.panel2);
    if (loss.box) {
      EXPECT_THAT(rig.dialogs.Texts(), ElementsAre(HasSubstr(loss.box)));
    } else {
      EXPECT_THAT(rig.dialogs.Texts(), IsEmpty());
    }
  }
}

TEST(Ports, IgnoreOtherEventsOfTheLine) {
  LinkRig rig;
  EnterInteractive(rig);
  for (const int event : {kCommFraming, kCommOverflow, 1}) rig.line.RaiseEvent(event);
  EXPECT_TRUE(rig.line.PortOpen());
  EXPECT_TRUE(rig.form.mnuInter.Checked());
  EXPECT_THAT(rig.dialogs.Texts(), IsEmpty());
}

TEST(Ports, ChangeByTheMenu) {
  LinkRig rig;
  rig.line.SetPorts({1, 2});
  rig.ports.SetUpCom();
  rig.form.bOpen.Press();
  rig.form.mnuCom2.OperatorClick();  // closes the port first
  EXPECT_FALSE(rig.line.PortOpen());
  EXPECT_EQ(Ticked(rig), "2");
  EXPECT_EQ(rig.vars.ComPortNumber, 2);
  EXPECT_EQ(rig.settings.GetSetting("Comm", ""), "2");

  rig.form.bOpen.Press();
  rig.ports.SetComMenu(1, false);
  EXPECT_THAT(rig.dialogs.Texts(),
              ElementsAre("Close port before changing port allocations. Port change ignored."));
  EXPECT_EQ(Ticked(rig), "2");
  EXPECT_EQ(rig.vars.ComPortNumber, 2);
}

TEST(Ports, CanBeChosenWhenTheirDeviceComesLater) {
  LinkRig rig;
  rig.line.SetPorts({2});
  rig.ports.SetUpCom();
  EXPECT_FALSE(rig.form.mnuCom4.Enabled());
  rig.line.SetPorts({4});
  rig.ports.LookForDevices();
  EXPECT_TRUE(rig.form.mnuCom4.Enabled() && rig.form.mnuCom2.Enabled() && !rig.form.mnuCom1.Enabled());
  EXPECT_EQ(rig.vars.ComPortNumber, 2) << "only the operator chooses";
  rig.form.mnuCom4.OperatorClick();
  rig.form.bOpen.Press();
  EXPECT_EQ(rig.line.CommPort(), 4);
}

TEST(Ports, LeaveTheTickedOneAsItIs) {
  LinkRig rig;
  rig.ports.SetComMenu(1, true);
  EXPECT_FALSE(rig.settings.Has("Comm"));
}

}  // namespace
}  // namespace marlinset
