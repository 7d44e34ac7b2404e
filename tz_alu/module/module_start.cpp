// What happens when the module is loaded and unloaded.

#include <exception>
#include <iostream>

#include "host/framework/extension.h"
#include "host/tz_base/multi_lang.h"
#include "tz_alu/dialogs/module_resources.h"

namespace {

constexpr wchar_t kModuleName[] = L"tz_alu";
constexpr UINT kResourceHeader = 65534;

// Registers the module while it is loaded. A module that the framework does not start must not be
// used; a loader that runs a library's constructors has no way to refuse it, so the program ends
// with a message.
class MODULE_START {
 public:
  MODULE_START() noexcept {
    if (AfxInitExtensionModule(m_module, &kModuleResources) == FALSE) {
      std::cerr << "tz_alu: the framework did not start the extension module\n" << std::flush;
      std::terminate();
    }
    try {
      RegisterResources();
    } catch (const std::exception& error) {
      // Without them the checks run all the same.
      std::cerr << "tz_alu: the dialogs are missing: " << error.what() << '\n' << std::flush;
    }
  }
  MODULE_START(const MODULE_START&) = delete;
  MODULE_START& operator=(const MODULE_START&) = delete;
  ~MODULE_START() { AfxTermExtensionModule(m_module); }

 private:
  void RegisterResources() {
    // The framework owns the one, the resource manager the other.
    new CDynLinkLibrary(m_module);
    auto* symbols = new XMultiLang;
    symbols->LoadResourceHeaderByDLL(kResourceHeader, L"Binary", m_module.hModule);
    INIResourceManager::AppendMap(kModuleName, symbols);
  }

  AFX_EXTENSION_MODULE m_module;
};

const MODULE_START start;

}  // namespace
