// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/qt_file_dialog.h"

#include <QAbstractItemView>
#include <QDir>
#include <QFileDialog>
#include <QFileInfo>
#include <QLineEdit>
#include <QStandardPaths>
#include <QTimer>

#include "gui/widgets/look.h"
#include "gui/window_in_use.h"
#include "platform/file_system.h"

namespace marlinset {
namespace {

/// "Text files|*.txt" as Qt writes it: "Text files (*.txt)".
QString NameFilter(const std::string& filter) {
  const auto bar = filter.find('|');
  if (bar == std::string::npos) return Shown(filter);
  return Shown(filter.substr(0, bar) + " (" + filter.substr(bar + 1) + ")");
}

/// "txt" of "Text files|*.txt".
QString Extension(const std::string& filter) {
  const auto dot = filter.rfind('.');
  return dot == std::string::npos ? QString() : Shown(filter.substr(dot + 1));
}

bool IsPattern(const std::string& name) {
  return name.find_first_of("*?") != std::string::npos;
}

/// An installation's default configuration lies where only root can write; the user's files begin elsewhere.
QString SavingFolder(const QString& folder) {
  if (folder.isEmpty() || QFileInfo(folder).isWritable()) return folder;
  const QString documents = QStandardPaths::writableLocation(QStandardPaths::DocumentsLocation);
  return QFileInfo(documents).isWritable() ? documents : QDir::homePath();
}

QLineEdit* NameField(const QFileDialog& window) {
  return window.findChild<QLineEdit*>(QStringLiteral("fileNameEdit"));
}

/// With `completes`, completes the name before the toolkit asks whether to replace that file. The toolkit
/// itself does so only for a name without any extension. The desktop's own dialogs have no name field here.
class SaveDialog : public QFileDialog {
 public:
  SaveDialog(QWidget* parent, bool completes) : QFileDialog(parent), completes_(completes) {}

 protected:
  void accept() override {
    if (completes_) CompleteName();
    QFileDialog::accept();
  }

 private:
  void CompleteName() {
    QLineEdit* const name = NameField(*this);
    const QString extension = QLatin1Char('.') + defaultSuffix();
    const QStringList files = selectedFiles();
    if (name && files.size() == 1 && !files.constFirst().endsWith(extension, Qt::CaseInsensitive) &&
        !QFileInfo(files.constFirst()).isDir()) {
      // What is selected in the list would count before the name.
      for (auto* list : findChildren<QAbstractItemView*>()) list->clearSelection();
      name->setText(name->text() + extension);
    }
  }

  bool completes_;
};

/// A name typed over the proposed one keeps its extension. The desktop's own dialogs do that
/// themselves.
void SelectStem(QFileDialog& window) {
  QTimer::singleShot(0, &window, [&window] {
    QLineEdit* const name = NameField(window);
    if (name) name->setSelection(0, static_cast<int>(name->text().lastIndexOf(QLatin1Char('.'))));
  });
}

}  // namespace

std::optional<std::string> QtFileDialog::AskOpen() {
  QFileDialog window(WindowInUse());
  window.setFileMode(QFileDialog::ExistingFile);
  window.setOption(QFileDialog::ReadOnly);  // opening is no occasion to delete or rename a setup
  return Ask(window, Shown(InitDir));
}

std::optional<std::string> QtFileDialog::AskSave() {
  SaveDialog window(WindowInUse(), (Flags & kNeedsExtension) != 0);
  window.setAcceptMode(QFileDialog::AcceptSave);
  window.setOption(QFileDialog::DontConfirmOverwrite, (Flags & kOverwritePrompt) == 0);
  window.setDefaultSuffix(Extension(Filter));
  SelectStem(window);
  return Ask(window, SavingFolder(Shown(InitDir)));
}

std::optional<std::string> QtFileDialog::Ask(QFileDialog& window, const QString& folder) const {
  if (!DialogTitle.empty()) window.setWindowTitle(Shown(DialogTitle));
  window.setNameFilter(NameFilter(Filter));
  const std::string name = FileNameOf(FileName);
  const QString own = QFileInfo(Shown(FileName)).path();
  // A name with a folder is meant for that folder.
  const QString first = name != FileName && QFileInfo(own).isDir() ? own : folder;
  if (!first.isEmpty()) window.setDirectory(first);
  if (!name.empty() && !IsPattern(name)) window.selectFile(Shown(name));
  if (window.exec() != QDialog::Accepted || window.selectedFiles().isEmpty()) return std::nullopt;
  return QDir::toNativeSeparators(window.selectedFiles().constFirst()).toStdString();
}

}  // namespace marlinset
