// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/pdf_printer.h"

#include <QFileInfo>
#include <QGuiApplication>
#include <QLocale>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <QSaveFile>

#include "platform/qt/sheet_painter.h"
#include "platform/runtime_error.h"

namespace marlinset {
namespace {

constexpr int kDotsPerInch = 600;

/// The paper in the printers around: a document has none of its own.
QPageSize LocalPaper() {
  const bool american = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  return QPageSize(american ? QPageSize::Letter : QPageSize::A4);
}

class PdfJob : public PrintJob {
 public:
  explicit PdfJob(const PrintRequest& request)
      : title_(QString::fromStdString(request.title)), file_(QString::fromStdString(request.file)) {
    // The finished document is renamed into its place, which would do away with a device or a pipe there.
    const QFileInfo place(file_.fileName());
    if (place.exists() && !place.isFile()) throw NotWritten("this is not a file");
    if (!file_.open(QIODevice::WriteOnly)) throw NotWritten();
  }
  void PrintForm(const PrintedForm& form) override { forms_.push_back(form); }
  void Finish() override {
    QPdfWriter writer(&file_);
    writer.setTitle(title_);
    writer.setCreator(QStringLiteral("marlinset " MARLINSET_VERSION));
    writer.setResolution(kDotsPerInch);
    writer.setPageSize(LocalPaper());
    writer.setPageLayout(RecordLayout(writer));
    PaintForms(writer, forms_);
    if (!file_.commit()) throw NotWritten();
  }

 private:
  RuntimeError NotWritten() const { return NotWritten(file_.errorString().toStdString()); }
  RuntimeError NotWritten(const std::string& why) const {
    return {kErrFileAccess, "Path/File access error: " + file_.fileName().toStdString() + ": " + why};
  }
  QString title_;
  QSaveFile file_;
  std::vector<PrintedForm> forms_;
};

}  // namespace

std::unique_ptr<PrintJob> PdfPrinter::Begin(const PrintRequest& request) {
  if (request.target != PrintTarget::kFile) throw PrinterError();
  if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
    throw RuntimeError(kErrPrinter, "Printer error: this program has no fonts to print with");
  }
  return std::make_unique<PdfJob>(request);
}

}  // namespace marlinset
