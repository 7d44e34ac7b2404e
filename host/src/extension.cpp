#include "host/framework/extension.h"

#include <algorithm>
#include <cwctype>
#include <memory>
#include <string_view>
#include <vector>

namespace {

// Modules that are started, and the records of those that are searched, latest first.
struct MODULES {
  std::vector<HINSTANCE> started;
  std::vector<std::unique_ptr<CDynLinkLibrary>> searched;
};

MODULES& Modules() {
  static MODULES modules;
  return modules;
}

bool EqualsButForCase(std::wstring_view a, std::wstring_view b) {
  return std::equal(a.begin(), a.end(), b.begin(), b.end(), [](wchar_t x, wchar_t y) {
    return std::towlower(static_cast<wint_t>(x)) == std::towlower(static_cast<wint_t>(y));
  });
}

}  // namespace

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HINSTANCE module) {
  std::vector<HINSTANCE>& started = Modules().started;
  if (module == nullptr || state.bInitialized != FALSE) return FALSE;
  if (std::ranges::find(started, module) != started.end()) return FALSE;
  started.push_back(module);
  state = {TRUE, module};
  return TRUE;
}

void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state) {
  if (state.bInitialized == FALSE) return;
  std::erase(Modules().started, state.hModule);
  std::erase_if(Modules().searched,
                [&](const auto& library) { return library->Module() == state.hModule; });
  state = {};
}

CDynLinkLibrary::CDynLinkLibrary(AFX_EXTENSION_MODULE& state) : m_hModule(state.hModule) {
  std::vector<std::unique_ptr<CDynLinkLibrary>>& searched = Modules().searched;
  searched.insert(searched.begin(), std::unique_ptr<CDynLinkLibrary>(this));
}

const DIALOG_TEMPLATE* AfxFindDialogTemplate(UINT id) {
  for (const auto& library : Modules().searched) {
    for (const DIALOG_TEMPLATE& dialog : library->Module()->dialogs) {
      if (dialog.nId == id) return &dialog;
    }
  }
  return nullptr;
}

const BINARY_RESOURCE* AfxFindBinary(HINSTANCE module, UINT id, const CString& type) {
  if (module == nullptr) return nullptr;
  for (const BINARY_RESOURCE& binary : module->binaries) {
    if (binary.nId == id && EqualsButForCase(binary.type, type.GetString())) return &binary;
  }
  return nullptr;
}
