// The desktop program with one dialog only, as scripts start it.

#include <fstream>

#include "apps/exit_status.h"
#include "tests/gui/desktop_test.h"
#include "tests/gui/fit.h"
#include "tests/support/used_language.h"
#include "tz_alu/dialogs/resource.h"

namespace gui_test {
namespace {

using namespace aluframe;
using services::SettingsDialog;

class SingleDialog : public DesktopTest {
 protected:
  int run_code(const std::function<void(DialogUser&)>& script) {
    return with_user([this] { return run(SettingsDialog::code); }, script);
  }
  int run_materials(const std::function<void(DialogUser&)>& script) {
    return with_user([this] { return run(SettingsDialog::materials); }, script);
  }
};

TEST_F(SingleDialog, OkSavesTheSettings) {
  const int status = run_code([](DialogUser& user) {
    EXPECT_EQ(user.text(IDC_COMB_ALU_CODE), L"GB50429-2007");
    EXPECT_TRUE(user.is_checked(IDC_STATIC_ALU_SAFECLASS2));
    EXPECT_EQ(user.text(IDC_EDIT_ALU_SECTSTENGTH), L"0.9");
    user.click(IDC_STATIC_ALU_SAFECLASS1);
    user.type(IDC_EDIT_ALU_SECTSTENGTH, "0.8");
    user.click(IDOK);
  });
  EXPECT_EQ(status, exit_done);
  const model::Model saved = model_of_file();
  ASSERT_TRUE(saved.design.has_value());
  EXPECT_EQ(saved.design->safety_class, 1);
  EXPECT_EQ(saved.design->strength_ratio, 0.8);
}

/// As another program does, while the dialog is open.
void change_file(const std::filesystem::path& file, std::string text, const std::string& found,
                 const std::string& replacement) {
  const std::size_t at = text.find(found);
  ASSERT_NE(at, std::string::npos) << found;
  std::ofstream(file, std::ios::binary) << text.replace(at, found.size(), replacement);
}

TEST_F(SingleDialog, WhatAnotherProgramChangesMeanwhileStays) {
  const int status = run_code([this](DialogUser& user) {
    change_file(file, text_of_file(), "\"strength_ratio\": 0.9", "\"strength_ratio\": 0.8");
    user.click(IDC_STATIC_ALU_SAFECLASS1);
    user.click(IDOK);
  });
  EXPECT_EQ(status, exit_done);
  EXPECT_EQ(model_of_file().design->safety_class, 1);
  EXPECT_EQ(model_of_file().design->strength_ratio, 0.8);
}

// On a screen that nobody sees, nobody can be asked.
TEST_F(SingleDialog, AConflictThatNobodyIsAskedAboutFailsAndLeavesTheFile) {
  std::string changed;
  testing::internal::CaptureStderr();
  const int status = run_code([&](DialogUser& user) {
    change_file(file, text_of_file(), "\"strength_ratio\": 0.9", "\"strength_ratio\": 0.8");
    changed = text_of_file();
    user.type(IDC_EDIT_ALU_SECTSTENGTH, "0.7");
    user.click(IDOK);
  });
  EXPECT_EQ(status, exit_failure);
  EXPECT_EQ(text_of_file(), changed);
  EXPECT_THAT(testing::internal::GetCapturedStderr(),
              testing::HasSubstr("/settings/strength_ratio: 0.9 when it was opened, 0.7 here, 0.8 "
                                 "in the file"));
}

TEST_F(SingleDialog, CloseOfTheSettingsLeavesTheFileAndSaysSo) {
  const std::string before = text_of_file();
  const int status = run_code([](DialogUser& user) {
    user.click(IDC_STATIC_ALU_SAFECLASS1);
    user.click(IDCANCEL);
  });
  EXPECT_EQ(status, exit_cancelled);
  EXPECT_EQ(text_of_file(), before);
}

TEST_F(SingleDialog, OkWithoutAChangeLeavesTheFile) {
  const std::string before = text_of_file();
  EXPECT_EQ(run_code([](DialogUser& user) { user.click(IDOK); }), exit_done);
  EXPECT_EQ(text_of_file(), before);
}

// Values of 6063-T5 in Table 4.3.4 of GB 50429-2007, shown in N/mm².
TEST_F(SingleDialog, AModifiedMaterialIsSavedWhenTheDialogCloses) {
  const int status = run_materials([](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    EXPECT_EQ(user.text(IDC_DGN_STEEL_MAT), L"6061-T6");
    user.choose(IDC_DGN_STEELMAT_CODE, "GB50429-07(A)");
    user.choose(IDC_DGN_STEEL_MAT, "6063-T5");
    EXPECT_EQ(user.text(IDC_DGN_STEEL_MATF), L"160");
    EXPECT_EQ(user.text(IDC_DGN_STEEL_MATFUNIT), L"N/mm\u00B2");
    user.click(IDC_DGN_STEELMAT_MODIFY);
    user.click(IDCANCEL);
  });
  EXPECT_EQ(status, exit_done);
  const model::Model saved = model_of_file();
  EXPECT_EQ(saved.materials[0].grade, "6063-T5");
  EXPECT_EQ(saved.materials[0].fu, 160.0);
  EXPECT_EQ(saved.materials[0].f02_thin, 110.0);
}

TEST_F(SingleDialog, MaterialsThatNobodyModifiedLeaveTheFile) {
  const std::string before = text_of_file();
  const int status = run_materials([](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    user.choose(IDC_DGN_STEELMAT_CODE, "None");
    user.click(IDCANCEL);
  });
  EXPECT_EQ(status, exit_done);
  EXPECT_EQ(text_of_file(), before);
}

class SingleDialogIn : public SingleDialog, public testing::WithParamInterface<texts::Language> {};

INSTANTIATE_TEST_SUITE_P(BothLanguages, SingleDialogIn,
                         testing::Values(texts::Language::english, texts::Language::chinese));

// Letters of another script may be higher and wider than those of the dialog's font.
TEST_P(SingleDialogIn, TheMaterialsKeepTheirSizeWhenARowIsSelected) {
  const test_support::UsedLanguage used(GetParam());
  run_materials([](DialogUser& user) {
    const QSize before = user.window().size();
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    EXPECT_EQ(user.window().size(), before);
    user.choose(IDC_DGN_STEELMAT_CODE, "None");
    EXPECT_EQ(user.window().size(), before);
    EXPECT_THAT(cut_texts(user.window()), testing::IsEmpty());
  });
}

TEST_F(SingleDialog, BothDialogsAreChineseInChineseAndStoreTheSame) {
  const test_support::UsedLanguage used(texts::Language::chinese);
  run_code([](DialogUser& user) {
    EXPECT_EQ(user.window().windowTitle(), u"\u94DD\u5408\u91D1\u8BBE\u8BA1\u89C4\u8303");
    EXPECT_EQ(user.text(IDOK), L"\u786E\u5B9A");
    EXPECT_EQ(user.text(IDC_STATIC_ALU_SAFECLASS1), L"\u4E00\u7EA7");
    EXPECT_THAT(cut_texts(user.window()), testing::IsEmpty());
    user.click(IDC_STATIC_ALU_SAFECLASS1);
    user.click(IDOK);
  });
  EXPECT_EQ(model_of_file().design->safety_class, 1);
  EXPECT_EQ(model_of_file().design->code, "GB50429-07(A)");
  run_materials([](DialogUser& user) {
    EXPECT_EQ(user.text(IDC_DGN_STATIC_PS), L"\u6CCA\u677E\u6BD4\uFF08Ps\uFF09");
    EXPECT_EQ(user.widget(IDC_DGN_STEEL_MATPS).accessibleName(),
              u"\u6CCA\u677E\u6BD4\uFF08Ps\uFF09");
  });
}

TEST_F(SingleDialog, AnUnreadableModelOpensNone) {
  file = folder.filePath("missing.json").toStdString();
  EXPECT_EQ(run(SettingsDialog::code), exit_input_error);
}

TEST_F(SingleDialog, AFileThatCannotBeWrittenIsAFailure) {
  const int status = run_code([this](DialogUser& user) {
    user.click(IDC_STATIC_ALU_SAFECLASS1);
    std::filesystem::remove_all(folder.path().toStdString());
    user.click(IDOK);
  });
  EXPECT_EQ(status, exit_failure);
}

TEST_F(SingleDialog, NoTextIsCutInChinese) {
  const test_support::UsedLanguage used(texts::Language::chinese);
  const auto open = [this] {
    return desktop::run_desktop({.model = file, .dialog = SettingsDialog::materials});
  };
  with_user(open, [](DialogUser& user) {
    user.click_row(IDC_DGN_STEELMAT_LIST, 0);
    EXPECT_THAT(cut_texts(user.window()), testing::IsEmpty());
  });
}

}  // namespace
}  // namespace gui_test
