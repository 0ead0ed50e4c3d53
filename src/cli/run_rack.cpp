// SPDX-License-Identifier: GPL-3.0-or-later
#include <QCoreApplication>
#include <algorithm>
#include <array>
#include <csignal>
#include <cstdio>
#include <stdexcept>

#include "base/printable.h"
#include "base/text.h"
#include "cli/commands.h"
#include "cli/output.h"
#include "cli/rack.h"
#include "cli/rack_run.h"

namespace marlinset {
namespace {

/// Lists all that is wrong on standard error, and with `json` also on standard output, a line each.
void PrintMistakes(const std::string& file, const std::vector<RackMistake>& mistakes, bool json) {
  const std::string place = file + ": ";
  for (const RackMistake& mistake : mistakes) {
    PrintLine(Printable(place + mistake.Text()), stderr);
    if (json) {
      PrintJson({{"name", mistake.name.empty() ? Json() : Json(mistake.name)}, {"error", mistake.Text()}});
    }
  }
  std::fprintf(stderr, "%zu %s. Nothing was sent.\n", mistakes.size(),
               mistakes.size() == 1 ? "mistake" : "mistakes");
}

void PrintPlan(const std::vector<RackUnit>& units, bool json) {
  for (const RackUnit& unit : units) {
    if (json) {
      PrintJson({{"name", unit.name}, {"port", unit.port}, {"file", unit.file}});
    } else {
      PrintLine(Printable(unit.name + ": " + unit.file + " goes to " + unit.port));
    }
  }
}

/// The send to one unit, by this program. The null device gives each process settings of its own, which end
/// with it.
std::vector<std::string> WordsFor(const CliOptions& options, const RackUnit& unit) {
  std::vector<std::string> words{QCoreApplication::applicationFilePath().toStdString(), "send", "--json",
                                 "--settings=/dev/null", "--com1=" + unit.port};
  if (!options.common.programFolder.empty())
    words.push_back("--program-folder=" + options.common.programFolder);
  if (!options.common.commandText.empty()) words.push_back("--command=" + options.common.commandText);
  for (const std::string& answer : options.answers) words.push_back("--answer=" + answer);
  words.push_back(unit.file);
  return words;
}

std::string SecondsText(double seconds) {
  std::array<char, 32> text{};
  std::snprintf(text.data(), text.size(), "%.2f", seconds);
  return text.data();
}

void PrintResult(const UnitResult& result, bool json) {
  const std::string place = result.name + ": ";
  for (const std::string& line : result.told) PrintLine(Printable(place + line), stderr);
  if (json) {
    PrintJson({{"name", result.name},
               {"end", result.end},
               {"model", result.model.empty() ? Json() : Json(result.model)},
               {"messages", result.messages},
               {"unacknowledged", result.unacknowledged},
               {"seconds", result.seconds}});
  } else {
    std::string text = place + result.end + ", " + std::to_string(result.messages) +
                       (result.messages == 1 ? " message" : " messages");
    if (result.unacknowledged > 0)
      text += ", " + std::to_string(result.unacknowledged) + " of them not acknowledged";
    PrintLine(Printable(text + ", " + SecondsText(result.seconds) + " s"));
  }
  std::fflush(stdout);
}

using TableLine = std::array<std::string, 6>;

/// The table of all units, texts to the left, numbers to the right.
void PrintTable(const std::vector<UnitResult>& results) {
  constexpr std::size_t kTexts = 3;
  std::vector<TableLine> lines{{"UNIT", "END", "MODEL", "MESSAGES", "UNACKNOWLEDGED", "SECONDS"}};
  for (const UnitResult& result : results) {
    lines.push_back({Printable(result.name), result.end, result.model.empty() ? "-" : result.model,
                     std::to_string(result.messages), std::to_string(result.unacknowledged),
                     SecondsText(result.seconds)});
  }
  std::array<std::size_t, std::tuple_size_v<TableLine>> widths{};
  for (const TableLine& line : lines) {
    for (std::size_t i = 0; i < line.size(); ++i) widths[i] = std::max(widths[i], LengthOf(line[i]));
  }
  std::putchar('\n');
  for (const TableLine& line : lines) {
    std::string text;
    for (std::size_t i = 0; i < line.size(); ++i) {
      const std::string blanks(widths[i] - LengthOf(line[i]), ' ');
      text += (i > 0 ? "  " : "") + (i < kTexts ? line[i] + blanks : blanks + line[i]);
    }
    PrintLine(text);
  }
  std::fflush(stdout);
}

/// Names the units that need somebody, after the table.
void PrintRest(const std::vector<UnitResult>& results) {
  std::string names;
  std::size_t count = 0;
  for (const UnitResult& result : results) {
    if (result.Good()) continue;
    names += (count++ > 0 ? ", " : "") + result.name;
  }
  if (count == 0) return;
  PrintLine(Printable(std::to_string(count) + " of " + std::to_string(results.size()) +
                      (results.size() == 1 ? " unit is" : " units are") +
                      " not complete and acknowledged: " + names),
            stderr);
}

void PrintInterrupt(int count) {
  std::fputs(count == 1 ? "Stopping: each unit ends after its message under way.\n"
                        : "Still stopping: no unit is interrupted twice.\n",
             stderr);
}

}  // namespace

int RunRack(const CliOptions& options) {
  Rack rack;
  try {
    rack = ReadRack(options.rack.file, options.common);
    KeepOnly(options.rack.only, rack);
  } catch (const std::runtime_error& failure) {
    PrintError(failure);
    return kExitStart;
  }
  if (!rack.mistakes.empty()) {
    PrintMistakes(options.rack.file, rack.mistakes, options.json);
    return kExitUsage;
  }
  if (options.rack.dryRun) {
    PrintPlan(rack.units, options.json);
    return kExitDone;
  }
  // Whoever reads the output may leave; the units get their setups all the same.
  std::signal(SIGPIPE, SIG_IGN);
  const std::vector<UnitResult> results =
      RunUnits(rack.units, {.jobs = options.rack.jobs,
                            .words = [&](const RackUnit& unit) { return WordsFor(options, unit); },
                            .ended = [&](const UnitResult& result) { PrintResult(result, options.json); },
                            .interrupted = PrintInterrupt});
  if (!options.json) PrintTable(results);
  PrintRest(results);
  const bool good =
      std::all_of(results.begin(), results.end(), [](const UnitResult& result) { return result.Good(); });
  return good ? kExitDone : kExitNotDone;
}

}  // namespace marlinset
