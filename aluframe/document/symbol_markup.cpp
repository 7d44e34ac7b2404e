// How symbols and numbers are typeset.

#include <fmt/format.h>

#include <algorithm>
#include <array>

#include "aluframe/document/mathml.h"
#include "aluframe/model/xml_text.h"

namespace aluframe::document {

namespace {

struct Parts {
  std::string_view base;
  std::string_view subscript;
};

/// Symbols whose letters alone do not say what stands below.
constexpr std::array<std::pair<std::string_view, Parts>, 7> named{{{"ratio", {"ratio", ""}},
                                                                   {"limit", {"limit", ""}},
                                                                   {"round", {"round", ""}},
                                                                   {"limf", {"lim", "f"}},
                                                                   {"limw", {"lim", "w"}},
                                                                   {"f02", {"f", "0.2"}},
                                                                   {"f02thin", {"f", "0.2,thin"}}}};

/// Bytes of the first letter in UTF-8.
std::size_t first_letter(std::string_view text) {
  std::size_t end = std::min<std::size_t>(1, text.size());
  while (end < text.size() && (static_cast<unsigned char>(text[end]) & 0xC0U) == 0x80U) ++end;
  return end;
}

constexpr std::string_view bar = "\u0304";
constexpr std::string_view difference = "Δ";

/// The first letter, and the second where the first is the sign of a difference; the rest stands
/// below.
Parts parts_of(std::string_view symbol) {
  const auto* const known =
      std::ranges::find(named, symbol, [](const auto& row) { return row.first; });
  if (known != named.end()) return known->second;
  std::size_t end = first_letter(symbol);
  if (symbol.substr(0, end) == difference) end += first_letter(symbol.substr(end));
  if (symbol.substr(end).starts_with(bar)) end += bar.size();
  std::string_view rest = symbol.substr(end);
  if (rest.starts_with('_')) rest.remove_prefix(1);
  return {symbol.substr(0, end), rest};
}

bool is_digits(std::string_view text) {
  return text.find_first_not_of("0123456789.") == std::string_view::npos;
}

/// A name, or what stands below one: letters are a variable, digits a number.
std::string token(std::string_view text) {
  const char* element = is_digits(text) ? "mn" : "mi";
  return fmt::format("<{0}>{1}</{0}>", element, model::for_xml(text));
}

std::string base_markup(std::string_view base) {
  if (!base.ends_with(bar)) return token(base);
  base.remove_suffix(bar.size());
  return fmt::format("<mover>{}<mo stretchy=\"false\">¯</mo></mover>", token(base));
}

std::string magnitude_markup(const std::string& number) {
  if (number == "inf") return "<mi>∞</mi>";
  if (number == "nan") return "<mtext>nan</mtext>";
  const std::size_t e = number.find('e');
  if (e == std::string::npos) return fmt::format("<mn>{}</mn>", number);
  const bool is_negative = number[e + 1] == '-';
  const std::string digits = number.substr(e + (is_negative ? 2 : 1));
  return fmt::format("<mn>{}</mn><mo>·</mo><msup><mn>10</mn>{}</msup>", number.substr(0, e),
                     is_negative ? fmt::format("<mrow><mo>−</mo><mn>{}</mn></mrow>", digits)
                                 : fmt::format("<mn>{}</mn>", digits));
}

}  // namespace

std::string symbol_markup(std::string_view symbol) {
  const bool has_prime = symbol.ends_with('\'');
  if (has_prime) symbol.remove_suffix(1);
  const Parts parts = parts_of(symbol);
  std::string base = base_markup(parts.base);
  if (has_prime) {
    return fmt::format("<msubsup>{}{}<mo>′</mo></msubsup>", base, token(parts.subscript));
  }
  if (parts.subscript.empty()) return base;
  return fmt::format("<msub>{}{}</msub>", base, token(parts.subscript));
}

std::string number_markup(const std::string& number) {
  if (!number.starts_with('-')) return magnitude_markup(number);
  return "<mrow><mo>−</mo>" + magnitude_markup(number.substr(1)) + "</mrow>";
}

}  // namespace aluframe::document
