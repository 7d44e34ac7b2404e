#include "aluframe/texts/format_pieces.h"

#include <algorithm>
#include <cctype>

namespace aluframe::texts {

std::size_t FormatPieces::characters() const {
  std::size_t count = 0;
  for (const std::string& literal : literals) count += literal.size();
  return count;
}

std::size_t FormatPieces::letters() const {
  std::size_t count = 0;
  for (const std::string& literal : literals) {
    count += static_cast<std::size_t>(
        std::ranges::count_if(literal, [](unsigned char c) { return std::isalpha(c) != 0; }));
  }
  return count;
}

FormatPieces take_apart(std::string_view format) {
  FormatPieces pieces{.literals = {""}, .arguments = {}, .specs = {}};
  for (std::size_t i = 0; i < format.size(); ++i) {
    const char c = format[i];
    const bool is_brace = c == '{' || c == '}';
    const bool is_escaped = is_brace && i + 1 < format.size() && format[i + 1] == c;
    if (!is_brace || is_escaped) {
      pieces.literals.back() += c;
      if (is_escaped) ++i;
      continue;
    }
    const std::size_t end = std::min(format.find('}', i), format.size());
    std::size_t number = 0;
    bool is_numbered = false;
    for (std::size_t j = i + 1; j < end && format[j] >= '0' && format[j] <= '9'; ++j) {
      number = number * 10 + static_cast<std::size_t>(format[j] - '0');
      is_numbered = true;
    }
    pieces.arguments.push_back(is_numbered ? number : pieces.arguments.size());
    const std::size_t colon = std::min(format.find(':', i), end);
    pieces.specs.emplace_back(
        format.substr(std::min(colon + 1, end), end - std::min(colon + 1, end)));
    pieces.literals.emplace_back();
    i = end;
  }
  return pieces;
}

}  // namespace aluframe::texts
