// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/guide_window.h"

#include <QPushButton>
#include <QScreen>
#include <QVBoxLayout>

#include "base/program_title.h"
#include "core/frm_start.h"
#include "gui/widgets/document_view.h"
#include "gui/widgets/icons.h"
#include "gui/widgets/look.h"
#include "gui/widgets/screen_fit.h"

namespace marlinset {
namespace {

/// A section has the name of the panel that it describes.
QString SectionOf(const FrmStart& form) {
  const int view = form.views.Selected();
  return view == kNoIndex ? QString() : DocumentView::AnchorOf(Shown(form.oView(view).Caption()));
}

}  // namespace

GuideWindow::GuideWindow(const std::string& folder)
    : QDialog(nullptr, Qt::Window),
      guide_(QUrl::fromLocalFile(Shown(folder) + QStringLiteral("/docs/user-guide.md"))),
      view_(new DocumentView(this)) {
  setObjectName(QStringLiteral("frmGuide"));
  setWindowTitle(QStringLiteral("User Guide - ") + Shown(std::string(kProgramTitle)));
  setWindowIcon(ProgramIcon());
  auto* rows = new QVBoxLayout(this);
  SetSpaces(*rows, *this, 1);
  auto* buttons = new QHBoxLayout;
  SetSpaces(*buttons, *this);
  const auto addButton = [&](const char* caption, auto&& action) {
    auto* button = new QPushButton(QLatin1String(caption), this);
    button->setAutoDefault(false);
    connect(button, &QPushButton::clicked, view_, action);
    buttons->addWidget(button);
    return button;
  };
  addButton("&Contents", [this] { view_->setSource(guide_); });
  QPushButton* back = addButton("&Back", [this] { view_->backward(); });
  back->setEnabled(false);
  connect(view_, &QTextBrowser::backwardAvailable, back, &QWidget::setEnabled);
  buttons->addStretch(1);
  addButton("C&lose", [this] { close(); });
  rows->addLayout(buttons);
  rows->addWidget(view_, 1);
  view_->setAccessibleName(QStringLiteral("User guide"));
  view_->setFocus();
  // For a picture, and for a table beside its explanations.
  resize(RoomForText(*this, 100, 45).boundedTo(screen()->availableSize() * 0.9));
  new ScreenFit(*this);
}

void GuideWindow::ShowFor(const FrmStart& form) {
  setWindowState(windowState() & ~Qt::WindowMinimized);
  show();
  raise();
  activateWindow();
  QUrl section = guide_;
  section.setFragment(SectionOf(form));
  view_->setSource(section);
}

}  // namespace marlinset
