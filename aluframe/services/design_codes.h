#pragma once

#include "host/framework/collections.h"
#include "host/framework/cstring.h"
#include "host/tz_db/settings_services.h"

// Design codes have an internal name, which the design module and the model store, and a name that
// the user sees: "GB50429-07(A)" is shown as "GB50429-2007".

namespace aluframe::services {

/// Internal name of the code that models are designed by, GB 50429-2007.
inline constexpr const wchar_t* design_code = L"GB50429-07(A)";

/// Internal names of all codes that are known by name; not every one can be designed by.
void list_design_codes(CArray<CString>& out);
/// The shown name of an internal one; an unknown name stays as it is.
CString shown_code_name(const CString& internal);
/// The internal name of a shown one; an unknown name stays as it is.
CString internal_code_name(const CString& shown);

/// New models are designed by GB 50429-2007.
class Preferences : public CInitCtrl {
 public:
  void GetPreference(T_PREFERENCE& out) const override { out.strAluCode = design_code; }
};

}  // namespace aluframe::services
