// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <functional>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "platform/form_printer.h"

namespace marlinset {

/// Keeps what is printed. Runs out of paper before form number `failAt` of a job, when that is set.
class FakePrinter : public FormPrinter {
 public:
  struct Job {
    PrintRequest request;
    std::vector<PrintedForm> forms;
    bool finished;
  };
  std::vector<Job> jobs;
  int failAt = -1;
  /// A place to look at the tool while it prints.
  std::function<void()> onPrint;

  std::unique_ptr<PrintJob> Begin(const PrintRequest& request) override {
    jobs.push_back({request, {}, false});
    return std::make_unique<FakeJob>(*this);
  }

 private:
  class FakeJob : public PrintJob {
   public:
    explicit FakeJob(FakePrinter& printer) : printer_(printer) {}
    void PrintForm(const PrintedForm& form) override {
      auto& forms = printer_.jobs.back().forms;
      if (static_cast<int>(forms.size()) == printer_.failAt) throw PrinterError();
      if (printer_.onPrint) printer_.onPrint();
      forms.push_back(form);
    }
    void Finish() override { printer_.jobs.back().finished = true; }

   private:
    FakePrinter& printer_;
  };
};

}  // namespace marlinset
