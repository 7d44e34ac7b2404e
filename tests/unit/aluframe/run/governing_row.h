#pragma once

#include "aluframe/store/result_file.h"

namespace aluframe::run {

/// The governing check of a beam: at its start, in combination 3.
inline store::GoverningRow row(std::uint32_t element, int item, double demand, double capacity) {
  return {element, 2, item, {.nPos = 0, .dDemand = demand, .dCapacity = capacity, .nLComb = 3}};
}

}  // namespace aluframe::run
