#include "aluframe/catalogue/alloys.h"

#include <array>

namespace aluframe::catalogue {

namespace {

/// Constants of every alloy of the code (GB 50429-2007): N/mm², kg/mm³, 1/K.
constexpr double elastic_modulus = 70000.0;
constexpr double poisson_ratio = 0.3;
constexpr double density = 2.7e-6;
constexpr double thermal_expansion = 2.3e-5;

/// Nominal strengths of GB 50429-2007, N/mm²: 0.2 % proof strength up to and above 10 mm, ultimate
/// strength.
// clang-format off
constexpr std::array table{
    Alloy{"6061-T4", 110.0, 110.0, 180.0},
    Alloy{"6061-T6", 240.0, 240.0, 265.0},
    Alloy{"6063-T5", 110.0, 110.0, 160.0},
    Alloy{"6063-T6", 180.0, 180.0, 205.0},
    Alloy{"6063A-T5", 160.0, 150.0, 200.0},
    Alloy{"6063A-T6", 190.0, 180.0, 230.0},
    Alloy{"5083-O/F", 110.0, 110.0, 270.0},
    Alloy{"5083-H112", 110.0, 110.0, 270.0},
    Alloy{"3003-H24", 120.0, 120.0, 145.0},
    Alloy{"3004-H34", 170.0, 170.0, 220.0},
    Alloy{"3004-H36", 190.0, 190.0, 240.0},
};
// clang-format on

}  // namespace

std::span<const Alloy> alloys() {
  return table;
}

const Alloy* find_alloy(std::string_view grade) {
  for (const Alloy& alloy : table) {
    if (alloy.grade == grade) return &alloy;
  }
  return nullptr;
}

std::string alloy_names() {
  std::string names;
  for (const Alloy& alloy : table) {
    if (!names.empty()) names += ", ";
    names += alloy.grade;
  }
  return names;
}

model::Material material_of(const Alloy& alloy) {
  model::Material material;
  material.standard = alloy_standard;
  material.grade = alloy.grade;
  material.e = elastic_modulus;
  material.poisson = poisson_ratio;
  material.density = density;
  material.thermal_expansion = thermal_expansion;
  material.f02_thin = alloy.f02_thin;
  material.f02_thick = alloy.f02_thick;
  material.fu = alloy.fu;
  return material;
}

}  // namespace aluframe::catalogue
