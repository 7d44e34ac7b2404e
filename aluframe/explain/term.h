#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

// Formulas as trees: written once, shown with symbols, shown with numbers, and evaluated.
//
//     const Term N = Term::symbol("N", -50000.0), A = Term::symbol("A", 2500.0);
//     const Term stress = magnitude(N) / A;
//     formula(stress);     // "|N| / A"
//     numbers(stress, 5);  // "|-50000| / 2500"
//     value(stress);       // 20

namespace aluframe::explain {

enum class Operation : std::uint8_t {
  number,      ///< a number of the formula itself, such as 0.22
  constant,    ///< a number that goes by its name, such as π²
  symbol,      ///< a quantity
  sum,         ///< a + b
  difference,  ///< a - b
  product,     ///< a·b
  quotient,    ///< a / b
  power,       ///< a², a³ or a⁴
  root,        ///< √(a)
  magnitude,   ///< |a|
  greater,     ///< max(a, b); not a number when either is not
  smaller,     ///< min(a, b)
  function,    ///< a function of one argument by its name, such as a table of a code
};

/// An immutable formula; copies share its tree.
class Term {
 public:
  using Function = std::function<double(double)>;

  static Term number(double value);
  static Term constant(std::string name, double value);
  static Term symbol(std::string name, double value);
  static Term function(std::string name, Function function, const Term& argument);

  Operation operation() const;
  /// Of a constant, symbol or function.
  const std::string& name() const;
  /// Of a number, constant or symbol.
  double own_value() const;
  /// 2, 3 or 4 of a power.
  int exponent() const;
  /// Of a function.
  const Function& applied() const;
  /// Operands, in their order.
  const std::vector<Term>& operands() const;

  friend Term operator+(const Term& a, const Term& b);
  friend Term operator-(const Term& a, const Term& b);
  friend Term operator*(const Term& a, const Term& b);
  friend Term operator/(const Term& a, const Term& b);
  /// @param exponent 2, 3 or 4
  friend Term power(const Term& base, int exponent);
  friend Term root(const Term& a);
  friend Term magnitude(const Term& a);
  friend Term greater(const Term& a, const Term& b);
  friend Term smaller(const Term& a, const Term& b);

 private:
  struct Node;

  static Term of(Operation operation, std::vector<Term> operands, int exponent = 0);

  std::shared_ptr<const Node> node_;
};

Term power(const Term& base, int exponent);
Term root(const Term& a);
Term magnitude(const Term& a);
Term greater(const Term& a, const Term& b);
Term smaller(const Term& a, const Term& b);

inline Term operator+(const Term& a, double b) {
  return a + Term::number(b);
}
inline Term operator+(double a, const Term& b) {
  return Term::number(a) + b;
}
inline Term operator-(const Term& a, double b) {
  return a - Term::number(b);
}
inline Term operator-(double a, const Term& b) {
  return Term::number(a) - b;
}
inline Term operator*(double a, const Term& b) {
  return Term::number(a) * b;
}
inline Term operator/(const Term& a, double b) {
  return a / Term::number(b);
}
inline Term operator/(double a, const Term& b) {
  return Term::number(a) / b;
}
inline Term squared(const Term& a) {
  return power(a, 2);
}
inline Term cubed(const Term& a) {
  return power(a, 3);
}

/// The quantities of a formula in the order in which they occur, each once.
std::vector<std::string> symbols_of(const Term& term);

/// With symbols: "k·|N| / (φ·A)". Brackets stand wherever the line could be read in another way:
/// beside a product also around a quotient.
std::string formula(const Term& term);

/// With numbers of so many significant digits: "1·|-50000| / (0.735·2500)". Numbers of the formula
/// itself and constants stand as in `formula`.
std::string numbers(const Term& term, int digits);

/// Evaluates in double precision, operation by operation in the order in which it is written.
double value(const Term& term);

/// What `numbers` shows, evaluated.
double value_of_numbers(const Term& term, int digits);

/// A line of numbers that gives its result.
struct NumberLine {
  std::string numbers;
  std::string result;
  int digits = 0;  ///< of the numbers
};

/// The result to six significant digits, and the numbers with the fewest digits, at least five,
/// from which that result follows.
NumberLine number_line(const Term& term);

}  // namespace aluframe::explain
