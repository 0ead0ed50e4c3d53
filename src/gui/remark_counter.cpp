// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/remark_counter.h"

#include <QFrame>
#include <QHBoxLayout>
#include <QListWidget>
#include <QScreen>
#include <QStyle>
#include <QStyleOptionToolButton>
#include <algorithm>

#include "core/frm_start.h"
#include "gui/show_control.h"
#include "gui/widgets/icons.h"
#include "gui/widgets/look.h"
#include "gui/widgets/widget_bindings.h"
#include "picture/remark_list.h"

namespace marlinset {
namespace {

constexpr int kLetters = 64;    // of a line in the list
constexpr int kMostLines = 20;  // of text, without scrolling
/// While a file is being loaded, which asks the operator something, the count waits.
constexpr int kAskAgainMs = 50;

int IconSize(const QWidget& widget) {
  return widget.style()->pixelMetric(QStyle::PM_SmallIconSize);
}

QIcon IconOf(Severity severity, const QWidget& widget) {
  return SignIcon(severity == Severity::kWarning ? Sign::kWarning : Sign::kNote, IconSize(widget),
                  widget.palette());
}

/// The remarks below the counter, until one is chosen, Esc is pressed or the operator clicks elsewhere.
class RemarkPopup : public QFrame {
 public:
  RemarkPopup(const std::vector<Remark>& remarks, FrmStart& form, QWidget* parent)
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
    list_->setIconSize({IconSize(*this), IconSize(*this)});
    list_->setHorizontalScrollBarPolicy(Qt::ScrollBarAlwaysOff);
    for (const Remark& remark : remarks) AddItem(remark);
    list_->setCurrentRow(0);
    setFocusProxy(list_);
    for (const auto signal : {&QListWidget::itemClicked, &QListWidget::itemActivated}) {
      connect(list_, signal, this, [this, &form](QListWidgetItem* item) { Choose(*item, form); });
    }
  }

  /// Below `place` and within its screen.
  void OpenAt(const QWidget& place) {
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

 private:
  int Width() const { return fontMetrics().averageCharWidth() * kLetters + TextMargin(); }
  /// Icon, spaces and scroll bar beside the text.
  int TextMargin() const {
    return IconSize(*this) + style()->pixelMetric(QStyle::PM_ScrollBarExtent) + 4 * SpaceUnit(*this);
  }
  void AddItem(const Remark& remark) {
    auto* item = new QListWidgetItem(IconOf(remark.severity, *this), Shown(remark.text), list_);
    const QString severity =
        remark.severity == Severity::kWarning ? QStringLiteral("Warning: ") : QStringLiteral("Note: ");
    item->setData(Qt::AccessibleTextRole, severity + item->text());
    if (!remark.controls.empty()) item->setData(Qt::UserRole, Shown(remark.controls.front()));
    const QRect room(0, 0, Width() - TextMargin(), QWIDGETSIZE_MAX);
    const int lines = fontMetrics().boundingRect(room, Qt::TextWordWrap, item->text()).height();
    item->setSizeHint({0, lines + 2 * SpaceUnit(*this)});
  }
  /// The list is closed first, because its end gives the focus back to where it was.
  void Choose(const QListWidgetItem& item, FrmStart& form) {
    if (!isVisible()) return;  // a click may count as an activation too
    QWidget* window = parentWidget()->window();
    const std::string control = Typed(item.data(Qt::UserRole).toString());
    close();
    ShowControl(*window, form, control);
  }

  QListWidget* list_;
};

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
  const int icon = IconSize(*this);
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
  option->iconSize = {IconSize(*this), IconSize(*this)};
  if (worst_) option->icon = IconOf(*worst_, *this);
}

void RemarkCounter::OpenList() {
  if (!remarks_) return;
  Look();
  if (remarks_->Remarks().empty()) return;
  (new RemarkPopup(remarks_->Remarks(), form_, this))->OpenAt(*this);
}

}  // namespace marlinset
