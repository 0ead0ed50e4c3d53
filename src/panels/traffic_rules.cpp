// SPDX-License-Identifier: GPL-3.0-or-later
#include "panels/traffic_rules.h"

#include <string>

#include "controls/guard.h"
#include "core/frm_start.h"
#include "core/variables.h"
#include "csv/csv.h"
#include "panels/remembered_tick.h"
#include "platform/event_pump.h"
#include "platform/file_system.h"
#include "platform/new_file.h"
#include "platform/platform.h"
#include "platform/settings_keys.h"

namespace marlinset {
namespace {

NewFileQuestion QuestionFor(TrafficRules::Format format) {
  const bool csv = format == TrafficRules::Format::kCsv;
  return {.title = "Save Traffic",
          .kind = csv ? "CSV table" : "Text",
          .extension = csv ? ".csv" : ".txt",
          .suffix = " traffic"};
}

std::string TableOf(std::span<const Traffic::Row> rows, char separator) {
  std::string table = CsvLine(TrafficHeads(), separator);
  std::array<std::string, kTrafficColumns> cells;
  for (const Traffic::Row& row : rows) {
    for (std::size_t column = 0; column < cells.size(); ++column) cells[column] = TrafficText(*row, column);
    table += CsvLine(cells, separator);
  }
  return table;
}

}  // namespace

TrafficRules::TrafficRules(Platform& platform, const Variables& variables, FrmStart& form,
                           Communications& communications, SettingCommands& commands)
    : platform_(platform), vars_(variables), form_(form), comms_(communications), commands_(commands) {
  RememberTick(platform_, form_.mnuTraffic, kTrafficSetting);
}

std::unique_ptr<Traffic> TrafficRules::Record() const {
  return std::make_unique<Traffic>(platform_.pump, comms_, commands_);
}

void TrafficRules::Save(std::span<const Traffic::Row> rows, Format format) {
  platform_.guard.RunFor(form_.mnuTraffic, [&] {
    const std::string file = AskForNewFile(platform_, QuestionFor(format), vars_.CurrentFile,
                                           LastFolder(platform_.settings, vars_.AppPath));
    if (file.empty()) return;
    const std::string table = TableOf(rows, format == Format::kCsv ? ',' : '\t');
    const auto output = platform_.files.OpenForWriting(file);
    output->Write({reinterpret_cast<const std::uint8_t*>(table.data()), table.size()});
    output->Commit();
    form_.StatBar(FrmStart::kVideoPanel).SetText(FileNameOf(file) + " written to " + FolderOfPath(file));
  });
}

}  // namespace marlinset
