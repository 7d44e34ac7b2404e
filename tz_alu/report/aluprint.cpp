#include "tz_alu/report/aluprint.h"

#include "host/tz_db/services.h"
#include "tz_alu/engine/section_geometry.h"
#include "tz_alu/report/number_format.h"
#include "tz_alu/report/report_stream.h"

using alu_report::FormatValue;

CALUPrint::~CALUPrint() = default;

CALU_GB50429_07Print::~CALU_GB50429_07Print() = default;

bool CALU_GB50429_07Print::IsMonoSymmetric(const ALU_SECT_DATA& sect) {
  return alu_engine::IsUnsymmetric(sect);
}

void CALUPrint::SetUnit() {
  const CUnitCtrl& units = CDBDoc::GetDocPoint()->GetUnitCtrl();
  m_strLength = units.GetUnitSystemLength();
  m_strForce = units.GetUnitSystemForce();
  m_dLength = units.ConvertTgtUnitData2CurUnit(2, 0, 1, 1.0);
  m_dForce = units.ConvertTgtUnitData2CurUnit(2, 0, 2, 1.0);
}

void CALUPrint::ResetReport() const {
  m_nLostBlocks = 0;
  m_strText.clear();
  const rptbasic_ofstream<wchar_t> out(m_strPath.GetString(), std::ios_base::out,
                                       RPT_SHARE::DenyNone);
}

void CALUPrint::TouchReport() const {
  const rptbasic_ofstream<wchar_t> out(m_strPath.GetString(), std::ios_base::app,
                                       RPT_SHARE::DenyNone);
}

std::wstring CALUPrint::FormatLength(double value, unsigned precision, unsigned width) const {
  return FormatValue(value * m_dLength, precision, width);
}

std::wstring CALUPrint::FormatArea(double value, unsigned precision, unsigned width) const {
  return FormatValue(value * (m_dLength * m_dLength), precision, width);
}

std::wstring CALUPrint::FormatModulus(double value, unsigned precision, unsigned width) const {
  return FormatValue(value * (m_dLength * m_dLength * m_dLength), precision, width);
}

std::wstring CALUPrint::FormatInertia(double value, unsigned precision, unsigned width) const {
  const double square = m_dLength * m_dLength;
  return FormatValue(value * (square * square), precision, width);
}

std::wstring CALUPrint::FormatForce(double value, unsigned precision, unsigned width) const {
  return FormatValue(value * m_dForce, precision, width);
}

std::wstring CALUPrint::FormatMoment(double value, unsigned precision, unsigned width) const {
  return FormatValue(value * (m_dForce * m_dLength), precision, width);
}

std::wstring CALUPrint::FormatStress(double value, unsigned precision, unsigned width) const {
  return FormatValue(value * (m_dForce / (m_dLength * m_dLength)), precision, width);
}
