// SPDX-License-Identifier: GPL-3.0-or-later
#include "picture/qt/still.h"

#include <fcntl.h>
#include <sys/stat.h>

#include <QFile>
#include <QImageReader>
#include <QList>
#include <cerrno>

#include "base/runtime_error.h"
#include "platform/posix/file_failure.h"

namespace marlinset {
namespace {

/// Pictures made of pixels; others, such as drawings, would need fonts.
const QList<QByteArray>& Formats() {
  static const QList<QByteArray> kFormats{"bmp", "gif", "jpeg", "jpg",  "pbm", "pgm",
                                          "png", "ppm", "tif",  "tiff", "webp"};
  return kFormats;
}

/// Twice what the largest picture takes at four bytes a pixel: some have two bytes for each colour.
constexpr int kMostMebibytes = 800;

RuntimeError Refused(const std::string& path, const std::string& why) {
  return {kErrFileFormat, "Invalid picture", path + "\n" + why};
}

bool TooLarge(QSize size) {
  return static_cast<long long>(size.width()) * size.height() > kMostStillPixels;
}

RuntimeError TooLargeFor(const std::string& path, QSize size) {
  return Refused(path, "It has " + std::to_string(size.width()) + " x " + std::to_string(size.height()) +
                           " pixels. A background may have " + std::to_string(kMostStillPixels / 1'000'000) +
                           " million.");
}

/// Of any size: a picture may be far larger than other files of the tool. A pipe or a device is not opened.
void OpenFile(QFile& file, const std::string& path) {
  struct stat status {};
  if (::stat(path.c_str(), &status) != 0) throw ReadFailure(path, errno);
  RequireRegular(path, status);
  const int number = ::open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY);
  if (number < 0) throw ReadFailure(path, errno);
  if (!file.open(number, QIODevice::ReadOnly, QFileDevice::AutoCloseHandle)) {
    throw FileRefused(path, file.errorString().toStdString());
  }
}

}  // namespace

QImage LoadStill(const std::string& path, QSize enough) {
  QFile file;
  OpenFile(file, path);
  QImageReader::setAllocationLimit(kMostMebibytes);
  QImageReader reader(&file);
  reader.setDecideFormatFromContent(true);
  reader.setAutoTransform(true);
  const QSize size = reader.size();
  if (!Formats().contains(reader.format()) || !size.isValid()) {
    throw Refused(path, "It is no picture that this program can read.");
  }
  if (TooLarge(size)) throw TooLargeFor(path, size);
  const QSize reduced = size.scaled(enough, Qt::KeepAspectRatioByExpanding);
  if (reduced.width() < size.width()) reader.setScaledSize(reduced);
  QImage still = reader.read();
  if (still.isNull()) {
    throw Refused(
        path, "It is damaged, or it does not fit into memory: " + reader.errorString().toStdString() + ".");
  }
  return still;
}

std::string StillPatterns() {
  std::string patterns;
  for (const QByteArray& format : Formats()) {
    patterns += (patterns.empty() ? "*." : " *.") + format.toStdString();
  }
  return patterns;
}

}  // namespace marlinset
