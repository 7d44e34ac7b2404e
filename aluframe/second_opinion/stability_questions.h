#pragma once

#include "aluframe/second_opinion/answer.h"
#include "aluframe/second_opinion/asked_element.h"

/// Questions about stability at one position.
namespace aluframe::second_opinion {

/// C1, C2, C3, C4, S6, S8: lateral-torsional buckling as if no axial force acted, with |My| and Mz.
void ask_lateral(const AskedElement& element, const Position& at, const Take& take);

/// S2, and the axial coefficients of compression alone (B1, B8, S3); beside bending those of the
/// beam-column. Of a position that is compressed and of which the checks have made `code`.
void ask_compression(const AskedElement& element, const Position& at, const T_RALU_SECT& code,
                     const Take& take);

}  // namespace aluframe::second_opinion
