#include "aluframe/explain/term.h"

#include <algorithm>
#include <cmath>
#include <utility>

#include "aluframe/explain/number_text.h"

namespace aluframe::explain {

struct Term::Node {
  Operation operation = Operation::number;
  std::string name;
  double value = 0.0;
  int exponent = 0;
  Function applied;
  std::vector<Term> operands;
};

Term Term::of(Operation operation, std::vector<Term> operands, int exponent) {
  Term term;
  term.node_ = std::make_shared<const Node>(
      Node{operation, {}, 0.0, exponent, nullptr, std::move(operands)});
  return term;
}

Term Term::number(double value) {
  Term term;
  term.node_ = std::make_shared<const Node>(Node{Operation::number, {}, value, 0, nullptr, {}});
  return term;
}

Term Term::constant(std::string name, double value) {
  Term term;
  term.node_ = std::make_shared<const Node>(
      Node{Operation::constant, std::move(name), value, 0, nullptr, {}});
  return term;
}

Term Term::symbol(std::string name, double value) {
  Term term;
  term.node_ =
      std::make_shared<const Node>(Node{Operation::symbol, std::move(name), value, 0, nullptr, {}});
  return term;
}

Term Term::function(std::string name, Function function, const Term& argument) {
  Term term;
  term.node_ = std::make_shared<const Node>(
      Node{Operation::function, std::move(name), 0.0, 0, std::move(function), {argument}});
  return term;
}

Operation Term::operation() const {
  return node_->operation;
}
const std::string& Term::name() const {
  return node_->name;
}
double Term::own_value() const {
  return node_->value;
}
int Term::exponent() const {
  return node_->exponent;
}
const Term::Function& Term::applied() const {
  return node_->applied;
}
const std::vector<Term>& Term::operands() const {
  return node_->operands;
}

Term operator+(const Term& a, const Term& b) {
  return Term::of(Operation::sum, {a, b});
}
Term operator-(const Term& a, const Term& b) {
  return Term::of(Operation::difference, {a, b});
}
Term operator*(const Term& a, const Term& b) {
  return Term::of(Operation::product, {a, b});
}
Term operator/(const Term& a, const Term& b) {
  return Term::of(Operation::quotient, {a, b});
}
Term power(const Term& base, int exponent) {
  return Term::of(Operation::power, {base}, exponent);
}
Term root(const Term& a) {
  return Term::of(Operation::root, {a});
}
Term magnitude(const Term& a) {
  return Term::of(Operation::magnitude, {a});
}
Term greater(const Term& a, const Term& b) {
  return Term::of(Operation::greater, {a, b});
}
Term smaller(const Term& a, const Term& b) {
  return Term::of(Operation::smaller, {a, b});
}

namespace {

double raised(double base, int exponent) {
  const double square = base * base;
  if (exponent == 2) return square;
  return exponent == 3 ? square * base : square * square;
}

double combined(const Term& term, double a, double b) {
  switch (term.operation()) {
    case Operation::sum:
      return a + b;
    case Operation::difference:
      return a - b;
    case Operation::product:
      return a * b;
    case Operation::quotient:
      return a / b;
    case Operation::greater:
      return a > b || std::isnan(a) ? a : b;
    default:
      return a < b || std::isnan(a) ? a : b;
  }
}

double changed(const Term& term, double a) {
  switch (term.operation()) {
    case Operation::power:
      return raised(a, term.exponent());
    case Operation::root:
      return std::sqrt(a);
    case Operation::magnitude:
      return std::fabs(a);
    default:
      return term.applied()(a);
  }
}

/// @param of_symbol what a symbol is worth
template <class OfSymbol>
double evaluated(const Term& term, const OfSymbol& of_symbol) {
  if (term.operation() == Operation::symbol) return of_symbol(term);
  const std::vector<Term>& operands = term.operands();
  if (operands.empty()) return term.own_value();
  const double first = evaluated(operands[0], of_symbol);
  if (operands.size() == 1) return changed(term, first);
  return combined(term, first, evaluated(operands[1], of_symbol));
}

void add_symbols(const Term& term, std::vector<std::string>& symbols) {
  if (term.operation() == Operation::symbol &&
      std::ranges::find(symbols, term.name()) == symbols.end()) {
    symbols.push_back(term.name());
  }
  for (const Term& operand : term.operands()) add_symbols(operand, symbols);
}

}  // namespace

std::vector<std::string> symbols_of(const Term& term) {
  std::vector<std::string> symbols;
  add_symbols(term, symbols);
  return symbols;
}

double value(const Term& term) {
  return evaluated(term, [](const Term& symbol) { return symbol.own_value(); });
}

double value_of_numbers(const Term& term, int digits) {
  return evaluated(term, [digits](const Term& symbol) {
    const double own = symbol.own_value();
    return std::isfinite(own) ? number_of(number_text(own, digits)) : own;
  });
}

NumberLine number_line(const Term& term) {
  constexpr int fewest = 5;
  constexpr int exact = 17;
  const std::string result = number_text(value(term), result_digits);
  for (int digits = fewest; digits < exact; ++digits) {
    if (number_text(value_of_numbers(term, digits), result_digits) == result) {
      return {numbers(term, digits), result, digits};
    }
  }
  return {numbers(term, exact), result, exact};
}

}  // namespace aluframe::explain
