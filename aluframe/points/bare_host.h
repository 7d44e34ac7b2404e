#pragma once

#include <cstdint>
#include <map>
#include <string>

#include "host/host_services.h"

namespace aluframe::points {

/// The host of an engine that runs without a model: it has nothing to offer and keeps count of the
/// internal inconsistencies that the engine meets. Bound while it lives.
class BareHost final : public host::HostServices {
 public:
  BareHost() { host::Bind(*this); }
  BareHost(const BareHost&) = delete;
  BareHost& operator=(const BareHost&) = delete;
  ~BareHost() override { host::Unbind(); }

  /// "source:line" of every internal inconsistency, and how often it was met.
  const std::map<std::string, std::uint64_t>& assertions() const { return assertions_; }

  CDBDoc* DocPoint() override { return nullptr; }
  CDgnDynData* DgnDynData() override { return nullptr; }
  std::unique_ptr<CKFactor> CreateKFactor() override { return nullptr; }
  std::unique_ptr<CDgnProgressDlg> CreateProgressDlg() override { return nullptr; }
  CString MessageText(const CString& key) override { return key; }
  int ShowMessageBox(const CString& /*text*/, UINT /*type*/) override { return 0; }
  void DisplayAnalString(const CString& /*text*/, int /*option*/) override {}
  void SaveHistory(const CString& /*text*/, int /*option*/, void* /*reserved*/) override {}
  CString FileNameWithNewExt(const CString& extension) override { return extension; }
  int RunTextEditor(const CString& /*path*/, const CString& /*title*/) override { return 0; }
  int IsReleaseAssert() override { return 1; }
  void ReleaseAssertion(const wchar_t* source, int line) override;

 private:
  std::map<std::string, std::uint64_t> assertions_;
};

}  // namespace aluframe::points
