#include "aluframe/io/suggestion.h"

#include <fmt/format.h>
#include <fmt/ranges.h>

#include <algorithm>
#include <cstddef>
#include <numeric>
#include <string>
#include <utility>
#include <vector>

#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

constexpr std::size_t most_differences = 2;

char lower(char letter) {
  return letter >= 'A' && letter <= 'Z' ? static_cast<char>(letter - 'A' + 'a') : letter;
}

/// Letters to insert, remove or replace to turn one name into the other, whatever their case.
std::size_t distance(std::string_view from, std::string_view to) {
  std::vector<std::size_t> row(to.size() + 1);
  std::iota(row.begin(), row.end(), std::size_t{0});
  for (const char letter : from) {
    std::size_t diagonal = row[0]++;
    for (std::size_t i = 0; i < to.size(); ++i) {
      const std::size_t replaced = diagonal + (lower(letter) == lower(to[i]) ? 0 : 1);
      diagonal = row[i + 1];
      row[i + 1] = std::min({replaced, row[i] + 1, row[i + 1] + 1});
    }
  }
  return row.back();
}

bool similar_length(std::string_view a, std::string_view b) {
  return std::max(a.size(), b.size()) - std::min(a.size(), b.size()) <= most_differences;
}

}  // namespace

std::string_view closest_name(std::string_view found, std::span<const std::string_view> names) {
  std::string_view best;
  std::size_t best_distance = most_differences + 1;
  for (const std::string_view name : names) {
    if (!similar_length(found, name)) continue;
    const std::size_t differences = distance(found, name);
    if (differences < best_distance && 2 * differences < name.size()) {
      best = name;
      best_distance = differences;
    }
  }
  return best;
}

std::string unknown_name_text(std::string_view what, std::string_view found,
                              std::span<const std::string_view> allowed) {
  if (allowed.empty()) return texts::translated("unknown {}, none is allowed here", what);
  const std::string_view meant = closest_name(found, allowed);
  if (!meant.empty()) return texts::translated("unknown {}, did you mean \"{}\"?", what, meant);
  return texts::translated("unknown {}, allowed are {}", what, fmt::join(allowed, ", "));
}

}  // namespace aluframe::io
