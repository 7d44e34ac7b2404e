#include "tz_alu/manager/dgnaludatamgr.h"

#include "host/framework/messagebox.h"
#include "host/tz_base/tz_base.h"
#include "host/tz_dgn/tz_dgn.h"
#include "host/zel_lib/zel_lib.h"
#include "tz_alu/engine/alucode_gb50429_07.h"
#include "tz_alu/manager/release_assertion.h"
#include "tz_alu/manager/user_units.h"

using zel::lib::MMSGFunction;

namespace {

constexpr int kHashBlockSize = 10;
constexpr int kLineElementNotChecked = 119;
bool IsInnerPosition(int pos) {
  return pos != 0 && pos != kCheckPositions - 1;
}

}  // namespace

IAluDgnDataMgr::IAluDgnDataMgr()
    : m_pCode(std::make_unique<CALUCode_GB50429_07>()),
      m_mapMemb(kHashBlockSize),
      m_mapSect(kHashBlockSize),
      m_mapMatl(kHashBlockSize),
      m_mapLcomb(kHashBlockSize) {}

IAluDgnDataMgr::~IAluDgnDataMgr() = default;

IAluDgnDataMgr* IAluDgnDataMgr::Instance() {
  static IAluDgnDataMgr manager;
  return &manager;
}

CDBDoc* IAluDgnDataMgr::GetDoc() const {
  return CDBDoc::GetDocPoint();
}

int IAluDgnDataMgr::CheckCode(const KEYS* keys) {
  return WithUserUnits([&](const T_UNIT_INDEX& units) { return RunCheck(keys, units); });
}

int IAluDgnDataMgr::RunCheck(const KEYS* keys, const T_UNIT_INDEX& userUnits) {
  KEYS elems;
  LCOMBS lcombs;
  if (GetRunKeys(keys, elems, lcombs) == 0) return 0;
  if (GetDoc()->GetPostCtrl().AluDgnMgr().CreateDesignResultFile() == 0) return 0;
  GetDoc()->GetUnitCtrl().SetUnitIndexCurrent(kDesignUnits, 0);
  MakeBuffData(elems, lcombs);
  return CheckElements(elems, lcombs, userUnits);
}

int IAluDgnDataMgr::GetRunKeys(const KEYS* keys, KEYS& elems, LCOMBS& lcombs) {
  if (GetDoc()->GetAluDgnTool().IsUseAluDgn() == 0) return 0;
  if (keys != nullptr) {
    FiltAluKeys(*keys, elems);
  } else {
    GetDgnKeys(elems);
  }
  const int nLcombs = GetDgnLCombs(lcombs);
  return ShowErrorMessage(static_cast<int>(elems.GetSize()), nLcombs);
}

int IAluDgnDataMgr::CheckElements(const KEYS& keys, const LCOMBS& lcombs,
                                  const T_UNIT_INDEX& userUnits) {
  CUnitCtrl& units = GetDoc()->GetUnitCtrl();
  const auto progress = CDgnProgressDlg::Create();
  progress->Create_ProgressDlg(MMSGFunction::GetValue(L"IDS_MAIN_RIBBON_MENU_ALU_DGN"),
                               MMSGFunction::GetValue(L"IDS_DGN_TEXT_READ_CHK_ALU"), 1);
  const int total = static_cast<int>(keys.GetSize());
  for (int i = 0; i < total; ++i) {
    T_RALU_D governing;
    if (CheckCode(keys[i], lcombs, governing) == 0) AssertDgnAluDataMgr(kLineElementNotChecked);
    if (progress->Update_ProgressDlg(i + 1, total) != 0) {
      units.SetUnitIndexCurrent(userUnits, 0);
      progress->Delete_ProgressDlg();
      return 0;
    }
  }
  progress->Delete_ProgressDlg();
  CAluDesignMgr& results = GetDoc()->GetPostCtrl().AluDgnMgr();
  const int flag = results.CheckDesignFile();
  results.SetDesignFlag(flag);
  units.SetUnitIndexCurrent(userUnits, 0);
  GDisplayAnalString(MMSGFunction::GetValue(L"IDS_DGN_COM_END_DGN") +
                         MMSGFunction::GetValue(L"IDS_MAIN_RIBBON_MENU_ALU_DGN"),
                     0);
  return flag;
}

int IAluDgnDataMgr::CheckCode(UINT elem, const LCOMBS& lcombs, T_RALU_D& governing) {
  governing.Initial();
  ALU_DGN_DATA data;
  if (GetDgnData(elem, data) == 0) return 0;
  CAluDesignMgr& results = GetDoc()->GetPostCtrl().AluDgnMgr();
  T_RALU_D current;
  for (const T_LCOM_MAXMIN_K lcomb : lcombs) {
    if (CheckCode(elem, lcomb, data, current) == 0) continue;
    if (governing.nHasResult == 0) {
      governing = current;
    } else {
      governing.GetMaxRlt(current);
    }
    if (data.bWriteResult == 1) {
      results.WriteDesignResult(elem, current, LcombNumber(lcomb), LcombMinSide(lcomb), 0);
    }
  }
  if (data.bWriteResult == 1) results.WriteDesignResult(elem, governing, 0, 0, 0);
  return 1;
}

int IAluDgnDataMgr::CheckCode(UINT elem, T_LCOM_MAXMIN_K lcomb, ALU_DGN_DATA& data,
                              T_RALU_D& result) {
  result.Initial();
  T_ALU_FORCE_D forces;
  if (GetDgnForce(elem, lcomb, forces) == 0) return 0;
  AluDgnEndForce end;
  GetDgnEndForce(end, elem, lcomb, forces);
  ALU_CAL_BUFF buffer;
  for (int pos = 0; pos < kCheckPositions; ++pos) {
    if (IsInnerPosition(pos) && forces.bInner == 0) continue;
    AluDgnSectForce sectForce;
    GetDgnSectForce(end, forces, pos, sectForce);
    sectForce.bEndSect = IsEndSectCal(elem, pos);
    m_pCode->CheckCode(data, sectForce, result.aSect[static_cast<std::size_t>(pos)], buffer);
  }
  result.nHasResult = 1;
  result.nMembType = data.nMembType;
  result.SetLCombKey(LcombNumber(lcomb), LcombMinSide(lcomb));
  result.MakeCompItem();
  return 1;
}

int IAluDgnDataMgr::GetDgnKeys(KEYS& out) {
  KEYS candidates;
  GetDoc()->GetViewCtrl().GetAllSelectedElem(candidates);
  if (candidates.IsEmpty()) {
    const int count = GetDoc()->GetAttrCtrl().GetCountElem(1);
    for (int i = 1; i <= count; ++i) candidates.Add(GetDoc()->GetPostCtrl().GetOriginElem(i));
  }
  out.RemoveAll();
  return candidates.IsEmpty() ? 0 : FiltAluKeys(candidates, out);
}

int IAluDgnDataMgr::FiltAluKeys(const KEYS& in, KEYS& out) {
  return GetDoc()->GetAluDgnTool().FiltAluKeysByMatl(in, out, 1);
}

int IAluDgnDataMgr::GetDgnLCombs(LCOMBS& out) {
  return GetDoc()->GetAluDgnTool().GetAluDgnLCombs(out, kAluDesignKind, 0);
}

int IAluDgnDataMgr::ShowErrorMessage(int nElems, int nLcombs) {
  if (nElems >= 1 && nLcombs >= 1) return 1;
  const CString title = MMSGFunction::GetValue(L"IDS_DGN_COM_ERROR_TITLE");
  CString message;
  if (nLcombs < 1) {
    message = title + L"\n\t" + MMSGFunction::GetValue(L"IDS_ACS_NO_LCOM_GOOD");
  }
  // kept: the message about elements replaces the one about combinations.
  if (nElems < 1) {
    message = title + L"\n\t" + MMSGFunction::GetValue(L"IDS_ACS_NO_SECT_TYPE_GOOD");
  }
  if (GetDoc()->IsRegTestMode()) {
    GSaveHistoryNF(message, 0, nullptr);
  } else {
    AfxMessageBox(message, MB_OK | MB_ICONEXCLAMATION);
  }
  return 0;
}

int IAluDgnDataMgr::MakeBuffData(const KEYS& keys, const LCOMBS& lcombs) {
  if (MakeBuffMemb(keys) == 0) return 0;
  if (MakeBuffSect(keys) == 0) return 0;
  if (MakeBuffMatl(keys) == 0) return 0;
  return MakeBuffLcomb(lcombs);
}

int IAluDgnDataMgr::GetDgnData(UINT elem, ALU_DGN_DATA& data) {
  const CAttrCtrl& attributes = GetDoc()->GetAttrCtrl();
  data.Initial();
  data.nElem = elem;
  data.nMembType = attributes.GetMemberType(elem, 0);
  T_ELEM_D element;
  if (attributes.GetElem(elem, element) == 0) return 0;
  if (const ALU_DGN_MEMB* memb = GetMembInfo(elem)) {
    data.dMembLength = memb->dLength;
    for (int end = 0; end < 2; ++end) {
      for (int axis = 0; axis < 2; ++axis) {
        data.nEndCond[end][axis] = memb->nEndCond[axis][end];
      }
    }
  }
  if (!m_mapSect.Lookup(element.nSect, data.code.sect)) return 0;
  if (!m_mapMatl.Lookup(element.nMatl, data.code.matl)) return 0;
  return GetPara(elem, data.code.para);
}
