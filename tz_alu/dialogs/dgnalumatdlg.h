#pragma once

#include "host/framework/list_control.h"
#include "host/tz_base/dialogs.h"
#include "host/tz_db/services.h"
#include "host/tz_db/text_unit.h"
#include "tz_alu/tz_alu_api.h"

/// Dialog of the model's aluminium materials: it lists them, and changes what one of them is
/// designed with (`T_MATD_D`), from the alloy database or by hand. Every change is stored at once;
/// the dialog stays open.
///
///     CDgnAluMatDlg dialog;
///     dialog.DoModal();
class TZ_ALU_API CDgnAluMatDlg : public CDialogMove {
 public:
  explicit CDgnAluMatDlg(CWnd* parent = nullptr);
  ~CDgnAluMatDlg() override;

 protected:
  void DoDataExchange(CDataExchange* exchange) override;
  BOOL OnInitDialog() override;
  void OnOK() override;
  void OnCancel() override;

  /// Shows the material of the selected row.
  void OnItemchangedDgnSteelmatList(NMHDR* notification, LRESULT* result);
  /// Offers the grades of the selected standard.
  void OnSelchangeDgnSteelmatCode();
  /// Stores the entered values for the selected row's material.
  void OnDgnSteelmatModify();
  /// Shows the values of the selected grade.
  void OnSelchangeDgnSteelMat();
  void OnClickDgnSteelmatList(NMHDR* notification, LRESULT* result);

  void Initial_ListCtrl();
  void Initial_Data();
  void Initial_Unit();
  /// Fills both combos; an empty `code` is a material with values of the user, which `grade` names.
  void Initial_MaterialCombo(const CString& code, const CString& grade);
  void Write_ListCtrlBox(int row, UINT id, const CString& name, double es, double fu, double fy1,
                         double fy2);
  void EnableEditBox(BOOL enable);
  /// Tells the user all that is wrong with the values. @return 1 when nothing is, else 0
  int ErrorCheck(const T_MATD_D& material);

  DECLARE_MESSAGE_MAP()

 private:
  UINT KeyOfRow(int row) const;
  void WriteValues(int row, const CString& name, double es, double fu, double fy1, double fy2);
  void FillGrades(const CString& code);
  void ShowMaterial(const T_MATD_D& material);
  /// The grade is chosen from the database, or the name is entered.
  void ShowGradeOrName(BOOL grade);
  template <class VALUES>
  void ShowValues(const VALUES& values);
  void ReadValues(T_MATD_D& material);
  void ReadName(T_MATD_D& material);

  CComboBox m_cmbCode;
  CComboBox m_cmbGrade;
  CListCtrl m_lstMatl;
  CTextUnit m_unitEs;
  CTextUnit m_unitFu;
  CTextUnit m_unitFy1;
  CTextUnit m_unitFy2;
  CDBDoc* m_pDoc = nullptr;
};
