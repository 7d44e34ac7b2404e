#include "aluframe/toolkit/win32/wide_text.h"

#include <windows.h>

namespace aluframe::toolkit {

std::wstring wide_text(std::string_view utf8) {
  const int bytes = static_cast<int>(utf8.size());
  const int length = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, nullptr, 0);
  std::wstring text(static_cast<std::size_t>(length), L'\0');
  MultiByteToWideChar(CP_UTF8, 0, utf8.data(), bytes, text.data(), length);
  return text;
}

}  // namespace aluframe::toolkit
