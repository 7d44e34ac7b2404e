#include "tz_alu/records/alu_forces.h"

#include <algorithm>
#include <iterator>

void AluDgnEndForce::Initial() {
  dMyI = dMyJ = dMzI = dMzJ = 0.0;
}

void AluDgnSectForce::Initial() {
  std::fill(std::begin(dForce), std::end(dForce), 0.0);
  nLComb = 0;
  nPos = 0;
  bEndSect = 0;
  nSesiType = 0;
  end.Initial();
}
