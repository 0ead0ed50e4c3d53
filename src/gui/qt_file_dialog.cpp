// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/qt_file_dialog.h"

#include <QApplication>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QStandardPaths>

#include "gui/look.h"
#include "platform/file_system.h"

namespace marlinset {
namespace {

/// "Text files|*.txt" as Qt writes it: "Text files (*.txt)".
QString NameFilter(const std::string& filter) {
  const auto bar = filter.find('|');
  if (bar == std::string::npos) return Shown(filter);
  return Shown(filter.substr(0, bar) + " (" + filter.substr(bar + 1) + ")");
}

bool IsPattern(const std::string& name) {
  return name.find_first_of("*?") != std::string::npos;
}

/// The default configuration of an installation lies where only root writes; one's own begin elsewhere.
QString SavingFolder(const QString& folder) {
  if (folder.isEmpty() || QFileInfo(folder).isWritable()) return folder;
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QFileInfo(documents).isWritable() ? documents : QDir::homePath();
}

}  // namespace

std::optional<std::string> QtFileDialog::AskOpen() {
  QFileDialog window(QApplication::activeWindow());
  window.setFileMode(QFileDialog::ExistingFile);
  return Ask(window, Shown(InitDir));
}

std::optional<std::string> QtFileDialog::AskSave() {
  QFileDialog window(QApplication::activeWindow());
  window.setAcceptMode(QFileDialog::AcceptSave);
  window.setOption(QFileDialog::DontConfirmOverwrite, (Flags & kOverwritePrompt) == 0);
  return Ask(window, SavingFolder(Shown(InitDir)));
}

std::optional<std::string> QtFileDialog::Ask(QFileDialog& window, const QString& folder) const {
  window.setNameFilter(NameFilter(Filter));
  if (!folder.isEmpty()) window.setDirectory(folder);
  const std::string name = FileNameOf(FileName);
  if (!name.empty() && !IsPattern(name)) window.selectFile(Shown(name));
  if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty()) return std::nullopt;
  return QDir::toNativeSeparators(window.selectedFiles().constFirst()).toStdString();
}

}  // namespace marlinset
