#include "tz_alu/dialogs/dgnalumatdlg.h"

#include "host/framework/messagebox.h"
#include "host/tz_base/tz_base.h"
#include "host/tz_common/dlg_util_ex.h"
#include "host/zel_lib/zel_lib.h"
#include "tz_alu/dialogs/material_problems.h"
#include "tz_alu/dialogs/resource.h"
#include "tz_alu/report/number_format.h"

namespace {

constexpr wchar_t kNone[] = L"None";
constexpr int kNoneIndex = 0;
constexpr int kLineUnknownGrade = 195;

// The edits of the values, in the order Es, Ps, Fu, Fy1, Fy2.
constexpr int kValueEdits[] = {IDC_DGN_STEEL_MATES, IDC_DGN_STEEL_MATPS, IDC_DGN_STEEL_MATF,
                               IDC_DGN_STEEL_MATFV, IDC_DGN_STEEL_MATF02};

void RaiseReleaseAssertion(int line) {
  if (CAppBase::IsReleaseAssert_ST() == 0) return;
  CAppBase::ReleaseAssertion_ST(L"dgnalumatdlg", line);
}

CString Message(const wchar_t* key) {
  return zel::lib::MMSGFunction::GetValue(key);
}

}  // namespace

CDgnAluMatDlg::CDgnAluMatDlg(CWnd* parent) : CDialogMove(IDD_DGN_ALU_MAT_DLG, parent) {}

CDgnAluMatDlg::~CDgnAluMatDlg() = default;

BEGIN_MESSAGE_MAP(CDgnAluMatDlg, CDialogMove)
ON_NOTIFY(LVN_ITEMCHANGED, IDC_DGN_STEELMAT_LIST, &CDgnAluMatDlg::OnItemchangedDgnSteelmatList)
ON_CBN_SELCHANGE(IDC_DGN_STEELMAT_CODE, &CDgnAluMatDlg::OnSelchangeDgnSteelmatCode)
ON_BN_CLICKED(IDC_DGN_STEELMAT_MODIFY, &CDgnAluMatDlg::OnDgnSteelmatModify)
ON_CBN_SELCHANGE(IDC_DGN_STEEL_MAT, &CDgnAluMatDlg::OnSelchangeDgnSteelMat)
ON_NOTIFY(NM_CLICK, IDC_DGN_STEELMAT_LIST, &CDgnAluMatDlg::OnClickDgnSteelmatList)
END_MESSAGE_MAP()

void CDgnAluMatDlg::DoDataExchange(CDataExchange* exchange) {
  CDialogMove::DoDataExchange(exchange);
  DDX_Control(exchange, IDC_DGN_STEELMAT_CODE, m_cmbCode);
  DDX_Control(exchange, IDC_DGN_STEEL_MAT, m_cmbGrade);
  DDX_Control(exchange, IDC_DGN_STEELMAT_LIST, m_lstMatl);
  DDX_Control(exchange, IDC_DGN_STEEL_MATESUNIT, m_unitEs);
  DDX_Control(exchange, IDC_DGN_STEEL_MATFUNIT, m_unitFu);
  DDX_Control(exchange, IDC_DGN_STEEL_MATFVUNIT, m_unitFy1);
  DDX_Control(exchange, IDC_DGN_STEEL_MATF02UNIT, m_unitFy2);
}

BOOL CDgnAluMatDlg::OnInitDialog() {
  m_pDoc = CDBDoc::GetDocPoint();
  CDialogMove::OnInitDialog();
  Initial_ListCtrl();
  Initial_Data();
  Initial_Unit();
  return TRUE;
}

void CDgnAluMatDlg::OnOK() {
  zel::frx::MDialog::OnOK();
}

void CDgnAluMatDlg::OnCancel() {
  zel::frx::MDialog::OnCancel();
}

void CDgnAluMatDlg::Initial_ListCtrl() {
  m_lstMatl.SetExtendedStyle(m_lstMatl.GetExtendedStyle() | LVS_EX_FULLROWSELECT);
  m_lstMatl.InsertColumn(0, L"ID", LVCFMT_CENTER, 75);
  m_lstMatl.InsertColumn(1, Message(L"IDS_DGN_LIST_NAME"), LVCFMT_CENTER, 75);
  m_lstMatl.InsertColumn(2, L"Es", LVCFMT_CENTER, 72);
  m_lstMatl.InsertColumn(3, L"fu", LVCFMT_CENTER, 68);
  m_lstMatl.InsertColumn(4, L"fy1", LVCFMT_CENTER, 68);
  m_lstMatl.InsertColumn(5, L"fy2", LVCFMT_CENTER, 68);
}

void CDgnAluMatDlg::Initial_Data() {
  const CAttrCtrl& attributes = m_pDoc->GetAttrCtrl();
  CArray<UINT> keys;
  attributes.GetMatlKeyList(keys);
  for (const UINT key : keys) {
    T_MATD_D matl;
    if (attributes.GetMatlDesign(key, matl) == 0) continue;
    if (m_pDoc->GetAluDgnTool().IsAluMatl(key) == 0) continue;
    Write_ListCtrlBox(m_lstMatl.GetItemCount(), key, matl.strName, matl.dElast, matl.dFu,
                      matl.dF02Thin, matl.dF02Thick);
  }
  EnableEditBox(TRUE);
  GetDlgItem(IDC_DGN_STEEL_MAT2)->ShowWindow(SW_HIDE);
  UpdateData(FALSE);
}

void CDgnAluMatDlg::Initial_Unit() {
  for (CTextUnit* unit : {&m_unitEs, &m_unitFu, &m_unitFy1, &m_unitFy2}) {
    unit->SetUnitType(UNIT_TYPE_STRESS);
  }
}

void CDgnAluMatDlg::Initial_MaterialCombo(const CString& code, const CString& grade) {
  m_cmbCode.ResetContent();
  m_cmbGrade.ResetContent();
  const IAluDgnTool& tool = m_pDoc->GetAluDgnTool();
  CArray<CString> codes;
  m_pDoc->GetMatlDB().GetDesignCodeList(tool.GetDgnAluMatlDBType(), codes);
  m_cmbCode.AddString(kNone);
  for (const CString& name : codes) {
    if (tool.IsAluMatlCode_CH(name) != 0) m_cmbCode.AddString(name);
  }
  const CString selected = code.IsEmpty() ? CString(kNone) : code;
  m_cmbCode.SetCurSel(m_cmbCode.FindStringExact(-1, selected));
  if (selected == kNone) {
    m_cmbGrade.AddString(grade);
  } else {
    FillGrades(selected);
  }
}

void CDgnAluMatDlg::FillGrades(const CString& code) {
  CArray<CString> grades;
  m_pDoc->GetMatlDB().GetAluminumNameList(code, grades);
  for (const CString& grade : grades) m_cmbGrade.AddString(grade);
}

void CDgnAluMatDlg::Write_ListCtrlBox(int row, UINT id, const CString& name, double es, double fu,
                                      double fy1, double fy2) {
  m_lstMatl.InsertItem(row, alu_report::FormatInteger(id, 7));
  WriteValues(row, name, es, fu, fy1, fy2);
}

void CDgnAluMatDlg::WriteValues(int row, const CString& name, double es, double fu, double fy1,
                                double fy2) {
  m_lstMatl.SetItemText(row, 1, name);
  int column = 2;
  for (const double value : {es, fu, fy1, fy2}) {
    m_lstMatl.SetItemText(row, column++, alu_report::FormatGeneral(value));
  }
}

void CDgnAluMatDlg::EnableEditBox(BOOL enable) {
  for (const int id : kValueEdits) GetDlgItem(id)->EnableWindow(enable);
}

// Key of the material that a row is about; 0 when the list has no such row.
UINT CDgnAluMatDlg::KeyOfRow(int row) const {
  return alu_dialogs::KeyOfText(m_lstMatl.GetItemText(row, 0));
}

template <class VALUES>
void CDgnAluMatDlg::ShowValues(const VALUES& values) {
  const double shown[] = {values.dElast, values.dPoisson, values.dFu, values.dF02Thin,
                          values.dF02Thick};
  for (int i = 0; i < 5; ++i) CDlgUtilEx::SetWindowVal(this, kValueEdits[i], shown[i], -1);
}

void CDgnAluMatDlg::ReadValues(T_MATD_D& material) {
  double* const read[] = {&material.dElast, &material.dPoisson, &material.dFu, &material.dF02Thin,
                          &material.dF02Thick};
  for (int i = 0; i < 5; ++i) *read[i] = CDlgUtilEx::GetWindowVal(this, kValueEdits[i]);
}

void CDgnAluMatDlg::ShowGradeOrName(BOOL grade) {
  SetDlgItemText(IDC_STATIC_MATNAME,
                 Message(grade != FALSE ? L"IDS_DGN_TEXT_DB_NAME" : L"IDS_DGN_TEXT_NAME"));
  m_cmbGrade.ShowWindow(grade != FALSE ? SW_SHOW : SW_HIDE);
  GetDlgItem(IDC_DGN_STEEL_MAT2)->ShowWindow(grade != FALSE ? SW_HIDE : SW_SHOW);
}

void CDgnAluMatDlg::ShowMaterial(const T_MATD_D& material) {
  ShowValues(material);
  if (material.strStandard.IsEmpty()) {
    Initial_MaterialCombo(L"", material.strName);
    m_cmbGrade.SetCurSel(0);
  } else {
    Initial_MaterialCombo(material.strStandard, material.strGrade);
    m_cmbGrade.SetCurSel(m_cmbGrade.FindStringExact(-1, material.strGrade));
  }
  ShowGradeOrName(m_cmbGrade.GetCurSel() != CB_ERR ? TRUE : FALSE);
}

void CDgnAluMatDlg::OnItemchangedDgnSteelmatList(NMHDR* notification, LRESULT* result) {
  const int row = reinterpret_cast<const NMLISTVIEW*>(notification)->iItem;
  T_MATD_D material;
  if (m_pDoc->GetAttrCtrl().GetMatlDesign(KeyOfRow(row), material) != 0) ShowMaterial(material);
  *result = 0;
}

void CDgnAluMatDlg::OnClickDgnSteelmatList(NMHDR* notification, LRESULT* result) {
  OnItemchangedDgnSteelmatList(notification, result);
  *result = 0;
}

void CDgnAluMatDlg::OnSelchangeDgnSteelmatCode() {
  m_cmbGrade.ResetContent();
  const CString code = m_cmbCode.GetWindowText();
  const bool fromDatabase = code != kNone && !code.IsEmpty();
  ShowGradeOrName(fromDatabase ? TRUE : FALSE);
  EnableEditBox(fromDatabase ? FALSE : TRUE);
  if (fromDatabase) FillGrades(code);
  if (code != kNone) ShowValues(T_ALUMINUM_DATA());
}

void CDgnAluMatDlg::OnSelchangeDgnSteelMat() {
  CString text;
  T_ALUMINUM_DATA values;
  if (m_pDoc->GetMatlDB().GetAluminumData(m_cmbCode.GetWindowText(), m_cmbGrade.GetWindowText(),
                                          text, values, 0, 0.0) != 0) {
    ShowValues(values);
  }
}

// Name, standard and grade of what is selected.
void CDgnAluMatDlg::ReadName(T_MATD_D& material) {
  if (m_cmbCode.GetCurSel() == kNoneIndex) {
    // Kept: the name is the grade list's entry, not what the name edit holds.
    material.strName = m_cmbGrade.GetWindowText();
    material.strStandard.Empty();
    material.strGrade.Empty();
    return;
  }
  material.strStandard = m_cmbCode.GetWindowText();
  material.strGrade = m_cmbGrade.GetWindowText();
  material.strName = material.strGrade;
  CString text;
  T_ALUMINUM_DATA values;
  if (m_pDoc->GetMatlDB().GetAluminumData(material.strStandard, material.strGrade, text, values, 0,
                                          0.0) == 0) {
    RaiseReleaseAssertion(kLineUnknownGrade);
  }
}

void CDgnAluMatDlg::OnDgnSteelmatModify() {
  const int row = m_lstMatl.GetNextItem(-1, LVNI_SELECTED);
  if (row < 0) {
    AfxMessageBox(Message(L"IDS_DGN_COM_NO_SEL_MATL"), MB_OK);
    return;
  }
  const UINT key = KeyOfRow(row);
  T_MATD_D material;
  m_pDoc->GetAttrCtrl().GetMatlDesign(key, material);
  UpdateData(TRUE);
  ReadName(material);
  ReadValues(material);
  if (ErrorCheck(material) == 0) return;
  if (m_pDoc->GetDataCtrl().AddMatd(key, material) == 0) return;
  WriteValues(row, material.strName, material.dElast, material.dFu, material.dF02Thin,
              material.dF02Thick);
}

int CDgnAluMatDlg::ErrorCheck(const T_MATD_D& material) {
  const bool needsName = m_cmbCode.GetCurSel() == kNoneIndex;
  const CString problems = alu_dialogs::MaterialProblems(material, needsName);
  if (problems.IsEmpty()) return 1;
  AfxMessageBox(Message(L"IDS_DGN_CHK_TITLE_ERROR") + problems, MB_OK);
  return 0;
}
