#include "tz_alu/module/registration.h"

#include <exception>
#include <iostream>

#include "host/framework/extension.h"
#include "host/tz_base/multi_lang.h"
#include "tz_alu/dialogs/module_resources.h"

namespace alu_module {

namespace {

constexpr wchar_t kModuleName[] = L"tz_alu";
constexpr UINT kResourceHeader = 65534;

constinit AFX_EXTENSION_MODULE extension;

void RegisterResources() {
  // The framework owns the one, the resource manager the other.
  new CDynLinkLibrary(extension);
  auto* symbols = new XMultiLang;
  symbols->LoadResourceHeaderByDLL(kResourceHeader, L"Binary", extension.hModule);
  INIResourceManager::AppendMap(kModuleName, symbols);
}

bool StartExtension() {
  try {
    return AfxInitExtensionModule(extension, &kModuleResources) != FALSE;
  } catch (const std::exception&) {
    return false;  // no memory
  }
}

}  // namespace

bool Start() noexcept {
  if (!StartExtension()) return false;
  try {
    RegisterResources();
  } catch (const std::exception& error) {
    std::cerr << "tz_alu: the dialogs are missing: " << error.what() << '\n' << std::flush;
  }
  return true;
}

void End() noexcept {
  AfxTermExtensionModule(extension);
}

}  // namespace alu_module
