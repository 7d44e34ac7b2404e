#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace aluframe::second_opinion {

/// Rules of the checks that are not on the safe side and that the second opinion asks about, by
/// their names in docs/behaviour.md. `between` is none of them: forces peak between two positions.
enum class Rule : std::uint8_t {
  b1,
  b8,
  c1,
  c2,
  c3,
  c4,
  c5,
  c6,
  c7,
  f1,
  f2,
  f4,
  s2,
  s3,
  s6,
  s8,
  s9,
  s12,
  s14,
  w3,
  between,
};

inline constexpr int rule_count = static_cast<int>(Rule::between) + 1;

/// "F1"; "P" of a peak between positions.
std::string_view name_of(Rule rule);

/// Rules that together made a safe ratio what it is.
class RuleSet {
 public:
  constexpr RuleSet() = default;
  constexpr RuleSet(Rule rule) : bits_(bit(rule)) {}

  constexpr bool contains(Rule rule) const { return (bits_ & bit(rule)) != 0; }
  constexpr bool empty() const { return bits_ == 0; }
  constexpr std::uint32_t bits() const { return bits_; }

  friend constexpr RuleSet operator|(RuleSet a, RuleSet b) {
    RuleSet both;
    both.bits_ = a.bits_ | b.bits_;
    return both;
  }
  friend constexpr bool operator==(RuleSet, RuleSet) = default;

 private:
  static constexpr std::uint32_t bit(Rule rule) { return 1U << static_cast<unsigned>(rule); }

  std::uint32_t bits_ = 0;
};

constexpr RuleSet operator|(Rule a, Rule b) {
  return RuleSet(a) | RuleSet(b);
}

/// "C1, S6", in the order of the names; empty for none.
std::string to_text(RuleSet rules);

}  // namespace aluframe::second_opinion
