#pragma once

#include "aluframe/toolkit/headless/headless_toolkit.h"

namespace test_support {

/// Who works the dialogs of a test, and the toolkit that draws them for him. In these tests nobody
/// sees a dialog; `tests/support/win32` has both for the system's windows.
using DialogUser = aluframe::toolkit::HeadlessDialog;
using UserToolkit = aluframe::toolkit::HeadlessToolkit;

}  // namespace test_support
