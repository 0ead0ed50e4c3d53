// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/question_facts.h"

#include "core/variables.h"
#include "platform/file_dialog.h"
#include "platform/platform.h"

namespace marlinset {

std::string Facts(std::initializer_list<std::string> facts) {
  std::string lines;
  for (const std::string& fact : facts) {
    if (!lines.empty() && !fact.empty()) lines += '\n';
    lines += fact;
  }
  return lines;
}

std::string StandardsFact(const std::string& ofSetup, const std::string& ofUnit) {
  return "Video standard of the setup: " + (ofSetup.empty() ? "none" : ofSetup) +
         "\nVideo standard of the unit: " + (ofUnit.empty() ? "not reported" : ofUnit);
}

std::string OnAirFact(std::string_view answer, std::string_view what) {
  return "After " + std::string(answer) + " " + std::string(what) + " goes to the unit, on air.";
}

std::string FileFact(std::string_view what, const std::string& name) {
  return name.empty() ? "" : std::string(what) + ": " + name;
}

std::string WorkFact(std::string_view what, const Platform& platform, const Variables& variables) {
  const std::string& name = platform.fileDialog.FileName;
  return FileFact(what, name.empty() ? "\"" + variables.CurrentFile + "\", in no file yet" : name);
}

}  // namespace marlinset
