#include "tz_alu/engine/shear.h"

#include <cmath>

namespace alu_engine {

double ShearStressY(const ALU_SECT_DATA& sect, const AluDgnSectForce& force, double k) {
  return k * std::fabs(force.dForce[ALU_FORCE_FY]) * sect.dQzb / sect.dIzz;
}

double ShearStressZ(const ALU_SECT_DATA& sect, const AluDgnSectForce& force, double k) {
  return k * std::fabs(force.dForce[ALU_FORCE_FZ]) * sect.dQyb / sect.dIyy;
}

}  // namespace alu_engine
