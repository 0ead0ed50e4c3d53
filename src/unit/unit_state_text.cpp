// SPDX-License-Identifier: GPL-3.0-or-later
#include "unit/unit_state_text.h"

#include <optional>
#include <string>
#include <utility>

namespace marlinset {
namespace {

constexpr char kDigits[] = "0123456789abcdef";
constexpr std::size_t kNameWidth = 12;
constexpr std::size_t kLineWidth = 100;

struct Named {
  int code;
  const char* name;
};
constexpr Named kModels[] = {{kModelHd7340, "HD7340"},
                             {kModelHd7340Old, "HD7340"},
                             {kModelHdSd7340, "HDSD7340"},
                             {kModelHd7340Q, "HD7340Q"}};
constexpr Named kStandards[] = {{1, "NTSC"},     {2, "PAL"},     {3, "1080p/24"}, {4, "1080i/60"},
                                {5, "1080i/50"}, {6, "525i/60"}, {7, "625i/50"},  {8, "720p/60"}};
constexpr Named kSelectors[] = {{32, "TC"}, {33, "UB"},   {34, "AT"},  {35, "AU"},  {36, "LK"},
                                {37, "LI"}, {48, "LTB"},  {49, "LUB"}, {50, "VTB"}, {51, "VUB"},
                                {52, "V2"}, {53, "V3TB"}, {54, "V3UB"}};

template <std::size_t kCount>
std::string NameOf(const Named (&names)[kCount], int code) {
  for (const Named& one : names) {
    if (one.code == code) return one.name;
  }
  return "code " + std::to_string(code);
}

/// Lines of a name and words, wrapped if too long.
class Lines {
 public:
  void Begin(const std::string& name) {
    End();
    line_ = name + std::string(kNameWidth - name.size(), ' ');
  }
  Lines& Add(const std::string& word) {
    if (!empty_) line_ += ',';
    if (!empty_ && line_.size() + 1 + word.size() > kLineWidth) {
      text_ += line_ + "\n";
      line_ = std::string(kNameWidth, ' ');
    } else if (!empty_) {
      line_ += ' ';
    }
    line_ += word;
    empty_ = false;
    return *this;
  }
  Lines& AddIf(bool holds, const std::string& word) { return holds ? Add(word) : *this; }
  /// A value after its name; nothing if it never arrived.
  Lines& AddValue(const std::string& name, const std::optional<int>& value) {
    return value ? Add(name + " " + std::to_string(*value)) : *this;
  }
  std::string Text() {
    End();
    return std::move(text_);
  }

 private:
  void End() {
    if (!empty_) text_ += line_ + "\n";
    empty_ = true;
  }

  std::string text_;
  std::string line_;
  bool empty_ = true;
};

void AddOnOff(Lines& lines, const std::optional<bool>& on) {
  if (on) lines.Add(*on ? "on" : "off");
}

void AddWindow(Lines& lines, int number, const UnitWindow& window) {
  lines.Begin("window " + std::to_string(number));
  lines.Add(window.on ? "on" : "off").AddValue("row", window.row).AddValue("position", window.position);
  lines.AddValue("length", window.length)
      .AddIf(window.slate, "slate")
      .AddIf(window.doubleHeight, "double height");
  lines.AddIf(window.symbol, "symbol").AddIf(window.fieldDigit, "field digit");
  lines.AddIf(window.highlighted, "highlighted");
}

void AddVitc(Lines& lines, const UnitMemory& memory) {
  lines.Begin("VITC");
  AddOnOff(lines, memory.VitcOn());
  lines.AddValue("number of lines", memory.VitcSource());
  const auto held = memory.VitcLines();
  for (std::size_t i = 0; held && i < held->line.size(); ++i) {
    const int duplicate = held->duplicate[i];
    lines.Add("line " + std::to_string(held->line[i]) +
              (duplicate == 0 ? "" : " and " + std::to_string(duplicate)));
  }
}

}  // namespace

std::string StateText(const UnitModel& unit) {
  const UnitMemory& memory = unit.Memory();
  Lines lines;
  lines.Begin("unit");
  lines.Add(NameOf(kModels, unit.Model())).Add(NameOf(kStandards, unit.Standard()));
  lines.Add(unit.Manual() ? "manual" : "automatic").Add(unit.Video() ? "video" : "no video");
  lines.AddIf(unit.Local(), "local mode").AddIf(unit.Broadcasting(), "broadcast");
  lines.Begin("parameters");
  for (const auto& [key, value] : memory.Parameters()) {
    lines.Add(std::to_string(key.first) + "/" + std::to_string(key.second) + " = " + std::to_string(value));
  }
  lines.Begin("routing");
  for (const auto& [selector, code] : memory.Routing()) lines.AddValue(NameOf(kSelectors, selector), code);
  AddVitc(lines, memory);
  lines.Begin("white flag");
  AddOnOff(lines, memory.WhiteFlagOn());
  lines.AddValue("line", memory.WhiteFlagLine());
  lines.Begin("characters");
  if (const auto on = memory.CharOnOff()) lines.Add(*on == 0 ? "off" : "on");
  lines.AddValue("size", memory.CharSize()).AddValue("style", memory.CharStyle());
  lines.Begin("slate");
  lines.AddValue("frames", memory.SlateDuration()).AddValue("mode", memory.SlateMode());
  lines.Begin("message");
  if (const auto text = memory.Message()) lines.Add("\"" + *text + "\"");
  lines.Begin("converter");
  lines.AddValue("aspect", memory.DownConverter());
  if (const auto control = memory.DownConverterControl()) {
    lines.AddValue("processing", (*control)[0]);
    lines.AddValue("vertical filter", (*control)[1]);
    lines.AddValue("horizontal filter", (*control)[2]);
  }
  lines.Begin("output");
  lines.AddValue("code", memory.SdiProgramOut());
  for (const auto& [number, window] : memory.Windows()) AddWindow(lines, number, window);
  return lines.Text();
}

std::string HexOf(const Bytes& bytes) {
  std::string hex;
  for (const std::uint8_t byte : bytes) {
    hex += kDigits[byte >> 4U];
    hex += kDigits[byte & 15U];
  }
  return hex;
}

}  // namespace marlinset
