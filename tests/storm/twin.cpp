// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/storm/twin.h"

#include <map>

#include "files/panel_document.h"
#include "files/qcf_listing.h"
#include "files/qcf_writer.h"
#include "tests/support/temp_folder.h"

namespace marlinset {
namespace {

template <class Numbers>
std::string Told(const Numbers& numbers) {
  std::string text;
  for (const int number : numbers) text += ' ' + std::to_string(number);
  return text;
}

/// Every setting of a unit by the command's name and its key.
std::map<std::string, std::string> SettingsOf(const UnitMemory& unit) {
  std::map<std::string, std::string> settings;
  for (const auto& [command, all] : unit.All()) {
    for (const auto& [key, fields] : all) {
      settings[std::string(command) + Told(std::array{key.first, key.second})] = Told(fields);
    }
  }
  for (const auto& [number, window] : unit.Windows()) {
    settings["cmdWindow" + Told(std::array{number, 0})] =
        Told(std::array<int, 8>{window.on, window.slate, window.doubleHeight, window.symbol,
                                window.fieldDigit, window.row, window.position, window.length});
  }
  settings["cmdText 0 0"] = unit.Message().value_or("none");  // senders may leave empty bytes at the end
  return settings;
}

}  // namespace

std::vector<std::string> DifferencesToTwin(const ToolRig& rig) {
  const TempFolder folder;
  const UnitModel& unit = rig.line.Unit();
  ToolRig twin({.model = unit.Model(), .standard = unit.Standard(), .manual = true},
               rig.platform.programFolder);
  twin.dialogs.onShow = [](const MessageBox& box) {
    return box.buttons == BoxButtons::kYesNo ? BoxAnswer::kYes : BoxAnswer::kOk;
  };
  twin.tool.Start(rig.vars.OperatingMode, false);
  const QcfDocument document = DocumentOfPanels(rig.vars, rig.form);
  const auto file = WriteDocument(document);
  twin.tool.configurationFile.LoadNamed(folder.Write("twin.qcf", std::string(file.begin(), file.end())));
  twin.form.bSConfig.Press();

  std::vector<std::string> found;
  for (const QcfComparison& line : Compare(document, DocumentOfPanels(twin.vars, twin.form))) {
    if (line.difference != QcfDifference::kEqual)
      found.push_back(line.name + ": panels " + line.left + ", twin " + line.right);
  }
  const auto held = SettingsOf(unit.Memory());
  for (const auto& [setting, fields] : SettingsOf(twin.line.Unit().Memory())) {
    const auto same = held.find(setting);
    const std::string here = same == held.end() ? " nothing" : same->second;
    if (here == fields) continue;
    std::string& text = found.emplace_back(setting);
    text.append(": unit").append(here).append(", twin").append(fields);
  }
  return found;
}

}  // namespace marlinset
