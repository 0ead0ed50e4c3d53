// SPDX-License-Identifier: GPL-3.0-or-later
#pragma once

#include <initializer_list>
#include <map>
#include <memory>
#include <string>
#include <vector>

#include "base/runtime_error.h"
#include "controls/control.h"

namespace marlinset {

/// Controls of one kind under one name, distinguished by an index that may have gaps. One handler serves all
/// and gets the index. Elements can be loaded and unloaded at run time; a loaded element is hidden at first.
template <class T>
class ControlArray : public EventSource {
 public:
  ControlArray(Form& form, std::string name, std::initializer_list<int> indices)
      : EventSource(std::make_shared<ControlEvents>()), form_(form), name_(std::move(name)) {
    for (const int index : indices) Make(index);
  }
  ControlArray(const ControlArray&) = delete;
  ControlArray& operator=(const ControlArray&) = delete;

  const std::string& Name() const { return name_; }
  bool Has(int index) const { return elements_.contains(index); }
  /// Throws NoSuchElement for an index without an element.
  T& operator()(int index) const {
    const auto found = elements_.find(index);
    if (found == elements_.end()) throw NoSuchElement(index);
    return *found->second;
  }
  /// Highest index; throws NoSuchElement if the array is empty.
  int UBound() const {
    if (elements_.empty()) throw NoSuchElement(0);
    return elements_.rbegin()->first;
  }
  std::vector<int> Indices() const {
    std::vector<int> all;
    for (const auto& [index, element] : elements_) all.push_back(index);
    return all;
  }

  /// Adds an element, hidden. Throws kErrElementLoaded if it exists already.
  T& Load(int index) {
    if (Has(index)) throw RuntimeError(kErrElementLoaded, "Object already loaded");
    T& element = Make(index);
    element.SetVisible(false);
    Loaded.Emit(index);
    return element;
  }
  /// Removes an element. Throws NoSuchElement if there is none.
  void Unload(int index) {
    if (!Has(index)) throw NoSuchElement(index);
    Unloading.Emit(index);
    elements_.erase(index);
  }

  /// For a screen: an element was added; an element is about to go.
  Signal<int> Loaded;
  Signal<int> Unloading;

 private:
  T& Make(int index) {
    return *elements_.emplace(index, std::make_unique<T>(form_, name_, index, Events())).first->second;
  }
  Form& form_;
  std::string name_;
  std::map<int, std::unique_ptr<T>> elements_;
};

}  // namespace marlinset
