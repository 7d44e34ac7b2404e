// Loads that have no place in a picture.

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <string_view>

#include "aluframe/picture/drawing.h"

#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::picture {

namespace {

std::string elements_text(const model::Targets& targets) {
  if (targets.all) return texts::translated("all elements");
  std::vector<model::Number> sorted = targets.numbers;
  std::ranges::sort(sorted);
  constexpr std::size_t most_ranges = 8;
  const std::string numbers = texts::sentence_in_words(model::join_as_ranges(sorted, most_ranges));
  return sorted.size() == 1 ? texts::translated("element {}", numbers)
                            : texts::translated("elements {}", numbers);
}

std::string weight_text(const std::array<double, 3>& factors) {
  if (factors == std::array<double, 3>{0.0, 0.0, -1.0})
    return texts::translated("with the self-weight of all elements");
  return texts::translated("with {}, {} and {} times the self-weight of all elements along X, Y, Z",
                           short_text(factors[0]), short_text(factors[1]), short_text(factors[2]));
}

std::string temperature_text(const model::TemperatureLoad& load) {
  std::string text = texts::translated("temperature {} K", short_text(load.change));
  if (load.difference_y != 0.0)
    text += texts::translated(", +y to −y {} K", short_text(load.difference_y));
  if (load.difference_z != 0.0)
    text += texts::translated(", +z to −z {} K", short_text(load.difference_z));
  return texts::translated("{}: {}", text, elements_text(load.elements));
}

std::string settlement_text(const model::Settlement& load) {
  constexpr std::array<std::string_view, 6> names{"Dx", "Dy", "Dz", "Rx", "Ry", "Rz"};
  std::string text = texts::translated("settlement of node {}:", load.node);
  for (std::size_t i = 0; i < names.size(); ++i) {
    if (load.displacements[i] == 0.0) continue;
    text +=
        fmt::format(" {} {} {}", names[i], short_text(load.displacements[i]), i < 3 ? "mm" : "rad");
  }
  return text;
}

}  // namespace

void add_load_notes(Drawing& drawing, const model::CaseLoads& loads) {
  std::vector<std::string>& notes = drawing.scene.notes;
  if (loads.self_weight != std::array<double, 3>{}) notes.push_back(weight_text(loads.self_weight));
  for (const auto& load : loads.temperature) notes.push_back(temperature_text(load));
  for (const auto& load : loads.settlements) notes.push_back(settlement_text(load));
}

}  // namespace aluframe::picture
