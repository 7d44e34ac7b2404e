#pragma once

#include "host/framework/cstring.h"
#include "host/framework/resources.h"
#include "host/framework/window.h"
#include "host/host_api.h"

// Start-up of extension modules: libraries that carry resources which the framework searches.

/// A loaded module, by what it carries.
using HINSTANCE = const MODULE_RESOURCES*;

/// State of an extension module. The module has one, at rest before it is loaded.
struct AFX_EXTENSION_MODULE {
  BOOL bInitialized = FALSE;
  HINSTANCE hModule = nullptr;
};

/// Starts an extension module.
/// @return FALSE when it carries nothing or the same module is started already
HOST_API BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& state, HINSTANCE module);
/// Ends it: the framework no longer searches its resources.
HOST_API void AfxTermExtensionModule(AFX_EXTENSION_MODULE& state);

/// Makes the framework search a started module's resources; the latest module comes first. The
/// framework owns the record and deletes it when the module ends.
///
///     new CDynLinkLibrary(state);
class HOST_API CDynLinkLibrary {
 public:
  explicit CDynLinkLibrary(AFX_EXTENSION_MODULE& state);
  CDynLinkLibrary(const CDynLinkLibrary&) = delete;
  CDynLinkLibrary& operator=(const CDynLinkLibrary&) = delete;

  HINSTANCE Module() const { return m_hModule; }

 private:
  HINSTANCE m_hModule;
};

/// A dialog template of the modules that the framework searches; null when none has it.
HOST_API const DIALOG_TEMPLATE* AfxFindDialogTemplate(UINT id);

/// A binary resource of one module; null when it has none of that number and type.
HOST_API const BINARY_RESOURCE* AfxFindBinary(HINSTANCE module, UINT id, const CString& type);
