#pragma once

#include "host/tz_db/keys.h"

namespace aluframe::services {

/// Turns the model's N and mm into the host's current units. In N and mm every operation returns
/// its argument.
class UnitScale {
 public:
  UnitScale() = default;
  /// @throws std::out_of_range for an index outside the host's unit tables
  explicit UnitScale(const T_UNIT_INDEX& index);

  const T_UNIT_INDEX& index() const { return index_; }
  bool is_identity() const { return identity_; }

  double length(double value) const { return identity_ ? value : value * length_; }
  double area(double value) const { return power(value, 2); }
  double inertia(double value) const { return power(value, 4); }
  double warping_constant(double value) const { return power(value, 6); }
  double force(double value) const { return identity_ ? value : value * force_; }
  double moment(double value) const { return identity_ ? value : value * force_ * length_; }
  double stress(double value) const { return identity_ ? value : value * stress_; }
  /// N/mm² of a stress in the current units: the value with the fewest digits that `stress` turns
  /// into it, so that 7e7 kN/m² are 70000 N/mm².
  double stress_in_newtons(double value) const;

 private:
  double power(double value, int exponent) const;

  T_UNIT_INDEX index_{0, 2};
  double force_ = 1.0;   ///< current force units in one newton
  double length_ = 1.0;  ///< current length units in one millimetre
  double stress_ = 1.0;  ///< current stress units in one N/mm²
  bool identity_ = true;
};

}  // namespace aluframe::services
