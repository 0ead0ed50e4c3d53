// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace marlinset {

/// Ends a program from outside, when it can ask nobody anything: SIGINT, SIGTERM and SIGHUP, a lost display
/// (Qt calls exit() then), and the end of the user's session. These also arrive while a box or a file dialog
/// is open and while the tool waits for the unit; all they need is an event loop.
///
/// A signal ends the program by that signal, so that the exit status shows it to whoever started the program.
/// A signal that was ignored at the start (nohup) stays ignored; a second one ends the program at once, as if
/// nobody listened. A program has one such object at a time; it needs Qt's application object.
class OutsideEnds : public QObject {
 public:
  struct Duties {
    /// The session may end, but it may also go on; questions to the user would hold it up.
    std::function<void()> keep = [] {};
    /// Runs once; the program ends when this returns.
    std::function<void()> leave;
    /// Whether the operator has already ended the program; then nothing counts as an end from outside.
    std::function<bool()> over = [] { return false; };
  };
  explicit OutsideEnds(Duties duties);
  ~OutsideEnds() override;

 protected:
  bool eventFilter(QObject* watched, QEvent* event) override;

 private:
  void Listen();
  void WatchSession();
  void EndBySignal();
  static void LeaveOnExit(int status, void* unused);
  void Leave() noexcept;

  Duties duties_;
  std::unique_ptr<QSocketNotifier> notifier_;
};

}  // namespace marlinset
