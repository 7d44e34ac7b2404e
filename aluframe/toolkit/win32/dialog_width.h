#pragma once

#include "aluframe/toolkit/win32/window_handle.h"

namespace aluframe::toolkit {

/// Widens a dialog and all in it by the same factor when the system's font is too wide for one of
/// its texts, so that none is cut. With the font that the dialog was drawn for nothing changes.
void widen_to_fit(WindowHandle dialog);

}  // namespace aluframe::toolkit
