#pragma once

#include <memory>
#include <stdexcept>

#include "host/host_services.h"

namespace test_support {

/// What a `FaultHost` throws.
struct ServiceFault : std::runtime_error {
  ServiceFault() : std::runtime_error("a service failed") {}
};

/// Counts the calls of all services and throws at one of them.
class CallCounter {
 public:
  explicit CallCounter(int failing_call) : failing_call_(failing_call) {}

  void Count() {
    if (++calls_ != failing_call_) return;
    has_thrown_ = true;
    throw ServiceFault();
  }
  int Calls() const { return calls_; }
  bool HasThrown() const { return has_thrown_; }

 private:
  int failing_call_;
  int calls_ = 0;
  bool has_thrown_ = false;
};

/// A host that hands every call on to another one, but throws at the k-th call of any service:
/// of the document, of the objects that it creates, of anything.
///
///     FaultHost faulty(session, 17);
///     host::Bind(faulty);
class FaultHost : public host::HostServices {
 public:
  /// @param failing_call counted from 1; 0 never throws
  FaultHost(host::HostServices& inner, int failing_call);
  ~FaultHost() override;

  int Calls() const { return counter_.Calls(); }
  bool HasThrown() const { return counter_.HasThrown(); }

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

  host::HostServices& inner_;
  CallCounter counter_;
  std::unique_ptr<Document> document_;
  std::unique_ptr<CDgnDynData> dyn_data_;
};

}  // namespace test_support
