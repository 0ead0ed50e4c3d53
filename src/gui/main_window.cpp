// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/main_window.h"

#include <QCloseEvent>
#include <QMenuBar>
#include <QMouseEvent>
#include <QPlainTextEdit>
#include <QVBoxLayout>

#include "gui/bindings.h"
#include "gui/icons.h"
#include "gui/look.h"
#include "gui/menu_bar.h"
#include "gui/panel_host.h"
#include "gui/status_bar.h"
#include "gui/tool_area.h"

namespace marlinset {
namespace {

// The first size in letters and lines of the desktop's font.
constexpr int kLetters = 170;
constexpr int kLines = 42;
constexpr int kLogLines = 3;

QFrame* MakeRule(QWidget* parent) {
  auto* rule = new QFrame(parent);
  rule->setFixedHeight(1);
  rule->setAutoFillBackground(true);
  rule->setBackgroundRole(QPalette::Mid);
  return rule;
}

}  // namespace

MainWindow::MainWindow(FrmStart& form, WindowHooks hooks)
    : form_(form), hooks_(std::move(hooks)), listening_(form.Changed, [this] { ShowForm(); }) {
  setObjectName(Shown(form.Name()));
  setWindowIcon(ProgramIcon());
  FillMenuBar(*menuBar(), form, hooks_.deviceName);
  auto* middle = new QWidget(this);
  auto* rows = new QVBoxLayout(middle);
  rows->setContentsMargins(0, 0, 0, 0);
  rows->setSpacing(0);
  rows->addWidget(new ToolArea(form, middle));
  rows->addWidget(MakeRule(middle));
  rows->addWidget(new PanelHost(form, middle), 1);
  rows->addWidget(MakeLog());
  setCentralWidget(middle);
  setStatusBar(new StatusBarView(form, this));
  resize(fontMetrics().averageCharWidth() * kLetters, fontMetrics().height() * kLines);
  // What lies between the controls passes the mouse on, up to the form itself.
  for (QWidget* widget : findChildren<QWidget*>()) widget->setMouseTracking(true);
  setMouseTracking(true);
  ShowForm();
}

QWidget* MainWindow::MakeLog() {
  auto* log = new QPlainTextEdit(this);
  log->setFont(FixedFont());
  log->setFocusPolicy(Qt::ClickFocus);
  const int margins = 2 * (log->frameWidth() + static_cast<int>(log->document()->documentMargin()));
  log->setFixedHeight(kLogLines * log->fontMetrics().lineSpacing() + margins);
  Bind(*log, form_.tInput);
  log->setAccessibleName(QStringLiteral("Received bytes"));
  return log;
}

void MainWindow::ShowForm() {
  setWindowTitle(Shown(form_.Caption()));
  if (form_.Visible() == formVisible_) return;
  formVisible_ = form_.Visible();
  setVisible(formVisible_);
}

void MainWindow::mouseMoveEvent(QMouseEvent* event) {
  if (event->buttons() == Qt::NoButton) form_.OperatorHover();
}

void MainWindow::closeEvent(QCloseEvent* event) {
  event->setAccepted(!hooks_.mayClose || hooks_.mayClose());
}

}  // namespace marlinset
