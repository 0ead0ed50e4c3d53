// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/remark_counter.h"

#include <QStyleOptionToolButton>
#include <algorithm>

#include "core/frm_start.h"
#include "gui/remark_icon.h"
#include "gui/remark_popup.h"
#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"
#include "picture/remark_list.h"

namespace marlinset {
namespace {

/// While a file is being loaded, which asks the operator something, the count waits.
constexpr int kAskAgainMs = 50;

}  // namespace

RemarkCounter::RemarkCounter(FrmStart& form, RemarkList* remarks, QWidget* parent)
    : QToolButton(parent),
      form_(form),
      remarks_(remarks),
      formListening_(form.Touched, [this] { LookSoon(); }),
      countListening_(form.lRemarks.Changed, [this] { ShowCount(); }) {
  setAutoRaise(true);
  BindFlags(*this, form.lRemarks);
  connect(this, &QToolButton::clicked, this, &RemarkCounter::OpenList);
  setFocusPolicy(Qt::NoFocus);
  setAccessibleName(QStringLiteral("No remarks"));
  ShowCount();
}

QSize RemarkCounter::sizeHint() const {
  const int icon = RemarkIconSize(*this);
  return {icon + fontMetrics().horizontalAdvance(QStringLiteral("99 remarks")) + 3 * SpaceUnit(*this),
          std::max(icon, fontMetrics().height()) + 2 * SpaceUnit(*this)};
}

void RemarkCounter::showEvent(QShowEvent* event) {
  QToolButton::showEvent(event);
  LookSoon();
}

void RemarkCounter::paintEvent(QPaintEvent* event) {
  if (worst_) QToolButton::paintEvent(event);
}

void RemarkCounter::LookSoon() {
  if (remarks_ && isVisible()) soon_.Ask();
}

/// Touches that come from now on are reported again, whatever they change.
void RemarkCounter::Look() {
  form_.ListenAgain();
  if (!remarks_->Refresh()) return soon_.Ask(kAskAgainMs);
  ShowCount();
}

std::optional<Severity> RemarkCounter::Worst() const {
  if (!form_.lRemarks.Caption().empty()) return Severity::kWarning;
  if (remarks_ && !remarks_->Remarks().empty()) return Severity::kNote;
  return std::nullopt;
}

/// Notes alone have no number, but there is something to read.
void RemarkCounter::ShowCount() {
  const QString count = Shown(form_.lRemarks.Caption());
  if (count == count_ && Worst() == worst_) return;
  count_ = count;
  worst_ = Worst();
  setAccessibleName(!worst_           ? QStringLiteral("No remarks")
                    : count.isEmpty() ? QStringLiteral("Notes")
                                      : count);
  setFocusPolicy(worst_ ? Qt::TabFocus : Qt::NoFocus);
  update();
}

void RemarkCounter::initStyleOption(QStyleOptionToolButton* option) const {
  QToolButton::initStyleOption(option);
  option->toolButtonStyle = Qt::ToolButtonTextBesideIcon;
  option->text = count_;
  option->iconSize = {RemarkIconSize(*this), RemarkIconSize(*this)};
  if (worst_) option->icon = RemarkIcon(*worst_, *this);
}

void RemarkCounter::OpenList() {
  if (!remarks_) return;
  Look();
  if (remarks_->Remarks().empty()) return;
  (new RemarkPopup(remarks_->Remarks(), form_, this))->OpenAt(*this);
}

}  // namespace marlinset
