#pragma once

#include <span>
#include <string>
#include <string_view>

#include "aluframe/model/material.h"

namespace aluframe::catalogue {

/// A row of the alloy table of GB 50429-2007: strengths in N/mm².
struct Alloy {
  std::string_view grade;
  double f02_thin;   ///< 0.2 % proof strength, t ≤ 10 mm
  double f02_thick;  ///< 0.2 % proof strength, t > 10 mm
  double fu;         ///< ultimate tensile strength
};

/// Name of the standard that the table's grades belong to.
inline constexpr std::string_view alloy_standard = "GB50429-07(A)";

std::span<const Alloy> alloys();
/// The row of a grade, or null. Exact and case-sensitive.
const Alloy* find_alloy(std::string_view grade);
/// All grades, joined for messages.
std::string alloy_names();
/// A material of this alloy with E 70000 N/mm², ν 0.3, density 2.7e-6 kg/mm³, α 2.3e-5 1/K.
model::Material material_of(const Alloy& alloy);

}  // namespace aluframe::catalogue
