#pragma once

#include "host/framework/cstring.h"
#include "host/framework/toolkit.h"
#include "host/framework/types.h"
#include "host/host_api.h"

// Windows and controls with the application framework's names. A control object stands for a
// control of an open dialog once it is attached to it (`DDX_Control`); before, and after the dialog
// has closed, its operations do nothing and return nothing ("", 0, -1).

/// Truth value: 0 or nonzero.
using BOOL = int;
inline constexpr BOOL TRUE = 1;
inline constexpr BOOL FALSE = 0;

inline constexpr int SW_HIDE = 0;
inline constexpr int SW_SHOW = 5;
inline constexpr int BST_UNCHECKED = 0;
inline constexpr int BST_CHECKED = 1;
inline constexpr int CB_ERR = -1;

/// A window: a dialog, or a control of one.
class HOST_API CWnd {
 public:
  CWnd() = default;
  CWnd(const CWnd&) = delete;
  CWnd& operator=(const CWnd&) = delete;
  virtual ~CWnd();

  /// Makes the object stand for a control of an open dialog; null ends that.
  void Attach(host::DialogWindow* window, int id);
  /// Identifier of the control; 0 when it stands for none.
  int GetDlgCtrlID() const { return m_pWindow != nullptr ? m_nId : 0; }

  void SetWindowText(const CString& text);
  CString GetWindowText() const;
  void GetWindowText(CString& text) const { text = GetWindowText(); }

  /// @return nonzero when the window was disabled before
  BOOL EnableWindow(BOOL enable = TRUE);
  BOOL IsWindowEnabled() const;
  /// @param command SW_HIDE or SW_SHOW. @return nonzero when the window was shown before
  BOOL ShowWindow(int command);
  BOOL IsWindowVisible() const;

 protected:
  /// The open dialog that the control belongs to; null when there is none.
  host::DialogWindow* Window() const { return m_pWindow; }
  int Id() const { return m_nId; }

 private:
  host::DialogWindow* m_pWindow = nullptr;
  int m_nId = 0;
};

/// A label.
class HOST_API CStatic : public CWnd {};

/// One line of text.
class HOST_API CEdit : public CWnd {};

/// A push button, check box or radio button.
class HOST_API CButton : public CWnd {
 public:
  void SetCheck(int check);
  /// BST_CHECKED or BST_UNCHECKED.
  int GetCheck() const;
};

/// A drop-down list. Entries count from 0.
class HOST_API CComboBox : public CWnd {
 public:
  /// Removes all entries.
  void ResetContent();
  /// Appends an entry. @return its index
  int AddString(const CString& text);
  int GetCount() const;
  /// Text of an entry; empty when there is none.
  void GetLBText(int index, CString& text) const;
  /// Index of the first entry behind `after` (-1: of all) that equals `text`, going on from the
  /// start; CB_ERR when there is none.
  int FindStringExact(int after, const CString& text) const;
  /// Selects an entry, -1 none. @return the selected index, CB_ERR when none is
  int SetCurSel(int index);
  /// CB_ERR when none is selected.
  int GetCurSel() const;
};
