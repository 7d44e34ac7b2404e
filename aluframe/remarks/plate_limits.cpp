#include "aluframe/remarks/plate_limits.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <string_view>

namespace aluframe::remarks {

namespace {

/// Above this thickness, mm, plates have the proof strength of thick parts.
constexpr double thin_limit = 10.0;
/// The proof strength, N/mm², to which the limits of plates refer.
constexpr double reference_strength = 240.0;

constexpr std::array<std::string_view, 3> weakly_hardening_grades{"6061-T6", "6063-T6", "6063A-T6"};

/// Limits of plates as factors of √(240/f0.2), of pipes as D/t times f0.2.
struct LimitRow {
  double strong, strong_welded, weak, weak_welded;
};

constexpr LimitRow row_of(PlateEdges edges) {
  switch (edges) {
    case PlateEdges::one_held:
      return {5.0, 4.0, 6.0, 5.0};
    case PlateEdges::both_held:
      return {17.0, 15.0, 21.5, 17.0};
    default:
      return {8400.0, 6000.0, 12000.0, 8400.0};
  }
}

double value_of(const LimitRow& row, bool weakly_hardening, bool welded) {
  if (weakly_hardening) return welded ? row.weak_welded : row.weak;
  return welded ? row.strong_welded : row.strong;
}

/// Of the web's thickness, for every plate; of a pipe of its wall's.
double proof_strength(const model::Section& section, const model::Material& material) {
  const bool pipe = section.shape == model::Shape::pipe;
  const double thickness = section.dimensions[pipe ? 1 : 2];
  return thickness > thin_limit ? material.f02_thick : material.f02_thin;
}

}  // namespace

double strength_factor(const model::Section& section, const model::Material& material) {
  return std::sqrt(reference_strength / proof_strength(section, material));
}

double plate_limit(PlateEdges edges, const model::Section& section,
                   const model::Material& material) {
  const bool weakly_hardening =
      std::ranges::find(weakly_hardening_grades, material.grade) != weakly_hardening_grades.end();
  const double value = value_of(row_of(edges), weakly_hardening, section.welded);
  if (edges == PlateEdges::round) return value / proof_strength(section, material);
  return value * strength_factor(section, material);
}

}  // namespace aluframe::remarks
