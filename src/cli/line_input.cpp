// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/line_input.h"

#include <unistd.h>

#include <QSocketNotifier>
#include <algorithm>
#include <array>
#include <cerrno>
#include <stdexcept>

#include "cli/script_line.h"
#include "platform/event_pump.h"
#include "platform/posix/descriptor.h"
#include "platform/posix/file_failure.h"
#include "platform/posix/file_place.h"
#include "platform/posix/file_reader.h"

namespace marlinset {
namespace {

std::runtime_error Unreadable(const RuntimeError& failure) {
  return std::runtime_error("the script cannot be read: " + InOneLine(failure));
}

}  // namespace

LineInput::LineInput(const std::string& file, EventPump& pump, bool pumpWhileWaiting) try
    : pump_(pump),
      pumpWhileWaiting_(pumpWhileWaiting),
      stream_(file.empty() ? STDIN_FILENO : OwnStream(file)) {
  if (!stream_) text_ = ReadText(file);
} catch (const RuntimeError& failure) {
  throw Unreadable(failure);
}

void LineInput::AwaitInput() const {
  if (!pumpWhileWaiting_) {
    WaitFor(*stream_, Direction::kIn);
    return;
  }
  QSocketNotifier notifier(*stream_, QSocketNotifier::Read);
  while (!WaitFor(*stream_, Direction::kIn, 0) && !pump_.Ending()) pump_.Pump();
}

/// Replaces the used part by more of the stream. Returns false at the end.
bool LineInput::ReadMore() {
  text_.clear();
  at_ = 0;
  if (!stream_) return false;
  AwaitInput();
  if (pump_.Ending()) return false;
  std::array<char, 4096> block;
  const ssize_t count = ::read(*stream_, block.data(), block.size());
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return true;
  if (count < 0) throw Unreadable(ReadFailure("standard input", errno));
  text_.assign(block.data(), static_cast<std::size_t>(count));
  return count > 0;
}

std::optional<std::string> LineInput::Next() {
  std::string line;
  for (bool more = true; more && !pump_.Ending(); more = ReadMore()) {
    const std::size_t lineBreak = text_.find('\n', at_);
    const std::size_t end = std::min(lineBreak, text_.size());
    line.append(text_, at_, std::min(end - at_, kMostLine + 1 - line.size()));
    at_ = end + 1;
    if (lineBreak != std::string::npos) return line;
  }
  if (line.empty() || pump_.Ending()) return std::nullopt;
  return line;
}

}  // namespace marlinset
