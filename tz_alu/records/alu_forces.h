#pragma once

#include <cstdint>

#include "host/framework/types.h"
#include "tz_alu/tz_alu_api.h"

/// Places of `AluDgnSectForce::dForce`.
enum ALU_FORCE : int {
  ALU_FORCE_N = 0,   ///< axial force, tension positive
  ALU_FORCE_FY = 1,  ///< shear along y
  ALU_FORCE_FZ = 2,  ///< shear along z
  ALU_FORCE_MX = 3,  ///< torsion
  ALU_FORCE_MY = 4,  ///< moment about the strong axis y
  ALU_FORCE_MZ = 5,  ///< moment about the weak axis z
};

/// Bending moments at the two ends of a design member.
struct TZ_ALU_API AluDgnEndForce {
  double dMyI;  ///< about y at the member's start
  double dMyJ;  ///< about y at the member's end
  double dMzI;  ///< about z at the member's start
  double dMzJ;  ///< about z at the member's end

  AluDgnEndForce() { Initial(); }
  void Initial();
};

/// Internal forces of one check position for one combination.
struct TZ_ALU_API AluDgnSectForce {
  double dForce[6];        ///< by ALU_FORCE, in the run's units
  UINT nLComb;             ///< combination key
  std::int32_t nPos;       ///< 0 start, 1 to 3 the quarters, 4 end of the element
  std::int32_t bEndSect;   ///< 1: the position counts as an end of the member
  std::int32_t nSesiType;  ///< seismic type of the combination, 0 not seismic
  AluDgnEndForce end;      ///< end moments of the member for the same combination

  AluDgnSectForce() { Initial(); }
  void Initial();
};
