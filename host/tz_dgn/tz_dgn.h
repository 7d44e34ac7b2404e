#pragma once

#include <memory>

#include "host/framework/collections.h"
#include "host/framework/cstring.h"
#include "host/host_api.h"
#include "host/tz_db/attributes.h"

/// Progress dialog of a run. Destroying it closes it.
class CDgnProgressDlg {
 public:
  virtual ~CDgnProgressDlg() = default;
  /// A dialog of the bound host, not yet shown and without a parent window.
  HOST_API static std::unique_ptr<CDgnProgressDlg> Create();

  /// Shows the dialog. `cancellable` is 1 when the user may stop the run.
  virtual void Create_ProgressDlg(const CString& title, const CString& text, int cancellable) = 0;
  /// Shows that `done` of `total` elements are finished.
  /// @return nonzero when the user has asked to stop
  virtual int Update_ProgressDlg(int done, int total) = 0;
  /// Closes the dialog.
  virtual void Delete_ProgressDlg() = 0;
};

/// Design data that a run computes and several operations read: the effective length factors.
class CDgnDynData {
 public:
  virtual ~CDgnDynData() = default;
  /// The bound host's design data.
  HOST_API static CDgnDynData* GetDgnDynData();

  /// Factors computed for an element's display key.
  /// @return 1, or 0 when none were computed
  virtual int GetKFactor(UINT elem, T_KFAC_D& out) const = 0;
  virtual void SetKFactor(UINT elem, const T_KFAC_D& factors) = 0;
  virtual void RemoveAllKFactors() = 0;
};

/// Computes effective length factors of elements from the stiffness of what frames into them.
class CKFactor {
 public:
  virtual ~CKFactor() = default;
  /// A calculation of the bound host.
  HOST_API static std::unique_ptr<CKFactor> Create();

  /// 1 selects the rules of the aluminium design code.
  virtual void SetIsAluDgn(int on) = 0;
  /// Computes the factors of all `elems` in one pass and leaves them in `out`.
  /// @param options the three factor options of the design control record
  /// @return 1 when the pass ran
  virtual int Calc_KFactor(const CArray<UINT>& elems, int option1, int option2, int option3,
                           CDgnDynData& out) = 0;
};
