// Loads and unloads the design module a number of times, and finds what loading registers.
//
//     load_module LIBRARY TIMES [--leak]

#include <dlfcn.h>

#include <cstdlib>
#include <iostream>
#include <string>

#include "host/framework/extension.h"
#include "host/tz_base/multi_lang.h"

namespace {

constexpr UINT design_code_dialog = 7963;
constexpr UINT material_dialog = 7964;
constexpr UINT ok_button = 1;

bool fail(const std::string& text) {
  std::cerr << text << '\n';
  return false;
}

bool is_registered() {
  const XMultiLang* symbols = INIResourceManager::GetMap(L"tz_alu");
  UINT id = 0;
  return AfxFindDialogTemplate(design_code_dialog) != nullptr &&
         AfxFindDialogTemplate(material_dialog) != nullptr && symbols != nullptr &&
         symbols->GetResourceId(L"IDOK", id) != 0 && id == ok_button;
}

bool load_and_unload(const char* library) {
  void* module = dlopen(library, RTLD_NOW | RTLD_LOCAL);
  if (module == nullptr) return fail(dlerror());
  if (!is_registered()) return fail("the loaded module is not registered");
  auto* entry = reinterpret_cast<void (*)()>(dlsym(module, "Init_tz_aludll"));
  if (entry == nullptr) return fail("no entry Init_tz_aludll");
  entry();
  dlclose(module);
  if (dlopen(library, RTLD_NOW | RTLD_NOLOAD) != nullptr) return fail("still loaded");
  if (AfxFindDialogTemplate(design_code_dialog) != nullptr) return fail("still registered");
  return true;
}

}  // namespace

int main(int argc, char** argv) {
  const int times = std::atoi(argv[2]);
  for (int i = 0; i < times; ++i) {
    if (!load_and_unload(argv[1])) return 1;
    if (argc > 3) *static_cast<volatile char*>(std::malloc(16)) = 0;
  }
  std::cout << "loaded and unloaded " << times << " times\n";
  return 0;
}
