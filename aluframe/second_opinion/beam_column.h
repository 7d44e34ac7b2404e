#pragma once

#include "aluframe/second_opinion/answer.h"
#include "aluframe/second_opinion/asked_element.h"

namespace aluframe::second_opinion {

/// Asks the stability of compression with bending: about y, and combined about z.
///
/// @param asked the element's own subject, or the same with other assumptions about its moments
/// @param code  what the checks have made of these forces; nullptr: they have not looked at them
void ask_beam_column(const AskedElement& element, const Subject& asked, const Position& at,
                     const T_RALU_SECT* code, const Take& take);

}  // namespace aluframe::second_opinion
