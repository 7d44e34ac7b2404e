#pragma once

#include <string>
#include <variant>
#include <vector>

#include "aluframe/model/area_load.h"
#include "aluframe/model/units.h"

/// Characteristic wind and snow pressures by GB 50009-2012. Compare the numbers with the edition in
/// force; a model may give its own for each.
///
///     const double wk = pressure_of(load.pressure);       // N/mm²
///     for (const Step& step : steps_of(load.pressure, model.units)) ...
namespace aluframe::area_loads {

/// Numbers of the wind profile over a ground. Heights in mm.
struct Profile {
  double mu_10, alpha, mu_min, gradient_height, lowest_height, i_10, g;
};

/// Those of the roughness, or the model's own in place of them.
Profile profile_of(const model::WindPressure& wind);

/// Height factor of the wind pressure (8.2.1): μz = max(μmin, μ10·(z/10 m)^2α), z no more than the
/// gradient height. z in mm, greater than 0.
double mu_z(const Profile& profile, double height);

/// Gust factor (8.6.1): βgz = 1 + 2·g·I10·(z/10 m)^-α, z between the lowest and the gradient
/// height.
double beta_gz(const Profile& profile, double height);

using Pressure = std::variant<double, model::WindPressure, model::SnowPressure>;

/// The characteristic pressure, N/mm²: as given; wk = βgz·μsl·μz·w0 (8.1.1-2) or βz·μs·μz·w0
/// (8.1.1-1); -sk = -μr·s0 (7.1-1), which acts downwards.
double pressure_of(const Pressure& pressure);

/// A step from the parameters to the pressure.
struct Step {
  std::string symbol;   ///< "μz"
  std::string formula;  ///< "max(1, 1·(z/10)^0.3)"
  std::string numbers;  ///< the formula with its numbers; empty when it has none
  double value = 0.0;
  std::string unit;    ///< empty: a bare number
  std::string source;  ///< "GB 50009-2012, 8.2.1", or where else the value is from; English
};

/// How the pressure is worked out, in units of the user; a given one has no steps.
std::vector<Step> steps_of(const Pressure& pressure, const model::Units& units);

/// "kN/m²"
std::string pressure_unit(const model::Units& units);
/// N/mm² in one unit of pressure.
double pressure_scale(const model::Units& units);

}  // namespace aluframe::area_loads
