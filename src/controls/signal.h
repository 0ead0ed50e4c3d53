// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <utility>
#include <vector>

namespace marlinset {

/// A list of listeners, called in the order in which they were connected. A listener may connect or
/// disconnect listeners, even itself, while it is being called; the change takes effect with the next Emit.
template <class... Args>
class Signal {
 public:
  using Listener = std::function<void(Args...)>;
  using Id = std::uint64_t;

  Id Connect(Listener listener) {
    entries_.push_back({++lastId_, std::make_shared<Listener>(std::move(listener))});
    return lastId_;
  }
  void Disconnect(Id id) {
    std::erase_if(entries_, [id](const Entry& entry) { return entry.id == id; });
  }
  void Emit(Args... args) const {
    if (entries_.empty()) return;
    const std::vector<Entry> present = entries_;
    for (const Entry& entry : present) (*entry.listener)(args...);
  }

 private:
  struct Entry {
    Id id;
    std::shared_ptr<Listener> listener;
  };
  std::vector<Entry> entries_;
  Id lastId_ = 0;
};

/// Listens to a signal during its own lifetime; the signal must outlive it.
template <class... Args>
class Listening {
 public:
  Listening(Signal<Args...>& signal, typename Signal<Args...>::Listener listener)
      : signal_(&signal), id_(signal.Connect(std::move(listener))) {}
  ~Listening() {
    if (signal_) signal_->Disconnect(id_);
  }
  Listening(Listening&& other) noexcept : signal_(std::exchange(other.signal_, nullptr)), id_(other.id_) {}
  Listening& operator=(Listening&& other) noexcept {
    std::swap(signal_, other.signal_);
    std::swap(id_, other.id_);
    return *this;
  }
  Listening(const Listening&) = delete;
  Listening& operator=(const Listening&) = delete;

 private:
  Signal<Args...>* signal_;
  typename Signal<Args...>::Id id_;
};

}  // namespace marlinset
