// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/qt_work_keeper.h"

#include <QDateTime>
#include <QFile>
#include <QFileInfo>
#include <QLocale>
#include <QStandardPaths>
#include <algorithm>
#include <string_view>

#include "base/runtime_error.h"
#include "platform/posix/file_writer.h"

namespace marlinset {
namespace {

/// No more tools than this run at once; beyond it the folder is unusable.
constexpr int kMostNumbers = 1000;

constexpr std::string_view kDeclined = "declined";
constexpr std::string_view kAside = ".qcf.bak";
constexpr std::size_t kMostDeclined = 20;

}  // namespace

QtWorkKeeper::QtWorkKeeper()
    : QtWorkKeeper(QStandardPaths::writableLocation(QStandardPaths::GenericDataLocation) +
                   QStringLiteral("/7340-Marlinset/unsaved")) {}

QtWorkKeeper::QtWorkKeeper(const std::string& folder) : QtWorkKeeper(QString::fromStdString(folder)) {}

QString QtWorkKeeper::PathOf(int number, const char* extension) const {
  return folder_.filePath(QString::number(number) + QLatin1String(extension));
}

/// The lock of a killed run does not count.
std::unique_ptr<QLockFile> QtWorkKeeper::Lock(const QString& path) {
  auto lock = std::make_unique<QLockFile>(path);
  lock->setStaleLockTime(0);
  return lock->tryLock() ? std::move(lock) : nullptr;
}

/// The first number that no running tool has and that has no left work.
void QtWorkKeeper::TakeNumber() {
  folder_.mkpath(QStringLiteral("."));
  for (int number = 1; number <= kMostNumbers; ++number) {
    if (QFile::exists(PathOf(number, ".qcf"))) continue;
    lock_ = Lock(PathOf(number, ".lock"));
    if (!lock_) continue;
    number_ = number;
    return;
  }
  throw RuntimeError(kErrFileAccess, "Path/File access error");
}

void QtWorkKeeper::Keep(const UnsavedWork& work) {
  if (number_ == 0) TakeNumber();
  WriteFile(PathOf(number_, ".name").toStdString(),
            work.title + "\n" + work.fileName + "\n" + work.mark + "\n", NewFile::kPrivate);
  WriteFile(PathOf(number_, ".qcf").toStdString(), work.bytes, NewFile::kPrivate);
}

void QtWorkKeeper::Remove(int number) const {
  QFile::remove(PathOf(number, ".qcf"));
  QFile::remove(PathOf(number, ".name"));
}

void QtWorkKeeper::Drop() {
  if (number_ == 0) return;
  Remove(number_);
  Leave();
}

void QtWorkKeeper::Leave() {
  lock_.reset();
  number_ = 0;
}

std::vector<LeftWork> QtWorkKeeper::Left() {
  std::vector<LeftWork> all;
  const QFileInfoList files = folder_.entryInfoList({QStringLiteral("*.qcf")}, QDir::Files, QDir::Time);
  for (const QFileInfo& info : files) {
    const int number = info.completeBaseName().toInt();
    if (number == 0 || number == number_ || !Lock(PathOf(number, ".lock"))) continue;
    QFile name(PathOf(number, ".name"));
    (void)name.open(QIODevice::ReadOnly);  // work without a name still counts
    const QList<QByteArray> lines = name.readAll().split('\n');
    all.push_back({info.filePath().toStdString(), lines.value(0).toStdString(), lines.value(1).toStdString(),
                   QLocale().toString(info.lastModified(), QLocale::ShortFormat).toStdString(),
                   lines.value(2).toStdString()});
  }
  return all;
}

void QtWorkKeeper::DropLeft(const std::string& file) {
  const int number = QFileInfo(QString::fromStdString(file)).completeBaseName().toInt();
  if (const auto lock = Lock(PathOf(number, ".lock"))) Remove(number);
}

/// Numbers of the declined works, the oldest first; the one of an earlier version has none and counts as 0.
std::vector<int> QtWorkKeeper::Declined() const {
  std::vector<int> numbers;
  const QStringList pattern{QLatin1String(kDeclined) + QLatin1Char('*') + QLatin1String(kAside)};
  for (const QString& name : folder_.entryList(pattern, QDir::Files)) {
    const auto prefix = static_cast<qsizetype>(kDeclined.size());
    const auto number = name.mid(prefix, name.size() - prefix - static_cast<qsizetype>(kAside.size()));
    numbers.push_back(number.toInt());
  }
  std::sort(numbers.begin(), numbers.end());
  return numbers;
}

QString QtWorkKeeper::DeclinedPath(int number) const {
  return folder_.filePath(QLatin1String(kDeclined) + (number == 0 ? QString() : QString::number(number)) +
                          QLatin1String(kAside));
}

void QtWorkKeeper::DeclineLeft(const std::string& file) {
  const std::vector<int> present = Declined();
  int number = present.empty() ? 1 : present.back() + 1;
  // Renaming needs no room on a full disk. Another tool may take the same number.
  const QString left = QString::fromStdString(file);
  while (!QFile::rename(left, DeclinedPath(number)) && QFile::exists(DeclinedPath(number))) ++number;
  if (QFile::exists(left)) return;
  DropLeft(file);
  for (std::size_t i = 0; i + kMostDeclined <= present.size(); ++i) QFile::remove(DeclinedPath(present[i]));
}

}  // namespace marlinset
