// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QHostAddress>
#include <QSocketNotifier>
#include <memory>
#include <string>
#include <vector>

namespace marlinset {

/// Looks up the addresses of a host. A name server may take half a minute, and the system's resolver cannot
/// be interrupted; so it runs in a thread of its own that nobody ever waits for, not even at the end of the
/// program. The end of a lookup wakes Qt's loop. An address in numbers is there at once.
class HostLookup {
 public:
  explicit HostLookup(const std::string& host);

  bool Done() const;
  /// Once done: the addresses, in the order in which the system recommends them; empty if there is none.
  std::vector<QHostAddress> Addresses() const;
  /// Once done: whether no name server has answered.
  bool Unanswered() const;

 private:
  struct Result;
  static void Run(const std::string& host, const std::shared_ptr<Result>& result);

  std::shared_ptr<Result> result_;  ///< shared with the thread
  std::unique_ptr<QSocketNotifier> wake_;
};

}  // namespace marlinset
