// Put in front of the framework, it starts no extension module.

#include "host/framework/extension.h"

BOOL AfxInitExtensionModule(AFX_EXTENSION_MODULE& /*state*/, HINSTANCE /*module*/) {
  return FALSE;
}
