#include "host/framework/dialog.h"

#include <exception>
#include <filesystem>
#include <string>

#include "host/framework/extension.h"
#include "host/framework/messagebox.h"
#include "host/host_services.h"

namespace {

template <class TEXT>
std::wstring WideUnits(const TEXT& units) {
  return {units.begin(), units.end()};
}

std::wstring WideText(const std::string& utf8) {
  try {
    const std::filesystem::path text(std::u8string(utf8.begin(), utf8.end()));
    if constexpr (sizeof(wchar_t) == sizeof(char16_t)) {
      return WideUnits(text.u16string());
    } else {
      return WideUnits(text.u32string());
    }
  } catch (const std::exception&) {
    return {utf8.begin(), utf8.end()};
  }
}

// Runs a handler; what it throws is told to the user.
template <class HANDLER>
void RunGuarded(const HANDLER& handler) {
  try {
    handler();
  } catch (const std::exception& error) {
    AfxMessageBox(WideText(error.what()), MB_OK | MB_ICONEXCLAMATION);
  }
}

const AFX_MSGMAP_ENTRY* FindEntry(const AFX_MSGMAP* map, UINT message, int code, int id) {
  for (; map != nullptr; map = map->pBaseMap) {
    for (const AFX_MSGMAP_ENTRY* entry = map->lpEntries; entry->nMessage != 0; ++entry) {
      if (entry->nMessage == message && entry->nCode == code &&
          static_cast<int>(entry->nID) == id) {
        return entry;
      }
    }
  }
  return nullptr;
}

}  // namespace

void DDX_Control(CDataExchange* exchange, int id, CWnd& control) {
  exchange->m_pDlgWnd->BindControl(id, control);
}

CDialog::CDialog(UINT templateId, CWnd* parent) : m_nTemplate(templateId), m_pParent(parent) {}

CDialog::~CDialog() = default;

// Closes the dialog however it ends.
class CDialog::OPEN_DIALOG {
 public:
  explicit OPEN_DIALOG(CDialog& dialog) : m_dialog(dialog) {}
  OPEN_DIALOG(const OPEN_DIALOG&) = delete;
  OPEN_DIALOG& operator=(const OPEN_DIALOG&) = delete;
  ~OPEN_DIALOG() { m_dialog.Close(); }

 private:
  CDialog& m_dialog;
};

int CDialog::DoModal() {
  if (m_pWindow != nullptr) return kFailed;
  const DIALOG_TEMPLATE* dialog = AfxFindDialogTemplate(m_nTemplate);
  host::Toolkit* toolkit = host::Bound().DialogToolkit();
  if (dialog == nullptr || toolkit == nullptr) return kFailed;
  m_pWindow = toolkit->Open(*dialog, *this);
  if (m_pWindow == nullptr) return kFailed;
  const OPEN_DIALOG open(*this);
  bool isReady = false;
  RunGuarded([&] {
    OnInitDialog();
    isReady = true;
  });
  return isReady ? m_pWindow->Run() : kFailed;
}

void CDialog::Close() {
  for (const auto& [id, control] : m_aBound) control->Attach(nullptr, 0);
  m_aBound.clear();
  m_aItem.clear();
  m_pWindow.reset();
}

void CDialog::EndDialog(int result) {
  if (m_pWindow != nullptr) m_pWindow->End(result);
}

BOOL CDialog::UpdateData(BOOL saveAndValidate) {
  CDataExchange exchange{this, saveAndValidate};
  DoDataExchange(&exchange);
  return TRUE;
}

void CDialog::BindControl(int id, CWnd& control) {
  control.Attach(m_pWindow.get(), id);
  m_aBound[id] = &control;
}

CWnd* CDialog::GetDlgItem(int id) {
  if (m_pWindow == nullptr || !m_pWindow->HasControl(id)) return nullptr;
  std::unique_ptr<CWnd>& item = m_aItem[id];
  if (item == nullptr) {
    item = std::make_unique<CWnd>();
    item->Attach(m_pWindow.get(), id);
  }
  return item.get();
}

CString CDialog::GetDlgItemText(int id) {
  return m_pWindow != nullptr ? m_pWindow->Text(id) : CString();
}

void CDialog::SetDlgItemText(int id, const CString& text) {
  if (m_pWindow != nullptr) m_pWindow->SetText(id, text);
}

UINT CDialog::IsDlgButtonChecked(int id) {
  return m_pWindow != nullptr && m_pWindow->IsChecked(id) ? BST_CHECKED : BST_UNCHECKED;
}

void CDialog::CheckDlgButton(int id, UINT check) {
  if (m_pWindow != nullptr) m_pWindow->SetCheck(id, check != BST_UNCHECKED);
}

void CDialog::DoDataExchange(CDataExchange* /*exchange*/) {}

BOOL CDialog::OnInitDialog() {
  UpdateData(FALSE);
  return TRUE;
}

void CDialog::OnOK() {
  UpdateData(TRUE);
  EndDialog(kOk);
}

void CDialog::OnCancel() {
  EndDialog(kCancel);
}

const AFX_MSGMAP* CDialog::GetThisMessageMap() {
  static const AFX_MSGMAP_ENTRY entries[] = {{0, 0, 0, nullptr, nullptr}};
  static const AFX_MSGMAP map = {nullptr, entries};
  return &map;
}

const AFX_MSGMAP* CDialog::GetMessageMap() const {
  return GetThisMessageMap();
}

bool CDialog::RunCommand(int id, int code) {
  const AFX_MSGMAP_ENTRY* entry = FindEntry(GetMessageMap(), WM_COMMAND, code, id);
  if (entry == nullptr) return false;
  RunGuarded([&] { (this->*entry->pCommand)(); });
  return true;
}

void CDialog::RunNotification(int id, int code, int row) {
  const AFX_MSGMAP_ENTRY* entry = FindEntry(GetMessageMap(), WM_NOTIFY, code, id);
  if (entry == nullptr) return;
  NMLISTVIEW notification{{static_cast<UINT>(id), code}, row};
  LRESULT result = 0;
  RunGuarded([&] { (this->*entry->pNotify)(&notification.hdr, &result); });
}

void CDialog::ButtonClicked(int id) {
  if (RunCommand(id, BN_CLICKED)) return;
  if (id == kOk) RunGuarded([this] { OnOK(); });
  if (id == kCancel) RunGuarded([this] { OnCancel(); });
}

void CDialog::ChoiceChanged(int id) {
  RunCommand(id, CBN_SELCHANGE);
}

void CDialog::RowSelected(int id, int row) {
  RunNotification(id, LVN_ITEMCHANGED, row);
}

void CDialog::RowClicked(int id, int row) {
  RunNotification(id, NM_CLICK, row);
}

void CDialog::EnterPressed() {
  ButtonClicked(kOk);
}

void CDialog::EscapePressed() {
  ButtonClicked(kCancel);
}
