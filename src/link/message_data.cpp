// SPDX-License-Identifier: GPL-3.0-or-later
#include "link/message_data.h"

#include <cmath>
#include <cstdlib>

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

}  // namespace

void AddChoice(ChoiceId choice, const MessageSource& source, Message& message) {
  message.fields.push_back(CodeOf(source.form, source.vars, choice));
  message.meaning += ": " + BoxOf(source.form, choice).Text();
}

void AddStandard(const MessageSource& source, Message& message) {
  const std::string& text = source.form.comVS.Text();
  message.fields.emplace_back(VideoStandardCode(text));
  message.meaning += ": " + text;
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
  message.meaning += ": " + (lines ? std::to_string(*lines) : "not given");
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
  message.meaning += ": " + std::to_string(frames) + " frames";
}

void AddText(const MessageSource& source, Message& message) {
  const std::string& uncut = source.form.tWinMess.Text();
  const std::string text = MessageText(uncut);
  const std::size_t begin = message.fields.size();
  for (const std::uint8_t byte : ToCodePage(text)) message.fields.emplace_back(byte);
  if (source.sender == Sender::kPanel) message.fields.resize(begin + LengthOf(uncut));
  message.meaning += " '" + text + "'";
}

void AddDownConverterControl(const MessageSource& source, Message& message) {
  AddChoice(ChoiceId::kProcessingMode, source, message);
  AddChoice(ChoiceId::kVerticalFilter, source, message);
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
  message.meaning += " " + std::to_string(window.Number) + " '" + window.Name + "'";
}

}  // namespace marlinset
