#pragma once

#include <map>
#include <memory>

#include "host/framework/message_map.h"
#include "host/framework/window.h"

class CDialog;

/// Exchange between a dialog's controls and its members.
struct CDataExchange {
  CDialog* m_pDlgWnd;
  BOOL m_bSaveAndValidate;  ///< TRUE: from the controls to the members
};

/// Makes `control` stand for the control `id` of the dialog.
HOST_API void DDX_Control(CDataExchange* exchange, int id, CWnd& control);

/// What `CDialog::DoModal` returns: identifier of the button that closed the dialog, or that none
/// opened. A class of its own, because Windows imports constants of a class from its library, which
/// has none where a program takes their address.
struct DIALOG_RESULT {
  static constexpr int kOk = 1;
  static constexpr int kCancel = 2;
  static constexpr int kFailed = -1;
};

/// A modal dialog on a template of the module that carries it. It is drawn by the bound host's
/// toolkit.
///
///     CMyDlg dialog(parent);
///     if (dialog.DoModal() == 1) ...
///
/// An exception of a handler does not leave the dialog: its text is shown in a message box, and
/// the dialog stays open.
class HOST_API CDialog : public CWnd, public DIALOG_RESULT, private host::DialogEvents {
 public:
  explicit CDialog(UINT templateId, CWnd* parent = nullptr);
  ~CDialog() override;

  /// Opens the dialog and returns when it has closed.
  /// @return what `EndDialog` was given; kFailed when the dialog is open already, no module carries
  ///         the template, the host draws no dialogs, or the dialog's initialisation threw an
  ///         exception
  virtual int DoModal();
  void EndDialog(int result);
  /// Runs `DoDataExchange`: FALSE puts members into controls, TRUE the other way.
  BOOL UpdateData(BOOL saveAndValidate = TRUE);

  /// The control of an identifier, valid while the dialog is open; null when it has none.
  CWnd* GetDlgItem(int id);
  CString GetDlgItemText(int id);
  void SetDlgItemText(int id, const CString& text);
  UINT IsDlgButtonChecked(int id);
  void CheckDlgButton(int id, UINT check);

  CWnd* GetParent() const { return m_pParent; }

  /// Makes `control` stand for the control `id` until the dialog closes; `DDX_Control` calls it.
  void BindControl(int id, CWnd& control);

 protected:
  virtual void DoDataExchange(CDataExchange* exchange);
  /// Called before the dialog is shown. @return TRUE: the focus goes to the first control
  virtual BOOL OnInitDialog();
  virtual void OnOK();
  virtual void OnCancel();

  static const AFX_MSGMAP* GetThisMessageMap();
  virtual const AFX_MSGMAP* GetMessageMap() const;

 private:
  void ButtonClicked(int id) override;
  void ChoiceChanged(int id) override;
  void RowSelected(int id, int row) override;
  void RowClicked(int id, int row) override;
  void EnterPressed() override;
  void EscapePressed() override;

  bool RunCommand(int id, int code);
  void RunNotification(int id, int code, int row);
  void Close();

  class OPEN_DIALOG;

  UINT m_nTemplate;
  CWnd* m_pParent;
  std::unique_ptr<host::DialogWindow> m_pWindow;
  std::map<int, std::unique_ptr<CWnd>> m_aItem;  ///< handed out by `GetDlgItem`
  std::map<int, CWnd*> m_aBound;                 ///< members that stand for controls
};
