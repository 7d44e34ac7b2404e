#include "aluframe/services/design_codes.h"

namespace aluframe::services {

namespace {

struct CodeName {
  const wchar_t* internal;
  const wchar_t* shown;
};

constexpr CodeName code_names[] = {
    {design_code, L"GB50429-2007"},
    {L"GB50068-2018", L"GB50068-2018"},
};

}  // namespace

void list_design_codes(CArray<CString>& out) {
  out.RemoveAll();
  for (const CodeName& code : code_names) out.Add(code.internal);
}

CString shown_code_name(const CString& internal) {
  for (const CodeName& code : code_names) {
    if (internal == code.internal) return code.shown;
  }
  return internal;
}

CString internal_code_name(const CString& shown) {
  for (const CodeName& code : code_names) {
    if (shown == code.shown) return code.internal;
  }
  return shown;
}

}  // namespace aluframe::services
