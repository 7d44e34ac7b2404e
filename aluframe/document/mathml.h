#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "aluframe/explain/term.h"

// Formulas typeset: MathML of the elements that every browser draws (MathML Core). What is returned
// stands within <math>. Fractions, roots and powers are their own brackets; others stand where a
// reader or a program could take the formula in another way.
//
//     html.element("math", [&] { html.markup(formula_markup(magnitude(N) / (phi * A))); });

namespace aluframe::document {

/// A symbol with its subscript: "φby" is φ with "by", "N_Ey'" N with "Ey" and a prime, "λ̄y" λ with
/// a bar and "y".
std::string symbol_markup(std::string_view symbol);

/// A number as `explain::number_text` writes it: "1.2e7" as 1.2·10⁷, "-3" as −3, "inf" as ∞.
std::string number_markup(const std::string& number);

/// About how many letters fit in a row.
inline constexpr std::size_t widest_row = 56;

/// With symbols. Sums, products and arguments that are wider than a row go over several.
std::string formula_markup(const explain::Term& term, std::size_t row = widest_row);

/// With numbers of so many significant digits, as `explain::numbers` has them.
std::string numbers_markup(const explain::Term& term, int digits, std::size_t row = widest_row);

}  // namespace aluframe::document
