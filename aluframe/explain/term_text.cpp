// How formulas are written in a line.

#include <array>
#include <string>

#include "aluframe/explain/number_text.h"
#include "aluframe/explain/term.h"

namespace aluframe::explain {

namespace {

/// What binds a written part together, from the loosest to the tightest.
enum class Bond { sum, sign, quotient, product, power, whole };

struct Written {
  std::string text;
  Bond bond = Bond::whole;
};

Written of_number(std::string text) {
  const bool is_negative = text.starts_with('-');
  const bool has_exponent = text.find('e') != std::string::npos;
  const Bond bond = is_negative ? Bond::sign : has_exponent ? Bond::power : Bond::whole;
  return {std::move(text), bond};
}

std::string bracketed(const Written& part, bool is_needed) {
  return is_needed ? "(" + part.text + ")" : part.text;
}

template <class OfSymbol>
class Writer {
 public:
  explicit Writer(const OfSymbol& of_symbol) : of_symbol_(of_symbol) {}

  Written write(const Term& term) const {
    switch (term.operation()) {
      case Operation::number:
        return of_number(exact_text(term.own_value()));
      case Operation::constant:
        return {term.name(), Bond::power};
      case Operation::symbol:
        return of_symbol_(term);
      default:
        return term.operands().size() == 1 ? write_one(term) : write_two(term);
    }
  }

 private:
  Written write_one(const Term& term) const {
    static constexpr std::array<const char*, 3> exponents{"²", "³", "⁴"};
    const Written inner = write(term.operands()[0]);
    switch (term.operation()) {
      case Operation::power:
        return {bracketed(inner, inner.bond != Bond::whole) +
                    exponents.at(static_cast<std::size_t>(term.exponent() - 2)),
                Bond::power};
      case Operation::root:
        return {"√(" + inner.text + ")"};
      case Operation::magnitude:
        return {"|" + inner.text + "|"};
      default:
        return {term.name() + "(" + inner.text + ")"};
    }
  }

  Written write_two(const Term& term) const {
    const Written a = write(term.operands()[0]);
    const Written b = write(term.operands()[1]);
    switch (term.operation()) {
      case Operation::sum:
        return {a.text + " + " + bracketed(b, b.bond <= Bond::sign), Bond::sum};
      case Operation::difference:
        return {a.text + " - " + bracketed(b, b.bond <= Bond::sign), Bond::sum};
      case Operation::product:
        return {bracketed(a, a.bond == Bond::sum || a.bond == Bond::quotient) + "·" +
                    bracketed(b, b.bond <= Bond::quotient),
                Bond::product};
      case Operation::quotient:
        return {bracketed(a, a.bond == Bond::sum || a.bond == Bond::quotient) + " / " +
                    bracketed(b, b.bond <= Bond::product),
                Bond::quotient};
      case Operation::greater:
        return {"max(" + a.text + ", " + b.text + ")"};
      default:
        return {"min(" + a.text + ", " + b.text + ")"};
    }
  }

  const OfSymbol& of_symbol_;
};

}  // namespace

std::string formula(const Term& term) {
  const auto of_symbol = [](const Term& symbol) -> Written { return {symbol.name()}; };
  return Writer(of_symbol).write(term).text;
}

std::string numbers(const Term& term, int digits) {
  const auto of_symbol = [digits](const Term& symbol) {
    return of_number(number_text(symbol.own_value(), digits));
  };
  return Writer(of_symbol).write(term).text;
}

}  // namespace aluframe::explain
