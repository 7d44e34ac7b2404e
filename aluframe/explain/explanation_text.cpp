#include "aluframe/explain/explanation_text.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <nlohmann/json.hpp>
#include <set>
#include <string_view>
#include <vector>

#include "aluframe/explain/number_text.h"
#include "aluframe/explain/step_words.h"

namespace aluframe::explain {

namespace {

using Json = nlohmann::ordered_json;

/// What stands between the equals signs: "σ", "k·|N| / A", "1·|-50000| / 2500", "20 N/mm²".
std::vector<std::string> sides_of(const Step& step) {
  const NumberLine line = line_of(step);
  std::vector<std::string> sides{step.info.symbol};
  if (step.formula) {
    const std::string symbols = formula(*step.formula);
    sides.push_back(symbols);
    const bool is_alone = step.formula->operation() == Operation::symbol;
    if (!is_alone && line.numbers != symbols) sides.push_back(line.numbers);
  }
  const std::string& unit = step.info.unit;
  sides.push_back(unit.empty() ? line.result : line.result + " " + unit);
  return sides;
}

/// Letters of a text in UTF-8.
std::size_t length_of(std::string_view text) {
  return static_cast<std::size_t>(
      std::ranges::count_if(text, [](char c) { return (c & 0xC0) != 0x80; }));
}

/// In one line, or where that is too long with a line for every equals sign.
std::string calculation(const Step& step, std::size_t indent) {
  constexpr std::size_t longest = 100;
  const std::vector<std::string> sides = sides_of(step);
  std::size_t length = indent;
  for (const std::string& side : sides) length += length_of(side) + 3;
  const std::string gap = length <= longest ? " " : "\n" + std::string(indent + 4, ' ');
  std::string text = std::string(indent, ' ') + sides[0] + " = " + sides[1];
  for (std::size_t i = 2; i < sides.size(); ++i) text += gap + "= " + sides[i];
  return text;
}

/// "axial stability coefficient; the smaller one, about y (GB 50429-2007, 7.2)", in the language in
/// use.
std::string words(const Info& info) {
  const StepWords words = words_of(info);
  std::string text = words.quantity;
  if (!words.why.empty()) text += texts::translated("; ") + words.why;
  if (words.clause.empty()) return text;
  return texts::translated("{} (GB 50429-2007, {})", text, words.clause);
}

void add_step(const Step& step, std::size_t depth, std::set<const Step*>& seen, std::string& text) {
  if (!seen.insert(&step).second) return;
  const std::string indent(2 * depth, ' ');
  text += calculation(step, 2 * depth);
  text += step.formula ? "\n" + indent + "    " : texts::translated(": ");
  text += words(step.info);
  text += "\n";
  for (const StepPointer& source : step.from) add_step(*source, depth + 1, seen, text);
}

Json number_json(double value) {
  if (std::isfinite(value)) return value;
  return number_text(value, result_digits);
}

/// By Operation.
constexpr std::array<const char*, 13> operation_names{
    "number", "constant", "symbol",    "sum",     "difference", "product", "quotient",
    "power",  "root",     "magnitude", "greater", "smaller",    "function"};

Json term_json(const Term& term) {
  Json json = Json::object();
  json["operation"] = operation_names.at(static_cast<std::size_t>(term.operation()));
  if (!term.name().empty()) json["name"] = term.name();
  if (term.operands().empty()) json["value"] = number_json(term.own_value());
  if (term.operation() == Operation::power) json["exponent"] = term.exponent();
  for (const Term& operand : term.operands()) json["operands"].push_back(term_json(operand));
  return json;
}

Json step_json(const Step& step) {
  const NumberLine line = line_of(step);
  Json json = Json::object();
  json["symbol"] = step.info.symbol;
  json["quantity"] = step.info.quantity;
  json["value"] = number_json(step.value);
  json["unit"] = step.info.unit;
  json["clause"] = step.info.clause;
  json["why"] = step.info.why;
  json["formula"] = step.formula ? Json(formula(*step.formula)) : Json();
  json["numbers"] = step.formula ? Json(line.numbers) : Json();
  json["result"] = line.result;
  json["term"] = step.formula ? term_json(*step.formula) : Json();
  json["from"] = Json::array();
  for (const StepPointer& source : step.from) json["from"].push_back(source->info.symbol);
  return json;
}

void add_json(const Step& step, std::set<const Step*>& seen, Json& list) {
  if (!seen.insert(&step).second) return;
  list.push_back(step_json(step));
  for (const StepPointer& source : step.from) add_json(*source, seen, list);
}

}  // namespace

std::string to_text(const StepPointer& root) {
  std::set<const Step*> seen;
  std::string text;
  add_step(*root, 0, seen, text);
  return text;
}

nlohmann::ordered_json to_json(const StepPointer& root) {
  std::set<const Step*> seen;
  Json list = Json::array();
  add_json(*root, seen, list);
  return list;
}

}  // namespace aluframe::explain
