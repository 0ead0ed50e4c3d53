// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QString>
#include <QStringList>

namespace marlinset {

/// What a row of the parameter list is found by.
struct ParameterTexts {
  QString classNumber;
  QString parameter;
  QString description;
  QString value;  ///< as shown
};

/// What the operator types to find parameters: words that a row has to match, each on its own. "2.7" is a
/// class and a number, "2." all of a class. Other words match a class, a number, any part of the
/// description, or what the value begins with, without regard to case.
class ParameterFilter {
 public:
  ParameterFilter() = default;
  explicit ParameterFilter(const QString& text);
  bool Matches(const ParameterTexts& row) const;
  bool operator==(const ParameterFilter&) const = default;

 private:
  QStringList words_;
};

}  // namespace marlinset
