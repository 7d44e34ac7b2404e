#include "aluframe/services/unit_scale.h"

#include <fmt/format.h>

#include <charconv>
#include <stdexcept>
#include <string>

#include "aluframe/model/units.h"

namespace aluframe::services {

namespace {

constexpr int last_force_index = static_cast<int>(model::ForceUnit::kip);
constexpr int last_length_index = static_cast<int>(model::LengthUnit::inch);

double rounded_to(int digits, double value) {
  const std::string text = fmt::format("{:.{}g}", value, digits);
  double rounded = value;
  std::from_chars(text.data(), text.data() + text.size(), rounded);
  return rounded;
}

void require_in_table(const char* what, int index, int last) {
  if (index < 0 || index > last) {
    throw std::out_of_range(std::string(what) + " unit index " + std::to_string(index) +
                            " is outside 0.." + std::to_string(last));
  }
}

}  // namespace

UnitScale::UnitScale(const T_UNIT_INDEX& index) : index_(index) {
  require_in_table("force", index.nForce, last_force_index);
  require_in_table("length", index.nLength, last_length_index);
  const double newtons = model::newtons_per(static_cast<model::ForceUnit>(index.nForce));
  const double millimetres = model::millimetres_per(static_cast<model::LengthUnit>(index.nLength));
  force_ = 1.0 / newtons;
  length_ = 1.0 / millimetres;
  stress_ = millimetres * millimetres / newtons;
  identity_ = force_ == 1.0 && length_ == 1.0;
}

double UnitScale::stress_in_newtons(double value) const {
  if (identity_) return value;
  const double quotient = value / stress_;
  for (const int digits : {15, 16}) {
    const double rounded = rounded_to(digits, quotient);
    if (stress(rounded) == value) return rounded;
  }
  return quotient;
}

double UnitScale::power(double value, int exponent) const {
  if (identity_) return value;
  for (int i = 0; i < exponent; ++i) value *= length_;
  return value;
}

}  // namespace aluframe::services
