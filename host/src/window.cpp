#include "host/framework/window.h"

CWnd::~CWnd() = default;

void CWnd::Attach(host::DialogWindow* window, int id) {
  m_pWindow = window;
  m_nId = id;
}

void CWnd::SetWindowText(const CString& text) {
  if (m_pWindow != nullptr) m_pWindow->SetText(m_nId, text);
}

CString CWnd::GetWindowText() const {
  return m_pWindow != nullptr ? m_pWindow->Text(m_nId) : CString();
}

BOOL CWnd::EnableWindow(BOOL enable) {
  if (m_pWindow == nullptr) return FALSE;
  const bool wasDisabled = !m_pWindow->IsEnabled(m_nId);
  m_pWindow->Enable(m_nId, enable != FALSE);
  return wasDisabled ? TRUE : FALSE;
}

BOOL CWnd::IsWindowEnabled() const {
  return m_pWindow != nullptr && m_pWindow->IsEnabled(m_nId) ? TRUE : FALSE;
}

BOOL CWnd::ShowWindow(int command) {
  if (m_pWindow == nullptr) return FALSE;
  const bool wasShown = m_pWindow->IsShown(m_nId);
  m_pWindow->Show(m_nId, command != SW_HIDE);
  return wasShown ? TRUE : FALSE;
}

BOOL CWnd::IsWindowVisible() const {
  return m_pWindow != nullptr && m_pWindow->IsShown(m_nId) ? TRUE : FALSE;
}

void CButton::SetCheck(int check) {
  if (Window() != nullptr) Window()->SetCheck(Id(), check != BST_UNCHECKED);
}

int CButton::GetCheck() const {
  return Window() != nullptr && Window()->IsChecked(Id()) ? BST_CHECKED : BST_UNCHECKED;
}

void CComboBox::ResetContent() {
  if (Window() != nullptr) Window()->ClearChoices(Id());
}

int CComboBox::AddString(const CString& text) {
  return Window() != nullptr ? Window()->AddChoice(Id(), text) : CB_ERR;
}

int CComboBox::GetCount() const {
  return Window() != nullptr ? Window()->ChoiceCount(Id()) : 0;
}

void CComboBox::GetLBText(int index, CString& text) const {
  text = Window() != nullptr ? Window()->ChoiceText(Id(), index) : CString();
}

int CComboBox::FindStringExact(int after, const CString& text) const {
  const int count = GetCount();
  for (int step = 1; step <= count; ++step) {
    const int index = (after + step) % count;
    if (Window()->ChoiceText(Id(), index) == text) return index;
  }
  return CB_ERR;
}

int CComboBox::SetCurSel(int index) {
  if (Window() == nullptr) return CB_ERR;
  Window()->SelectChoice(Id(), index);
  return GetCurSel();
}

int CComboBox::GetCurSel() const {
  return Window() != nullptr ? Window()->SelectedChoice(Id()) : CB_ERR;
}
