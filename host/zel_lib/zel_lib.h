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

}  // namespace zel::lib
