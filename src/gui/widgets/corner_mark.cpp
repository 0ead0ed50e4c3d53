// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/widgets/corner_mark.h"

#include <QPainter>
#include <QWidget>

#include "gui/widgets/look.h"

namespace marlinset {
namespace {

int MarkSize(const QFontMetrics& metrics) {
  return metrics.height() / 2;
}

/// Lies over a corner of its field and leaves the mouse to it.
class CornerMark : public QWidget {
 public:
  explicit CornerMark(QWidget& field) : QWidget(&field) {
    setAttribute(Qt::WA_TransparentForMouseEvents);
    const int size = MarkSize(fontMetrics());
    resize(size, size);
  }

 protected:
  void paintEvent(QPaintEvent* /*event*/) override {
    QPainter painter(this);
    PaintCornerMark(painter, rect(), LinkColor(palette()));
  }
};

CornerMark* MarkOf(const QWidget& field) {
  for (QObject* child : field.children()) {
    if (auto* mark = dynamic_cast<CornerMark*>(child)) return mark;
  }
  return nullptr;
}

}  // namespace

void PaintCornerMark(QPainter& painter, const QRect& field, const QColor& color) {
  const int size = MarkSize(painter.fontMetrics());
  const QPoint corner = field.topLeft();
  painter.save();
  painter.setRenderHint(QPainter::Antialiasing);
  painter.setPen(Qt::NoPen);
  painter.setBrush(color);
  painter.drawConvexPolygon(QPolygon({corner, corner + QPoint(size, 0), corner + QPoint(0, size)}));
  painter.restore();
}

void SetCornerMark(QWidget& field, bool marked) {
  CornerMark* mark = MarkOf(field);
  if (!mark && !marked) return;
  if (!mark) mark = new CornerMark(field);
  mark->setVisible(marked);
  field.setAccessibleDescription(marked ? QStringLiteral("Not on the unit") : QString());
}

}  // namespace marlinset
