#include "tz_alu/dialogs/material_problems.h"

#include <cwchar>

#include "host/zel_lib/zel_lib.h"

namespace alu_dialogs {

CString MaterialProblems(const T_MATD_D& material, bool needsName) {
  const struct {
    bool fails;
    const wchar_t* key;
  } rules[] = {
      {needsName && material.strName.IsEmpty(), L"IDS_DGN_CHK_STL_MATL_NAME_ERROR"},
      {material.dElast <= 0.0, L"IDS_DGN_CHK_MATL_ES_ERROR"},
      {material.dPoisson <= 0.0, L"IDS_DGN_CHK_MATL_PS_ERROR"},
      {material.dFu <= 0.0, L"IDS_DGN_CHK_MATL_FU_ERROR"},
      {material.dF02Thin <= 0.0, L"IDS_DGN_CHK_MATL_FY1_ERROR"},
      {material.dF02Thick <= 0.0, L"IDS_DGN_CHK_MATL_FY2_ERROR"},
  };
  CString problems;
  for (const auto& rule : rules) {
    if (rule.fails) problems += L"\n" + zel::lib::MMSGFunction::GetValue(rule.key);
  }
  return problems;
}

UINT KeyOfText(const CString& text) {
  return static_cast<UINT>(std::wcstoul(text.GetString(), nullptr, 10));
}

}  // namespace alu_dialogs
