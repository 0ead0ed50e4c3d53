// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/form_printer.h"

namespace marlinset {

/// Prints on the desktop's default printer, shows a preview, and hands documents to another printer.
class QtFormPrinter : public FormPrinter {
 public:
  explicit QtFormPrinter(FormPrinter& documents) : documents_(documents) {}
  std::unique_ptr<PrintJob> Begin(const PrintRequest& request) override;

 private:
  FormPrinter& documents_;
};

}  // namespace marlinset
