#include "aluframe/toolkit/win32/message_box.h"

#include <windows.h>

#include "aluframe/toolkit/win32/wide_text.h"

namespace aluframe::toolkit {

int show_message_box(const std::string& text, unsigned type) {
  return show_message_box(wide_text(text), type);
}

// An empty caption: of none, Windows makes "Error".
int show_message_box(const std::wstring& text, unsigned type) {
  return MessageBoxW(GetActiveWindow(), text.c_str(), L"", type | MB_TASKMODAL);
}

}  // namespace aluframe::toolkit
