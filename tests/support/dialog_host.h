#pragma once

#include <functional>
#include <memory>
#include <optional>
#include <string>
#include <utility>
#include <vector>

#include "tests/support/fake_host.h"

namespace test_support {

/// An alloy of a host's database.
struct DatabaseAlloy {
  std::wstring standard;
  std::wstring grade;
  T_ALUMINUM_DATA values;
};

/// A host in memory with the services of the settings dialogs: design codes, an alloy database, and
/// the settings and materials of `model`, which the dialogs change. It draws dialogs with the
/// toolkit that it is given, and is bound while it lives.
///
///     DialogHost host;
///     HeadlessToolkit toolkit;
///     host.toolkit = &toolkit;
///     CDgnAluCodeDlg().DoModal();
///     host.stored_settings ...
///
/// A code that is "X" inside is "shown X" to the user; one name is the same to both,
/// "GB50068-2018". The text of a unit type n is "unit n".
class DialogHost : public FakeHost {
 public:
  DialogHost();
  ~DialogHost() override;

  host::Toolkit* toolkit = nullptr;

  // --- what it serves ---
  std::vector<std::wstring> codes{L"A", L"B", L"C"};  ///< design codes, by their internal names
  std::wstring preferred_code = L"B";
  /// Keys of the list of materials; without it, all that the model has.
  std::optional<std::vector<UINT>> material_keys;
  std::vector<UINT> other_materials;  ///< keys of materials that are not of aluminium
  int alloy_database = 5;             ///< the type of database that holds the alloys
  std::vector<std::wstring> standards{L"foreign", L"GB", L"GB-T"};  ///< of that database
  std::vector<std::wstring> foreign_standards{L"foreign"};          ///< not designed by
  std::vector<DatabaseAlloy> alloys;

  // --- how it behaves ---
  bool can_store = true;
  /// Name of a service that throws std::runtime_error("NAME failed"), such as "AddDalu".
  std::string failing_service;

  // --- what was done to it ---
  std::vector<T_DALU_D> stored_settings;
  std::vector<std::pair<UINT, T_MATD_D>> stored_materials;
  std::vector<std::string> calls;  ///< names of the services of settings that were called

  /// Notes the call of a service, which may fail.
  void Enter(const char* service);

  CDBDoc* DocPoint() override;
  CString MessageText(const CString& key) override;
  void AluCodeNames(CArray<CString>& out) override;
  CString ShownCodeName(const CString& internal) override;
  CString InternalCodeName(const CString& shown) override;
  host::Toolkit* DialogToolkit() override { return toolkit; }

 private:
  struct Settings;
  std::unique_ptr<Settings> settings_;
};

}  // namespace test_support
