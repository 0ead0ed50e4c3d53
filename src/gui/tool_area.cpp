// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/tool_area.h"

#include <QLabel>
#include <QRadioButton>
#include <QShortcut>
#include <QVBoxLayout>

#include "gui/bindings.h"
#include "gui/buttons.h"
#include "gui/fields.h"
#include "gui/group.h"
#include "gui/indicator.h"
#include "gui/look.h"

namespace marlinset {
namespace {

constexpr int kStandardCharacters = 10;

QHBoxLayout* AddRow(QVBoxLayout& rows, const QWidget& parent) {
  auto* row = new QHBoxLayout;
  SetSpaces(*row, parent);
  rows.addLayout(row);
  return row;
}

/// The buttons stand disabled only while a whole setup is on its way.
void AddButton(QBoxLayout& row, QPushButton* widget, Button& control) {
  Binding& binding = Bind(*widget, control);
  binding.SetDisabledReason(QStringLiteral("A setup is being sent; available again when it is complete."));
  row.addWidget(widget);
}

}  // namespace

ToolArea::ToolArea(FrmStart& form, QWidget* parent) : QWidget(parent) {
  Bind(*this, form.CoolBar1);
  auto* rows = new QVBoxLayout(this);
  SetSpaces(*rows, *this);
  const int unit = SpaceUnit(*this);
  rows->setContentsMargins(2 * unit, unit, 2 * unit, unit);
  QHBoxLayout* first = AddRow(*rows, *this);
  first->addWidget(new Indicator(form, this));
  first->addSpacing(unit);
  auto* standard = new ComboField(form.comVS, kStandardCharacters, this);
  standard->setAccessibleName(QStringLiteral("Video standard"));
  QLabel* label = MakeLabel(QStringLiteral("Video standard"), this);
  label->setBuddy(standard);
  first->addWidget(label);
  first->addWidget(standard);
  first->addSpacing(3 * unit);
  first->addWidget(MakeVitcModes(form));
  first->addStretch(1);
  AddButtons(form, *first);
  QHBoxLayout* second = AddRow(*rows, *this);
  second->addWidget(MakeViews(form));
  second->addStretch(1);
  AddService(form, *second);
}

QWidget* ToolArea::MakeVitcModes(FrmStart& form) {
  auto* band = new QWidget(this);
  auto* row = new QHBoxLayout(band);
  SetSpaces(*row, *band);
  row->addWidget(MakeLabel(form.tVITC, band));
  for (const int i : form.oVITC.Indices()) {
    auto* option = new QRadioButton(band);
    Bind(*option, form.oVITC(i));
    option->setAccessibleName(Shown(form.tVITC.Caption()) + QLatin1Char(' ') + option->text());
    row->addWidget(option);
  }
  Bind(*band, form.fVITC);
  return band;
}

QWidget* ToolArea::MakeViews(FrmStart& form) {
  auto* band = new QWidget(this);
  auto* row = new QHBoxLayout(band);
  row->setContentsMargins(0, 0, 0, 0);
  row->setSpacing(0);
  constexpr int kOptionsPanel = 4;  // never offered, so it gets neither an end of the row nor a number
  int number = 0;
  for (const int i : form.oView.Indices()) {
    auto* segment = new SegmentButton(band);
    segment->setAutoExclusive(true);
    segment->setFocusPolicy(Qt::TabFocus);
    Bind(*segment, form.oView(i));
    row->addWidget(segment);
    if (i == 0) segment->SetPlace(SegmentButton::Place::kFirst);
    if (i == form.oView.UBound()) segment->SetPlace(SegmentButton::Place::kLast);
    if (i == kOptionsPanel) continue;
    auto* keys = new QShortcut(QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + number++)), segment);
    connect(keys, &QShortcut::activated, segment, &QAbstractButton::click);
  }
  Bind(*band, form.fView);
  return band;
}

void ToolArea::AddButtons(FrmStart& form, QBoxLayout& row) {
  AddButton(row, new QPushButton(this), form.bOpen);
  AddButton(row, new QPushButton(this), form.bClose);
  row.addSpacing(SpaceUnit(*this));
  AddButton(row, new MainButton(this), form.bSConfig);
}

void ToolArea::AddService(FrmStart& form, QBoxLayout& row) {
  QLabel* label = MakeLabel(QStringLiteral("Service:"), this);
  ShowWith(*label, form.bSend);
  row.addWidget(label);
  AddButton(row, new QPushButton(this), form.bSend);
  AddButton(row, new QPushButton(this), form.bBroad);
  AddButton(row, new QPushButton(this), form.bGetID);
}

}  // namespace marlinset
