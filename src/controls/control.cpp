// SPDX-License-Identifier: GPL-3.0-or-later
#include "controls/control.h"

#include "base/runtime_error.h"
#include "controls/form.h"
#include "controls/guard.h"
#include "controls/packed_fields.h"

namespace marlinset {

Control::Control(Form& form, std::string name)
    : Control(form, std::move(name), kNoIndex, std::make_shared<ControlEvents>()) {}

Control::Control(Form& form, std::string name, int index, std::shared_ptr<ControlEvents> events)
    : EventSource(std::move(events)), form_(form), name_(std::move(name)), index_(index) {
  form_.Register(*this);
}

Control::~Control() {
  form_.Unregister(*this);
}

std::string FullNameOf(std::string_view name, int index) {
  std::string full(name);
  if (index != kNoIndex) full += "(" + std::to_string(index) + ")";
  return full;
}

void Control::NoteChange() {
  Changed.Emit();
  form_.Touch(*this);
}

void Control::PackState(FieldPacker& fields) const {
  fields.Number((enabled_ ? 1 : 0) + (visible_ ? 2 : 0));
  fields.Text(caption_);
  PackKind(fields);
}

void Control::RestoreState(FieldReader& fields) {
  const std::int64_t flags = fields.Number();
  enabled_ = (flags & 1) != 0;
  visible_ = (flags & 2) != 0;
  caption_ = fields.Text();
  RestoreKind(fields);
  NoteChange();
}

void Control::Raise(Signal<int> ControlEvents::*event) const {
  const std::shared_ptr<ControlEvents> events = Events();
  (events.get()->*event).Emit(index_);
}

bool Control::AsOperator(const std::function<void()>& action) {
  if (!TakesInput()) return false;
  form_.GetGuard().RunFor(*this, action);
  return true;
}

void Control::OperatorHover() {
  if (visible_) form_.GetGuard().Run([this] { Raise(&ControlEvents::mouseMove); });
}

void Control::OperatorLeave() {
  form_.GetGuard().Run([this] { Raise(&ControlEvents::lostFocus); });
}

bool Control::OperatorClick() {
  throw NotSupported();
}
bool Control::OperatorCheck(bool /*on*/) {
  throw NotSupported();
}
bool Control::OperatorSelect(int /*entry*/) {
  throw NotSupported();
}
// Overriding routines take the text over.
bool Control::OperatorType(std::string /*text*/) {  // NOLINT(performance-unnecessary-value-param)
  throw NotSupported();
}
bool Control::OperatorKey(char32_t /*code*/) {
  throw NotSupported();
}
bool Control::OperatorSpin(int /*value*/) {
  throw NotSupported();
}
bool Control::OperatorStep(bool /*up*/, int /*times*/) {
  throw NotSupported();
}
bool Control::OperatorScroll(int /*value*/) {
  throw NotSupported();
}
std::vector<std::string> Control::Entries() const {
  throw NotSupported();
}

}  // namespace marlinset
