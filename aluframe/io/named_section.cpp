#include "aluframe/io/named_section.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <optional>
#include <vector>

#include "aluframe/catalogue/designation.h"
#include "aluframe/io/suggestion.h"
#include "aluframe/io/text_file.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr std::size_t most_suggestions = 4;

/// Letters in one case and without blanks, for comparing.
std::string folded(std::string_view name) {
  std::string out;
  for (const char c : name) {
    if (c != ' ') out += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return out;
}

/// A designation that lacks its blank or has its shape in the wrong case: "h300x150x8x12".
std::optional<std::string> mended_designation(std::string_view name) {
  for (const std::string_view shape : {"C", "H", "T", "B", "P", "2C", "SR"}) {
    if (!folded(name).starts_with(folded(shape)) || name.size() < shape.size()) continue;
    std::string_view dimensions = name.substr(shape.size());
    while (dimensions.starts_with(' ')) dimensions.remove_prefix(1);
    std::string mended = fmt::format("{} {}", shape, dimensions);
    if (std::holds_alternative<model::Section>(catalogue::section_named(mended))) return mended;
  }
  return std::nullopt;
}

/// Profiles whose names go on where `name` ends; else the one that differs by a letter or two.
std::vector<std::string_view> near_profiles(std::string_view name,
                                            std::span<const catalogue::Profile> own) {
  std::vector<std::string_view> all;
  for (const auto& profile : own) all.push_back(profile.name);
  for (const auto& profile : catalogue::profiles()) all.push_back(profile.name);
  std::vector<std::string_view> near;
  const std::string begin = folded(name);
  for (const std::string_view each : all) {
    if (!begin.empty() && folded(each).starts_with(begin)) near.push_back(each);
  }
  if (near.empty()) {
    const std::string_view closest = closest_name(name, all);
    if (!closest.empty()) near.push_back(closest);
  }
  near.resize(std::min(near.size(), most_suggestions));
  return near;
}

std::string suggestion_for(std::string_view name, std::span<const catalogue::Profile> own) {
  if (const auto mended = mended_designation(name)) {
    return texts::translated("; did you mean \"{}\"?", *mended);
  }
  const std::vector<std::string_view> near = near_profiles(name, own);
  if (near.empty()) return "";
  return texts::translated("; did you mean \"{}\"?", fmt::join(near, "\" or \""));
}

}  // namespace

std::variant<model::Section, std::string> named_section(std::string_view name,
                                                        std::span<const catalogue::Profile> own) {
  if (shown(name) != name) {
    return texts::translated("found {}, must be the name of a profile or a designation",
                             in_quotes(name));
  }
  auto found = catalogue::section_named(name, own);
  if (auto* text = std::get_if<std::string>(&found)) return *text + suggestion_for(name, own);
  auto& section = std::get<model::Section>(found);
  if (const auto problem = section::find_dimension_problem(section)) {
    return texts::translated("found '{}', which cannot be built: {}", name, problem->text);
  }
  return section;
}

}  // namespace aluframe::io
