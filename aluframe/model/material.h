#pragma once

#include <string>
#include <string_view>

#include "aluframe/model/table.h"

namespace aluframe::model {

/// Standard of materials with values of the user, unless they name one of their own.
inline constexpr std::string_view user_standard = "user";

/// An aluminium alloy, from the catalogue or with values of the user. Strengths and E in N/mm².
struct Material {
  Number number = 0;
  std::string name;
  /// "GB50429-07(A)" for alloys of the code's table; any other text for the user's own.
  std::string standard;
  std::string grade;   ///< alloy and temper, such as "6061-T6"; may be empty outside the table
  double e = 70000.0;  ///< elastic modulus
  double poisson = 0.3;
  double density = 2.7e-6;            ///< kg/mm³
  double thermal_expansion = 2.3e-5;  ///< 1/K
  double f02_thin = 0.0;              ///< 0.2 % proof strength, t ≤ 10 mm
  double f02_thick = 0.0;             ///< 0.2 % proof strength, t > 10 mm
  double fu = 0.0;                    ///< ultimate tensile strength

  friend bool operator==(const Material&, const Material&) = default;
};

}  // namespace aluframe::model
