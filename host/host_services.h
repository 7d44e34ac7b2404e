#pragma once

#include <memory>

#include "host/framework/cstring.h"
#include "host/framework/toolkit.h"
#include "host/framework/types.h"
#include "host/host_api.h"
#include "host/tz_db/services.h"
#include "host/tz_dgn/tz_dgn.h"

namespace host {

/// What an application implements to be a host of the design module. The module's static calls
/// (`CDBDoc::GetDocPoint`, `AfxMessageBox`, ...) forward to the one bound object.
///
///     MyHost services;
///     host::Bind(services);
///     IAluDgnDataMgr::Instance()->CheckCode(nullptr);
///     host::Unbind();
class HostServices {
 public:
  virtual ~HostServices() = default;

  virtual CDBDoc* DocPoint() = 0;
  virtual CDgnDynData* DgnDynData() = 0;
  virtual std::unique_ptr<CKFactor> CreateKFactor() = 0;
  virtual std::unique_ptr<CDgnProgressDlg> CreateProgressDlg() = 0;

  virtual CString MessageText(const CString& key) = 0;
  virtual int ShowMessageBox(const CString& text, UINT type) = 0;
  virtual void DisplayAnalString(const CString& text, int option) = 0;
  virtual void SaveHistory(const CString& text, int option, void* reserved) = 0;

  /// Path of the document's file with another extension.
  virtual CString FileNameWithNewExt(const CString& extension) = 0;
  /// Shows a text file to the user. @return nonzero when that succeeded
  virtual int RunTextEditor(const CString& path, const CString& title) = 0;

  /// Design codes by their internal names, and the names that the user sees.
  virtual void AluCodeNames(CArray<CString>& /*out*/) {}
  virtual CString ShownCodeName(const CString& internal) { return internal; }
  virtual CString InternalCodeName(const CString& shown) { return shown; }
  /// What draws dialogs; null: nobody can see one.
  virtual Toolkit* DialogToolkit() { return nullptr; }

  virtual int IsReleaseAssert() = 0;
  virtual void ReleaseAssertion(const wchar_t* source, int line) = 0;
};

/// Makes `services` the one host that every static call of the contract reaches. It must outlive
/// its binding. Binding replaces what was bound before.
HOST_API void Bind(HostServices& services);
/// Leaves no host bound.
HOST_API void Unbind();
/// The bound host. @throws std::logic_error when none is bound
HOST_API HostServices& Bound();

}  // namespace host
