#pragma once

#include "aluframe/second_opinion/answer.h"
#include "aluframe/second_opinion/asked_element.h"

/// Questions about strength and shear at one position.
namespace aluframe::second_opinion {

/// C5: shear where the checks, which have made `code`, leave it out.
void ask_shear(const AskedElement& element, const Position& at, const T_RALU_SECT& code,
               const Take& take);

/// C6: both shear forces of a round section meet at one place of its wall.
void ask_resultant_shear(const AskedElement& element, const Position& at, const Take& take);

/// F1: the sum that acts at a corner; F2: the top fibre of an unsymmetric section. Of a position
/// that is bent.
void ask_strength(const AskedElement& element, const Position& at, const Take& take);

/// W3: strength with the reduction of the top flange, for the bottom flange.
void ask_turned_strength(const AskedElement& element, const Position& at, const Take& take);

/// F4: strength at the bottom fibre of a box, with the section that the checks have just then.
void ask_bottom_of_box(const AskedElement& element, const Position& at, const Take& take);

}  // namespace aluframe::second_opinion
