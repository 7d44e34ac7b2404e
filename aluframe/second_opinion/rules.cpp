#include "aluframe/second_opinion/rules.h"

#include <array>

namespace aluframe::second_opinion {

namespace {

constexpr std::array<std::string_view, rule_count> names = {
    "B1", "B8", "C1", "C2", "C3", "C4", "C5",  "C6",  "C7", "F1", "F2",
    "F4", "S2", "S3", "S6", "S8", "S9", "S12", "S14", "W3", "P"};

}  // namespace

std::string_view name_of(Rule rule) {
  return names.at(static_cast<std::size_t>(rule));
}

std::string to_text(RuleSet rules) {
  std::string text;
  for (int i = 0; i < rule_count; ++i) {
    const auto rule = static_cast<Rule>(i);
    if (!rules.contains(rule)) continue;
    if (!text.empty()) text += ", ";
    text += name_of(rule);
  }
  return text;
}

}  // namespace aluframe::second_opinion
