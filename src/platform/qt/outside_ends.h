// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QObject>
#include <QSocketNotifier>
#include <functional>
#include <memory>

namespace marlinset {

/// Ends of a program that come from outside, when nobody can be asked anything: SIGINT, SIGTERM and SIGHUP,
/// a display that is lost (Qt calls exit() then), and the end of the user's session. They also come while a
/// box or a file dialog stands and while the tool waits for the unit: all that is needed is an event loop.
///
/// A signal ends the program by that signal, so that whoever started it sees it in the exit status. A signal
/// that was ignored when the program was started (nohup) stays ignored, and the second one ends the program
/// at once, as if nobody listened. One object of a program at a time; it needs Qt's application object.
class OutsideEnds : public QObject {
 public:
  struct Duties {
    /// The session may end. It may also go on, and questions to the user would hold it up.
    std::function<void()> keep = [] {};
    /// The program ends when this returns. Runs once.
    std::function<void()> leave;
    /// The program has been ended by its operator: what comes now is no end from outside.
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
