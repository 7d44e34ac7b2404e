#pragma once

#include "aluframe/toolkit/win32/window_handle.h"
#include "host/framework/toolkit.h"

namespace aluframe::toolkit {

/// Dialogs that Windows draws: each from the resource of the template's number in the library or
/// program that the template stands in.
///
///     Win32Toolkit toolkit;
///     options.toolkit = &toolkit;  // of a session
class Win32Toolkit : public host::Toolkit {
 public:
  /// @param parent window that dialogs belong to when no other window of ours is active; may be
  ///               null
  explicit Win32Toolkit(WindowHandle parent = nullptr) : parent_(parent) {}

  /// @return null when the library carries no such dialog, or Windows does not open it
  std::unique_ptr<host::DialogWindow> Open(const DIALOG_TEMPLATE& dialog,
                                           host::DialogEvents& events) override;

 private:
  WindowHandle parent_;
};

}  // namespace aluframe::toolkit
