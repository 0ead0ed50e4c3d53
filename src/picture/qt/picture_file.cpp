// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/qt/picture_file.h"

#include <QBuffer>
#include <QPainter>
#include <cmath>
#include <optional>
#include <span>

#include "base/runtime_error.h"
#include "picture/qt/plan_painter.h"
#include "picture/qt/still.h"
#include "platform/posix/file_place.h"
#include "platform/posix/file_writer.h"
#include "platform/posix/streams.h"

namespace marlinset {
namespace {

RuntimeError TooLargeForMemory() {
  return {kErrMemory, "Out of memory", "A picture of this width does not fit into memory."};
}

QImage Painted(const PicturePlan& plan, const PictureOrder& order) {
  if (!plan.area) throw RuntimeError(kErrInvalidCall, "There is no picture", plan.trouble);
  const QSize size(order.width, static_cast<int>(std::lround(order.width / plan.Shape())));
  QImage still = order.background.empty() ? QImage() : LoadStill(order.background, size);
  QImage image(size, QImage::Format_RGB32);
  if (image.isNull()) throw TooLargeForMemory();
  image.fill(Qt::black);
  const QRectF frame(QPointF(0, 0), size);
  QPainter painter(&image);
  PaintGround(painter, frame, still);
  const CellGrid grid(*plan.area, frame);
  for (const PlannedWindow& window : plan.windows) {
    if (IsShown(window, order.slate)) {
      PaintPlannedWindow(painter, grid.RectOf(window.place), plan.look, window);
    }
  }
  if (order.safe) PaintSafeFrames(painter, frame);
  return image;
}

QByteArray AsPng(const QImage& image) {
  QByteArray bytes;
  QBuffer buffer(&bytes);
  buffer.open(QIODevice::WriteOnly);
  if (!image.save(&buffer, "PNG")) throw TooLargeForMemory();
  return bytes;
}

}  // namespace

void WritePicture(const PicturePlan& plan, const PictureOrder& order, const std::string& path) {
  std::optional<FileWriter> file;  // opened first, so that an unwritable place is reported before the work
  if (!OwnStream(path)) file.emplace(path);
  const QByteArray png = AsPng(Painted(plan, order));
  const std::span bytes(reinterpret_cast<const std::uint8_t*>(png.data()),
                        static_cast<std::size_t>(png.size()));
  if (file) {
    file->Write(bytes);
    file->Commit();
  } else {
    WriteStraight(path, bytes);
  }
}

}  // namespace marlinset
