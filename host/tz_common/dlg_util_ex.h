#pragma once

#include "host/framework/dialog.h"

/// Values of a dialog's controls, by identifier.
class CDlgUtilEx {
 public:
  HOST_API static void CtrlCheck(CDialog* dialog, int id, BOOL check);
  HOST_API static BOOL CtrlIsCheck(CDialog* dialog, int id);
  /// Puts a number into an edit.
  /// @param decimals -1: as many digits as the number needs to be read back unchanged
  HOST_API static void SetWindowVal(CDialog* dialog, int id, double value, int decimals = -1);
  /// The number of an edit; 0 when its text is not a finite number. The decimal point is a point in
  /// every locale; blanks around the number are passed over.
  HOST_API static double GetWindowVal(CDialog* dialog, int id);
};
