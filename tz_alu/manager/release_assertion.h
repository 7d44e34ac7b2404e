#pragma once

#include "host/tz_base/tz_base.h"

/// Tells the host of an inconsistency that the manager met, when it wants to know.
inline void AssertDgnAluDataMgr(int line) {
  if (CAppBase::IsReleaseAssert_ST() != 0) CAppBase::ReleaseAssertion_ST(L"dgnaludatamgr", line);
}
