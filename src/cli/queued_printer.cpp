// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/queued_printer.h"

#include "cli/queued_dialogs.h"

namespace marlinset {
namespace {

class QueuedJob : public PrintJob {
 public:
  explicit QueuedJob(QueuedDialogs& messages) : messages_(messages) {}
  void PrintForm(const PrintedForm& form) override {
    messages_.Note({{"kind", "page"}, {"text", form.Texts()}});
  }
  void Finish() override {}

 private:
  QueuedDialogs& messages_;
};

}  // namespace

std::unique_ptr<PrintJob> QueuedPrinter::Begin(const PrintRequest& request) {
  if (request.target == PrintTarget::kFile) return documents_.Begin(request);
  return std::make_unique<QueuedJob>(messages_);
}

}  // namespace marlinset
