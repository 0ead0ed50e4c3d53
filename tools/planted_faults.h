// SPDX-License-Identifier: GPL-3.0-or-later
// What tools/plant-faults inserts into the code: each place asks whether its fault is switched on.
#pragma once

#include <cstdio>
#include <cstdlib>
#include <set>
#include <type_traits>

namespace planted {

/// The fault whose number the environment variable FAULT gives. At the end, writes the numbers of all places
/// that ran to the file named by FAULTS_REACHED.
class Faults {
 public:
  static Faults& Get() {
    static Faults faults;
    return faults;
  }
  bool Pass(int number) {
    if (reachedFile_) reached_.insert(number);
    return number == chosen_;
  }
  ~Faults() {
    FILE* file = reachedFile_ ? std::fopen(reachedFile_, "a") : nullptr;
    if (!file) return;
    for (const int number : reached_) std::fprintf(file, "%d\n", number);
    std::fclose(file);
  }

 private:
  int chosen_ = std::getenv("FAULT") ? std::atoi(std::getenv("FAULT")) : 0;
  const char* reachedFile_ = std::getenv("FAULTS_REACHED");
  std::set<int> reached_;
};

constexpr bool On(int number) {
  return !std::is_constant_evaluated() && Faults::Get().Pass(number);
}

constexpr bool Not(int number, bool value) {
  return On(number) ? !value : value;
}

/// Adds one to an integer; doubles a time.
template <class V>
constexpr V Value(int number, V value) {
  if (!On(number)) return value;
  if constexpr (std::is_integral_v<V>) {
    return static_cast<V>(value + 1);
  } else {
    return value * 2;
  }
}

/// For tables, which the compiler must not evaluate in advance.
template <class V>
V Entry(int number, V value) {
  return Value(number, value);
}

#define PLANTED_OPERATOR(NAME, RIGHT, WRONG)                \
  template <class A, class B>                               \
  constexpr auto NAME(int number, const A& a, const B& b) { \
    return On(number) ? a WRONG b : a RIGHT b;              \
  }
PLANTED_OPERATOR(Less, <, <=)
PLANTED_OPERATOR(LessEqual, <=, <)
PLANTED_OPERATOR(Greater, >, >=)
PLANTED_OPERATOR(GreaterEqual, >=, >)
PLANTED_OPERATOR(Equal, ==, !=)
PLANTED_OPERATOR(Unequal, !=, ==)
PLANTED_OPERATOR(And, &, |)
PLANTED_OPERATOR(Or, |, &)
PLANTED_OPERATOR(ShiftLeft, <<, >>)
PLANTED_OPERATOR(ShiftRight, >>, <<)
#undef PLANTED_OPERATOR

/// Pointers move by one place; numbers change sign.
template <class A, class B>
constexpr auto Plus(int number, const A& a, const B& b) {
  if constexpr (std::is_pointer_v<A>) {
    return On(number) ? a + (b + 1) : a + b;
  } else {
    return On(number) ? a - b : a + b;
  }
}
template <class A, class B>
constexpr auto Minus(int number, const A& a, const B& b) {
  if constexpr (std::is_pointer_v<A>) {
    return On(number) ? a - b + 1 : a - b;
  } else {
    return On(number) ? a + b : a - b;
  }
}

}  // namespace planted
