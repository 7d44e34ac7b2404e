#pragma once

#include <array>
#include <cstdint>
#include <optional>
#include <variant>
#include <vector>

#include "aluframe/model/load_targets.h"
#include "aluframe/model/table.h"

/// Loads per area as the engineer describes them: on a plane region, on the panels between
/// elements, or on elements by the spacing at which they stand. N, mm.
///
///     AreaLoad wind;
///     wind.region.nodes = {1, 2, 3, 4};
///     wind.direction = std::nullopt;   // square to the plane
///     wind.pressure = 1.2e-3;          // N/mm²: 1.2 kN/m²
///     wind.span = std::array{1.0, 0.0, 0.0};   // strips along X
namespace aluframe::model {

/// Ground roughness of GB 50009-2012, 8.2.1.
enum class Roughness : std::uint8_t { a, b, c, d };

/// Numbers of the wind profile that take the place of those of a ground roughness. Lengths in mm.
struct WindProfile {
  std::optional<double> mu_10 = std::nullopt;   ///< μz at 10 m
  std::optional<double> alpha = std::nullopt;   ///< exponent of the wind speed; μz has twice it
  std::optional<double> mu_min = std::nullopt;  ///< smallest μz
  std::optional<double> gradient_height = std::nullopt;  ///< above which nothing grows
  std::optional<double> lowest_height = std::nullopt;    ///< below which βgz does not grow
  std::optional<double> i_10 = std::nullopt;             ///< turbulence intensity at 10 m
  std::optional<double> g = std::nullopt;                ///< peak factor

  friend bool operator==(const WindProfile&, const WindProfile&) = default;
};

/// Characteristic wind pressure by its parameters (GB 50009-2012, 8.1.1): of cladding with its
/// gust factor βgz and local shape factor μsl, or of the main structure with the βz and μs that
/// the engineer gives.
struct WindPressure {
  double w0 = 0.0;  ///< reference pressure, N/mm²
  Roughness roughness = Roughness::b;
  double height = 0.0;                           ///< z above the ground, mm
  double shape = 1.0;                            ///< μsl of cladding, μs of the main structure
  std::optional<double> beta_z = std::nullopt;   ///< the main structure has it
  std::optional<double> mu_z = std::nullopt;     ///< in place of the code's
  std::optional<double> beta_gz = std::nullopt;  ///< in place of the code's
  WindProfile profile = {};

  friend bool operator==(const WindPressure&, const WindPressure&) = default;
};

/// Characteristic snow load by its parameters (GB 50009-2012, 7.1.1), on the horizontal projection.
struct SnowPressure {
  double s0 = 0.0;    ///< reference snow pressure, N/mm²
  double mu_r = 1.0;  ///< shape factor of the roof

  friend bool operator==(const SnowPressure&, const SnowPressure&) = default;
};

/// A plane polygon by its corners in order, which are nodes or points. Neither: there is none.
struct AreaRegion {
  std::vector<Number> nodes;
  std::vector<std::array<double, 3>> points;

  bool empty() const { return nodes.empty() && points.empty(); }
  friend bool operator==(const AreaRegion&, const AreaRegion&) = default;
};

struct AreaLoad {
  AreaRegion region = {};
  /// That carry the load; without a region they enclose the panels that it acts on.
  Targets elements = {.all = true, .numbers = {}};
  /// Width of the surface that each element carries, mm; nothing: found from the region or panels.
  std::optional<double> spacing = std::nullopt;
  /// Direction in which the surface spans from one element to the next; nothing: two ways.
  std::optional<std::array<double, 3>> span = std::nullopt;
  /// Nothing: square to the plane, by the right-hand rule of the region's corners. Projected: the
  /// pressure is per area seen along the axis.
  std::optional<LoadDirection> direction = std::nullopt;
  /// N/mm², or what it follows from.
  std::variant<double, WindPressure, SnowPressure> pressure = 0.0;

  friend bool operator==(const AreaLoad&, const AreaLoad&) = default;
};

}  // namespace aluframe::model
