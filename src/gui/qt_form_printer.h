// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <vector>

#include "platform/form_printer.h"

class QPagedPaintDevice;
class QPageLayout;

namespace marlinset {

/// How forms get onto a paged device: the same for printer, preview and document.
struct SheetPainter {
  /// Margins and orientation on the device's own paper.
  QPageLayout (*layout)(const QPagedPaintDevice& device);
  /// One sheet on each page. Throws PrinterError if the device does not take them.
  void (*paint)(QPagedPaintDevice& device, const std::vector<PrintedForm>& forms);
};

/// Prints on the desktop's default printer, shows a preview, and passes documents to another printer.
class QtFormPrinter : public FormPrinter {
 public:
  QtFormPrinter(FormPrinter& documents, const SheetPainter& painter)
      : documents_(documents), painter_(painter) {}
  std::unique_ptr<PrintJob> Begin(const PrintRequest& request) override;

 private:
  FormPrinter& documents_;
  SheetPainter painter_;
};

}  // namespace marlinset
