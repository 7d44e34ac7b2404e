#include "aluframe/run/imperfections_text.h"

#include <fmt/format.h>

#include <vector>

#include "aluframe/model/units.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

/// "0.005 along X and Y" of equal values, "0.005 along X and 0.004 along Y" of others.
std::string both(const std::string& first, const std::string& second, const char* where,
                 std::string_view first_name, std::string_view second_name) {
  const auto one = [&](const std::string& value, std::string_view name) {
    return value.empty() ? "" : fmt::format(fmt::runtime(where), value, name);
  };
  if (first == second)
    return one(first, fmt::format(texts::translatable("{} and {}"), first_name, second_name));
  const std::string a = one(first, first_name), b = one(second, second_name);
  return a.empty() || b.empty() ? a + b : fmt::format(texts::translatable("{} and {}"), a, b);
}

std::string lean_text(double lean) {
  return lean > 0.0 ? fmt::format(texts::translatable("{:.4g} rad"), lean) : "";
}

std::string bow_text(double bow) {
  return bow > 0.0 ? fmt::format("L/{:.4g}", 1.0 / bow) : "";
}

}  // namespace

std::string imperfections_text(const model::Model& model) {
  const model::Imperfections& given = model.analysis.imperfections;
  std::string text;
  const auto add = [&](const std::string& part) {
    if (!text.empty()) text += ", ";
    text += part;
  };
  if (given.sway_x > 0.0 || given.sway_y > 0.0) {
    add(fmt::format(texts::translatable("sway {}"),
                    both(lean_text(given.sway_x), lean_text(given.sway_y),
                         texts::translatable("{} along {}"), "X", "Y")));
  }
  if (given.bow_y > 0.0 || given.bow_z > 0.0) {
    add(fmt::format(texts::translatable("bow {}"),
                    both(bow_text(given.bow_y), bow_text(given.bow_z),
                         texts::translatable("{} about {}"), "y", "z")));
  }
  if (given.mode > 0.0) {
    add(fmt::format(texts::translatable("first buckling mode to {:.4g} {}"),
                    given.mode / model::millimetres_per(model.units.length),
                    model::name_of(model.units.length)));
  }
  return text;
}

}  // namespace aluframe::run
