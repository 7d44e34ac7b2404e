#pragma once

#include <algorithm>
#include <cmath>
#include <optional>
#include <string>

#include "aluframe/credibility/credibility.h"

namespace aluframe::credibility {

/// Collects the elements of a doubt, and which is the worst.
struct Concerned {
  std::vector<model::Number> elements;
  std::optional<model::Number> worst;
  double worst_value = 0.0;

  /// `value`: how far it is from what is usual, the larger the worse.
  void add(model::Number element, double value) {
    elements.push_back(element);
    if (worst && value <= worst_value) return;
    worst = element;
    worst_value = value;
  }
  Doubt doubt(std::string text) {
    std::ranges::sort(elements);
    return {std::move(elements), worst, std::move(text)};
  }
};

/// The elements of a section.
Concerned elements_of_section(const model::Model& model, model::Number section);

std::optional<Doubt> thick_plates(const model::Model& model);
std::optional<Doubt> thin_plates(const model::Model& model);
std::optional<Doubt> inertia_beyond_area(const model::Model& model);
std::optional<Doubt> overwhelming_forces(const model::Model& model);

}  // namespace aluframe::credibility
