#pragma once

#include "tz_alu/records/alu_forces.h"
#include "tz_alu/tolerance.h"
#include "tz_alu/tz_alu_api.h"

/// Base of what checks by a design code: an object that the manager owns and destroys through it.
class TZ_ALU_API CALUPrint {
 public:
  CALUPrint() = default;
  CALUPrint(const CALUPrint&) = delete;
  CALUPrint& operator=(const CALUPrint&) = delete;
  virtual ~CALUPrint();
};

/// The force states of GB 50429-2007, by which the checks choose their formulas.
///
/// Tension is N > 1e-10 and compression N < −1e-10; a moment of magnitude below 1e-10 counts as
/// zero. |N| = 1e-10 is therefore neither tension nor compression, and a moment of magnitude 1e-10
/// is bending.
class TZ_ALU_API CALU_GB50429_07Print : public CALUPrint {
 public:
  ~CALU_GB50429_07Print() override;

  static bool IsTension(const AluDgnSectForce& force) {
    return force.dForce[ALU_FORCE_N] > alu_engine::kTolerance;
  }
  static bool IsCompression(const AluDgnSectForce& force) {
    return force.dForce[ALU_FORCE_N] < -alu_engine::kTolerance;
  }
  /// My or Mz is not zero.
  static bool IsBending(const AluDgnSectForce& force) {
    return !alu_engine::IsZero(force.dForce[ALU_FORCE_MY]) ||
           !alu_engine::IsZero(force.dForce[ALU_FORCE_MZ]);
  }
  static bool IsPureTension(const AluDgnSectForce& force) {
    return IsTension(force) && !IsBending(force);
  }
  static bool IsPureCompression(const AluDgnSectForce& force) {
    return IsCompression(force) && !IsBending(force);
  }
  /// Neither tension nor compression, with bending.
  static bool IsPureBending(const AluDgnSectForce& force) {
    return !IsTension(force) && !IsCompression(force) && IsBending(force);
  }
  static bool IsTensionBending(const AluDgnSectForce& force) {
    return IsTension(force) && IsBending(force);
  }
  static bool IsCompressionBending(const AluDgnSectForce& force) {
    return IsCompression(force) && IsBending(force);
  }
};
