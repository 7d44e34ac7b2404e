#pragma once

#include "aluframe/services/unit_scale.h"
#include "host/tz_db/settings_services.h"

namespace aluframe::services {

/// The type of database that holds aluminium alloys; others are empty.
inline constexpr int alloy_database_type = 1;

/// The alloy table of GB 50429-2007 as the module's material database: one standard,
/// "GB50429-07(A)", whose values are in the current units.
class AlloyDatabase : public CMatlDB {
 public:
  /// `scale` must outlive the object; it is read at every call.
  explicit AlloyDatabase(const UnitScale& scale) : scale_(scale) {}

  int GetDesignCodeList(int type, CArray<CString>& out) const override;
  int GetAluminumNameList(const CString& code, CArray<CString>& out) const override;
  /// `text` receives the grade's name: the table says nothing else of an alloy.
  int GetAluminumData(const CString& code, const CString& grade, CString& text,
                      T_ALUMINUM_DATA& out, int option, double thickness) const override;

 private:
  const UnitScale& scale_;
};

/// Nonzero for the standard of the table.
bool is_alloy_standard(const CString& code);

}  // namespace aluframe::services
