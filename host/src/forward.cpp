// The contract's static calls, each forwarded to the bound host.

#include "host/framework/messagebox.h"
#include "host/host_services.h"
#include "host/tz_base/tz_base.h"
#include "host/zel_lib/zel_lib.h"

CDBDoc* CDBDoc::GetDocPoint() {
  return host::Bound().DocPoint();
}

CDgnDynData* CDgnDynData::GetDgnDynData() {
  return host::Bound().DgnDynData();
}

std::unique_ptr<CKFactor> CKFactor::Create() {
  return host::Bound().CreateKFactor();
}

std::unique_ptr<CDgnProgressDlg> CDgnProgressDlg::Create() {
  return host::Bound().CreateProgressDlg();
}

int AfxMessageBox(const CString& text, UINT type) {
  return host::Bound().ShowMessageBox(text, type);
}

void GDisplayAnalString(const CString& text, int option) {
  host::Bound().DisplayAnalString(text, option);
}

void GSaveHistoryNF(const CString& text, int option, void* reserved) {
  host::Bound().SaveHistory(text, option, reserved);
}

CString CDBLib::MakeFileNameWithNewExt(const CString& extension, int /*option*/) {
  return host::Bound().FileNameWithNewExt(extension);
}

// Where the window goes is the host's own choice.
int CDBLib::RunTextEditor(const CString& path, const CString& title, int /*mode*/, int /*x*/,
                          int /*y*/, int /*width*/, int /*height*/, int /*option*/) {
  return host::Bound().RunTextEditor(path, title);
}

void CDBLib::GetAluCodeNameList(CArray<CString>& names, CArray<int>* indices) {
  names.RemoveAll();
  host::Bound().AluCodeNames(names);
  if (indices == nullptr) return;
  indices->RemoveAll();
  for (int i = 0; i < names.GetSize(); ++i) indices->Add(i);
}

CString CDBLib::ViewConvertCodeName(const CString& internal) {
  return host::Bound().ShownCodeName(internal);
}

CString CDBLib::GetConvertCodeName(const CString& shown) {
  return host::Bound().InternalCodeName(shown);
}

int CAppBase::IsReleaseAssert_ST() {
  return host::Bound().IsReleaseAssert();
}

void CAppBase::ReleaseAssertion_ST(const wchar_t* source, int line) {
  host::Bound().ReleaseAssertion(source, line);
}

CString zel::lib::MMSGFunction::GetValue(const CString& key) {
  return host::Bound().MessageText(key);
}

CDataCtrl& CDBDoc::GetDataCtrl() {
  static CDataCtrl none;
  return none;
}

CInitCtrl& CDBDoc::GetInitCtrl() {
  static CInitCtrl none;
  return none;
}

CMatlDB& CDBDoc::GetMatlDB() {
  static CMatlDB none;
  return none;
}
