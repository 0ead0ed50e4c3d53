// SPDX-License-Identifier: GPL-3.0-or-later
#include "gui/qt_form_printer.h"

#include <QPageLayout>
#include <QPrintPreviewDialog>
#include <QPrinter>
#include <QPrinterInfo>
#include <QScreen>

#include "base/runtime_error.h"
#include "gui/widgets/look.h"
#include "gui/widgets/screen_fit.h"
#include "gui/window_in_use.h"

namespace marlinset {
namespace {

/// Collects the forms and paints them when the job is finished, so that a job that fails before wastes no
/// paper.
class QtJob : public PrintJob {
 public:
  QtJob(const PrintRequest& request, const SheetPainter& painter)
      : painter_(painter), printer_(QPrinter::HighResolution) {
    printer_.setDocName(Shown(request.title));
    printer_.setPageLayout(painter_.layout(printer_));
  }
  void PrintForm(const PrintedForm& form) override { forms_.push_back(form); }

 protected:
  QPrinter& Printer() { return printer_; }
  void Paint(QPrinter& printer) const { painter_.paint(printer, forms_); }

 private:
  SheetPainter painter_;
  QPrinter printer_;
  std::vector<PrintedForm> forms_;
};

class PaperJob : public QtJob {
 public:
  using QtJob::QtJob;
  void Finish() override {
    Paint(Printer());
    if (Printer().printerState() == QPrinter::Error) throw PrinterError();
  }
};

class PreviewJob : public QtJob {
 public:
  using QtJob::QtJob;
  void Finish() override {
    QPrintPreviewDialog window(&Printer(), WindowInUse());
    window.setWindowTitle(QStringLiteral("Print preview"));
    bool failed = false;
    // No failure may pass through the window's own loop.
    QObject::connect(&window, &QPrintPreviewDialog::paintRequested, &window, [&](QPrinter* printer) {
      try {
        Paint(*printer);
      } catch (const RuntimeError&) {
        failed = true;
      }
    });
    const QSize natural = RoomForText(window, 120, 48);
    const QSize desk = window.screen()->availableSize();
    window.resize(natural.boundedTo(desk - QSize(0, 3 * window.fontMetrics().height())));  // the title bar
    window.exec();
    if (failed) throw PrinterError();
  }
};

}  // namespace

std::unique_ptr<PrintJob> QtFormPrinter::Begin(const PrintRequest& request) {
  switch (request.target) {
    case PrintTarget::kFile:
      return documents_.Begin(request);
    case PrintTarget::kPreview:
      return std::make_unique<PreviewJob>(request, painter_);
    case PrintTarget::kPrinter:
      break;
  }
  if (QPrinterInfo::defaultPrinter().isNull()) {
    throw PrinterError(
        "There is no default printer. Choose one in the desktop's settings, or use Export as PDF.");
  }
  return std::make_unique<PaperJob>(request, painter_);
}

}  // namespace marlinset
