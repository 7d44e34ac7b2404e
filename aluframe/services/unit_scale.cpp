#include "aluframe/services/unit_scale.h"

#include <stdexcept>
#include <string>

#include "aluframe/model/units.h"

namespace aluframe::services {

namespace {

constexpr int last_force_index = static_cast<int>(model::ForceUnit::kip);
constexpr int last_length_index = static_cast<int>(model::LengthUnit::inch);

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
  force_ = 1.0 / model::newtons_per(static_cast<model::ForceUnit>(index.nForce));
  length_ = 1.0 / model::millimetres_per(static_cast<model::LengthUnit>(index.nLength));
  identity_ = force_ == 1.0 && length_ == 1.0;
}

double UnitScale::power(double value, int exponent) const {
  if (identity_) return value;
  for (int i = 0; i < exponent; ++i) value *= length_;
  return value;
}

}  // namespace aluframe::services
