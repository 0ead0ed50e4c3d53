// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/tool_area.h"

#include <QFocusEvent>
#include <QLabel>
#include <QRadioButton>
#include <QVBoxLayout>

#include "gui/change_counter.h"
#include "gui/indicator.h"
#include "gui/live_sign.h"
#include "gui/qt_dialogs.h"
#include "gui/remark_counter.h"
#include "gui/send_progress.h"
#include "gui/widgets/buttons.h"
#include "gui/widgets/fields.h"
#include "gui/widgets/group.h"
#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"
#include "gui/widgets/window_keys.h"
#include "gui/window_hooks.h"

namespace marlinset {
namespace {

constexpr int kStandardCharacters = 10;

/// Some controls in a row.
struct Strip {
  explicit Strip(QWidget* parent) : widget(new QWidget(parent)), row(new QHBoxLayout(widget)) {
    SetSpaces(*row, *widget);
  }
  QWidget* widget;
  QHBoxLayout* row;
};

/// Two strips at the ends of one line, or of two lines if the window is narrow: a small screen shows all of
/// them.
SideBySide* MakeLine(Strip& left, Strip& right, QWidget* parent) {
  left.row->addStretch(1);
  right.row->addStretch(1);
  auto* line = new SideBySide(left.widget, right.widget, parent);
  line->LetFirstGrow();
  return line;
}

/// A row of options. It passes the focus on to the selected one.
class ChoiceBand : public QWidget {
 public:
  explicit ChoiceBand(QWidget* parent) : QWidget(parent) { setFocusPolicy(Qt::ClickFocus); }

 protected:
  void focusInEvent(QFocusEvent* event) override {
    if (QAbstractButton* option = ChosenOption(*this)) option->setFocus(event->reason());
  }
};

/// The buttons are disabled only while a setup is being sent.
void AddButton(QBoxLayout& row, BarButton* widget, Button& control, char mnemonic,
               Turn turn = Turn::kInOrder) {
  Binding& binding = Bind(*widget, control, mnemonic, turn);
  binding.SetDisabledReason(QStringLiteral("A setup is being sent; available again when it is complete."));
  row.addWidget(widget);
}

}  // namespace

ToolArea::ToolArea(FrmStart& form, const WindowHooks& hooks, QWidget* parent) : QWidget(parent) {
  Bind(*this, form.CoolBar1);
  auto* rows = new QVBoxLayout(this);
  SetSpaces(*rows, *this);
  const int unit = SpaceUnit(*this);
  rows->setContentsMargins(2 * unit, unit, 2 * unit, unit);
  Strip standard(this);
  AddStandard(form, *standard.row);
  Strip main(this);
  AddMain(form, hooks.remarks, *main.row);
  rows->addWidget(MakeLine(standard, main, this));
  Strip views(this);
  views.row->addWidget(MakeViews(form));
  views.row->addSpacing(2 * unit);
  views.row->addWidget(new LiveSign(form, hooks.deviceName, this));
  Strip service(this);
  AddSend(form, hooks, *service.row);
  AddService(form, *service.row);
  rows->addWidget(MakeLine(views, service, this));
}

void ToolArea::AddStandard(FrmStart& form, QBoxLayout& row) {
  const int unit = SpaceUnit(*this);
  row.addWidget(new Indicator(form, this));
  row.addSpacing(unit);
  auto* standard = new ComboField(form.comVS, kStandardCharacters, this);
  standard->setAccessibleName(QStringLiteral("Video standard"));
  QLabel* label = MakeLabel(QStringLiteral("&Video standard"), this);
  label->setBuddy(standard);
  row.addWidget(label);
  row.addWidget(standard);
  row.addSpacing(3 * unit);
  row.addWidget(MakeVitcModes(form));
}

QWidget* ToolArea::MakeVitcModes(FrmStart& form) {
  auto* band = new ChoiceBand(this);
  auto* row = new QHBoxLayout(band);
  SetSpaces(*row, *band);
  QLabel* label = MakeLabel(form.tVITC, band, 'L');
  label->setBuddy(band);  // not an option: a label presses its buddy, and that goes on air
  row->addWidget(label);
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
    segment->setFocusPolicy(Qt::TabFocus);
    // It sends nothing, and what the operator does next is meant for the panel he has just chosen.
    Bind(*segment, form.oView(i), Turn::kAtOnce);
    row->addWidget(segment);
    if (i == 0) segment->SetPlace(SegmentButton::Place::kFirst);
    if (i == form.oView.UBound()) segment->SetPlace(SegmentButton::Place::kLast);
    if (i == kOptionsPanel) continue;
    AddKeys(*segment, QKeySequence(Qt::ALT | static_cast<Qt::Key>(Qt::Key_1 + number++)));
  }
  Bind(*band, form.fView);
  return band;
}

void ToolArea::AddMain(FrmStart& form, RemarkList* remarks, QBoxLayout& row) {
  AddButton(row, new BarButton(this), form.bOpen, 'n');
  AddButton(row, new BarButton(this), form.bClose, 'C', Turn::kAtOnce);
  row.addSpacing(SpaceUnit(*this));
  AddButton(row, new MainButton(this), form.bSConfig, 'S');
  auto* changes = new BarButton(this);
  Binding& binding = Bind(*changes, form.bSChanges);
  binding.SetDisabledReason(
      QStringLiteral("The tool does not know what the unit holds; available once a setup has been sent."));
  row.addWidget(changes);
  AddKeys(*changes, QKeySequence(Qt::CTRL | Qt::SHIFT | Qt::Key_Return));
  row.addWidget(new RemarkCounter(form, remarks, this));
}

/// It acts in the waits of the send that it stops.
void ToolArea::AddSend(FrmStart& form, const WindowHooks& hooks, QBoxLayout& row) {
  auto* stop = new BarButton(this);
  Bind(*stop, form.bStop, 0, Turn::kAtOnce).SetDisabledReason(QStringLiteral("No setup is being sent."));
  row.addWidget(stop);
  // Both keep their room, but only one has something to say at a time: during a send the progress covers the
  // counter.
  auto* place = new QGridLayout;
  if (hooks.held && hooks.wholeSend) {
    place->addWidget(new ChangeCounter(form, *hooks.held, *hooks.wholeSend, this), 0, 0);
  }
  if (hooks.wholeSend) place->addWidget(new SendProgress(*hooks.wholeSend, this), 0, 0);
  row.addLayout(place);
  AddKeys(*stop, kStopKeys);
}

void ToolArea::AddService(FrmStart& form, QBoxLayout& row) {
  QLabel* label = MakeLabel(QStringLiteral("Service:"), this);
  ShowWith(*label, form.bSend);
  row.addWidget(label);
  AddButton(row, new BarButton(this), form.bSend, 'e');
  AddButton(row, new BarButton(this), form.bBroad, 'B');
  AddButton(row, new BarButton(this), form.bGetID, 'G');
}

}  // namespace marlinset
