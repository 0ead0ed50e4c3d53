// SPDX-License-Identifier: GPL-3.0-or-later
#include "cli/unit_process.h"

#include <unistd.h>

#include <array>
#include <cerrno>
#include <cmath>
#include <csignal>
#include <cstring>
#include <sstream>

#include "cli/json.h"

namespace marlinset {
namespace {

std::vector<std::string> LinesOf(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream stream(text);
  for (std::string line; std::getline(stream, line);) lines.push_back(line);
  return lines;
}

/// Takes what the process printed. Returns false if that is not the one line of `send --json`.
bool TakeReport(const std::string& text, UnitResult& result) try {
  const Json report = Json::parse(text);
  result.end = report.at("end").get<std::string>();
  if (!report.at("model").is_null()) result.model = report["model"].get<std::string>();
  report.at("messages").get_to(result.messages);
  report.at("unacknowledged").get_to(result.unacknowledged);
  return true;
} catch (const Json::exception&) {
  return false;
}

std::string WordsFor(const ChildEnd& end) {
  if (end.signal != 0) {
    const char* name = ::sigdescr_np(end.signal);
    return "its process was ended by signal " + std::to_string(end.signal) +
           (name != nullptr ? std::string(" (") + name + ")" : "");
  }
  return "its process ended with exit status " + std::to_string(end.status) + " and without a result";
}

}  // namespace

UnitProcess::UnitProcess(std::size_t unit, const std::vector<std::string>& words)
    : unit_(unit), process_(words) {}

void UnitProcess::Interrupt(int signal) {
  interrupt_ = signal;
  process_.Send(signal);
}

int UnitProcess::DescriptorOf(std::size_t stream) const {
  if (streams_[stream].ended) return -1;
  return (stream == kOutput ? process_.Output() : process_.Errors()).Number();
}

void UnitProcess::Read(std::size_t stream) {
  std::array<char, 4096> block;
  const ssize_t count = ::read(DescriptorOf(stream), block.data(), block.size());
  if (count > 0) streams_[stream].text.append(block.data(), static_cast<std::size_t>(count));
  streams_[stream].ended = count == 0 || (count < 0 && errno != EINTR && errno != EAGAIN);
}

UnitResult UnitProcess::Result(const std::string& name) {
  const ChildEnd end = process_.Wait();
  UnitResult result{.name = name};
  const std::chrono::duration<double> took = std::chrono::steady_clock::now() - start_;
  result.seconds = std::round(took.count() * 100) / 100;
  result.told = LinesOf(streams_[kErrors].text);
  const bool obeyed = interrupt_ != 0 && end.signal == interrupt_;
  const bool crashed = end.signal != 0 && !obeyed;
  if (!crashed && TakeReport(streams_[kOutput].text, result)) return result;
  // Before its send begins, the signal ends the process as it ends any other.
  result.end = obeyed ? "stopped" : "failed";
  if (!obeyed) result.told.push_back(WordsFor(end));
  return result;
}

}  // namespace marlinset
