// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QDir>
#include <QMimeData>
#include <QString>
#include <QUrl>

namespace marlinset {

/// The single configuration file that is being dragged; empty for anything else.
inline QString DraggedConfiguration(const QMimeData& data) {
  const QList<QUrl> urls = data.urls();
  const QString name = urls.size() == 1 ? urls.constFirst().toLocalFile() : QString();
  return name.endsWith(QLatin1String(".qcf"), Qt::CaseInsensitive) ? QDir::toNativeSeparators(name)
                                                                   : QString();
}

}  // namespace marlinset
