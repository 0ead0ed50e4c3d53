// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QIcon>
#include <QStyle>
#include <QWidget>

#include "gui/widgets/icons.h"
#include "picture/remarks.h"

namespace marlinset {

/// The side of a remark's sign in this widget, in pixels.
inline int RemarkIconSize(const QWidget& widget) {
  return widget.style()->pixelMetric(QStyle::PM_SmallIconSize);
}

/// The sign that a remark of this severity begins with, in the widget's colours.
inline QIcon RemarkIcon(Severity severity, const QWidget& widget) {
  return SignIcon(severity == Severity::kWarning ? Sign::kWarning : Sign::kNote, RemarkIconSize(widget),
                  widget.palette());
}

}  // namespace marlinset
