#pragma once

#include <memory>

#include "tests/support/fake_model.h"
#include "tests/support/host_log.h"

namespace test_support {

/// A host in memory: it serves the tables of `model` and notes in `log` what is done to it.
///
///     FakeHost host(one_element_model());
///     host::Bind(host);
///     IAluDgnDataMgr::Instance()->CheckCode(nullptr);
///     host.log.written ...
///
/// The text of a message key is the key in brackets, "[IDS_...]". The user's units are kN and m.
class FakeHost : public host::HostServices {
 public:
  explicit FakeHost(FakeModel tables = {});
  ~FakeHost() override;

  FakeModel model;
  HostLog log;
  T_UNIT_INDEX units{1, 0};  ///< the current units

  CDBDoc* DocPoint() override;
  CDgnDynData* DgnDynData() override;
  std::unique_ptr<CKFactor> CreateKFactor() override;
  std::unique_ptr<CDgnProgressDlg> CreateProgressDlg() override;
  CString MessageText(const CString& key) override;
  int ShowMessageBox(const CString& text, UINT type) override;
  void DisplayAnalString(const CString& text, int option) override;
  void SaveHistory(const CString& text, int option, void* reserved) override;
  CString FileNameWithNewExt(const CString& extension) override;
  int RunTextEditor(const CString& path, const CString& title) override;
  int IsReleaseAssert() override;
  void ReleaseAssertion(const wchar_t* source, int line) override;

 private:
  struct Document;
  std::unique_ptr<Document> document_;
};

}  // namespace test_support
