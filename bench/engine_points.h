#pragma once

#include <string>
#include <vector>

#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_forces.h"

/// A realistic check point of a kind of section.
struct EnginePoint {
  std::string shape;  ///< "H", "H welded", "H slender", ...
  ALU_DGN_DATA data;
  AluDgnSectForce force;
};

/// Check points for measuring the engine's speed: all seven shapes, unwelded and welded, with
/// stocky and with slender plates where the shape can have them, each in the five force states,
/// with member types, end conditions, alloys and moment factors in turn, all checks on.
std::vector<EnginePoint> engine_points();
