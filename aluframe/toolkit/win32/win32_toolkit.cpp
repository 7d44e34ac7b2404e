#include "aluframe/toolkit/win32/win32_toolkit.h"

#include <windows.h>

#include "aluframe/toolkit/win32/win32_dialog.h"

namespace aluframe::toolkit {

std::unique_ptr<host::DialogWindow> Win32Toolkit::Open(const DIALOG_TEMPLATE& dialog,
                                                       host::DialogEvents& events) {
  const HWND active = GetActiveWindow();
  auto window = std::make_unique<Win32Dialog>(dialog, events, active != nullptr ? active : parent_);
  if (window->window() == nullptr) return nullptr;
  return window;
}

}  // namespace aluframe::toolkit
