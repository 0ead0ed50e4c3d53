// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QLockFile>
#include <QString>
#include <memory>
#include <string>
#include <vector>

#include "platform/work_keeper.h"

namespace marlinset {

/// Keeps unsaved work in a folder of the user. Each run has NUMBER.qcf, its NUMBER.name (title, full path and
/// mark of the file to which it belongs, one on each line) and, as long as the run lives, a lock on
/// NUMBER.lock: two tools never take each other's work, and work without a lock was left behind. Declined
/// work is declinedNUMBER.qcf.bak, the latest with the highest number; only the last twenty are kept.
class QtWorkKeeper : public WorkKeeper {
 public:
  /// The folder of this user's desktop.
  QtWorkKeeper();
  explicit QtWorkKeeper(const std::string& folder);

  void Keep(const UnsavedWork& work) override;
  void Drop() override;
  void Leave() override;
  std::vector<LeftWork> Left() override;
  void DropLeft(const std::string& file) override;
  void DeclineLeft(const std::string& file) override;

 private:
  explicit QtWorkKeeper(const QString& folder) : folder_(folder) {}
  QString PathOf(int number, const char* extension) const;
  void TakeNumber();
  void Remove(int number) const;
  std::vector<int> Declined() const;
  QString DeclinedPath(int number) const;
  static std::unique_ptr<QLockFile> Lock(const QString& path);

  QDir folder_;
  std::unique_ptr<QLockFile> lock_;
  int number_ = 0;  ///< 0: nothing is kept
};

}  // namespace marlinset
