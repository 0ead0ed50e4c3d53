// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/rack_run.h"

#include <poll.h>
#include <sys/signalfd.h>
#include <unistd.h>

#include <csignal>
#include <memory>
#include <system_error>

#include "cli/unit_process.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/end_signals.h"

namespace marlinset {
namespace {

/// A descriptor that delivers the signals that ask this program to end. One that was ignored at the start
/// (nohup) stays ignored.
Descriptor EndSignals() {
  sigset_t ending;
  ::sigemptyset(&ending);
  for (const int number : kEndSignals) {
    struct sigaction present = {};
    ::sigaction(number, nullptr, &present);
    if (present.sa_handler != SIG_IGN) ::sigaddset(&ending, number);
  }
  ::sigprocmask(SIG_BLOCK, &ending, nullptr);
  return Descriptor(::signalfd(-1, &ending, SFD_CLOEXEC));
}

/// Starts the processes, reads what they print, and passes the first signal on.
class RackRun {
 public:
  RackRun(const std::vector<RackUnit>& units, const RackOrders& orders)
      : units_(units), orders_(orders), signals_(EndSignals()), results_(units.size()) {}

  std::vector<UnitResult> Run() {
    for (;;) {
      while (next_ < units_.size() && (interrupts_ > 0 || running_.size() < orders_.jobs)) Start(next_++);
      if (running_.empty()) return std::move(results_);
      Wait();
    }
  }

 private:
  void Start(std::size_t unit) {
    const std::string& name = units_[unit].name;
    if (interrupts_ > 0) return End(unit, {.name = name, .end = "stopped"});
    try {
      running_.push_back(std::make_unique<UnitProcess>(unit, orders_.words(units_[unit])));
    } catch (const std::system_error& failure) {
      End(unit, {.name = name, .told = {std::string("its process cannot be started: ") + failure.what()}});
    }
  }

  void End(std::size_t unit, UnitResult result) {
    results_[unit] = std::move(result);
    orders_.ended(results_[unit]);
  }

  /// Waits until there is something to read and reads it.
  void Wait() {
    std::vector<pollfd> events{{signals_.Number(), POLLIN, 0}};
    for (const auto& process : running_) {
      for (std::size_t stream = 0; stream < UnitProcess::kStreams; ++stream)
        events.push_back({process->DescriptorOf(stream), POLLIN, 0});
    }
    if (::poll(events.data(), events.size(), -1) <= 0) return;
    if (events[0].revents != 0) Interrupt();
    for (std::size_t i = 1; i < events.size(); ++i) {
      if (events[i].revents == 0) continue;
      running_[(i - 1) / UnitProcess::kStreams]->Read((i - 1) % UnitProcess::kStreams);
    }
    TakeEnded();
  }

  void Interrupt() {
    signalfd_siginfo signal{};
    if (::read(signals_.Number(), &signal, sizeof(signal)) != sizeof(signal)) return;
    orders_.interrupted(++interrupts_);
    if (interrupts_ > 1) return;
    for (const auto& process : running_) process->Interrupt(static_cast<int>(signal.ssi_signo));
  }

  void TakeEnded() {
    for (std::size_t i = running_.size(); i-- > 0;) {
      if (!running_[i]->Ended()) continue;
      const std::size_t unit = running_[i]->Unit();
      UnitResult result = running_[i]->Result(units_[unit].name);
      running_.erase(running_.begin() + static_cast<std::ptrdiff_t>(i));
      End(unit, std::move(result));
    }
  }

  const std::vector<RackUnit>& units_;
  const RackOrders& orders_;
  Descriptor signals_;
  std::vector<UnitResult> results_;
  std::vector<std::unique_ptr<UnitProcess>> running_;
  std::size_t next_ = 0;
  int interrupts_ = 0;
};

}  // namespace

std::vector<UnitResult> RunUnits(const std::vector<RackUnit>& units, const RackOrders& orders) {
  return RackRun(units, orders).Run();
}

}  // namespace marlinset
