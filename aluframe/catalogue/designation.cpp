#include "aluframe/catalogue/designation.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <charconv>
#include <optional>
#include <vector>

#include "aluframe/texts/text.h"

namespace aluframe::catalogue {

namespace {

/// The text without blanks, and with "x" for every sign of multiplication.
std::string tidy(std::string_view text) {
  constexpr std::string_view times = "\u00D7";
  std::string out;
  for (std::size_t i = 0; i < text.size(); ++i) {
    if (text.substr(i).starts_with(times)) {
      out += 'x';
      ++i;
    } else if (text[i] == 'X') {
      out += 'x';
    } else if (text[i] != ' ' && text[i] != '\t') {
      out += text[i];
    }
  }
  return out;
}

/// Numbers between "x"; nothing when one of them is none.
std::optional<std::vector<double>> numbers_of(std::string_view text) {
  std::vector<double> numbers;
  while (true) {
    double number = 0.0;
    const char* const end = text.data() + text.size();
    const auto read = std::from_chars(text.data(), end, number, std::chars_format::fixed);
    if (read.ec != std::errc()) return std::nullopt;
    numbers.push_back(number);
    if (read.ptr == end) return numbers;
    if (*read.ptr != 'x') return std::nullopt;
    text = std::string_view(read.ptr + 1, end);
  }
}

std::string dimensions_text(model::Shape shape) {
  const auto names = model::dimension_names(shape);
  const std::size_t required = model::required_dimensions(shape);
  std::string text = fmt::format("{}", fmt::join(names.first(required), "x"));
  if (required < names.size())
    text += fmt::format("[x{}]", fmt::join(names.subspan(required), "x"));
  return text;
}

}  // namespace

std::variant<model::Section, std::string> section_named(std::string_view name,
                                                        std::span<const Profile> own) {
  const auto mine = std::ranges::find(own, name, &Profile::name);
  if (mine != own.end()) return section_of(*mine);
  if (const Profile* profile = find_profile(name)) return section_of(*profile);
  const std::size_t blank = name.find(' ');
  const auto shape = model::parse_shape(name.substr(0, blank));
  if (!shape || *shape == model::Shape::other || blank == std::string_view::npos) {
    return texts::translated(
        "found '{}', must be a standard profile or a shape (C, H, T, B, P, 2C, SR), a blank and "
        "its dimensions in mm, such as H 300x150x8x12",
        name);
  }
  const auto numbers = numbers_of(tidy(name.substr(blank)));
  if (!numbers) {
    return texts::translated(
        "found '{}', must be {} {} with plain decimals in mm (12.5, no exponent)", name,
        model::name_of(*shape), dimensions_text(*shape));
  }
  const auto dimensions = model::dimension_names(*shape);
  if (numbers->size() < model::required_dimensions(*shape) || numbers->size() > dimensions.size()) {
    return texts::translated("found '{}', must be {} {} with numbers in mm", name,
                             model::name_of(*shape), dimensions_text(*shape));
  }
  model::Section section;
  section.name = name;
  section.shape = *shape;
  for (std::size_t i = 0; i < dimensions.size(); ++i) {
    section.dimensions[i] = i < numbers->size()
                                ? (*numbers)[i]
                                : model::default_dimension(*shape, i, section.dimensions);
  }
  return section;
}

}  // namespace aluframe::catalogue
