// SPDX-License-Identifier: GPL-3.0-or-later
#include "bench/bare_line.h"

#include <fcntl.h>
#include <poll.h>
#include <termios.h>
#include <unistd.h>

#include <array>
#include <stdexcept>

namespace marlinset {

constexpr int kAnswerMs = 1000;

BareLine::BareLine(const std::string& device) : line_(open(device.c_str(), O_RDWR | O_NOCTTY | O_CLOEXEC)) {
  if (line_ < 0) throw std::runtime_error("cannot open " + device);
  termios settings{};
  tcgetattr(line_, &settings);
  cfmakeraw(&settings);
  cfsetspeed(&settings, B57600);
  tcsetattr(line_, TCSANOW, &settings);
}

BareLine::~BareLine() {
  close(line_);
}

std::uint8_t BareLine::Exchange(std::span<const std::uint8_t> message) const {
  if (write(line_, message.data(), message.size()) != static_cast<ssize_t>(message.size()))
    throw std::runtime_error("the line does not take the message");
  pollfd event{line_, POLLIN, 0};
  std::array<std::uint8_t, 64> answer;
  if (poll(&event, 1, kAnswerMs) != 1 || read(line_, answer.data(), answer.size()) < 1)
    throw std::runtime_error("no answer");
  return answer[0];
}

}  // namespace marlinset
