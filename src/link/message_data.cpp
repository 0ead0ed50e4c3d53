// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/message_data.h"

#include <cmath>
#include <cstdlib>
#include <utility>

#include "base/text.h"
#include "core/choices.h"
#include "core/font_sizes.h"
#include "core/window_ticks.h"
#include "link/replies.h"

namespace marlinset {
namespace {

int WindowFlags(const MessageSource& source) {
  int flags = source.flagBase;
  for (const WindowTick& tick : kWindowTicks) {
    const CheckBox& box = (source.form.*tick.boxes)(source.row);
    const bool counts = tick.id != TickId::kSlate || source.sender == Sender::kPanel || box.Visible();
    if (box.On() && counts) flags += tick.flag;
  }
  return flags;
}

constexpr const char* kSentAsZero = " (sent as 0)";

/// The text of a box, with a note if it has no code: the unit then gets 0.
std::string ChosenWords(const std::string& text, bool hasCode) {
  return (text.empty() ? "nothing" : text) + (hasCode ? "" : kSentAsZero);
}

std::string CountWords(int count, const char* one) {
  return std::to_string(count) + " " + one + (count == 1 ? "" : "s");
}

/// The ticks besides On that a window's flag byte holds.
constexpr std::pair<TickId, const char*> kTickWords[] = {{TickId::kSlate, "slate"},
                                                         {TickId::kField, "field digit"},
                                                         {TickId::kSymbol, "symbol"},
                                                         {TickId::kDoubleHeight, "double height"}};

}  // namespace

void AddChoice(ChoiceId choice, const MessageSource& source, Message& message) {
  const PacketField code = CodeOf(source.form, source.vars, choice);
  message.fields.push_back(code);
  message.meaning += ": " + ChosenWords(BoxOf(source.form, choice).Text(), code.has_value());
}

void AddStandard(const MessageSource& source, Message& message) {
  const std::string& text = source.form.comVS.Text();
  const int code = VideoStandardCode(text);
  message.fields.emplace_back(code);
  message.meaning += ": " + ChosenWords(text, code != 0);
}

void AddParameter(const MessageSource& source, Message& message) {
  const SystemParameterRec& row = At(source.vars.SystemParameters, source.row);
  message.fields.emplace_back(row.Parameter);
  message.fields.emplace_back(row.Class);
  const auto bits = static_cast<std::uint32_t>(std::int32_t{row.Value});
  for (const unsigned shift : {0U, 8U, 16U, 24U}) {
    message.fields.emplace_back(static_cast<int>((bits >> shift) & 255U));
  }
  message.meaning += " " + std::to_string(row.Class) + "/" + std::to_string(row.Parameter) + " '" +
                     row.Description + "' = " + std::to_string(row.Value);
}

void AddVitcSource(const MessageSource& source, Message& message) {
  PacketField lines;
  const int option = source.form.vitcModes.Selected();
  if (source.sender == Sender::kWholeSend && option != kNoIndex) lines = option + 1;
  message.fields.push_back(lines);
  message.meaning += ": " + (lines ? std::to_string(*lines) : std::string("not given") + kSentAsZero);
}

void AddVitcLines(const MessageSource& source, Message& message) {
  const FrmStart& form = source.form;
  message.meaning += ":";
  for (const int line : {1, 2, 3}) {
    const int number = std::abs(form.upVitc1(line).Value());
    const int duplicate = form.chDups.On() ? std::abs(form.upVitc1(line + 4).Value()) : 0;
    message.fields.emplace_back(number);
    message.fields.emplace_back(duplicate);
    message.meaning += " " + std::to_string(number);
    if (form.chDups.On()) message.meaning += "/" + std::to_string(duplicate);
  }
}

void AddWhiteFlagLine(const MessageSource& source, Message& message) {
  const int line = std::abs(source.form.UpDown1.Value());
  message.fields.insert(message.fields.end(), 2, PacketField(line));
  message.meaning += ": " + std::to_string(line);
}

void AddSlateDuration(const MessageSource& source, Message& message) {
  const int frames = source.form.UDDur.Value();
  const int low = ((frames % 256) + 256) % 256;
  message.fields.emplace_back((frames - low) / 256);
  message.fields.emplace_back(low);
  message.meaning += ": " + CountWords(frames, "frame");
}

void AddText(const MessageSource& source, Message& message) {
  const std::string& uncut = source.form.tWinMess.Text();
  const std::vector<std::uint8_t> text = ToCodePage(MessageText(uncut));
  const std::size_t begin = message.fields.size();
  message.fields.insert(message.fields.end(), text.begin(), text.end());
  message.meaning += " '" + FromCodePage(text) + "'";
  if (source.sender != Sender::kPanel) return;
  const std::size_t uncutLength = LengthOf(uncut);
  message.fields.resize(begin + uncutLength);
  if (uncutLength > text.size()) {
    message.meaning += " and " + CountWords(static_cast<int>(uncutLength - text.size()), "zero");
  }
}

void AddDownConverterControl(const MessageSource& source, Message& message) {
  AddChoice(ChoiceId::kProcessingMode, source, message);
  message.meaning += ", vertical";
  AddChoice(ChoiceId::kVerticalFilter, source, message);
  message.meaning += ", horizontal";
  AddChoice(ChoiceId::kHorizontalFilter, source, message);
}

void AddWindow(const MessageSource& source, Message& message) {
  const FrmStart& form = source.form;
  const int row = source.row;
  const CharWindowRec& window = At(source.vars.CharWindows, row);
  message.fields.emplace_back(window.Number);
  message.fields.emplace_back(WindowFlags(source));
  message.fields.emplace_back(FontSizeInForce(form).RowOf(window.Top));
  message.fields.emplace_back(source.left.value_or(window.Left));
  message.fields.emplace_back(TickedLength(form, row, window));
  message.meaning += WindowTitle(window) + ": " + WindowWords(message.fields);
  if (source.flagBase != 0) message.meaning += ", highlighted";
}

std::string WindowTitle(const CharWindowRec& window) {
  return " " + std::to_string(window.Number) + " '" + window.Name + "'";
}

std::string WindowWords(std::span<const PacketField> fields) {
  const std::vector<std::uint8_t> bytes = BytesOf(fields.last(4));
  const int flags = bytes[0];
  std::string words = (flags & TickOf(TickId::kOn).flag) != 0 ? "on" : "off";
  words += ", row " + std::to_string(bytes[1]) + ", column " + std::to_string(bytes[2]) + ", " +
           std::to_string(bytes[3]) + " wide";
  for (const auto& [tick, name] : kTickWords) {
    if ((flags & TickOf(tick).flag) != 0) words += std::string(", ") + name;
  }
  return words;
}

}  // namespace marlinset
