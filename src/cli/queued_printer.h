// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/form_printer.h"

namespace marlinset {

class QueuedDialogs;

/// The printer of a tool without a screen: records the texts of each page with the boxes. The computer's own
/// printer also writes documents, and reports when it can't.
class QueuedPrinter : public FormPrinter {
 public:
  QueuedPrinter(QueuedDialogs& messages, FormPrinter& documents)
      : messages_(messages), documents_(documents) {}
  std::unique_ptr<PrintJob> Begin(const PrintRequest& request) override;

 private:
  QueuedDialogs& messages_;
  FormPrinter& documents_;
};

}  // namespace marlinset
