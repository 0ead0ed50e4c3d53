// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/splash_window.h"

#include <QCoreApplication>
#include <QHBoxLayout>
#include <QLabel>
#include <QPainter>
#include <QScreen>

#include "base/program_title.h"
#include "gui/widgets/icons.h"
#include "gui/widgets/look.h"

namespace marlinset {
namespace {

constexpr int kSplashIconLines = 5;
constexpr double kTitleScale = 1.6;

}  // namespace

SplashWindow::SplashWindow(FrmSplash& form, std::function<void()> skip)
    : QWidget(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      form_(form),
      skip_(std::move(skip)),
      listening_(form.Changed, [this] { ShowForm(); }) {
  setObjectName(Shown(form.Name()));
  setFocusPolicy(Qt::StrongFocus);
  const int line = fontMetrics().lineSpacing();
  auto* row = new QHBoxLayout(this);
  row->setContentsMargins(2 * line, 2 * line, 4 * line, 2 * line);
  row->setSpacing(2 * line);
  auto* picture = new QLabel(this);
  picture->setObjectName(Shown(form.Image1.FullName()));
  picture->setPixmap(
      ProgramIcon().pixmap(QSize(kSplashIconLines * line, kSplashIconLines * line), devicePixelRatioF()));
  row->addWidget(picture);
  auto* texts = new QVBoxLayout;
  auto* title = new QLabel(ShownLiteral(std::string(kProgramTitle)), this);
  QFont large = title->font();
  large.setPointSizeF(large.pointSizeF() * kTitleScale);
  large.setBold(true);
  title->setFont(large);
  texts->setSpacing(SpaceUnit(*this));
  texts->addStretch();
  texts->addWidget(title);
  texts->addWidget(new QLabel(QStringLiteral("Release " MARLINSET_VERSION), this));
  texts->addStretch();
  row->addLayout(texts);
}

void SplashWindow::ShowForm() {
  if (form_.Visible()) {
    adjustSize();
    const QRect desk = screen()->geometry();
    move(desk.left() + desk.width() / 4, desk.top() + desk.height() / 4);
    show();
    repaint();
    QCoreApplication::processEvents(QEventLoop::ExcludeUserInputEvents);
  } else {
    hide();
  }
}

void SplashWindow::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setPen(Outline(palette()));
  painter.drawRect(rect().adjusted(0, 0, -1, -1));
}

void SplashWindow::mousePressEvent(QMouseEvent* /*event*/) {
  Skip();
}
void SplashWindow::keyPressEvent(QKeyEvent* /*event*/) {
  Skip();
}

void SplashWindow::Skip() {
  OperatorQueue::OfProgram().Take(form_, *this, skip_);
}

}  // namespace marlinset
