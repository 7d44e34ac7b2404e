#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "host/tz_db/ralu.h"
#include "tz_alu/records/alu_cal.h"

namespace aluframe::points {

/// One line, line break included: id, what the engine returned, demand and capacity of the eight
/// items, section parameters and report values. Numbers have 17 significant digits, what is not
/// finite is "inf", "-inf" or "nan".
std::string point_line(std::string_view id, int returned, const T_RALU_SECT& result,
                       const ALU_CAL_BUFF& buffer);

/// `{"line": ..., "error": "..."}` with a line break.
std::string error_line(std::uint64_t line, std::string_view text);

}  // namespace aluframe::points
