#pragma once

#include "host/tz_db/forces.h"
#include "host/tz_db/ralu.h"

namespace aluframe::services {

/// Forces at the two ends alone: this axial force.
inline T_ALU_FORCE_D forces_with(float axial) {
  T_ALU_FORCE_D forces;
  for (auto& position : forces.aForce) position[0] = axial;
  return forces;
}

/// A record with one strength check at each end.
inline T_RALU_D record_with(double demand, double capacity) {
  T_RALU_D record;
  record.nHasResult = 1;
  for (const std::size_t position : {0U, 4U}) {
    record.aSect[position].aItem[RALU_STRENGTH] = {demand, capacity, 0.0};
  }
  record.MakeCompItem();
  return record;
}

}  // namespace aluframe::services
