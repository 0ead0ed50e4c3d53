// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/form_printer.h"

namespace marlinset {

/// Prints into PDF documents, on A4 paper, or Letter if the locale measures in inches. It writes a document
/// completely or not at all; an old file stays until then. Needs a QGuiApplication, on any screen or none,
/// and a font; without them, and for other targets, throws PrinterError. Throws kErrFileAccess or
/// kErrDiskFull if it cannot write the file.
class PdfPrinter : public FormPrinter {
 public:
  std::unique_ptr<PrintJob> Begin(const PrintRequest& request) override;
};

}  // namespace marlinset
