// Numbers are the same in every locale of the program.

#include <gtest/gtest.h>

#include <clocale>
#include <cstdio>
#include <locale>
#include <sstream>

#include "tests/unit/tz_alu/report/built_locale.h"
#include "tz_alu/report/number_format.h"

namespace {

using namespace alu_report;
using report_test::BuiltLocale;

/// Digits in groups of three with dots, and a decimal comma.
template <class CHAR>
struct GROUPED_DIGITS : std::numpunct<CHAR> {
  CHAR do_decimal_point() const override { return ','; }
  CHAR do_thousands_sep() const override { return '.'; }
  std::string do_grouping() const override { return "\3"; }
};

/// The global C++ locale groups digits as long as it lives.
class GROUPING_PROGRAM {
 public:
  GROUPING_PROGRAM()
      : m_before(std::locale::global(
            std::locale(std::locale(std::locale::classic(), new GROUPED_DIGITS<char>),
                        new GROUPED_DIGITS<wchar_t>))) {}
  GROUPING_PROGRAM(const GROUPING_PROGRAM&) = delete;
  GROUPING_PROGRAM& operator=(const GROUPING_PROGRAM&) = delete;
  ~GROUPING_PROGRAM() { std::locale::global(m_before); }

 private:
  std::locale m_before;
};

/// The C library's locale has a decimal comma as long as it lives.
class GERMAN_LIBRARY {
 public:
  GERMAN_LIBRARY() {
    if (std::setlocale(LC_ALL, m_german.name().c_str()) == nullptr) {
      throw std::runtime_error("no locale with a decimal comma");
    }
  }
  GERMAN_LIBRARY(const GERMAN_LIBRARY&) = delete;
  GERMAN_LIBRARY& operator=(const GERMAN_LIBRARY&) = delete;
  ~GERMAN_LIBRARY() { std::setlocale(LC_ALL, "C"); }

 private:
  const BuiltLocale m_german{"de_DE", "UTF-8"};
};

void ExpectPlainNumbers() {
  EXPECT_EQ(FormatValue(123456.789, 3, 12), L"  123456.789");
  EXPECT_EQ(FormatValue(1234567.0, 3, 10), L" 1.235e+06");
  EXPECT_EQ(FormatValue(1234567.0, 0, 10), L"   1234567");
  EXPECT_EQ(FormatInteger(1234567), L"1234567");
  EXPECT_EQ(FormatFixed(-1234.5, 3), L"-1234.500");
  EXPECT_EQ(FormatGeneral(12345.5), L"12345.5");
}

TEST(NumbersInALocale, TheProgramsGlobalLocaleChangesNothing) {
  const GROUPING_PROGRAM grouping;
  std::wostringstream control;
  control << 1234567 << L' ' << 0.5;
  ASSERT_EQ(control.str(), L"1.234.567 0,5");
  ExpectPlainNumbers();
}

TEST(NumbersInALocale, TheCLibrarysLocaleChangesNothing) {
  const GERMAN_LIBRARY german;
  char control[8];
  std::snprintf(control, sizeof control, "%.1f", 0.5);
  ASSERT_STREQ(control, "0,5");
  ExpectPlainNumbers();
}

class ReportInALocale : public report_test::ReportTest {
 protected:
  void ExpectPlainDigits() {
    ALU_DGN_DATA data;
    data.nElem = 1234567;
    print_.PrintMember(data);
    EXPECT_THAT(Text(), testing::HasSubstr("MEMBER NO = 1234567,"));
    EXPECT_THAT(Text(), testing::HasSubstr("Area=0.00000,"));
  }
};

TEST_F(ReportInALocale, TheProgramsGlobalLocaleGroupsNoDigits) {
  const GROUPING_PROGRAM grouping;
  ExpectPlainDigits();
}

TEST_F(ReportInALocale, TheUsersLocaleGroupsNoDigits) {
  const BuiltLocale german("de_DE", "UTF-8");
  const report_test::EnvironmentVariable user("LC_ALL", german.name());
  ASSERT_EQ(std::locale("").name(), german.name());
  ExpectPlainDigits();
}

}  // namespace
