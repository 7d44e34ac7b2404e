#pragma once

#include "tz_alu/records/alu_dgn_data.h"

namespace alu_engine {

/// Governing width-to-thickness ratio of a section's plates over its limit. Plates are taken as
/// fully effective, which is a ratio of 0; local buckling is not checked yet.
///
/// Not a number when a plate that decides has neither width nor thickness (0/0): such a section
/// cannot be judged. That is how a section of a shape unknown to the checks looks, which arrives as
/// a channel without dimensions. Tees, double channels and solid rounds are never judged: always 0.
double GoverningPlateRatio(const ALU_SECT_DATA& sect);

}  // namespace alu_engine
