#pragma once

#include <string>
#include <utility>
#include <vector>

#include "host/host_services.h"

/// A bound host that records release assertions and offers nothing else.
class FakeHost : public host::HostServices {
 public:
  FakeHost() { host::Bind(*this); }
  ~FakeHost() override { host::Unbind(); }
  FakeHost(const FakeHost&) = delete;
  FakeHost& operator=(const FakeHost&) = delete;

  CDBDoc* DocPoint() override { return nullptr; }
  CDgnDynData* DgnDynData() override { return nullptr; }
  std::unique_ptr<CKFactor> CreateKFactor() override { return nullptr; }
  std::unique_ptr<CDgnProgressDlg> CreateProgressDlg() override { return nullptr; }
  CString MessageText(const CString& key) override { return key; }
  int ShowMessageBox(const CString&, UINT) override { return 1; }
  void DisplayAnalString(const CString&, int) override {}
  void SaveHistory(const CString&, int, void*) override {}
  CString FileNameWithNewExt(const CString& extension) override { return extension; }
  int RunTextEditor(const CString&, const CString&) override { return 0; }
  int IsReleaseAssert() override { return assertionsOn; }
  void ReleaseAssertion(const wchar_t* source, int line) override {
    assertions.emplace_back(source, line);
  }

  int assertionsOn = 1;
  std::vector<std::pair<std::wstring, int>> assertions;
};
