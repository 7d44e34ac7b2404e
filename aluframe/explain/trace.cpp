#include "aluframe/explain/trace.h"

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>
#include <utility>

#include "aluframe/explain/number_text.h"

namespace aluframe::explain {

namespace {

void add_behind(const StepPointer& step, std::set<const Step*>& seen,
                std::vector<StepPointer>& steps) {
  if (!seen.insert(step.get()).second) return;
  for (const StepPointer& source : step->from) add_behind(source, seen, steps);
  steps.push_back(step);
}

}  // namespace

NumberLine line_of(const Step& step) {
  if (step.formula) return number_line(*step.formula);
  return {"", number_text(step.value, result_digits), result_digits};
}

std::vector<StepPointer> steps_of(const StepPointer& root) {
  std::set<const Step*> seen;
  std::vector<StepPointer> steps;
  add_behind(root, seen, steps);
  return steps;
}

bool agree(double a, double b) {
  if (std::isnan(a) || std::isnan(b)) return std::isnan(a) && std::isnan(b);
  if (a == b || std::isinf(a) || std::isinf(b)) return a == b;
  constexpr double tolerance = 1e-12;
  return std::fabs(a - b) <= tolerance * std::max(std::fabs(a), std::fabs(b));
}

Term Trace::given(const Info& info, double value, const std::vector<std::string>& because) {
  return add({info, value, std::nullopt, {}}, because);
}

Term Trace::define(const Info& info, double value, const Term& formula,
                   const std::vector<std::string>& because) {
  const double own = explain::value(formula);
  if (!agree(own, value)) {
    throw StepMismatch(texts::translated("{}: the checks have {}, {} gives {}", info.symbol, value,
                                         explain::formula(formula), own));
  }
  return add({info, value, formula, {}}, because);
}

Term Trace::part(const Info& info, const Term& formula, const std::vector<std::string>& because) {
  return add({info, explain::value(formula), formula, {}}, because);
}

StepPointer Trace::step(const std::string& symbol) const {
  const auto found = steps_.find(symbol);
  return found == steps_.end() ? nullptr : found->second;
}

Term Trace::add(Step step, const std::vector<std::string>& because) {
  const std::string symbol = step.info.symbol;
  if (const StepPointer known = this->step(symbol)) {
    const bool is_same = known->value == step.value || std::isnan(known->value + step.value);
    if (!is_same) throw StepMismatch(texts::translated("{}: there are two steps of it", symbol));
    return Term::symbol(symbol, known->value);
  }
  std::vector<std::string> sources;
  if (step.formula) sources = symbols_of(*step.formula);
  std::ranges::copy(because, std::back_inserter(sources));
  for (const std::string& source : sources) {
    const auto found = steps_.find(source);
    if (found == steps_.end())
      throw StepMismatch(texts::translated("{}: there is no step of {}", symbol, source));
    if (std::ranges::find(step.from, found->second) == step.from.end())
      step.from.push_back(found->second);
  }
  const double value = step.value;
  steps_.emplace(symbol, std::make_shared<const Step>(std::move(step)));
  return Term::symbol(symbol, value);
}

}  // namespace aluframe::explain
