#pragma once

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <functional>
#include <string>
#include <utility>
#include <vector>

#include "dialog_user.h"
#include "tests/support/dialog_host.h"
#include "tz_alu/dialogs/dgnalucodedlg.h"
#include "tz_alu/dialogs/resource.h"

namespace dialogs_test {

using test_support::DialogUser;

inline constexpr int kClassButtons[] = {IDC_STATIC_ALU_SAFECLASS1, IDC_STATIC_ALU_SAFECLASS2,
                                        IDC_STATIC_ALU_SAFECLASS3};

/// A host in which the dialog of the design settings opens.
class CodeDialogTest : public testing::Test {
 protected:
  CodeDialogTest() { host_.toolkit = &toolkit_; }

  /// Opens the dialog and works it with a script. @return what DoModal gives
  int Run(std::function<void(DialogUser&)> script) {
    toolkit_.script(std::move(script));
    return CDgnAluCodeDlg().DoModal();
  }

  /// Settings of which no field has its default; of the host's second code.
  static T_DALU_D OtherSettings() {
    T_DALU_D settings;
    settings.strCode = L"B";
    settings.bRib = 0;
    settings.dRibRatio = 1.1;
    settings.nSafetyClass = 2;
    settings.dStrengthRatio = 0.9;
    settings.bSeismic = 1;
    settings.dGammaREStrength = 0.7;
    settings.dGammaREStability = 0.65;
    settings.aReservedInt = {1, 2, 3, 4, 5};
    settings.aReservedDouble = {1.5, 2.5, 3.5, 4.5, 5.5};
    return settings;
  }

  /// What was stored with the only AddDalu.
  const T_DALU_D& Stored() const {
    EXPECT_EQ(host_.stored_settings.size(), 1U);
    return host_.stored_settings.at(0);
  }

  test_support::UserToolkit toolkit_;
  test_support::DialogHost host_;
};

inline std::vector<bool> CheckedClasses(const DialogUser& user) {
  std::vector<bool> checked;
  for (const int id : kClassButtons) checked.push_back(user.IsChecked(id));
  return checked;
}

inline std::wstring TextOf(const DialogUser& user, int id) {
  return user.Text(id).GetString();
}

}  // namespace dialogs_test
