#pragma once

#include <rapidcheck.h>

#include <array>
#include <cstddef>
#include <initializer_list>
#include <optional>
#include <vector>

/// Random values of which random models are made. To be called inside a property only.
namespace aluframe::io {

template <class Value>
Value any_of(std::initializer_list<Value> values) {
  return *rc::gen::elementOf(std::vector<Value>(values));
}

/// A number with many digits, from a range.
inline double any_between(double low, double high) {
  constexpr int steps = 1'000'000'007;
  return low + (high - low) * *rc::gen::inRange(0, steps + 1) / steps;
}

inline bool any_flag() {
  return *rc::gen::arbitrary<bool>();
}

template <class Make>
auto any_optional(Make make) {
  return any_flag() ? std::optional(make()) : std::nullopt;
}

template <std::size_t Size>
std::array<bool, Size> any_flags() {
  std::array<bool, Size> flags{};
  for (bool& flag : flags) flag = any_flag();
  return flags;
}

}  // namespace aluframe::io
