#pragma once

#include <optional>

#include "tz_alu/records/alu_dgn_data.h"

namespace aluframe::second_opinion {

/// The same element with its section turned upside down: what compressed the bottom flange
/// compresses the top flange, so My and the end moments about y change their sign in questions
/// about it. The checks look at the top flange alone in several places; asking both ways looks at
/// both.
///
/// A tee upside down is an H whose top flange is as narrow as the web and has ribs beyond any
/// limit, because the checks do not judge the plates of a tee either. Nothing for a welded tee,
/// which the checks have no such form for.
std::optional<ALU_DGN_DATA> mirrored(const ALU_DGN_DATA& data);

}  // namespace aluframe::second_opinion
