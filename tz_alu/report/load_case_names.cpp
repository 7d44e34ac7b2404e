#include "tz_alu/report/load_case_names.h"

#include "host/tz_base/tz_base.h"
#include "host/tz_db/services.h"
#include "tz_alu/report/number_format.h"

namespace alu_report {

namespace {

constexpr std::size_t kNameWidth = 14;
constexpr int kUnknownMovingLoadCode = 216;
constexpr int kUnknownEntryKind = 251;

void RaiseReleaseAssertion(int line) {
  if (CAppBase::IsReleaseAssert_ST() == 0) return;
  CAppBase::ReleaseAssertion_ST(L"aluprint", line);
}

const CAttrCtrl& Attributes() {
  return CDBDoc::GetDocPoint()->GetAttrCtrl();
}

std::wstring Padded(const CString& name) {
  return PadLeft(name.GetString(), kNameWidth);
}

// Name of a case that may be missing, which leaves it empty.
template <class CASE>
std::wstring NameOf(int (CAttrCtrl::*get)(UINT, CASE&) const, UINT number,
                    const wchar_t* ending = L"") {
  CASE found;
  (Attributes().*get)(number, found);
  return Padded(found.strName + ending);
}

std::wstring StaticName(UINT number) {
  T_STLD_D found;
  CDBDoc::GetDocPoint()->GetPostCtrl().GetStld(number, found);
  return Padded(found.strName);
}

std::wstring CombinationName(UINT number) {
  constexpr int kPartOfAnother = 2;
  T_LCOM_D found;
  Attributes().GetLcom(kPartOfAnother, number, found);
  return Padded(found.strName);
}

// Name of a moving-load case; nothing when the host lacks it.
template <class CASE>
std::optional<std::wstring> MovingNameOf(int (CAttrCtrl::*get)(UINT, CASE&) const, UINT number) {
  CASE found;
  if ((Attributes().*get)(number, found) == 0) return std::nullopt;
  return Padded(found.strName);
}

int MovingLoadCode() {
  T_MVCD_D found;
  if (Attributes().GetMvcd(found) == 0) found = T_MVCD_D();
  return found.nCode;
}

std::optional<std::wstring> MovingName(UINT number) {
  const int code = MovingLoadCode();
  switch (code) {
    case 0:
      return Padded(L"");
    case 3:
      return MovingNameOf(&CAttrCtrl::GetMvldch, number);
    case 5:
      return MovingNameOf(&CAttrCtrl::GetMvldjp, number);
    case 7:
      return MovingNameOf(&CAttrCtrl::GetMvldid, number);
    case 10:
      return MovingNameOf(&CAttrCtrl::GetMvldbs, number);
    case 18:
      return MovingNameOf(&CAttrCtrl::GetMvldfr, number);
    case 100:
      return MovingNameOf(&CAttrCtrl::GetMvldtr, number);
    default:
      break;
  }
  if (code >= 1 && code <= 16) return MovingNameOf(&CAttrCtrl::GetMvld, number);
  RaiseReleaseAssertion(kUnknownMovingLoadCode);
  return Padded(L"");
}

}  // namespace

std::optional<std::wstring> EntryName(const T_LCOM_ENTRY_D& entry) {
  switch (entry.nKind) {
    case LCOM_ENTRY_STATIC:
      return StaticName(entry.nNumber);
    case LCOM_ENTRY_SPECTRUM:
      return NameOf(&CAttrCtrl::GetSplc, entry.nNumber, L"(RS)");
    case LCOM_ENTRY_ECCENTRIC_SPECTRUM:
      return NameOf(&CAttrCtrl::GetSplc, entry.nNumber, L"(ES)");
    case LCOM_ENTRY_TIME_HISTORY:
      return NameOf(&CAttrCtrl::GetThis, entry.nNumber);
    case LCOM_ENTRY_MOVING:
      return MovingName(entry.nNumber);
    case LCOM_ENTRY_SETTLEMENT:
      return NameOf(&CAttrCtrl::GetSmlc, entry.nNumber);
    case LCOM_ENTRY_SEISMIC_STATIC:
      return NameOf(&CAttrCtrl::GetSgld, entry.nNumber);
    case LCOM_ENTRY_CRANE:
      return NameOf(&CAttrCtrl::GetCran, entry.nNumber);
    case LCOM_ENTRY_COMBINATION:
      return CombinationName(entry.nNumber);
    default:
      RaiseReleaseAssertion(kUnknownEntryKind);
      return std::wstring();
  }
}

}  // namespace alu_report
