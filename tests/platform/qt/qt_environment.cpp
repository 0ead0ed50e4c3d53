// SPDX-License-Identifier: GPL-3.0-or-later
#include "tests/platform/qt/qt_environment.h"

#include <gtest/gtest.h>

#include <QCoreApplication>
#include <optional>

namespace marlinset {
namespace {

/// Qt's loop and timers work only while a QCoreApplication lives.
class QtEnvironment : public testing::Environment {
 public:
  void SetUp() override { application_.emplace(argc_, argv_); }
  void TearDown() override { application_.reset(); }

 private:
  int argc_ = 1;
  char name_[5] = "test";
  char* argv_[2] = {name_, nullptr};
  std::optional<QCoreApplication> application_;
};

[[maybe_unused]] const auto* const kQt = testing::AddGlobalTestEnvironment(new QtEnvironment);

}  // namespace
}  // namespace marlinset
