#include "aluframe/document/mathml.h"

#include <algorithm>
#include <vector>

#include "aluframe/explain/number_text.h"

namespace aluframe::document {

namespace {

using explain::Operation;
using explain::Term;

/// What binds a typeset part together, from the loosest to the tightest.
enum class Bond { sum, sign, product, power, whole };

/// A part of a formula, and about how many letters wide it is.
struct Part {
  std::string markup;
  Bond bond = Bond::whole;
  std::size_t width = 1;
};

std::size_t letters_of(std::string_view text) {
  return static_cast<std::size_t>(std::ranges::count_if(
      text, [](char c) { return (static_cast<unsigned char>(c) & 0xC0U) != 0x80U; }));
}

std::string row(const std::string& content) {
  return "<mrow>" + content + "</mrow>";
}

/// As one element. What is not bound loosely is one already.
std::string one(const Part& part) {
  return part.bond >= Bond::power ? part.markup : row(part.markup);
}

std::string sign(std::string_view text) {
  return "<mo>" + std::string(text) + "</mo>";
}

Part number_part(const std::string& number) {
  const bool has_exponent = number.find('e') != std::string::npos;
  const Bond bond = number.starts_with('-') ? Bond::sign
                    : has_exponent          ? Bond::product
                                            : Bond::whole;
  return {number_markup(number), bond, number.size() + (has_exponent ? 2 : 0)};
}

Part bracketed(const Part& part, bool is_needed) {
  if (!is_needed) return part;
  return {row(sign("(") + part.markup + sign(")")), Bond::whole, part.width + 2};
}

/// A function of what stands in the brackets behind it.
Part applied(const std::string& name, std::size_t name_width, const Part& arguments) {
  return {row(name + sign("\u2061") + row(sign("(") + arguments.markup + sign(")"))), Bond::whole,
          name_width + arguments.width + 2};
}

/// A part of a sum with the sign in front of it.
struct Addend {
  std::string sign;
  Part part;
};

/// Addends as many to a row as there is room for.
Part in_rows(const std::vector<Addend>& addends, std::size_t room) {
  std::string rows, current;
  std::size_t width = 0, widest = 0;
  const auto end_row = [&] {
    rows += "<mtr><mtd>" + current + "</mtd></mtr>";
    widest = std::max(widest, width);
    current.clear();
    width = 0;
  };
  for (const Addend& addend : addends) {
    if (width > 0 && width + addend.part.width > room) end_row();
    current += addend.sign + addend.part.markup;
    width += addend.part.width + (addend.sign.empty() ? 0 : 3);
  }
  end_row();
  return {"<mtable displaystyle=\"true\">" + rows + "</mtable>", Bond::sum, widest};
}

Part in_one_row(const std::vector<Addend>& addends) {
  Part sum{"", Bond::sum, 0};
  for (const Addend& addend : addends) {
    sum.markup += addend.sign + addend.part.markup;
    sum.width += addend.part.width + (addend.sign.empty() ? 0 : 3);
  }
  return sum;
}

/// "a, b, c"; where they are wide together each has a row of its own.
Part listed(const std::vector<Part>& parts, std::size_t room) {
  Part line{"", Bond::sum, 0}, rows{"", Bond::sum, 0};
  for (const Part& part : parts) {
    const bool is_last = &part == &parts.back();
    const std::string markup = part.markup + (is_last ? "" : sign(","));
    line.markup += markup;
    line.width += part.width + (is_last ? 0 : 2);
    rows.markup += "<mtr><mtd>" + markup + "</mtd></mtr>";
    rows.width = std::max(rows.width, part.width + 1);
  }
  if (line.width <= room) return line;
  rows.markup = "<mtable displaystyle=\"true\">" + rows.markup + "</mtable>";
  return rows;
}

template <class OfSymbol>
class Typesetter {
 public:
  Typesetter(const OfSymbol& of_symbol, std::size_t room) : of_symbol_(of_symbol), room_(room) {}

  Part typeset(const Term& term) const {
    switch (term.operation()) {
      case Operation::number:
        return number_part(explain::exact_text(term.own_value()));
      case Operation::constant:
        return constant(term.name());
      case Operation::symbol:
        return of_symbol_(term);
      case Operation::sum:
      case Operation::difference:
        return sum(term);
      default:
        return term.operands().size() == 1 ? of_one(term) : of_two(term);
    }
  }

 private:
  /// "π" or "π²".
  static Part constant(const std::string& name) {
    constexpr std::string_view square = "²";
    if (!name.ends_with(square)) return {symbol_markup(name), Bond::whole, 1};
    const std::string base = name.substr(0, name.size() - square.size());
    return {"<msup>" + symbol_markup(base) + "<mn>2</mn></msup>", Bond::power, 2};
  }

  Part of_one(const Term& term) const {
    Part inner = typeset(term.operands()[0]);
    const std::size_t width = inner.width;
    switch (term.operation()) {
      case Operation::power:
        inner = bracketed(inner, inner.bond != Bond::whole || is_fraction(term));
        return {raised(inner.markup, std::to_string(term.exponent())), Bond::power, width + 1};
      case Operation::root:
        return {"<msqrt>" + row(inner.markup) + "</msqrt>", Bond::whole, width + 2};
      case Operation::magnitude:
        return {row(sign("|") + inner.markup + sign("|")), Bond::whole, width + 2};
      default:
        return applied(symbol_markup(term.name()), letters_of(term.name()), inner);
    }
  }

  /// Of a symbol the exponent stands over what stands below it.
  static std::string raised(const std::string& base, const std::string& exponent) {
    constexpr std::string_view begin = "<msub>", end = "</msub>";
    const std::string power = "<mn>" + exponent + "</mn>";
    if (!base.starts_with(begin)) return "<msup>" + base + power + "</msup>";
    const std::string parts = base.substr(begin.size(), base.size() - begin.size() - end.size());
    return "<msubsup>" + parts + power + "</msubsup>";
  }

  static bool is_fraction(const Term& power) {
    return power.operands()[0].operation() == Operation::quotient;
  }

  Part of_two(const Term& term) const {
    Part a = typeset(term.operands()[0]);
    Part b = typeset(term.operands()[1]);
    switch (term.operation()) {
      case Operation::product:
        a = bracketed(a, a.bond == Bond::sum);
        b = bracketed(b, b.bond <= Bond::sign);
        return product(a, b);
      case Operation::quotient:
        return {"<mfrac>" + one(a) + one(b) + "</mfrac>", Bond::whole,
                std::max(a.width, b.width) + 1};
      default: {
        const char* name = term.operation() == Operation::greater ? "max" : "min";
        return applied("<mi>" + std::string(name) + "</mi>", 3, arguments(term));
      }
    }
  }

  /// The second factor in a row of its own where both are wide together.
  Part product(const Part& a, const Part& b) const {
    const Bond bond = std::min(a.bond, Bond::product);
    const std::string second = sign("·") + b.markup;
    if (a.width + b.width < room_) return {a.markup + second, bond, a.width + b.width + 1};
    return {"<mtable displaystyle=\"true\"><mtr><mtd>" + a.markup + "</mtd></mtr><mtr><mtd>" +
                second + "</mtd></mtr></mtable>",
            bond, std::max(a.width, b.width + 1)};
  }

  /// max(max(a, b), c) is the greatest of three.
  void add_arguments(const Term& term, std::vector<Part>& arguments) const {
    const Term& first = term.operands()[0];
    if (first.operation() == term.operation()) {
      add_arguments(first, arguments);
    } else {
      arguments.push_back(typeset(first));
    }
    arguments.push_back(typeset(term.operands()[1]));
  }

  Part arguments(const Term& term) const {
    std::vector<Part> arguments;
    add_arguments(term, arguments);
    return listed(arguments, room_);
  }

  /// `a + b - c` is one sum of three.
  void add_addends(const Term& term, std::vector<Addend>& addends) const {
    const Term& first = term.operands()[0];
    const bool goes_on =
        first.operation() == Operation::sum || first.operation() == Operation::difference;
    if (goes_on) {
      add_addends(first, addends);
    } else {
      addends.push_back({"", typeset(first)});
    }
    Part part = typeset(term.operands()[1]);
    const bool is_loose = part.bond <= Bond::sign;
    const char* own = term.operation() == Operation::sum ? "+" : "−";
    addends.push_back(
        {"<mo form=\"infix\">" + std::string(own) + "</mo>", bracketed(part, is_loose)});
  }

  Part sum(const Term& term) const {
    std::vector<Addend> addends;
    add_addends(term, addends);
    Part line = in_one_row(addends);
    return line.width <= room_ ? line : in_rows(addends, room_);
  }

  const OfSymbol& of_symbol_;
  std::size_t room_;
};

}  // namespace

std::string formula_markup(const Term& term, std::size_t row) {
  const auto of_symbol = [](const Term& symbol) -> Part {
    // What stands below is about half as wide.
    return {symbol_markup(symbol.name()), Bond::whole, (letters_of(symbol.name()) + 2) / 2};
  };
  return Typesetter(of_symbol, row).typeset(term).markup;
}

std::string numbers_markup(const Term& term, int digits, std::size_t row) {
  const auto of_symbol = [digits](const Term& symbol) {
    return number_part(explain::number_text(symbol.own_value(), digits));
  };
  return Typesetter(of_symbol, row).typeset(term).markup;
}

}  // namespace aluframe::document
