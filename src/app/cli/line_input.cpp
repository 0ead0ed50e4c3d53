// SPDX-License-Identifier: GPL-3.0-or-later
#include "app/cli/line_input.h"

#include <fcntl.h>
#include <poll.h>
#include <unistd.h>

#include <QSocketNotifier>
#include <array>
#include <cerrno>
#include <cstring>
#include <stdexcept>

#include "platform/event_pump.h"

namespace marlinset {
namespace {

constexpr int kForEver = -1;

bool IsReady(int descriptor, int milliseconds = 0) {
  pollfd query{descriptor, POLLIN, 0};
  return ::poll(&query, 1, milliseconds) != 0;
}

}  // namespace

LineInput::LineInput(const std::string& file, EventPump& pump, bool pumpWhileWaiting)
    : pump_(pump),
      pumpWhileWaiting_(pumpWhileWaiting),
      descriptor_(file.empty() ? STDIN_FILENO : ::open(file.c_str(), O_RDONLY | O_CLOEXEC)) {
  if (descriptor_ < 0) throw std::runtime_error(file + ": " + std::strerror(errno));
}

LineInput::~LineInput() {
  if (descriptor_ != STDIN_FILENO) ::close(descriptor_);
}

void LineInput::AwaitInput() {
  if (!pumpWhileWaiting_) {
    IsReady(descriptor_, kForEver);  // whoever made the input may have made it one that does not wait
    return;
  }
  QSocketNotifier notifier(descriptor_, QSocketNotifier::Read);
  while (!IsReady(descriptor_) && !pump_.Ending()) pump_.Pump();
}

bool LineInput::ReadMore() {
  AwaitInput();
  if (pump_.Ending()) return false;
  std::array<char, 4096> block;
  const ssize_t count = ::read(descriptor_, block.data(), block.size());
  if (count < 0 && (errno == EINTR || errno == EAGAIN)) return true;
  if (count < 0) throw std::runtime_error(std::string("the script cannot be read: ") + std::strerror(errno));
  if (count == 0) return false;
  buffer_.append(block.data(), static_cast<std::size_t>(count));
  return true;
}

std::optional<std::string> LineInput::Next() {
  while (!atEnd_ && buffer_.find('\n') == std::string::npos) atEnd_ = !ReadMore();
  if (buffer_.empty() || pump_.Ending()) return std::nullopt;
  const auto end = buffer_.find('\n');
  std::string line = buffer_.substr(0, end);
  buffer_.erase(0, end == std::string::npos ? end : end + 1);
  return line;
}

}  // namespace marlinset
