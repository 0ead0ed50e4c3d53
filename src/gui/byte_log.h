// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <QPlainTextEdit>
#include <cstdint>
#include <optional>
#include <span>
#include <string>

#include "core/frm_start.h"
#include "gui/widgets/binding.h"

namespace marlinset {

/// A frame that leaves for the unit.
using FrameSignal = Signal<std::span<const std::uint8_t>>;

/// The traffic on the line, a line of the log for each change of direction. The control `tInput` holds only
/// received bytes, and few of them; the log shows them as they arrive and keeps them after the control is
/// emptied.
class ByteLog : public QPlainTextEdit {
  Q_OBJECT
 public:
  /// `sent`: null if nobody reports sent frames.
  ByteLog(FrmStart& form, FrameSignal* sent, QWidget* parent);

 private:
  enum class Direction { kNone, kOut, kIn };
  void NoteSent(std::span<const std::uint8_t> frame);
  void NoteReceived();
  void Append(const std::string& bytes);

  const TextBox& received_;
  std::string known_;  ///< what the control held at the last look
  Direction direction_ = Direction::kNone;
  Listening<> listening_;
  std::optional<Listening<std::span<const std::uint8_t>>> sent_;
};

}  // namespace marlinset
