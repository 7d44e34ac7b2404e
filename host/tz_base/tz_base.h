#pragma once

#include "host/framework/cstring.h"
#include "host/host_api.h"

/// Writes a line to the host's status output. `option` is 0.
HOST_API void GDisplayAnalString(const CString& text, int option);

/// Appends a text to the host's history. `option` is 0 and `reserved` null.
HOST_API void GSaveHistoryNF(const CString& text, int option, void* reserved);

/// Release assertions: internal inconsistencies that are recorded while processing goes on with
/// fallback values.
class CAppBase {
 public:
  /// Nonzero when release assertions are switched on.
  HOST_API static int IsReleaseAssert_ST();
  /// Records an inconsistency met at `line` of `source`.
  HOST_API static void ReleaseAssertion_ST(const wchar_t* source, int line);
};
