#pragma once

#include "host/framework/collections.h"
#include "host/framework/cstring.h"
#include "host/framework/types.h"
#include "host/tz_db/attributes.h"
#include "host/tz_db/model.h"

// Services that the settings dialogs use beside those of the checks. A host answers 0, as here, to
// what it does not offer.

/// Changes the model's records.
class CDataCtrl {
 public:
  virtual ~CDataCtrl() = default;
  /// Stores the design settings. @return nonzero when they are stored
  virtual int AddDalu(const T_DALU_D& /*settings*/) { return 0; }
  /// Stores what a material is designed with. @return nonzero when it is stored
  virtual int AddMatd(UINT /*matl*/, const T_MATD_D& /*material*/) { return 0; }
};

/// What the user prefers for new models.
struct T_PREFERENCE {
  CString strAluCode;  ///< aluminium design code, in the host's internal form
};

/// Initial values of new models.
class CInitCtrl {
 public:
  virtual ~CInitCtrl() = default;
  virtual void GetPreference(T_PREFERENCE& /*out*/) const {}
};

/// Design values of an alloy of the database, in the host's current units.
struct T_ALUMINUM_DATA {
  double dElast = 0.0;     ///< elastic modulus
  double dPoisson = 0.0;   ///< Poisson's ratio
  double dFu = 0.0;        ///< ultimate tensile strength
  double dF02Thin = 0.0;   ///< 0.2 % proof strength for t ≤ 10
  double dF02Thick = 0.0;  ///< 0.2 % proof strength for t > 10
};

/// Material database: standards, their grades, and the grades' values.
class CMatlDB {
 public:
  virtual ~CMatlDB() = default;
  /// Standards of a type of database. @return their number
  virtual int GetDesignCodeList(int /*type*/, CArray<CString>& /*out*/) const { return 0; }
  /// Grades of a standard. @return their number
  virtual int GetAluminumNameList(const CString& /*code*/, CArray<CString>& /*out*/) const {
    return 0;
  }
  /// Values of a grade.
  /// @param text receives the grade's description
  /// @param option 0; @param thickness 0.0: for any thickness
  /// @return nonzero when the database has the grade; then and only then `out` is filled
  virtual int GetAluminumData(const CString& /*code*/, const CString& /*grade*/, CString& /*text*/,
                              T_ALUMINUM_DATA& /*out*/, int /*option*/,
                              double /*thickness*/) const {
    return 0;
  }
};
