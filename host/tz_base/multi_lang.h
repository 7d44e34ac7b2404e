#pragma once

#include <map>
#include <memory>
#include <string>

#include "host/framework/extension.h"
#include "host/host_api.h"

/// Resource symbols of a module, by which the host translates names of dialogs and controls into
/// identifiers.
class HOST_API XMultiLang {
 public:
  XMultiLang();
  XMultiLang(const XMultiLang&) = delete;
  XMultiLang& operator=(const XMultiLang&) = delete;
  ~XMultiLang();

  /// Reads the symbols from a binary resource: UTF-16, little-endian, with a byte-order mark; a
  /// line "#define NAME NUMBER" each.
  /// @return the number of symbols; 0 when the module lacks the resource or it is no such text
  int LoadResourceHeaderByDLL(UINT id, const CString& type, HINSTANCE module);

  /// Number of a symbol. @return nonzero when it is known
  int GetResourceId(const CString& symbol, UINT& id) const;

 private:
  std::map<std::wstring, UINT> m_aSymbol;
};

/// The host's resource manager: the symbols of each module.
class INIResourceManager {
 public:
  /// Takes over a module's symbols. Symbols under the same name are replaced and deleted.
  HOST_API static void AppendMap(const CString& module, XMultiLang* symbols);
  /// A module's symbols; null when none were appended.
  HOST_API static const XMultiLang* GetMap(const CString& module);
};
