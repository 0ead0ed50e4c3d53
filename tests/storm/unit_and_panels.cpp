// SPDX-License-Identifier: GPL-3.0-or-later
#include <algorithm>
#include <array>
#include <cstdlib>
#include <optional>

#include "app/tool.h"
#include "base/text.h"
#include "link/command_table.h"
#include "tests/storm/world.h"
#include "unit/unit_memory.h"

namespace marlinset {
namespace {

std::string Told(int value) {
  return std::to_string(value);
}
std::string Told(const std::string& value) {
  return "\"" + value + "\"";
}
template <class T>
std::string Told(const std::optional<T>& value) {
  return value ? Told(*value) : "nothing";
}

/// As the unit takes a number: a byte.
int Byte(int value) {
  return value & 255;
}

class Comparison {
 public:
  Comparison(const Tool& tool, const UnitMemory& unit)
      : form_(tool.form), vars_(tool.variables), unit_(unit), modelQ_(tool.form.ModelIsQ()) {}

  std::vector<std::string> Differences() {
    Routing();
    Lines();
    Characters();
    for (int row = 0; row < static_cast<int>(vars_.CharWindows.size()); ++row) Window(row);
    for (const SystemParameterRec& parameter : vars_.SystemParameters) Parameter(parameter);
    return std::move(differences_);
  }

 private:
  template <class Held, class Shown>
  void Expect(const std::string& what, const Held& held, const Shown& shown) {
    if (held != shown) differences_.push_back(what + ": unit " + Told(held) + ", panels " + Told(shown));
  }

  /// The last row with the box's text counts; the unit gets 0 for a text that no row has.
  template <class Row, class Member>
  static int Code(const std::vector<Row>& table, const ComboBox& box, Member code) {
    int found = 0;
    for (const Row& row : table) {
      if (row.Description == box.Text()) found = row.*code;
    }
    return Byte(found);
  }

  void Routing() {
    const std::map<int, int> held = unit_.Routing();
    const auto expect = [&](const ComboBox& box, int selector) {
      const auto found = held.find(selector);
      Expect(box.FullName(), found == held.end() ? std::optional<int>() : found->second,
             Code(vars_.CodeSources, box, &CodeSourceRec::GenNumber));
    };
    constexpr std::array kTimeBits{0x20, 0x30, 0x32, 0x34, 0x35};
    constexpr std::array kUserBits{0x21, 0x31, 0x33, 0, 0x36};
    for (int i = 0; i < 5; ++i) {
      expect(form_.comTB(i), At(kTimeBits, i));
      if (At(kUserBits, i) != 0) expect(form_.ComUB(i), At(kUserBits, i));
    }
  }

  void Lines() {
    Expect("number of VITC lines", unit_.VitcSource(), form_.vitcModes.Selected() + 1);
    Expect("VITC", unit_.VitcOn(), form_.chVITC.On());
    const UnitVitcLines held = unit_.VitcLines().value_or(UnitVitcLines{});
    for (int i = 0; i < 3; ++i) {
      const int duplicate = form_.chDups.On() ? form_.upVitc1(i + 5).Value() : 0;
      Expect("VITC line", At(held.line, i), Byte(std::abs(form_.upVitc1(i + 1).Value())));
      Expect("VITC duplicate", At(held.duplicate, i), Byte(std::abs(duplicate)));
    }
    Expect("white flag", unit_.WhiteFlagOn(), form_.chEnable.On());
    if (form_.chEnable.On()) {
      Expect("white flag line", unit_.WhiteFlagLine(), Byte(std::abs(form_.UpDown1.Value())));
    }
  }

  void Characters() {
    const auto& box = form_.ComWin;
    Expect("font size", unit_.CharSize(),
           Code(vars_.CharSizes, box(FrmStart::kFontSize), &CharSizeRec::Code));
    Expect("style", unit_.CharStyle(),
           Code(vars_.CharStyles, box(FrmStart::kCharStyle), &CharStyleRec::Code));
    const int mode = Code(vars_.SlateModes, box(FrmStart::kSlateMode), &CodedItemRec::Code);
    Expect("slate mode", unit_.SlateMode(), form_.chPrev.On() ? 1 : mode);
    Expect("slate duration", unit_.SlateDuration(), form_.UDDur.Value());
    Expect("aspect ratio", unit_.DownConverter(),
           Code(vars_.DownConverterModes, box(FrmStart::kAspectRatio), &CodedItemRec::Code));
    if (form_.mnuCharOn.Checked() || form_.mnuCharOff.Checked()) {
      Expect("characters", unit_.CharOnOff(), form_.mnuCharOn.Checked() ? 1 : 0);
    }
    if (!modelQ_) return;
    Expect("SDI program output", unit_.SdiProgramOut(),
           Code(vars_.SdiProgramOutputs, box(FrmStart::kSdiProgramOut), &OrderedCodeRec::Code));
    const auto control = unit_.DownConverterControl().value_or(std::array<int, 3>{-1, -1, -1});
    Expect("processing mode", control[0],
           Code(vars_.DownConverterProcessModes, form_.ComDownConv(FrmStart::kProcessingMode),
                &DownConvProcessRec::Code));
    for (const int filter : {FrmStart::kVerticalFilter, FrmStart::kHorizontalFilter}) {
      Expect("filter", At(control, filter),
             Code(vars_.DownConverterFilters, form_.ComDownConv(filter), &OrderedCodeRec::Code));
    }
  }

  void Window(int row) {
    if (!form_.chOnOff.Has(row)) return;
    const CharWindowRec& window = At(vars_.CharWindows, row);
    const bool slate = form_.chSlate(row).On() && form_.chSlate(row).Visible();
    const std::map<int, UnitWindow> all = unit_.Windows();
    const auto found = all.find(Byte(window.Number));
    const UnitWindow held = found == all.end() ? UnitWindow{.row = -1} : found->second;
    Expect(window.Name + " on", held.on, form_.chOnOff(row).On());
    Expect(window.Name + " slate", held.slate, slate);
    Expect(window.Name + " double height", held.doubleHeight, form_.chDblSize(row).On());
    Expect(window.Name + " symbol", held.symbol, form_.chSym(row).On());
    Expect(window.Name + " field digit", held.fieldDigit, form_.chField(row).On());
    Expect(window.Name + " position", held.position, Byte(form_.udHor(row).Value()));
    const bool large = form_.ComWin(FrmStart::kFontSize).Text() == "Large (32 lines/field)";
    const bool small = form_.ComWin(FrmStart::kFontSize).Text() == "Small (16 lines/field)";
    const int lines = std::abs(form_.udVer(row).Value()) / (large ? 4 : small ? 2 : 1);
    Expect(window.Name + " row", held.row, Byte(std::max(lines, large ? 8 : small ? 18 : 37)));
    if (window.Name == "Text") {
      const std::string text = LeftOf(UpperOf(form_.tWinMess.Text()), kMessageCharacters);
      Expect("message", unit_.Message(), FromCodePage(ToCodePage(text)));
    }
  }

  void Parameter(const SystemParameterRec& parameter) {
    if (IsInternalClass(parameter.Class)) return;
    const UnitMemory::Key key{Byte(parameter.Class), Byte(parameter.Parameter)};
    const auto held = unit_.Parameters();
    if (key == UnitMemory::Key{}) return;
    const auto found = held.find(key);
    Expect("parameter " + parameter.Description,
           found == held.end() ? std::optional<int>() : std::optional<int>(found->second), parameter.Value);
  }

  const FrmStart& form_;
  const Variables& vars_;
  const UnitMemory& unit_;
  bool modelQ_;
  std::vector<std::string> differences_;
};

}  // namespace

std::vector<std::string> DifferencesToUnit(const Tool& tool, const UnitMemory& unit) {
  return Comparison(tool, unit).Differences();
}

}  // namespace marlinset
