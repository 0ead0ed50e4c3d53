// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/port_devices.h"

#include <algorithm>
#include <filesystem>
#include <vector>

#include "base/finally.h"
#include "base/text.h"
#include "controls/dialogs.h"
#include "core/frm_start.h"
#include "link/ports.h"
#include "platform/device_address.h"
#include "platform/file_system.h"
#include "platform/ms_comm.h"
#include "platform/platform.h"
#include "platform/port_map.h"
#include "platform/settings_keys.h"
#include "platform/settings_store.h"

namespace marlinset {
namespace {

/// The entry that names no device.
const char* const kSearch = "(as found)";

std::string Sentence(std::string text) {
  if (!text.empty() && text[0] >= 'a' && text[0] <= 'z') text[0] = static_cast<char>(text[0] - 'a' + 'A');
  return text;
}

/// A device as it can be kept. A path in a folder becomes absolute; a name alone is looked up in /dev, too.
std::string Lasting(const std::string& device) {
  if (IsAddress(device) || device.find('/') == std::string::npos) return device;
  return std::filesystem::path(AbsolutePath(device)).lexically_normal().string();
}

}  // namespace

PortDevices::PortDevices(Platform& platform, FrmStart& mainForm, Ports& ports)
    : form(platform.guard), platform_(platform), ports_(ports), probe_(platform) {
  mainForm.mnuPorts.OnClick([this] { Show(); });
  form.comDevice.OnClick([this](int) { NoteAll(); });
  form.comDevice.OnChange([this](int) { NoteAll(); });
  form.cmdTest.OnClick([this](int port) { Test(port); });
  form.cmdLook.OnClick([this] { SearchAgain(); });
  form.cmdStop.OnClick([this] { probe_.Stop(); });
  form.cmdOK.OnClick([this] { cmdOK_Click(); });
  form.cmdCancel.OnClick([this] { form.SetVisible(false); });
  // The cross of the window closes it too.
  form.Changed.Connect([this] {
    if (!form.Visible()) probe_.Stop();
  });
  ports.Closed.Connect([this] {
    std::erase_if(tested_, [](const auto& entry) { return entry.second.whileOpen; });
    if (form.Visible()) NoteAll();
  });
}

void PortDevices::Show() {
  if (form.Visible() || !platform_.portMap) return;
  platform_.portMap->Refresh();
  tested_.clear();
  for (const int port : form.comDevice.Indices()) Fill(port, platform_.portMap->Chosen(port));
  NoteAll();
  platform_.dialogs.ShowModal(form);
}

/// Lists what a port can be given, with `named` as its choice. Only a wrong address
/// is shown other than as it is written, and it stays wrong if it is kept as shown.
void PortDevices::Fill(int port, const std::string& named) {
  const std::string device = IsAddress(named) ? ShownDevice(named) : named;
  std::vector<std::string> entries = platform_.portMap->Found();
  if (!device.empty() && std::find(entries.begin(), entries.end(), device) == entries.end())
    entries.insert(entries.begin(), device);
  entries.insert(entries.begin(), kSearch);
  ComboBox& box = form.comDevice(port);
  box.Clear();
  for (const std::string& entry : entries) box.AddItem(entry);
  box.Preselect(static_cast<int>(
      std::find(entries.begin(), entries.end(), device.empty() ? kSearch : device) - entries.begin()));
}

void PortDevices::SearchAgain() {
  platform_.portMap->Refresh();
  tested_.clear();
  for (const int port : form.comDevice.Indices()) Fill(port, Named(port));
  NoteAll();
}

bool PortDevices::Opened(int port) const {
  return platform_.ComP1.PortOpen() && platform_.ComP1.CommPort() == port;
}

std::string PortDevices::Named(int port) const {
  const std::string text = Trim(form.comDevice(port).Text());
  return text == kSearch ? std::string() : text;
}

void PortDevices::NoteAll() {
  for (const int port : form.comDevice.Indices()) {
    form.comDevice(port).SetEnabled(!platform_.portMap->Fixed(port) && !Opened(port));
    // The button that was pressed keeps the focus.
    form.cmdTest(port).SetEnabled(!testing_ || port == *testing_);
    form.lblNote(port).SetCaption(NoteOf(port));
  }
  form.cmdLook.SetEnabled(!testing_);
  form.cmdStop.SetEnabled(testing_.has_value());
}

std::string PortDevices::NoteOf(int port) const {
  if (const auto tested = tested_.find(port); tested != tested_.end() && tested->second.device == Named(port))
    return tested->second.text;
  if (Opened(port)) return "Open. Close the port to give it another device.";
  if (platform_.portMap->Fixed(port))
    return "Named on the command line (--com" + std::to_string(port) + "), which goes before the settings.";
  return NoteOfDevice(port);
}

std::string PortDevices::NoteOfDevice(int port) const {
  const std::string device = Named(port);
  if (device.empty()) {
    const bool kept = platform_.portMap->Chosen(port).empty();
    const std::string found = kept ? platform_.portMap->Device(port) : "";
    return !kept           ? "The next device that the search finds."
           : found.empty() ? "None found."
                           : "Found: " + found;
  }
  const std::string fault = AddressFault(device);
  if (!fault.empty()) return Sentence(fault);
  for (const int other : form.comDevice.Indices()) {
    if (other != port && !Named(other).empty() && SameDevice(device, Named(other)))
      return "The same device as Com " + std::to_string(other) + ".";
  }
  if (IsAddress(device)) return "Over the network, connected when the port is opened.";
  return PathExists(device) ? "" : "There is no such device now.";
}

void PortDevices::Test(int port) {
  if (testing_) return;
  const std::string named = Named(port);
  const std::string device = Lasting(named.empty() ? platform_.portMap->Device(port) : named);
  if (OpenOn(device)) {
    tested_[port] = {named,
                     "Not tested: port " + std::to_string(platform_.ComP1.CommPort()) +
                         " is open on this device. Ask the unit there with Get ID, or close the port first.",
                     true};
    return NoteAll();
  }
  tested_[port] = {named, "Asking…"};
  testing_ = port;
  NoteAll();
  std::string text;
  Finally([&] { text = TestText(port, device); },
          [&] {
            testing_.reset();
            tested_[port].text = text;
            NoteAll();
          });
}

bool PortDevices::OpenOn(const std::string& device) const {
  const MSComm& line = platform_.ComP1;
  return line.PortOpen() && SameDevice(device, line.DeviceName(line.CommPort()));
}

std::string PortDevices::TestText(int port, const std::string& device) {
  if (device.empty()) return "There is no device to test.";
  if (const std::string fault = AddressFault(device); !fault.empty()) return Sentence(fault);
  const std::string text = probe_.Identify(*platform_.makeLine(port, device));
  const std::string known = CannotBeOpened(port);  // the row says which one
  return text.starts_with(known) ? Sentence(text.substr(known.size())) : text;
}

void PortDevices::cmdOK_Click() {
  for (const int port : form.comDevice.Indices()) {
    const std::string fault = AddressFault(Named(port));
    if (fault.empty() || platform_.portMap->Fixed(port)) continue;
    platform_.dialogs.Show(
        {.text = "Com " + std::to_string(port) + ": " + fault, .icon = BoxIcon::kCritical});
    return;
  }
  for (const int port : form.comDevice.Indices()) Keep(port);
  form.SetVisible(false);
  ports_.LookForDevices();
}

void PortDevices::Keep(int port) {
  const std::string device = Lasting(Named(port));
  if (!form.comDevice(port).Enabled() || device == platform_.portMap->Chosen(port)) return;
  platform_.settings.SaveSetting(DeviceKey(port), device);
  platform_.portMap->Choose(port, device);
}

}  // namespace marlinset
