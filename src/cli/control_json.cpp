// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/control_json.h"

#include "controls/control_types.h"

namespace marlinset {
namespace {

void AddCommon(Json& json, const Control& control) {
  json["enabled"] = control.Enabled();
  json["visible"] = control.Visible();
  json["color"] = control.BackColor();
}

void AddCombo(Json& json, const ComboBox& box) {
  json["text"] = box.Text();
  json["index"] = box.ListIndex();
  json["list"] = box.List();
}

void AddSpin(Json& json, const SpinControl& spin) {
  json["value"] = spin.Value();
  json["min"] = spin.Min();
  json["max"] = spin.Max();
  json["increment"] = spin.Increment();
}

void AddList(Json& json, const ListView& list) {
  json["columns"] = list.Columns();
  json["list"] = list.Rows();
  json["index"] = list.Selected();
}

/// Adds the properties of the control's kind; returns the kind's name.
const char* AddState(Json& json, const Control& control) {
  const auto caption = [&] { json["text"] = control.Caption(); };
  switch (control.Kind()) {
    case ControlKind::kComboBox:
      AddCombo(json, static_cast<const ComboBox&>(control));
      return "combo";
    case ControlKind::kCheckBox:
      caption();
      json["value"] = static_cast<const CheckBox&>(control).Value();
      return "check";
    case ControlKind::kOptionButton:
      caption();
      json["value"] = static_cast<const OptionButton&>(control).Value();
      return "option";
    case ControlKind::kSpin:
      AddSpin(json, static_cast<const SpinControl&>(control));
      return "spin";
    case ControlKind::kTextBox:
      json["text"] = static_cast<const TextBox&>(control).Text();
      return "text";
    case ControlKind::kMenuItem:
      caption();
      json["checked"] = static_cast<const MenuItem&>(control).Checked();
      return "menu";
    case ControlKind::kListView:
      AddList(json, static_cast<const ListView&>(control));
      return "list";
    case ControlKind::kScrollBar:
      json["value"] = static_cast<const ScrollBar&>(control).Value();
      json["min"] = 0;
      json["max"] = static_cast<const ScrollBar&>(control).Max();
      return "scroll";
    case ControlKind::kButton:
      caption();
      return "button";
    case ControlKind::kLabel:
      caption();
      return "label";
    case ControlKind::kFrame:
      caption();
      return "frame";
    case ControlKind::kPicture:
      return "picture";
    case ControlKind::kLine:
      return "line";
    case ControlKind::kStatusPanel:
      json["text"] = static_cast<const StatusPanel&>(control).Text();
      json["picture"] = static_cast<const StatusPanel&>(control).Picture();
      return "panel";
  }
  return "";
}

}  // namespace

Json ControlJson(const Control& control) {
  Json state = Json::object();
  const char* kind = AddState(state, control);
  if (control.Kind() != ControlKind::kStatusPanel) AddCommon(state, control);
  Json json = {{"name", control.FullName()}, {"kind", kind}};
  json.update(state);
  return json;
}

}  // namespace marlinset
