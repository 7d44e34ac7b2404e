#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/second_opinion/element_opinion.h"
#include "host/tz_db/ralu.h"
#include "tz_alu/records/alu_cal.h"

namespace aluframe::points {

/// One line, line break included: id, what the engine returned, demand and capacity of the eight
/// items, section parameters and report values. Numbers have 17 significant digits, what is not
/// finite is "inf", "-inf" or "nan".
std::string point_line(std::string_view id, int returned, const T_RALU_SECT& result,
                       const ALU_CAL_BUFF& buffer, std::string_view safe = {});

/// The second opinion of a point as a JSON object, for `point_line`.
std::string safe_text(const second_opinion::SafeRatio& ratio,
                      const std::vector<second_opinion::Answer>& answers,
                      std::optional<double> torsion);

/// `{"line": ..., "error": "..."}` with a line break.
std::string error_line(std::uint64_t line, std::string_view text);

}  // namespace aluframe::points
