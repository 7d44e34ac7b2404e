#pragma once

#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_forces.h"

// Shear stresses in N/mm², to be compared with fv (GB 50429-2007, chapter 6). They use the gross
// section. A second moment of area of 0 divides as IEEE arithmetic does.

namespace alu_engine {

/// Shear along y: k·|Fy|·Qzb/Izz, with the first moment over width Qzb, mm².
double ShearStressY(const ALU_SECT_DATA& sect, const AluDgnSectForce& force, double k);

/// Shear along z: k·|Fz|·Qyb/Iyy.
double ShearStressZ(const ALU_SECT_DATA& sect, const AluDgnSectForce& force, double k);

}  // namespace alu_engine
