#pragma once

#include "tz_alu/records/alu_dgn_data.h"

namespace aluframe::second_opinion {

/// Shear stress of a torque of 1 N·mm, N/mm² per N·mm = 1/mm³: Bredt, 1/(2·Am·tmin), for a box with
/// Am within the middle lines of its plates; r/It for a pipe or solid round; St-Venant, tmax/It,
/// for open sections, whose warping stresses are not part of it. 0 where the section has no It.
double shear_of_unit_torque(const ALU_SECT_DATA& sect);

}  // namespace aluframe::second_opinion
