// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/remark_popup.h"

#include <QHBoxLayout>
#include <QListWidget>
#include <QScreen>
#include <QStyle>
#include <algorithm>

#include "gui/remark_icon.h"
#include "gui/show_control.h"
#include "gui/widgets/look.h"

namespace marlinset {
namespace {

constexpr int kLetters = 64;    // of a line in the list
constexpr int kMostLines = 20;  // of text, without scrolling

}  // namespace

RemarkPopup::RemarkPopup(const std::vector<Remark>& remarks, FrmStart& form, QWidget* parent)
    : QFrame(parent, Qt::Popup), list_(new QListWidget(this)) {
  setAttribute(Qt::WA_DeleteOnClose);
  setFrameShape(QFrame::StyledPanel);
  setObjectName(QStringLiteral("Remarks"));
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(0, 0, 0, 0);
  row->addWidget(list_);
  list_->setFrameShape(QFrame::NoFrame);
  list_->setAccessibleName(QStringLiteral("Remarks on the setup"));
  list_->setWordWrap(true);
  list_->setMinimumHeight(1);  // for a single remark, too
  list_->setIconSize({RemarkIconSize(*this), RemarkIconSize(*this)});
  list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
  for (const Remark& remark : remarks) AddItem(remark);
  list_->setCurrentRow(0);
  setFocusProxy(list_);
  for (const auto signal : {&QListWidget::itemClicked, &QListWidget::itemActivated}) {
    connect(list_, signal, this, [this, &form](QListWidgetItem* item) { Choose(*item, form); });
  }
}

void RemarkPopup::OpenAt(const QWidget& place) {
  const QRect desk = place.screen()->availableGeometry();
  const int width = std::min(Width(), desk.width());
  int wanted = 2 * frameWidth();
  for (int i = 0; i < list_->count(); ++i) wanted += list_->item(i)->sizeHint().height();
  resize(width, std::min({wanted, kMostLines * fontMetrics().height(), desk.height()}));
  const QPoint below = place.mapToGlobal(place.rect().bottomRight());
  move(std::max(desk.left(), std::min(below.x(), desk.right()) - width),
       std::max(desk.top(), std::min(below.y(), desk.bottom() - height())));
  show();
  list_->setFocus(Qt::PopupFocusReason);
}

int RemarkPopup::Width() const {
  return fontMetrics().averageCharWidth() * kLetters + TextMargin();
}

/// Icon, spaces and scroll bar beside the text.
int RemarkPopup::TextMargin() const {
  return RemarkIconSize(*this) + style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 4 * SpaceUnit(*this);
}

void RemarkPopup::AddItem(const Remark& remark) {
  auto* item = new QListWidgetItem(RemarkIcon(remark.severity, *this), Shown(remark.text), list_);
  const QString severity =
      remark.severity == Severity::kWarning ? QStringLiteral("Warning: ") : QStringLiteral("Note: ");
  item->setData(Qt::AccessibleTextRole, severity + item->text());
  if (!remark.controls.empty()) item->setData(Qt::UserRole, Shown(remark.controls.front()));
  const QRect room(0, 0, Width() - TextMargin(), QWIDGETSIZE_MAX);
  const int lines = fontMetrics().boundingRect(room, Qt::TextWordWrap, item->text()).height();
  item->setSizeHint({0, lines + 2 * SpaceUnit(*this)});
}

/// The list is closed first, because its end gives the focus back to where it was.
void RemarkPopup::Choose(const QListWidgetItem& item, FrmStart& form) {
  if (!isVisible()) return;  // a click may count as an activation too
  QWidget* window = parentWidget()->window();
  const std::string control = Typed(item.data(Qt::UserRole).toString());
  close();
  ShowControl(*window, form, control);
}

}  // namespace marlinset
