// Numbers in edits and in resource headers are the same in every locale of the program.

#include <gtest/gtest.h>

#include <clocale>
#include <locale>
#include <stdexcept>

#include "host/tz_base/multi_lang.h"
#include "host/tz_common/dlg_util_ex.h"
#include "tests/unit/host/framework/sample_test.h"
#include "tests/unit/tz_alu/report/built_locale.h"

namespace {

using namespace test_support;
using dialog_test::DialogUser;
using dialog_test::SampleDialog;

/// Digits in groups of three with dots, and a decimal comma.
template <class CHAR>
struct GROUPED_DIGITS : std::numpunct<CHAR> {
  CHAR do_decimal_point() const override { return ','; }
  CHAR do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

/// C library and C++ streams write a decimal comma and group digits.
class EditLocaleTest : public dialog_test::SampleTest {
 protected:
  EditLocaleTest()
      : before_(std::locale::global(
            std::locale(std::locale(std::locale::classic(), new GROUPED_DIGITS<char>),
                        new GROUPED_DIGITS<wchar_t>))) {
    if (std::setlocale(LC_ALL, german_.name().c_str()) == nullptr) {
      throw std::runtime_error("no locale with a decimal comma");
    }
  }
  ~EditLocaleTest() override {
    std::locale::global(before_);
    std::setlocale(LC_ALL, "C");
  }

  SampleDialog dialog_;

 private:
  const report_test::BuiltLocale german_{"de_DE", "UTF-8"};
  std::locale before_;
};

TEST_F(EditLocaleTest, ANumberIsShownWithAPoint) {
  Run(dialog_, [this](DialogUser& user) {
    CDlgUtilEx::SetWindowVal(&dialog_, name_edit, 12345.75);
    EXPECT_TRUE(user.Text(name_edit) == L"12345.75");
    CDlgUtilEx::SetWindowVal(&dialog_, name_edit, 1234.5, 2);
    EXPECT_TRUE(user.Text(name_edit) == L"1234.50");
  });
}

TEST_F(EditLocaleTest, ANumberIsReadWithAPointOnly) {
  Run(dialog_, [this](DialogUser& user) {
    user.type(name_edit, L"12345.75");
    EXPECT_EQ(CDlgUtilEx::GetWindowVal(&dialog_, name_edit), 12345.75);
    user.type(name_edit, L"1,5");
    EXPECT_EQ(CDlgUtilEx::GetWindowVal(&dialog_, name_edit), 0.0);
  });
}

TEST_F(EditLocaleTest, SymbolsHaveTheSameNumbers) {
  std::vector<unsigned char> bytes{0xFF, 0xFE};
  for (const char c : std::string("#define IDD_X 7963\r\n")) {
    bytes.push_back(static_cast<unsigned char>(c));
    bytes.push_back(0);
  }
  const BINARY_RESOURCE binary{1, L"BINARY", bytes};
  const MODULE_RESOURCES module{{}, {&binary, 1}};
  XMultiLang symbols;
  UINT id = 0;
  ASSERT_EQ(symbols.LoadResourceHeaderByDLL(1, L"BINARY", &module), 1);
  symbols.GetResourceId(L"IDD_X", id);
  EXPECT_EQ(id, 7963U);
}

}  // namespace
