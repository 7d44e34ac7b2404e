#include "tz_alu/report/aluprint.h"

#include "tz_alu/tolerance.h"

CALUPrint::~CALUPrint() = default;

CALU_GB50429_07Print::~CALU_GB50429_07Print() = default;

bool CALU_GB50429_07Print::IsTension(const AluDgnSectForce& force) {
  return force.dForce[ALU_FORCE_N] > alu_engine::kTolerance;
}

bool CALU_GB50429_07Print::IsCompression(const AluDgnSectForce& force) {
  return force.dForce[ALU_FORCE_N] < -alu_engine::kTolerance;
}

bool CALU_GB50429_07Print::IsBending(const AluDgnSectForce& force) {
  return !alu_engine::IsZero(force.dForce[ALU_FORCE_MY]) ||
         !alu_engine::IsZero(force.dForce[ALU_FORCE_MZ]);
}

bool CALU_GB50429_07Print::IsPureTension(const AluDgnSectForce& force) {
  return IsTension(force) && !IsBending(force);
}

bool CALU_GB50429_07Print::IsPureCompression(const AluDgnSectForce& force) {
  return IsCompression(force) && !IsBending(force);
}

bool CALU_GB50429_07Print::IsPureBending(const AluDgnSectForce& force) {
  return !IsTension(force) && !IsCompression(force) && IsBending(force);
}

bool CALU_GB50429_07Print::IsTensionBending(const AluDgnSectForce& force) {
  return IsTension(force) && IsBending(force);
}

bool CALU_GB50429_07Print::IsCompressionBending(const AluDgnSectForce& force) {
  return IsCompression(force) && IsBending(force);
}
