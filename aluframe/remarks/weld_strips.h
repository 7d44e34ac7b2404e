#pragma once

#include "aluframe/model/section.h"

namespace aluframe::remarks {

/// The widest heat-affected strip that the plates of a section have room for, mm: the clear width
/// of a plate over the strips that lie on it, for the narrowest plate. One strip lies on the
/// outstand of a channel and on the web of a tee, two on an inner plate and on the flange of an H
/// or tee (one on each side of the web). Infinite for shapes whose welds leave no strips (P, SR,
/// UP).
double widest_strip(const model::Section& section);

}  // namespace aluframe::remarks
