#include "aluframe/platform/windows/wide_text.h"

#include <windows.h>

namespace aluframe::platform {

std::wstring wide(std::string_view utf8) {
  const int length = static_cast<int>(utf8.size());
  std::wstring out(utf8.size(), L'\0');  // no character has more units than bytes
  const int units = MultiByteToWideChar(CP_UTF8, 0, utf8.data(), length, out.data(), length);
  out.resize(static_cast<std::size_t>(units));
  return out;
}

std::string utf8(std::wstring_view text) {
  const int length = static_cast<int>(text.size());
  std::string out(text.size() * 3, '\0');  // no unit has more than three bytes
  const int bytes = WideCharToMultiByte(CP_UTF8, 0, text.data(), length, out.data(),
                                        static_cast<int>(out.size()), nullptr, nullptr);
  out.resize(static_cast<std::size_t>(bytes));
  return out;
}

}  // namespace aluframe::platform
