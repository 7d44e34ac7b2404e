#pragma once

#include "tz_alu/engine/check_input.h"
#include "tz_alu/records/alu_cal.h"

namespace alu_engine {

/// Area and elastic moduli of the gross section, mm² and mm³. An unsymmetric section has moduli of
/// its own for top and bottom fibre, Iyy/|z1| and Iyy/|z3|; any other one Iyy/max|z| for both.
ALU_CAL_SECTPARA GrossSection(const ALU_SECT_DATA& sect);

/// The section parameters that the checks use, with the plate slenderness ratios: of the gross
/// section; with heat-affected strips when the section is welded (`bWelded` = 1) and the shape
/// knows them; with effective thicknesses when a plate of a C, H or B is slender (R > 1). Area and
/// moduli are 0 when they cannot be formed: a top or bottom fibre on the y axis, an unknown shape,
/// plates whose ratio is not a number.
ALU_CAL_SECTPARA SectionParameters(const CHECK_INPUT& in);

/// Whether checks can run with the parameters: area and all three moduli differ from 0. A value
/// that is not a number does; it shows in the results.
bool AreUsable(const ALU_CAL_SECTPARA& para);

}  // namespace alu_engine
