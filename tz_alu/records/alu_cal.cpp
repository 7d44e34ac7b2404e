#include "tz_alu/records/alu_cal.h"

#include <algorithm>
#include <iterator>

void ALU_CAL_REPORT::Initial() {
  std::fill(std::begin(dValue), std::end(dValue), 0.0);
}

void ALU_CAL_BUFF::Initial() {
  sectpara.Initialize();
  report->Initial();
}
