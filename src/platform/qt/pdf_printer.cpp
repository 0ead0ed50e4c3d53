// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/pdf_printer.h"

#include <QBuffer>
#include <QFontMetricsF>
#include <QGuiApplication>
#include <QLocale>
#include <QPageLayout>
#include <QPageSize>
#include <QPdfWriter>
#include <optional>
#include <span>

#include "base/runtime_error.h"
#include "platform/posix/file_place.h"
#include "platform/posix/file_writer.h"
#include "platform/posix/streams.h"
#include "platform/qt/sheet_painter.h"

namespace marlinset {
namespace {

constexpr int kDotsPerInch = 600;

/// The paper that printers here use, because a document has none of its own.
QPageSize LocalPaper() {
  const bool american = QLocale::system().measurementSystem() == QLocale::ImperialUSSystem;
  return QPageSize(american ? QPageSize::Letter : QPageSize::A4);
}

class PdfJob : public PrintJob {
 public:
  explicit PdfJob(const PrintRequest& request)
      : title_(QString::fromStdString(request.title)), path_(request.file) {
    // Opened first, so that an unwritable place is reported before the work.
    if (!OwnStream(path_)) file_.emplace(path_);
  }
  void PrintForm(const PrintedForm& form) override { forms_.push_back(form); }
  void Finish() override {
    const QByteArray document = Document();
    const std::span bytes(reinterpret_cast<const std::uint8_t*>(document.data()),
                          static_cast<std::size_t>(document.size()));
    if (!file_) {
      WriteStraight(path_, bytes);
      return;
    }
    file_->Write(bytes);
    file_->Commit();
  }

 private:
  QByteArray Document() const {
    QByteArray document;
    QBuffer buffer(&document);
    buffer.open(QIODevice::WriteOnly);
    QPdfWriter writer(&buffer);
    writer.setTitle(title_);
    writer.setCreator(QStringLiteral("marlinset " MARLINSET_VERSION));
    writer.setResolution(kDotsPerInch);
    writer.setPageSize(LocalPaper());
    writer.setPageLayout(RecordLayout(writer));
    PaintForms(writer, forms_);
    return document;
  }
  QString title_;
  std::string path_;
  std::optional<FileWriter> file_;  // none if it writes to an open stream of the program
  std::vector<PrintedForm> forms_;
};

}  // namespace

std::unique_ptr<PrintJob> PdfPrinter::Begin(const PrintRequest& request) {
  if (request.target != PrintTarget::kFile) throw PrinterError();
  if (!qobject_cast<QGuiApplication*>(QCoreApplication::instance())) {
    throw RuntimeError(kErrPrinter, "Printer error: this program has no fonts to print with");
  }
  // Even without fonts Qt has family names, and would print boxes.
  if (!QFontMetricsF(QFont()).inFont(u'A')) {
    throw PrinterError("This computer has no font to print with. Install one, such as fonts-dejavu-core.");
  }
  return std::make_unique<PdfJob>(request);
}

}  // namespace marlinset
