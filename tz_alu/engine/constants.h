#pragma once

namespace alu_engine {

/// kept: π as the rules hold it, slightly below the exact value.
inline constexpr double kPi = 3.1415926535897323;

/// kept: π² to match.
inline constexpr double kPiSquared = 9.869604401088976;

/// Shear modulus G of aluminium, N/mm².
inline constexpr double kShearModulus = 27000.0;

}  // namespace alu_engine
