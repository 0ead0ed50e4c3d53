// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/ports.h"

#include <algorithm>

#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "link/interactive_mode.h"
#include "platform/device_address.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {

void EnableLinkButtons(FrmStart& form, bool enabled) {
  for (Button* button :
       {&form.bOpen, &form.bSend, &form.bClose, &form.bGetID, &form.bBroad, &form.bSConfig}) {
    button->SetEnabled(enabled);
  }
}

Ports::Ports(Platform& platform, Variables& variables, FrmStart& form)
    : platform_(platform), vars_(variables), form_(form) {
  form_.bOpen.OnClick([this] { Open(); });
  form_.bClose.OnClick([this] { Close(); });
  for (int port = kLowestPort; port <= kHighestPort; ++port) {
    form_.ComMenu(port).OnClick([this, port] {
      const bool alreadyChecked = form_.ComMenu(port).Checked();
      if (platform_.ComP1.PortOpen()) form_.bClose.Press();
      SetComMenu(port, alreadyChecked);
    });
  }
}

void Ports::UsePort(int port) {
  for (int other = kLowestPort; other <= kHighestPort; ++other)
    form_.ComMenu(other).SetChecked(other == port);
  vars_.ComPortNumber = port;
}

void Ports::NamePorts(std::span<const std::string> paths) {
  named_.clear();
  for (std::size_t i = 0; i < paths.size(); ++i) {
    if (!paths[i].empty()) named_.push_back(kLowestPort + static_cast<int>(i));
  }
}

void Ports::Open() {
  if (platform_.ComP1.Opening()) return;
  if (platform_.ComP1.PortOpen()) {
    form_.StatBar(FrmStart::kStandardPanel).SetText("Port Open Already ");
    return;
  }
  form_.tInput.SetText("");
  form_.StatBar(FrmStart::kExchangePanel).SetText("");
  try {
    platform_.ComP1.LookForDevices();
    platform_.ComP1.SetCommPort(vars_.ComPortNumber);
    if (LeadsOverNetwork(vars_.ComPortNumber)) form_.StatBar(FrmStart::kStandardPanel).SetText("Connecting");
    platform_.ComP1.SetPortOpen(true);
  } catch (const RuntimeError& error) {
    form_.ShowTraffic(kRed);
    form_.StatBar(FrmStart::kStandardPanel).SetText("Port Closed");
    platform_.dialogs.Show(
        {.text = error.Description(), .icon = BoxIcon::kCritical, .remedy = error.Remedy()});
    return;
  }
  if (!platform_.ComP1.PortOpen()) {  // the operator did not want to wait
    form_.ShowTraffic(kRed);
    form_.StatBar(FrmStart::kStandardPanel).SetText("Port Closed ");
    return;
  }
  form_.ShowTraffic(kGreen);
  form_.StatBar(FrmStart::kStandardPanel).SetText("Port Open ");
}

void Ports::ShowClosed() {
  form_.ShowTraffic(kRed);
  form_.ShowVideoPicture(FrmStart::kVideoUnknown);
}

void Ports::CloseLine() {
  platform_.ComP1.SetPortOpen(false);
  Closed.Emit();
}

bool Ports::LeadsOverNetwork(int port) const {
  return IsAddress(platform_.ComP1.DeviceName(port));
}

/// Ends the wait for a connection; whoever waits shows that.
bool Ports::GiveUpOpening() {
  const bool opening = platform_.ComP1.Opening();
  if (opening) platform_.ComP1.SetPortOpen(false);
  return opening;
}

void Ports::Close() {
  if (GiveUpOpening()) return;
  if (!platform_.ComP1.PortOpen()) {
    form_.StatBar(FrmStart::kStandardPanel).SetText("Port Closed Already ");
    return;
  }
  LeaveInteractiveMode(form_);
  CloseLine();
  ShowClosed();
  form_.StatBar(FrmStart::kStandardPanel).SetText("Port Closed ");
}

void Ports::ClosePort() {
  GiveUpOpening();
  if (platform_.ComP1.PortOpen()) {
    LeaveInteractiveMode(form_);
    CloseLine();
  }
  ShowClosed();
  form_.StatBar(FrmStart::kStandardPanel).SetText("Offline");
  form_.SetInteractive(false, false);
  EnableLinkButtons(form_, true);
}

void Ports::LineLost(int commEvent) {
  if (commEvent == kCommCtsTimeout) {
    ClosePort();
    platform_.dialogs.Tell("CTS Timeout Transfer aborted");
    return;
  }
  DeviceLost();
  platform_.dialogs.Show({.text = LossText() + ". The tool is off line.",
                          .icon = BoxIcon::kCritical,
                          .remedy = "Check " + Suspects() +
                                    ", then press Open or choose another port in the Options menu. The "
                                    "configuration is as it was."});
}

void Ports::DeviceLost() {
  LeaveInteractiveMode(form_);
  CloseLine();  // PortOpen may be False while the close is still pending
  ClosePort();
}

std::string Ports::LossText() const {
  const int port = vars_.ComPortNumber;
  return "The device behind port " + std::to_string(port) + " (" +
         ShownDevice(platform_.ComP1.DeviceName(port)) + ") is gone";
}

std::string Ports::Suspects() const {
  return LeadsOverNetwork(vars_.ComPortNumber)
             ? "the network, the device server, and that no other program uses that port of it"
             : "cable and adapter";
}

std::string Ports::ScanPorts() {
  std::string present;
  for (int port = kLowestPort; port <= kHighestPort; ++port) {
    if (!LeadsOverNetwork(port) && !Opens(port)) continue;
    At(vars_.ComPortPresent, port) = true;
    present += std::to_string(port);
  }
  return present;
}

bool Ports::Opens(int port) {
  try {
    platform_.ComP1.SetCommPort(port);
    platform_.ComP1.SetPortOpen(true);
    platform_.ComP1.SetPortOpen(false);
  } catch (const RuntimeError&) {
    return false;
  }
  return true;
}

void Ports::SetUpCom() {
  vars_.PortList = ScanPorts();
  int first = 0;
  for (int port = kHighestPort; port >= kLowestPort; --port) {
    const bool present = At(vars_.ComPortPresent, port);
    form_.ComMenu(port).SetEnabled(present);
    if (present) first = port;
    At(present_, port) = PresentDevice(port);
  }
  if (first != 0) UsePort(first);
  const std::string remembered = SettingText(platform_.settings, kPortSetting);
  for (int port = kLowestPort; port <= kHighestPort; ++port) {
    if (remembered != std::to_string(port) || !form_.ComMenu(port).Enabled()) continue;
    UsePort(port);
  }
  const bool meant = std::find(named_.begin(), named_.end(), vars_.ComPortNumber) != named_.end();
  if (!named_.empty() && !meant) UsePort(named_.front());
}

/// The device behind a port; empty while it is not there.
std::string Ports::PresentDevice(int port) const {
  return platform_.ComP1.DeviceIsThere(port) ? platform_.ComP1.DeviceName(port) : "";
}

void Ports::LookForDevices() {
  platform_.ComP1.LookForDevices();
  for (int port = kLowestPort; port <= kHighestPort; ++port) {
    const std::string device = PresentDevice(port);
    if (!device.empty() && device != At(present_, port)) form_.ComMenu(port).SetEnabled(true);
    if (device.empty()) At(present_, port).clear();  // if it comes back, it is new
  }
}

void Ports::SetComMenu(int port, bool alreadyChecked) {
  if (platform_.ComP1.PortOpen()) {
    platform_.dialogs.Tell("Close port before changing port allocations. Port change ignored.");
    return;
  }
  if (alreadyChecked) return;
  UsePort(port);
  platform_.settings.SaveSetting(kPortSetting.key, std::to_string(port));
}

}  // namespace marlinset
