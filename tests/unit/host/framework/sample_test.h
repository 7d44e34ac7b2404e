#pragma once

#include <gtest/gtest.h>

#include <functional>
#include <utility>

#include "dialog_user.h"
#include "host/framework/dialog.h"
#include "host/framework/list_control.h"
#include "tests/support/dialog_host.h"
#include "tests/support/sample_module.h"

namespace dialog_test {

using test_support::DialogUser;

/// A dialog on the sample template whose members stand for its controls. It notes its data
/// exchanges.
class SampleDialog : public CDialog {
 public:
  explicit SampleDialog(CWnd* parent = nullptr, UINT templateId = test_support::sample_dialog_id)
      : CDialog(templateId, parent) {}

  CEdit name;
  CButton rib;
  CComboBox code;
  CListCtrl materials;
  std::vector<BOOL> exchanges;         ///< m_bSaveAndValidate of each
  std::function<void()> whenStarting;  ///< called behind the base's initialisation

 protected:
  void DoDataExchange(CDataExchange* exchange) override {
    CDialog::DoDataExchange(exchange);
    EXPECT_EQ(exchange->m_pDlgWnd, this);
    exchanges.push_back(exchange->m_bSaveAndValidate);
    DDX_Control(exchange, test_support::name_edit, name);
    DDX_Control(exchange, test_support::rib_check, rib);
    DDX_Control(exchange, test_support::code_list, code);
    DDX_Control(exchange, test_support::material_list, materials);
  }
  BOOL OnInitDialog() override {
    CDialog::OnInitDialog();
    if (whenStarting) whenStarting();
    return TRUE;
  }
};

/// A bound host that draws dialogs in memory, and a module with the sample dialog.
class SampleTest : public testing::Test {
 protected:
  SampleTest() { host_.toolkit = &toolkit_; }
  /// Opens a dialog and works it with a script. @return what DoModal gives
  int Run(CDialog& dialog, std::function<void(DialogUser&)> script) {
    toolkit_.script(std::move(script));
    return dialog.DoModal();
  }

  test_support::SampleModule module_;
  test_support::UserToolkit toolkit_;
  test_support::DialogHost host_;
};

}  // namespace dialog_test
