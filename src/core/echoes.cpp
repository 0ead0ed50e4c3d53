// SPDX-License-Identifier: GPL-3.0-or-later
#include "core/echoes.h"

#include <cstdlib>

#include "base/text.h"
#include "core/frm_start.h"
#include "core/variables.h"

namespace marlinset {
namespace {

std::string AbsText(int value) {
  return std::to_string(std::abs(static_cast<long long>(value)));
}

/// A parameter's value in the radix of the list: decimal for "Dec", otherwise hexadecimal digits, eight for a
/// negative value.
std::string ParameterText(int value, const std::string& radix) {
  return radix == "Dec" ? std::to_string(value) : HexText(static_cast<std::uint32_t>(value));
}

}  // namespace

Echoes::Echoes(Variables& variables, FrmStart& form) : vars_(variables), form_(form) {
  const auto showWhiteFlag = [this](int) {
    form_.tLineNumber(FrmStart::kWhiteFlagEcho).SetText(std::to_string(form_.UpDown1.Value()));
  };
  const auto showDuration = [this](int) {
    form_.tLineNumber(FrmStart::kSlateDurationEcho).SetText(std::to_string(form_.UDDur.Value()));
  };
  form_.UpDown1.OnMoved(showWhiteFlag);
  form_.UDDur.OnMoved(showDuration);
  form_.udVer.OnMoved([this](int row) { ShowVertical(row); });
  form_.udHor.OnMoved([this](int row) { ShowHorizontal(row); });
  // Only spins set positions: text typed into an echo is replaced.
  form_.tVert.OnChange([this](int row) { ShowVertical(row); });
  form_.tHor.OnChange([this](int row) { ShowHorizontal(row); });
  form_.udVal.OnMoved([this](int row) { ShowParameterValue(row); });
  form_.upVitc1.OnPulled([this](int line) { ShowVitcLine(line); });

  showWhiteFlag(kNoIndex);
  showDuration(kNoIndex);
  ShowVitcLines();
  ShowWindowRow(0);
  ShowParameterValue(0);
}

void Echoes::ShowWindowRow(int row) {
  ShowVertical(row);
  ShowHorizontal(row);
}

void Echoes::ShowParameterRow(int row) {
  form_.tVal(row).SetText(ParameterText(At(vars_.SystemParameters, row).Value, vars_.ParDisType));
}

void Echoes::ShowVertical(int row) {
  const int value = form_.udVer(row).Value();
  form_.tVert(row).SetText(AbsText(value));
  if (static_cast<std::size_t>(row) < vars_.CharWindows.size()) {
    At(vars_.CharWindows, row).Top = static_cast<std::int16_t>(std::abs(value));
  }
}

void Echoes::ShowHorizontal(int row) {
  const int value = form_.udHor(row).Value();
  form_.tHor(row).SetText(std::to_string(value));
  if (static_cast<std::size_t>(row) < vars_.CharWindows.size()) {
    At(vars_.CharWindows, row).Left = static_cast<std::int16_t>(value);
  }
}

void Echoes::ShowParameterValue(int row) {
  form_.tVal(row).SetText(ParameterText(form_.udVal(row).Value(), vars_.ParDisType));
}

void Echoes::ShowVitcLines() {
  for (const int line : FrmStart::kVitcLineIndices) ShowVitcLine(line);
}

void Echoes::ShowVitcLine(int line) {
  form_.tLineNumber(line).SetText(std::to_string(form_.upVitc1(line).Value()));
}

}  // namespace marlinset
