#pragma once

#include "host/tz_base/dialogs.h"
#include "host/tz_db/services.h"
#include "tz_alu/tz_alu_api.h"

/// Dialog of the model's aluminium design settings: design code, safety class, strength ratio,
/// seismic factors and rib stiffeners (`T_DALU_D`).
///
///     CDgnAluCodeDlg dialog;
///     if (dialog.DoModal() == CDialog::kOk) ...  // the settings are stored in the model
class TZ_ALU_API CDgnAluCodeDlg : public CDialogMove {
 public:
  explicit CDgnAluCodeDlg(CWnd* parent = nullptr);
  ~CDgnAluCodeDlg() override;

 protected:
  void DoDataExchange(CDataExchange* exchange) override;
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;

  /// Enables what depends on the two check boxes.
  void EnableCtrl();

  DECLARE_MESSAGE_MAP()

 private:
  void FillCodes();
  T_DALU_D StoredSettings() const;
  void SelectCode(const CString& code);
  void ShowSettings(const T_DALU_D& settings);
  T_DALU_D EnteredSettings();

  CComboBox m_cmbCode;
  CDBDoc* m_pDoc = nullptr;
  int m_nSelected = 0;  ///< entry of the code that the dialog opened with
};
