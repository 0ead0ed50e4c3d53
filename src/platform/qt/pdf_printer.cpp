// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/pdf_printer.h"

#include <QGuiApplication>
#include <QPageLayout>
#include <QPdfWriter>
#include <QSaveFile>

#include "platform/qt/sheet_painter.h"
#include "platform/runtime_error.h"

namespace marlinset {
namespace {

constexpr int kDotsPerInch = 600;

class PdfJob : public PrintJob {
 public:
  explicit PdfJob(const PrintRequest& request)
      : title_(QString::fromStdString(request.title)), file_(QString::fromStdString(request.file)) {
    if (!file_.open(QIODevice::WriteOnly)) throw NotWritten();
  }
  void PrintForm(const PrintedForm& form) override { forms_.push_back(form); }
  void Finish() override {
    QPdfWriter writer(&file_);
    writer.setTitle(title_);
    writer.setCreator(QStringLiteral("marlinset " MARLINSET_VERSION));
    writer.setResolution(kDotsPerInch);
    writer.setPageLayout(RecordLayout(writer));
    PaintForms(writer, forms_);
    if (!file_.commit()) throw NotWritten();
  }

 private:
  RuntimeError NotWritten() const {
    return {kErrFileAccess, "Path/File access error: " + file_.fileName().toStdString() + ": " +
                                file_.errorString().toStdString()};
  }
  QString title_;
  QSaveFile file_;
  std::vector<PrintedForm> forms_;
};

}  // namespace

std::unique_ptr<PrintJob> PdfPrinter::Begin(const PrintRequest& request) {
  if (request.target != PrintTarget::kFile) throw RuntimeError(kErrPrinter, "Printer error");
  if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
    throw RuntimeError(kErrPrinter, "Printer error: this program has no fonts to print with");
  }
  return std::make_unique<PdfJob>(request);
}

}  // namespace marlinset
