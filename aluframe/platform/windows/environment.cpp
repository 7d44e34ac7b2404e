#include "aluframe/platform/environment.h"

#include <windows.h>
// Uses what windows.h declares.
#include <shellapi.h>

#include <initializer_list>

#include "aluframe/platform/windows/wide_text.h"

namespace aluframe::platform {

// Those that `main` has went through the code page, which lacks most characters.
std::vector<std::string> command_line(int argc, char** argv) {
  int count = 0;
  wchar_t** const words = CommandLineToArgvW(GetCommandLineW(), &count);
  if (words == nullptr) return {argv, argv + argc};
  std::vector<std::string> all;
  for (int i = 0; i < count; ++i) all.push_back(utf8(words[i]));
  LocalFree(static_cast<void*>(words));
  return all;
}

std::optional<std::string> environment_variable(const char* name) {
  const std::wstring key = wide(name);
  SetLastError(ERROR_SUCCESS);
  const DWORD size = GetEnvironmentVariableW(key.c_str(), nullptr, 0);
  if (size == 0) {
    return GetLastError() == ERROR_ENVVAR_NOT_FOUND ? std::nullopt : std::optional<std::string>("");
  }
  std::wstring value(size, L'\0');
  value.resize(GetEnvironmentVariableW(key.c_str(), value.data(), size));
  return utf8(value);
}

// The variables of other systems are heard first, for scripts that set them.
std::string locale_of_messages() {
  for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
    const auto value = environment_variable(name);
    if (value && !value->empty()) return *value;
  }
  const bool is_chinese = PRIMARYLANGID(GetUserDefaultUILanguage()) == LANG_CHINESE;
  return is_chinese ? "zh_CN.UTF-8" : "en_US.UTF-8";
}

}  // namespace aluframe::platform
