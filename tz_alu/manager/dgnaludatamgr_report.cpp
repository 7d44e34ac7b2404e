// The report driver: which checks governed, and their blocks in order.

#include "host/zel_lib/zel_lib.h"
#include "tz_alu/engine/alucode_gb50429_07.h"
#include "tz_alu/manager/dgnaludatamgr.h"
#include "tz_alu/manager/release_assertion.h"
#include "tz_alu/manager/user_units.h"

namespace {

constexpr int kLineNoStoredResult = 349;

// Of the two slenderness items only the governing one is reported.
int SkippedSlenderness(const T_RALU_D& record) {
  T_RALU_ITEM itemY;
  T_RALU_ITEM itemZ;
  record.GetMaxRltByItem(RALU_SLENDERNESS_Y, itemY);
  record.GetMaxRltByItem(RALU_SLENDERNESS_Z, itemZ);
  return itemZ.ComPair(itemY) == 1 ? RALU_SLENDERNESS_Y : RALU_SLENDERNESS_Z;
}

}  // namespace

int IAluDgnDataMgr::MakeReport(const KEYS* keys, CString path) {
  return WithUserUnits([&](const T_UNIT_INDEX& units) { return RunReport(keys, path, units); });
}

int IAluDgnDataMgr::RunReport(const KEYS* keys, const CString& path,
                              const T_UNIT_INDEX& userUnits) {
  KEYS elems;
  LCOMBS lcombs;
  if (GetRunKeys(keys, elems, lcombs) == 0) return 0;
  m_pCode->SetUnit();
  CUnitCtrl& units = GetDoc()->GetUnitCtrl();
  units.SetUnitIndexCurrent(kDesignUnits, 0);
  MakeBuffData(elems, lcombs);
  const CString file = path.IsEmpty() ? CDBLib::MakeFileNameWithNewExt(L".alu", 0) : path;
  m_pCode->SetReportPath(file);
  m_pCode->ResetReport();
  LCOMBS listed;
  GetDgnLCombs(listed);
  m_pCode->PrintHeader(listed);
  HandOverText();
  for (const UINT elem : elems) {
    MakeReport(elem);
    HandOverText();
  }
  m_pCode->TouchReport();
  CDBLib::RunTextEditor(file, zel::lib::MMSGFunction::GetValue(L"IDS_MAIN_RIBBON_MENU_ALU_DGN"), 1,
                        1800, 900, 1500, 1000, 0);
  units.SetUnitIndexCurrent(userUnits, 0);
  return 1;
}

void IAluDgnDataMgr::HandOverText() const {
  const std::wstring text = m_pCode->TakeText();
  if (m_reportText) m_reportText(text);
}

int IAluDgnDataMgr::GetLostReportBlocks() const {
  return m_pCode->LostBlocks();
}

int IAluDgnDataMgr::MakeReport(UINT elem) {
  ALU_DGN_DATA data;
  if (GetDgnData(elem, data) == 0) return 0;
  data.bWriteResult = 0;
  data.bReport = 0;
  T_RALU_D record;
  if (ReadGoverning(elem, record) == 0) return 0;
  if (record.nHasResult == 0) return 1;
  m_pCode->PrintMember(data);
  data.bReport = 1;
  const int skipped = SkippedSlenderness(record);
  for (int type = 0; type < kResultItems; ++type) {
    T_RALU_ITEM item;
    if (record.GetMaxRltByItem(type, item) < 0 || type == skipped) continue;
    const T_RALU_RLT again = ReportItem(data, item, type);
    GetDoc()->GetPostCtrl().AluDgnMgr().CheckedAgain(elem, type, item, again);
  }
  return 1;
}

int IAluDgnDataMgr::ReadGoverning(UINT elem, T_RALU_D& record) {
  if (GetDoc()->GetPostCtrl().AluDgnMgr().ReadDesignResult(elem, record, 0, 0, 0) != 0) return 1;
  AssertDgnAluDataMgr(kLineNoStoredResult);
  LCOMBS lcombs;
  GetDgnLCombs(lcombs);
  return CheckCode(elem, lcombs, record);
}

T_RALU_RLT IAluDgnDataMgr::ReportItem(ALU_DGN_DATA& data, const T_RALU_ITEM& item, int type) {
  data.SetCheckFlagAll(0);
  data.nCheckFlag[type] = 1;
  const T_LCOM_MAXMIN_K key = MakeLcombKey(item.nLComb, item.nMinSide);
  T_ALU_FORCE_D forces;
  if (GetDgnForce(data.nElem, key, forces) == 0) return {};
  AluDgnEndForce end;
  GetDgnEndForce(end, data.nElem, key, forces);
  AluDgnSectForce sectForce;
  GetDgnSectForce(end, forces, item.nPos, sectForce);
  sectForce.bEndSect = IsEndSectCal(data.nElem, item.nPos);
  T_RALU_SECT scratch;
  m_pCode->CheckCode(data, sectForce, scratch);
  return scratch.aItem[static_cast<std::size_t>(type)];
}
