#pragma once

#include <string>

#include "aluframe/explain/derivation.h"
#include "tz_alu/engine/plate_slenderness.h"

/// What limits and effective thicknesses of plates share.
namespace aluframe::explain {

bool is_box(const Derivation& d);
bool is_h(const Derivation& d);

alu_engine::PLATE_RATIOS ratios_of(const Derivation& d);

/// 2·tw of a box, tw of an open section.
Term webs(Derivation& d);

/// "weakly hardening alloy, welded, with ribs".
std::string plate_conditions(const Derivation& d);

}  // namespace aluframe::explain
