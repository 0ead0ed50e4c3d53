// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/send_progress.h"

#include <QPainter>
#include <algorithm>

#include "gui/widgets/look.h"
#include "link/whole_send.h"

namespace marlinset {
namespace {

constexpr int kBarCharacters = 14;

QString CountText(int messages, int planned) {
  return QStringLiteral("%1 of %2").arg(messages).arg(planned);
}

}  // namespace

SendProgress::SendProgress(WholeSend& send, QWidget* parent)
    : QWidget(parent), send_(send), listening_(send.Progressed, [this] { ShowSend(); }) {
  setObjectName(QStringLiteral("Progress"));
  setSizePolicy(QSizePolicy::Minimum, QSizePolicy::Fixed);
  setAccessibleName(QStringLiteral("Progress of the send"));
}

QSize SendProgress::sizeHint() const {
  constexpr int kMost = 8888;  // room for any send
  return {FiguresWidth(*this, kBarCharacters) + SpaceUnit(*this) +
              fontMetrics().horizontalAdvance(CountText(kMost, kMost)),
          fontMetrics().height()};
}

QRect SendProgress::Bar() const {
  const int high = std::max(4, fontMetrics().height() / 3);
  return {0, (height() - high) / 2, FiguresWidth(*this, kBarCharacters), high};
}

/// Messages come faster than a screen can show them; updates of one turn of the event loop are painted once.
void SendProgress::ShowSend() {
  const SendResult& result = send_.Result();
  QString text;
  if (send_.Closing()) {
    text = QStringLiteral("Closing");
  } else if (send_.Stopping()) {
    text = QStringLiteral("Stopping");
  } else if (send_.Running() && result.planned > 0) {
    text = CountText(result.messages, result.planned);
  }
  const double done = !send_.Running() || result.planned == 0
                          ? 0
                          : std::clamp(static_cast<double>(result.messages) / result.planned, 0.0, 1.0);
  if (text == text_ && done == done_) return;
  text_ = text;
  done_ = done;
  setAccessibleDescription(text_);
  update();
}

void SendProgress::paintEvent(QPaintEvent* /*event*/) {
  if (text_.isEmpty()) return;
  QPainter painter(this);
  painter.fillRect(rect(), palette().window());
  const QRect bar = Bar();
  painter.fillRect(bar, Outline(palette()));
  QRect filled = bar;
  filled.setWidth(static_cast<int>(bar.width() * done_));
  painter.fillRect(filled, Accent(palette()));
  painter.setPen(palette().color(QPalette::WindowText));
  painter.drawText(rect().adjusted(bar.width() + SpaceUnit(*this), 0, 0, 0),
                   Qt::AlignLeft | Qt::AlignVCenter | Qt::TextSingleLine, text_);
}

}  // namespace marlinset
