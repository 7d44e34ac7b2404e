#include "aluframe/starting/starting.h"

#include <algorithm>
#include <array>
#include <cmath>

#include "aluframe/starting/builder.h"
#include "aluframe/texts/text.h"

namespace aluframe::starting {

namespace {

constexpr std::array mullion_sizes{Size{"height", "m", 3.6, 2.4, 4.5}, Size{"storeys", "", 2, 1, 6},
                                   Size{"spacing", "m", 1.2, 0.6, 2.0},
                                   Size{"w0", "kN/m²", 0.45, 0.3, 0.9}};
constexpr std::array hall_sizes{
    Size{"span", "m", 12, 6, 20},        Size{"height", "m", 4, 2.5, 8},
    Size{"rise", "m", 1.2, 0.6, 4},      Size{"spacing", "m", 3, 1, 6},
    Size{"w0", "kN/m²", 0.35, 0.3, 0.9}, Size{"s0", "kN/m²", 0.3, 0.1, 1.0}};
constexpr std::array footbridge_sizes{Size{"span", "m", 16, 8, 30}, Size{"panels", "", 8, 4, 16},
                                      Size{"width", "m", 2, 1.2, 4},
                                      Size{"height", "m", 1.6, 1, 3}};
constexpr std::array dome_sizes{Size{"span", "m", 20, 8, 40}, Size{"rise", "m", 5, 2, 15},
                                Size{"rings", "", 4, 2, 8}, Size{"sectors", "", 12, 6, 24},
                                Size{"s0", "kN/m²", 0.3, 0.1, 1.0}};

constexpr std::array all_kinds{Kind{"mullion", mullion_sizes}, Kind{"hall", hall_sizes},
                               Kind{"footbridge", footbridge_sizes}, Kind{"dome", dome_sizes}};

/// What is wrong with a size that is given; nothing when it is one of the kind and in its range.
std::optional<std::string> fault_of(const Kind& kind, const std::string& name, double value) {
  const auto size = std::ranges::find(kind.sizes, name, &Size::name);
  if (size == kind.sizes.end()) {
    return texts::translated("--{}: a {} has no such size", name, kind.name);
  }
  if (!(value >= size->least && value <= size->most)) {
    return size->is_count() ? texts::translated("--{}: found {}, must be between {} and {}", name,
                                                value, size->least, size->most)
                            : texts::translated("--{}: found {}, must be between {} and {} {}",
                                                name, value, size->least, size->most, size->unit);
  }
  if (size->is_count() && value != std::floor(value)) {
    return texts::translated("--{}: found {}, must be a whole number", name, value);
  }
  return std::nullopt;
}

model::Model make_of(std::string_view kind, const Sizes& sizes) {
  if (kind == "mullion") return make_mullion(sizes);
  if (kind == "hall") return make_hall(sizes);
  if (kind == "footbridge") return make_footbridge(sizes);
  return make_dome(sizes);
}

}  // namespace

std::span<const Kind> kinds() {
  return all_kinds;
}

std::string kind_names() {
  std::string names;
  for (const Kind& kind : all_kinds) {
    names += (names.empty() ? "" : ", ") + std::string(kind.name);
  }
  return names;
}

std::variant<model::Model, std::string> make(std::string_view kind, const Sizes& sizes) {
  const auto found = std::ranges::find(all_kinds, kind, &Kind::name);
  if (found == all_kinds.end()) {
    return texts::translated("found '{}', must be one of {}", kind, kind_names());
  }
  Sizes all;
  for (const Size& size : found->sizes) all.emplace(size.name, size.standard);
  for (const auto& [name, value] : sizes) {
    if (auto fault = fault_of(*found, name, value)) return std::move(*fault);
    all[name] = value;
  }
  // A cap that is higher than its radius would overhang its edge.
  if (kind == "dome" && all.at("rise") > all.at("span") / 2) {
    return texts::translated("--rise: found {}, must be at most half of the span, {} m",
                             all.at("rise"), all.at("span") / 2);
  }
  return make_of(kind, all);
}

}  // namespace aluframe::starting
