// What happens when Windows loads and unloads the module. Apart from the rest, because the system
// and the framework give the same names to types of their own.

#include <windows.h>

#include "tz_alu/module/registration.h"

/// Registers the module while it is loaded. @return FALSE refuses to load it
extern "C" BOOL WINAPI DllMain(HINSTANCE /*module*/, DWORD reason, LPVOID /*reserved*/) {
  if (reason == DLL_PROCESS_ATTACH) return alu_module::Start() ? TRUE : FALSE;
  if (reason == DLL_PROCESS_DETACH) alu_module::End();
  return TRUE;
}
