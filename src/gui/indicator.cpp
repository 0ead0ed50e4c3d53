// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/indicator.h"

#include <QPainter>
#include <QPainterPath>
#include <cmath>
#include <numbers>

#include "gui/widgets/look.h"

namespace marlinset {
namespace {

struct StateLook {
  Indicator::State state;
  Color color;
  QColor ground;
  QColor ink;
  const char* meaning;
};

/// Shades of the model's pure colours that suit a dark room and keep the sign on them readable.
const StateLook& LookOf(Color color) {
  static const StateLook kLooks[] = {
      {Indicator::State::kClosed, kRed, {200, 38, 38}, Qt::white, "port closed"},
      {Indicator::State::kTraffic, kGreen, {64, 190, 84}, QColor(16, 32, 16), "traffic"},
      {Indicator::State::kWaiting, kYellow, MarkColor(), MarkTextColor(), "answer awaited"},
  };
  static const StateLook kUnknown{Indicator::State::kUnknown, 0, {128, 128, 128}, Qt::white, ""};
  for (const StateLook& look : kLooks) {
    if (look.color == color) return look;
  }
  return kUnknown;
}

// All signs are drawn in a square of 20 by 20 units around the origin.

QPainterPath GroundShape(Indicator::State state) {
  QPainterPath path;
  if (state == Indicator::State::kClosed) {
    path.addRoundedRect(QRectF(-8.5, -8.5, 17, 17), 2.5, 2.5);
  } else if (state == Indicator::State::kWaiting) {
    path.addPolygon(QPolygonF({{0, -10}, {10, 0}, {0, 10}, {-10, 0}, {0, -10}}));
  } else {
    path.addEllipse(QPointF(0, 0), 9.2, 9.2);
  }
  return path;
}

void PaintSign(QPainter& painter, Indicator::State state, const QColor& ink) {
  painter.setPen(QPen(ink, 2, Qt::SolidLine, Qt::RoundCap, Qt::RoundJoin));
  painter.setBrush(Qt::NoBrush);
  switch (state) {
    case Indicator::State::kClosed:
      painter.drawLine(QPointF(-4, -4), QPointF(4, 4));
      painter.drawLine(QPointF(-4, 4), QPointF(4, -4));
      break;
    case Indicator::State::kTraffic:
      painter.drawPolyline(QPolygonF({{-5.5, -1}, {-3, -4.5}, {-0.5, -1}}));
      painter.drawLine(QPointF(-3, -4.5), QPointF(-3, 4.5));
      painter.drawPolyline(QPolygonF({{0.5, 1}, {3, 4.5}, {5.5, 1}}));
      painter.drawLine(QPointF(3, -4.5), QPointF(3, 4.5));
      break;
    case Indicator::State::kWaiting:
      painter.setPen(Qt::NoPen);
      painter.setBrush(ink);
      for (const int x : {-4, 0, 4}) painter.drawEllipse(QPointF(x, 0), 1.4, 1.4);
      break;
    case Indicator::State::kUnknown:
      break;
  }
}

void PaintHeartbeat(QPainter& painter, int frame, const QColor& ink) {
  QPainterPath heart(QPointF(0, 4.6));
  heart.cubicTo(-7.5, -0.5, -4.2, -5.6, 0, -2.2);
  heart.cubicTo(4.2, -5.6, 7.5, -0.5, 0, 4.6);
  painter.setPen(Qt::NoPen);
  painter.setBrush(ink);
  painter.drawPath(heart);
  const double angle = 2 * std::numbers::pi * frame / 5 - std::numbers::pi / 2;
  painter.drawEllipse(QPointF(7 * std::cos(angle), 7 * std::sin(angle)), 1.5, 1.5);
}

}  // namespace

Indicator::Indicator(FrmStart& form, QWidget* parent) : QWidget(parent), form_(form) {
  setSizePolicy(QSizePolicy::Fixed, QSizePolicy::Fixed);
  setObjectName(marlinset::Shown(form.pComBut.FullName()));
  listening_.emplace_back(form.pComBut.Changed, [this] { ShowControls(); });
  for (const int i : form.Image1.Indices()) {
    listening_.emplace_back(form.Image1(i).Changed, [this] { ShowControls(); });
  }
  ShowControls();
}

Indicator::State Indicator::Shown() const {
  return LookOf(form_.pComBut.BackColor()).state;
}

std::optional<int> Indicator::Heartbeat() const {
  for (const int i : form_.Image1.Indices()) {
    if (form_.Image1(i).Visible()) return i;
  }
  return std::nullopt;
}

void Indicator::ShowControls() {
  const std::optional<int> heartbeat = Heartbeat();
  const Color color = form_.pComBut.BackColor();
  if (color == colorPainted_ && heartbeat == heartbeatPainted_) return;
  colorPainted_ = color;
  heartbeatPainted_ = heartbeat;
  QString tip = marlinset::Shown(form_.pComBut.ToolTip());
  tip += QStringLiteral(": ") + QString::fromLatin1(LookOf(color).meaning);
  if (heartbeat) tip += QLatin1Char('\n') + marlinset::Shown(form_.Image1(*heartbeat).ToolTip());
  setToolTip(tip);
  setAccessibleName(tip);
  update();
}

QSize Indicator::sizeHint() const {
  const int side = fontMetrics().height() * 5 / 3;
  return {side, side};
}

void Indicator::paintEvent(QPaintEvent* /*event*/) {
  QPainter painter(this);
  painter.setRenderHint(QPainter::Antialiasing);
  const double side = std::min(width(), height());
  painter.translate(width() / 2.0, height() / 2.0);
  painter.scale(side / 21, side / 21);
  const StateLook& look = LookOf(form_.pComBut.BackColor());
  painter.setPen(QPen(look.ground.darker(150), 0.8));
  painter.setBrush(look.ground);
  painter.drawPath(GroundShape(look.state));
  if (const std::optional<int> heartbeat = Heartbeat()) {
    PaintHeartbeat(painter, *heartbeat, look.ink);
  } else {
    PaintSign(painter, look.state, look.ink);
  }
}

}  // namespace marlinset
