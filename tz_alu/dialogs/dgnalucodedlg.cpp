#include "tz_alu/dialogs/dgnalucodedlg.h"

#include "host/framework/messagebox.h"
#include "host/tz_common/dlg_util_ex.h"
#include "tz_alu/dialogs/resource.h"

namespace {

// Of this code the host knows the name, but the module does not design by it.
constexpr wchar_t kCodeNotOffered[] = L"GB50068-2018";

// Ratios and factors below it are refused.
constexpr double kSmallestFactor = 1e-6;

// Kept: a sentence in Chinese that asks the user to check the settings, as GBK bytes read through
// code page 949.
constexpr wchar_t kWrongSettings[] =
    L"\uAF5D\u9452\uE047\u96F6\u5510\u8F4E\uFF0C\uD5DD\uC1F1\uAFF4\u0021";

constexpr int kSafetyClasses[] = {IDC_STATIC_ALU_SAFECLASS1, IDC_STATIC_ALU_SAFECLASS2,
                                  IDC_STATIC_ALU_SAFECLASS3};

// Enabled while the seismic factors are asked for.
constexpr int kSeismicControls[] = {IDC_EDIT_ALU_GAMARE_STRENGTH, IDC_STATIC_ALU_GAMARE_STABILITY,
                                    IDC_EDIT_ALU_GAMARE_STABILITY, IDC_STATIC_ALU_GAMARE_STRENGTH};

bool AreFactorsTooSmall(const T_DALU_D& settings) {
  return settings.dRibRatio < kSmallestFactor || settings.dStrengthRatio < kSmallestFactor ||
         settings.dGammaREStability < kSmallestFactor ||
         settings.dGammaREStrength < kSmallestFactor;
}

}  // namespace

CDgnAluCodeDlg::CDgnAluCodeDlg(CWnd* parent) : CDialogMove(IDD_DGN_ALU_CODE_DLG, parent) {}

CDgnAluCodeDlg::~CDgnAluCodeDlg() = default;

BEGIN_MESSAGE_MAP(CDgnAluCodeDlg, CDialogMove)
ON_BN_CLICKED(IDC_CHECK_ALU_CONSIDE_SESI, &CDgnAluCodeDlg::EnableCtrl)
ON_BN_CLICKED(IDC_CHECK_ALU_SECT_RIB, &CDgnAluCodeDlg::EnableCtrl)
END_MESSAGE_MAP()

void CDgnAluCodeDlg::DoDataExchange(CDataExchange* exchange) {
  CDialogMove::DoDataExchange(exchange);
  DDX_Control(exchange, IDC_COMB_ALU_CODE, m_cmbCode);
}

BOOL CDgnAluCodeDlg::OnInitDialog() {
  m_pDoc = CDBDoc::GetDocPoint();
  CDialogMove::OnInitDialog();
  FillCodes();
  const T_DALU_D settings = StoredSettings();
  SelectCode(settings.strCode);
  ShowSettings(settings);
  EnableCtrl();
  return TRUE;
}

void CDgnAluCodeDlg::FillCodes() {
  m_cmbCode.ResetContent();
  CArray<CString> names;
  CDBLib::GetAluCodeNameList(names);
  for (const CString& name : names) {
    const CString shown = CDBLib::ViewConvertCodeName(name);
    if (shown != kCodeNotOffered) m_cmbCode.AddString(shown);
  }
}

// The model's settings, or those of a new model.
T_DALU_D CDgnAluCodeDlg::StoredSettings() const {
  T_DALU_D settings;
  if (m_pDoc->GetAttrCtrl().GetDalu(settings) != 0) return settings;
  settings.Initialize();
  T_PREFERENCE preference;
  m_pDoc->GetInitCtrl().GetPreference(preference);
  settings.strCode = preference.strAluCode;
  return settings;
}

void CDgnAluCodeDlg::SelectCode(const CString& code) {
  if (code.IsEmpty()) return;
  const int found = m_cmbCode.FindStringExact(-1, CDBLib::ViewConvertCodeName(code));
  m_nSelected = found > 0 ? found : 0;
  m_cmbCode.SetCurSel(m_nSelected);
}

void CDgnAluCodeDlg::ShowSettings(const T_DALU_D& settings) {
  CDlgUtilEx::CtrlCheck(this, IDC_CHECK_ALU_SECT_RIB, settings.bRib);
  for (int i = 0; i < 3; ++i) {
    CDlgUtilEx::CtrlCheck(this, kSafetyClasses[i], settings.nSafetyClass == i ? TRUE : FALSE);
  }
  CDlgUtilEx::SetWindowVal(this, IDC_EDIT_ALU_SECTSTENGTH, settings.dStrengthRatio, -1);
  CDlgUtilEx::SetWindowVal(this, IDC_EDIT_ALU_SECRIB_RATIO, settings.dRibRatio, -1);
  CDlgUtilEx::CtrlCheck(this, IDC_CHECK_ALU_CONSIDE_SESI, settings.bSeismic);
  CDlgUtilEx::SetWindowVal(this, IDC_EDIT_ALU_GAMARE_STRENGTH, settings.dGammaREStrength, -1);
  CDlgUtilEx::SetWindowVal(this, IDC_EDIT_ALU_GAMARE_STABILITY, settings.dGammaREStability, -1);
}

void CDgnAluCodeDlg::EnableCtrl() {
  const BOOL seismic = CDlgUtilEx::CtrlIsCheck(this, IDC_CHECK_ALU_CONSIDE_SESI);
  for (const int id : kSeismicControls) GetDlgItem(id)->EnableWindow(seismic);
  GetDlgItem(IDC_EDIT_ALU_SECRIB_RATIO)
      ->EnableWindow(CDlgUtilEx::CtrlIsCheck(this, IDC_CHECK_ALU_SECT_RIB));
}

// What the controls hold; reserved fields, and a safety class that no button shows, keep what is
// stored.
T_DALU_D CDgnAluCodeDlg::EnteredSettings() {
  T_DALU_D settings;
  settings.Initialize();
  if (m_pDoc->GetAttrCtrl().ExistDalu() != 0) m_pDoc->GetAttrCtrl().GetDalu(settings);
  settings.strCode = CDBLib::GetConvertCodeName(m_cmbCode.GetWindowText());
  for (int i = 2; i >= 0; --i) {
    if (CDlgUtilEx::CtrlIsCheck(this, kSafetyClasses[i]) != FALSE) settings.nSafetyClass = i;
  }
  settings.dStrengthRatio = CDlgUtilEx::GetWindowVal(this, IDC_EDIT_ALU_SECTSTENGTH);
  settings.bRib = CDlgUtilEx::CtrlIsCheck(this, IDC_CHECK_ALU_SECT_RIB);
  settings.dRibRatio = CDlgUtilEx::GetWindowVal(this, IDC_EDIT_ALU_SECRIB_RATIO);
  settings.bSeismic = CDlgUtilEx::CtrlIsCheck(this, IDC_CHECK_ALU_CONSIDE_SESI);
  settings.dGammaREStrength = CDlgUtilEx::GetWindowVal(this, IDC_EDIT_ALU_GAMARE_STRENGTH);
  settings.dGammaREStability = CDlgUtilEx::GetWindowVal(this, IDC_EDIT_ALU_GAMARE_STABILITY);
  return settings;
}

void CDgnAluCodeDlg::OnOK() {
  UpdateData(TRUE);
  const T_DALU_D settings = EnteredSettings();
  if (AreFactorsTooSmall(settings)) {
    AfxMessageBox(kWrongSettings, MB_OK);
    return;
  }
  if (m_pDoc->GetDataCtrl().AddDalu(settings) == 0) return;
  CDialogMove::OnOK();
}

void CDgnAluCodeDlg::OnCancel() {
  zel::frx::MDialog::OnCancel();
}
