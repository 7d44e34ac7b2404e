#include "tz_alu/report/detail_block.h"

#include "tz_alu/report/report_literals.h"

namespace alu_report {

double DETAIL_BLOCK::Ratio(RALU_ITEM_TYPE item) const {
  const T_RALU_RLT& result = m_in.result.aItem[item];
  return result.dDemand / result.dCapacity;
}

std::wstring DETAIL_BLOCK::Force(ALU_FORCE force) const {
  return m_print.FormatForce(m_in.force.dForce[force], 3, 10);
}

std::wstring DETAIL_BLOCK::Moment(ALU_FORCE force) const {
  return m_print.FormatMoment(m_in.force.dForce[force], 3, 10);
}

std::wstring DETAIL_BLOCK::SeismicText() const {
  if (!IsSeismic()) return {};
  return kSeismicFactor + Value(m_dGammaRE);
}

}  // namespace alu_report
