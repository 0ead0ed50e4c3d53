// SPDX-License-Identifier: GPL-3.0-or-later
// What each kind of control adds to the state of a control.
#include "controls/control_types.h"
#include "controls/packed_fields.h"

namespace marlinset {
namespace {

int NumberIn(FieldReader& fields) {
  return static_cast<int>(fields.Number());
}

}  // namespace

void Button::PackKind(FieldPacker& fields) const {
  fields.Number(static_cast<int>(arrow_));
}
void Button::RestoreKind(FieldReader& fields) {
  arrow_ = static_cast<SortArrow>(fields.Number());
}

void MenuItem::PackKind(FieldPacker& fields) const {
  fields.Number(checked_ ? 1 : 0);
}
void MenuItem::RestoreKind(FieldReader& fields) {
  checked_ = fields.Number() != 0;
}

void CheckBox::PackKind(FieldPacker& fields) const {
  fields.Number(value_);
}
void CheckBox::RestoreKind(FieldReader& fields) {
  value_ = NumberIn(fields);
}

void OptionButton::PackKind(FieldPacker& fields) const {
  fields.Number(value_ ? 1 : 0);
}
void OptionButton::RestoreKind(FieldReader& fields) {
  value_ = fields.Number() != 0;
}

void ComboBox::PackKind(FieldPacker& fields) const {
  fields.Number(index_);
  fields.Text(text_);
  fields.Texts(list_);
}
void ComboBox::RestoreKind(FieldReader& fields) {
  index_ = NumberIn(fields);
  text_ = fields.Text();
  list_ = fields.Texts();
}

void ListView::PackKind(FieldPacker& fields) const {
  fields.Number(selected_);
  fields.Texts(columns_);
  FieldPacker rows;
  for (const Row& row : rows_) rows.Texts(row);
  fields.Text(rows.Bytes());
}
void ListView::RestoreKind(FieldReader& fields) {
  selected_ = NumberIn(fields);
  columns_ = fields.Texts();
  rows_.clear();
  FieldReader rows(fields.Field());
  while (!rows.AtEnd()) rows_.push_back(rows.Texts());
}

void SpinControl::PackKind(FieldPacker& fields) const {
  fields.Number(value_);
  fields.Number(min_);
  fields.Number(max_);
  fields.Number(increment_);
  fields.Number(provisional_ ? 1 : 0);
}
void SpinControl::RestoreKind(FieldReader& fields) {
  value_ = NumberIn(fields);
  min_ = NumberIn(fields);
  max_ = NumberIn(fields);
  increment_ = NumberIn(fields);
  provisional_ = fields.Number() != 0;
}

void TextBox::PackKind(FieldPacker& fields) const {
  fields.Text(text_);
}
void TextBox::RestoreKind(FieldReader& fields) {
  text_ = fields.Text();
}

void PictureBox::PackKind(FieldPacker& fields) const {
  fields.Number(top_);
}
void PictureBox::RestoreKind(FieldReader& fields) {
  top_ = NumberIn(fields);
}

void ScrollBar::PackKind(FieldPacker& fields) const {
  fields.Number(value_);
  fields.Number(max_);
}
void ScrollBar::RestoreKind(FieldReader& fields) {
  value_ = NumberIn(fields);
  max_ = NumberIn(fields);
}

void StatusPanel::PackKind(FieldPacker& fields) const {
  fields.Text(text_);
  fields.Text(picture_);
}
void StatusPanel::RestoreKind(FieldReader& fields) {
  text_ = fields.Text();
  picture_ = fields.Text();
}

}  // namespace marlinset
