// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/form_printer.h"

namespace marlinset {

/// Prints into PDF documents, on A4 paper, or Letter where the locale measures in inches. A document is
/// written whole or not at all; what stood in its place stays until then. Needs a QGuiApplication, on any
/// screen or none, and a font; without them, and for other targets, failure 482. Where no file can be
/// written, failure 75 or 61.
class PdfPrinter : public FormPrinter {
 public:
  std::unique_ptr<PrintJob> Begin(const PrintRequest& request) override;
};

}  // namespace marlinset
