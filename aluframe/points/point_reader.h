#pragma once

#include <string>
#include <string_view>
#include <variant>

#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_forces.h"

namespace aluframe::points {

/// One check point: what the engine reads.
struct Point {
  std::string id = "null";  ///< the user's label, as JSON
  ALU_DGN_DATA data;
  AluDgnSectForce force;
};

/// What is wrong with a line: where, what was found and what is allowed, such as
/// "/data/code/sect/dSize: found 7 numbers, must be 8".
struct PointError {
  std::string text;
};

/// Reads `{"id": ..., "data": {...}, "force": {...}}`. Fields have the names of the engine's
/// records; one that is missing keeps the record's default, one that is unknown, given twice, of a
/// wrong type or not finite is an error. An id is a text, true, false, null or a number up to 2^53.
std::variant<Point, PointError> read_point(std::string_view line);

}  // namespace aluframe::points
