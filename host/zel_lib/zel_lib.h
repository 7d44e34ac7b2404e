#pragma once

#include "host/framework/cstring.h"
#include "host/host_api.h"

namespace zel::lib {

/// Texts for the user, in the user's language.
class MMSGFunction {
 public:
  /// Text of a message key such as L"IDS_DGN_COM_ERROR_TITLE".
  HOST_API static CString GetValue(const CString& key);
};

/// Arithmetic.
class MMath {
 public:
  /// `value` rounded to a number of decimals (≥ 0), halves away from zero. What is not finite stays
  /// as it is.
  HOST_API static double Round(double value, int decimals);
};

}  // namespace zel::lib
