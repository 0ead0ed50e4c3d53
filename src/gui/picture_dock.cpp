// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/picture_dock.h"

#include <QAction>
#include <QApplication>
#include <QCheckBox>
#include <QContextMenuEvent>
#include <QHBoxLayout>
#include <QLabel>
#include <QMenu>
#include <QPushButton>
#include <QVBoxLayout>
#include <utility>

#include "base/runtime_error.h"
#include "core/frm_start.h"
#include "gui/picture_view.h"
#include "gui/widgets/look.h"
#include "panels/picture_rules.h"
#include "picture/qt/still.h"

namespace marlinset {
namespace {

/// A still is kept no larger than it takes to fill this.
constexpr QSize kLargeScreen(2560, 1440);

QLabel* MakeLabel(QWidget* parent) {
  auto* label = new QLabel(parent);
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  return label;
}

/// A button or box that does what the menu's entry does, and looks like it.
QAbstractButton* MakeButton(QAction& entry, QWidget* parent) {
  QAbstractButton* button = nullptr;
  if (entry.isCheckable()) {
    button = new QCheckBox(parent);
  } else {
    button = new QPushButton(parent);
  }
  const auto follow = [&entry, button] {
    button->setText(entry.text().remove(QLatin1Char('&')));
    button->setToolTip(entry.toolTip());
    button->setEnabled(entry.isEnabled());
    button->setChecked(entry.isChecked());
  };
  follow();
  QObject::connect(&entry, &QAction::changed, button, follow);
  QObject::connect(button, &QAbstractButton::clicked, &entry, [&entry, follow] {
    entry.trigger();
    follow();
  });
  return button;
}

void SetText(QLabel& label, const QString& text) {
  if (label.text() != text) label.setText(text);
}

}  // namespace

PictureDock::PictureDock(FrmStart& form, PictureRules& rules, std::shared_ptr<WindowSelection> selection,
                         const QList<QAction*>& entries, QWidget* parent)
    : FormDock(form, form.mnuPicture, "picture", parent),
      rules_(rules),
      view_(new PictureView(form, rules, std::move(selection), this)),
      menu_(new QMenu(this)),
      viewListening_(view_->Changed, [this] { ShowWords(); }) {
  auto* middle = new QWidget(this);
  auto* lines = new QVBoxLayout(middle);
  SetSpaces(*lines, *this, 1);
  caption_ = MakeLabel(middle);
  selected_ = MakeLabel(middle);
  auto* buttons = new QHBoxLayout;
  buttons->setSpacing(SpaceUnit(*this));
  for (QAction* entry : entries) buttons->addWidget(MakeButton(*entry, middle));
  buttons->addStretch(1);
  menu_->addActions(entries);
  lines->addWidget(view_, kNearlyAll);
  lines->addWidget(selected_);
  lines->addWidget(caption_);
  lines->addLayout(buttons);
  lines->addStretch(1);
  setWidget(middle);
  rules_.stillPatterns = StillPatterns();
  rules_.showStill = [this](const std::string& file) { ShowStill(file); };
  ShowWords();
  FollowForm();
}

PictureDock::~PictureDock() {
  rules_.showStill = nullptr;
}

void PictureDock::ShowStill(const std::string& file) {
  view_->SetStill(file.empty() ? QImage() : LoadStill(file, kLargeScreen));
  stillFailure_.clear();
  stillTried_ = true;
  ShowWords();
}

/// A still that has gone since the last run is no reason for a box at the start.
void PictureDock::TakeRememberedStill() {
  if (std::exchange(stillTried_, true)) return;
  try {
    ShowStill(rules_.Still());
  } catch (const RuntimeError& failure) {
    stillFailure_ = QStringLiteral("No background: ") +
                    Shown(failure.Remedy()).replace(QLatin1Char('\n'), QLatin1String(": "));
    ShowWords();
  }
}

void PictureDock::ShowWords() {
  const QString plan = QStringLiteral("A plan: place and size are the unit's, its letters look different.");
  SetText(*caption_, stillFailure_.isEmpty() ? plan : plan + QLatin1Char('\n') + stillFailure_);
  const QString words = view_->SelectedInWords();
  view_->setAccessibleDescription(words);
  SetText(*selected_, words.isEmpty() ? QStringLiteral("No window selected") : words);
}

void PictureDock::showEvent(QShowEvent* event) {
  QDockWidget::showEvent(event);
  TakeRememberedStill();
}

/// It does not wait for a choice: the tool goes on meanwhile. While the left button is down, the right one
/// only cancels a drag; the release of the left one would choose an entry.
void PictureDock::contextMenuEvent(QContextMenuEvent* event) {
  if (!QApplication::mouseButtons().testFlag(Qt::LeftButton)) menu_->popup(event->globalPos());
}

}  // namespace marlinset
