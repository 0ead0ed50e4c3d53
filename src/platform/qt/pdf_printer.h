// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/form_printer.h"

namespace marlinset {

/// Prints into PDF documents, on A4 paper, or Letter where the locale measures in inches. A document is
/// written whole or not at all; what stood in its place stays until then. Needs a QGuiApplication, on any
/// screen or none; without one, and for other targets, failure 482. In place of a device or a pipe:
/// failure 75.
class PdfPrinter : public FormPrinter {
 public:
  std::unique_ptr<PrintJob> Begin(const PrintRequest& request) override;
};

}  // namespace marlinset
