#pragma once

#include "tz_alu/engine/design_strength.h"
#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_forces.h"

namespace alu_engine {

/// What a check reads: the design input and forces of one position, and the material with its texts
/// already looked up.
struct CHECK_INPUT {
  const ALU_DGN_DATA& data;
  const AluDgnSectForce& force;
  const MATERIAL_CLASS& material;

  const ALU_SECT_DATA& Section() const { return data.code.sect; }
  const ALU_PARA_DATA& Parameters() const { return data.code.para; }
  double N() const { return force.dForce[ALU_FORCE_N]; }
  double My() const { return force.dForce[ALU_FORCE_MY]; }
  double Mz() const { return force.dForce[ALU_FORCE_MZ]; }
  /// Elastic modulus, N/mm².
  double E() const { return static_cast<double>(data.code.matl.nElast); }
};

}  // namespace alu_engine
