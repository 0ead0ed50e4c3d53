// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/outside_ends.h"

#include <fcntl.h>
#include <unistd.h>

#include <QEvent>
#include <QGuiApplication>
#include <array>
#include <cerrno>
#include <csignal>
#include <cstdio>
#include <cstdlib>
#include <utility>

#include "platform/posix/end_signals.h"

namespace marlinset {
namespace {

/// A signal handler may do almost nothing: it writes the number, and the event loop reads it.
std::array<int, 2> pipeEnds{-1, -1};
OutsideEnds* listening = nullptr;

void Note(int number) {
  const int error = errno;
  const auto byte = static_cast<char>(number);
  (void)!::write(pipeEnds[1], &byte, 1);
  errno = error;
}

void Handle(int number, void (*handler)(int)) {
  struct sigaction present = {};
  ::sigaction(number, nullptr, &present);
  if (present.sa_handler == SIG_IGN) return;
  struct sigaction action = {};
  action.sa_handler = handler;
  action.sa_flags = static_cast<int>(SA_RESETHAND | SA_RESTART);
  ::sigaction(number, &action, nullptr);
}

}  // namespace

OutsideEnds::OutsideEnds(Duties duties) : duties_(std::move(duties)) {
  listening = this;
  Listen();
  WatchSession();
  static const int registered = ::on_exit(LeaveOnExit, nullptr);
  (void)registered;
}

OutsideEnds::~OutsideEnds() {
  listening = nullptr;
  if (pipeEnds[0] < 0) return;
  for (const int number : kEndSignals) Handle(number, SIG_DFL);
  notifier_.reset();
  for (int& end : pipeEnds) ::close(std::exchange(end, -1));
}

/// exit() would destroy static objects while the rest of the program still uses them, so it ends
/// here.
void OutsideEnds::LeaveOnExit(int status, void* /*unused*/) {
  if (listening == nullptr) return;
  listening->Leave();
  std::fflush(nullptr);
  std::_Exit(status);
}

/// Without a pipe, signals end the program as they end any other.
void OutsideEnds::Listen() {
  if (::pipe2(pipeEnds.data(), O_CLOEXEC | O_NONBLOCK) != 0) return;
  notifier_ = std::make_unique<QSocketNotifier>(pipeEnds[0], QSocketNotifier::Read);
  connect(notifier_.get(), &QSocketNotifier::activated, this, [this] { EndBySignal(); });
  for (const int number : kEndSignals) Handle(number, Note);
}

void OutsideEnds::WatchSession() {
  QCoreApplication::instance()->installEventFilter(this);
  const auto* application = qobject_cast<QGuiApplication*>(QCoreApplication::instance());
  if (application == nullptr) return;
  connect(
      application, &QGuiApplication::commitDataRequest, this, [this] { duties_.keep(); },
      Qt::DirectConnection);
}

/// The session manager's last word, with or without a request to save before. Qt would close the window,
/// which asks questions.
bool OutsideEnds::eventFilter(QObject* /*watched*/, QEvent* event) {
  if (event->type() == QEvent::Quit && !duties_.over()) {
    Leave();
    std::_Exit(0);
  }
  return false;
}

void OutsideEnds::EndBySignal() {
  char number = 0;
  if (::read(pipeEnds[0], &number, 1) != 1) return;
  Leave();
  ::signal(number, SIG_DFL);
  ::raise(number);
}

void OutsideEnds::Leave() noexcept {
  listening = nullptr;
  try {
    std::exchange(duties_.leave, [] {})();
  } catch (...) {
    // There is nobody left to tell.
  }
}

}  // namespace marlinset
