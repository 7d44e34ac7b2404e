#pragma once

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "aluframe/toolkit/qt/qt_toolkit.h"
#include "tests/support/fake_host.h"

namespace gui_test {

/// An alloy of the host's database.
struct HostAlloy {
  std::wstring standard;
  std::wstring grade;
  T_ALUMINUM_DATA values;
};

/// A host in memory whose dialogs are real widgets: it has design codes, an alloy database, and the
/// settings and materials of `model`, which the dialogs change. It is bound while it lives.
class SettingsHost : public test_support::FakeHost {
 public:
  SettingsHost();
  ~SettingsHost() override;

  /// Internal names; the user sees them with "shown " before them.
  std::vector<std::wstring> codes{L"code A", L"code B", L"code C"};
  std::wstring preferred_code = L"code B";
  std::vector<HostAlloy> alloys;
  std::vector<UINT> other_materials;  ///< keys of materials that are not of aluminium
  bool can_store = true;
  std::vector<T_DALU_D> stored_settings;
  std::vector<std::pair<UINT, T_MATD_D>> stored_materials;

  CDBDoc* DocPoint() override;
  void AluCodeNames(CArray<CString>& out) override;
  CString ShownCodeName(const CString& internal) override;
  CString InternalCodeName(const CString& shown) override;
  host::Toolkit* DialogToolkit() override { return &toolkit_; }

 private:
  class Document;
  aluframe::toolkit::QtToolkit toolkit_;
  std::unique_ptr<Document> document_;
};

}  // namespace gui_test
