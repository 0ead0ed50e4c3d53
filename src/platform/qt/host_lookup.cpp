// SPDX-License-Identifier: GPL-3.0-or-later
#include "platform/qt/host_lookup.h"

#include <netdb.h>
#include <sys/eventfd.h>
#include <unistd.h>

#include <QString>
#include <atomic>
#include <cstdint>
#include <system_error>
#include <thread>

namespace marlinset {

struct HostLookup::Result {
  Result() = default;
  Result(const Result&) = delete;
  Result& operator=(const Result&) = delete;
  ~Result() { close(signal); }

  std::atomic<bool> done = false;  // what follows is written before, and read after
  std::vector<QHostAddress> addresses;
  int error = 0;
  const int signal = eventfd(0, EFD_CLOEXEC | EFD_NONBLOCK);
};

HostLookup::HostLookup(const std::string& host) : result_(std::make_shared<Result>()) {
  if (const QHostAddress address(QString::fromStdString(host)); !address.isNull()) {
    result_->addresses.push_back(address);
    result_->done = true;
    return;
  }
  wake_ = std::make_unique<QSocketNotifier>(result_->signal, QSocketNotifier::Read);
  QObject::connect(wake_.get(), &QSocketNotifier::activated, wake_.get(),
                   [this] { wake_->setEnabled(false); });
  try {
    std::thread([host, result = result_] { Run(host, result); }).detach();
  } catch (const std::system_error&) {  // no thread is left on this computer
    result_->error = EAI_AGAIN;
    result_->done = true;
  }
}

void HostLookup::Run(const std::string& host, const std::shared_ptr<Result>& result) {
  addrinfo wanted = {};
  wanted.ai_socktype = SOCK_STREAM;
  wanted.ai_flags = AI_ADDRCONFIG;
  addrinfo* found = nullptr;
  result->error = getaddrinfo(host.c_str(), nullptr, &wanted, &found);
  for (const addrinfo* each = found; each; each = each->ai_next)
    result->addresses.emplace_back(each->ai_addr);
  if (found) freeaddrinfo(found);
  result->done = true;
  eventfd_write(result->signal, 1);
}

bool HostLookup::Done() const {
  return result_->done;
}

std::vector<QHostAddress> HostLookup::Addresses() const {
  return result_->addresses;
}

bool HostLookup::Unanswered() const {
  return result_->error == EAI_AGAIN;
}

}  // namespace marlinset
