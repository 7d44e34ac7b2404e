#pragma once

#include "tz_alu/records/alu_dgn_data.h"
#include "tz_alu/records/alu_forces.h"

namespace alu_engine {

/// Kinds of check, which differ in their seismic adjustment factor.
enum class FORCE_FACTOR {
  Strength,  ///< strength and shear
  Stability,
};

/// Factor k on the internal forces: the importance factor γ0, or in a seismic combination
/// (`nSesiType` not 0), when the settings ask for it (`bSeismicGammaRE` not 0), the seismic
/// adjustment factor γRE of the kind of check.
double ForceFactor(const ALU_PARA_DATA& para, const AluDgnSectForce& force, FORCE_FACTOR kind);

/// Plasticity adaptation factors: how far a fibre in bending may go beyond yield,
/// GB 50429-2007, chapter 6.
struct PLASTICITY {
  double dGammaY1;  ///< with the modulus of the top fibre
  double dGammaY2;  ///< with the modulus of the bottom fibre
  double dGammaZ;   ///< with the weak-axis modulus
};

/// Factors of a shape. A code outside ALU_SHAPE takes those of the solid round.
PLASTICITY PlasticityFactors(std::int32_t nShape, bool weakHardening);

}  // namespace alu_engine
