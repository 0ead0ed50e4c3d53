// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/form.h"

#include <utility>

#include "controls/guard.h"

namespace marlinset {

Form::Form(std::string name, Guard& guard)
    : EventSource(std::make_shared<ControlEvents>()), name_(std::move(name)), guard_(guard) {}

void Form::SetCaption(std::string caption) {
  if (caption == caption_) return;
  caption_ = std::move(caption);
  Changed.Emit();
}

void Form::SetVisible(bool visible) {
  if (visible == visible_) return;
  visible_ = visible;
  Changed.Emit();
}

Control* Form::Find(std::string_view name, int index) const {
  std::string key(name);
  if (index != kNoIndex) key += "(" + std::to_string(index) + ")";
  const auto found = controls_.find(key);
  return found == controls_.end() ? nullptr : found->second;
}

std::vector<Control*> Form::Controls() const {
  std::vector<Control*> all;
  for (const auto& [name, control] : controls_) all.push_back(control);
  return all;
}

void Form::OperatorHover() {
  guard_.Run([this] { Events()->mouseMove.Emit(kNoIndex); });
}

void Form::Register(Control& control) {
  controls_[control.FullName()] = &control;
  Touch(control);
}

void Form::Unregister(const Control& control) {
  controls_.erase(control.FullName());
  if (noting_) {
    touches_.gone.emplace_back(control.Name(), control.Index());
    if (control.touch_ >= 0) touches_.changed[static_cast<std::size_t>(control.touch_)] = nullptr;
  }
  RaiseTouched();
}

void Form::Touch(Control& control) {
  if (noting_ && control.touch_ < 0) {
    control.touch_ = static_cast<int>(touches_.changed.size());
    touches_.changed.push_back(&control);
  }
  RaiseTouched();
}

/// A load touches hundreds of controls: what listens here has to be cheap.
void Form::RaiseTouched() {
  Altered.Emit();
  if (std::exchange(touched_, true)) return;
  Touched.Emit();
}

Form::Touches Form::TakeTouches() {
  for (Control* control : touches_.changed) {
    if (control) control->touch_ = kNoIndex;
  }
  return std::exchange(touches_, {});
}

}  // namespace marlinset
