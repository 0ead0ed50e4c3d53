// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include "platform/form_printer.h"

namespace marlinset {

class QueuedDialogs;

/// The printer of a tool without a screen: notes the texts of each page with the boxes. A document is written
/// by the computer's own printer besides, which says so where it can't.
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
