// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <deque>
#include <functional>
#include <string>
#include <string_view>

#include "app/cli/json.h"
#include "platform/dialogs.h"

namespace marlinset {

/// Boxes of a tool without a screen: answered from a queue, and kept as JSON for the next answer line. With
/// an empty queue a box with OK is answered OK and a question No.
class QueuedDialogs : public Dialogs {
 public:
  BoxAnswer Show(const MessageBox& box) override;

  /// Queues "yes", "no", "ok" or "cancel"; false for any other word.
  bool QueueAnswer(std::string_view word);
  /// Called for each box with its answer, for whoever prints them.
  std::function<void(const MessageBox&, BoxAnswer)> onShown;

  /// What came up since the last call, in order.
  Json TakeMessages();

 private:
  BoxAnswer NextAnswer(BoxButtons buttons);

  std::deque<BoxAnswer> answers_;
  Json messages_ = Json::array();
};

}  // namespace marlinset
