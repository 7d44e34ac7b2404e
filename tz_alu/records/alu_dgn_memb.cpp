#include "tz_alu/records/alu_dgn_memb.h"

void ALU_DGN_MEMB::Initial() {
  nMemb = 0;
  aElem.RemoveAll();
  nNodeI = nNodeJ = 0;
  dLength = 0.0;
  dKy = dKz = 1.0;
  for (auto& axis : nEndCond) axis[0] = axis[1] = 0;
  bMidSupport = 0;
}
