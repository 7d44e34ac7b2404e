#pragma once

#include <optional>
#include <string>

#include "host/tz_db/ralu.h"

namespace aluframe::services {

/// What tells a stored check from the same check made again, "demand 79.6, 119.4 as stored";
/// nothing when the two agree. They do when demand and capacity differ by no more than a millionth,
/// of the demand by a millionth of the capacity if that is larger: element forces have 24 bits,
/// whose last one another build of the program may round otherwise. No number agrees with no
/// number.
std::optional<std::string> difference_of_checks(const T_RALU_ITEM& stored, const T_RALU_RLT& again);

}  // namespace aluframe::services
