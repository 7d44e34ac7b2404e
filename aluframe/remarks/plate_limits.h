#pragma once

#include "aluframe/model/material.h"
#include "aluframe/model/section.h"

namespace aluframe::remarks {

/// How a plate is held along its length.
enum class PlateEdges {
  one_held,   ///< outstands: flanges of tees and channels, stems of tees
  both_held,  ///< webs
  round       ///< wall of a pipe
};

/// Largest width over thickness of a plate without ribs that does not buckle locally in uniform
/// compression, GB 50429-2007, chapter 5; of a pipe its diameter over the wall. Proof strength and
/// weld are those of the section, as the checks take them.
double plate_limit(PlateEdges edges, const model::Section& section,
                   const model::Material& material);

/// √(240/f0.2), with which limits of width over thickness go down as the strength goes up.
double strength_factor(const model::Section& section, const model::Material& material);

}  // namespace aluframe::remarks
