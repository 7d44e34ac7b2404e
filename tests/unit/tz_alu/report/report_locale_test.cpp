// By which characters the report's file is written.

#include "tz_alu/report/report_locale.h"

#include <iostream>

#include "tests/unit/tz_alu/report/built_locale.h"

namespace {

using report_test::BuiltLocale;
using report_test::EnvironmentVariable;
using report_test::ReportTest;
using report_test::Rule;
using testing::HasSubstr;
using testing::Not;

class ReportLocale : public ReportTest {
 protected:
  void PrintStrengthTitle() {
    const ALU_DGN_DATA data;
    const AluDgnSectForce force;
    const ALU_CAL_BUFF buffer;
    const T_RALU_SECT result;
    print_.PrintStrength({data, force, buffer, result});
  }
  std::string Banner(const std::string& title) const {
    return Rule() + "\n  [[[*]]]   " + title + "\n" + Rule() + "\n";
  }
};

TEST_F(ReportLocale, AUtf8LocaleGivesUtf8) {
  PrintStrengthTitle();
  // U+D4FB, U+B611, U+F91A, U+70AC.
  EXPECT_EQ(Text(), Banner("\xED\x93\xBB\xEB\x98\x91\xEF\xA4\x9A\xE7\x82\xAC"));
}

// The bytes are those of the GBK text U+5F3A U+5EA6 U+9A8C U+7B97.
TEST_F(ReportLocale, ALocaleOfCodePage949GivesItsBytes) {
  const BuiltLocale korean("ko_KR", "CP949");
  const EnvironmentVariable user("LC_ALL", korean.name());
  PrintStrengthTitle();
  EXPECT_EQ(Text(), Banner("\xC7\xBF\xB6\xC8\xD1\xE9\xCB\xE3"));
}

TEST_F(ReportLocale, AUsableLocaleIsNotRemarkedUpon) {
  PrintStrengthTitle();
  EXPECT_TRUE(host_.log.history.empty());
}

TEST_F(ReportLocale, AChangeOfTheEnvironmentShowsInTheNextBlock) {
  const BuiltLocale korean("ko_KR", "CP949");
  {
    const EnvironmentVariable user("LC_ALL", korean.name());
    PrintStrengthTitle();
  }
  PrintStrengthTitle();
  EXPECT_THAT(Text(), HasSubstr("\xC7\xBF\xB6\xC8\xD1\xE9\xCB\xE3\n"));
  EXPECT_TRUE(Text().ends_with(Banner("\uD4FB\uB611\uF91A\u70AC")));
}

// The stream stops at the character; what it wrote before stays, and the next block is as good as
// it can be.
TEST_F(ReportLocale, ACharacterThatTheCodePageLacksEndsItsBlockAlone) {
  const EnvironmentVariable user("LC_ALL", "C");
  EXPECT_NO_THROW(PrintStrengthTitle());
  print_.PrintMember({});
  EXPECT_TRUE(Text().starts_with(Rule() + "\n"));
  EXPECT_THAT(Text(), Not(HasSubstr("\uD4FB")));
  EXPECT_THAT(Text(), HasSubstr("\n  MEMBER NO = 0,"));
}

// --- a locale that the machine does not have; told once a program, so each in one of its own ---

using ReportLocaleDeathTest = ReportLocale;

/// Ends the program after two blocks; the status is the number of lines in the history.
[[noreturn]] void CountWarnings(CALU_GB50429_07Print& print, const test_support::FakeHost& host) {
  print.PrintHeader({});
  print.PrintMember({});
  for (const std::wstring& line : host.log.history) {
    std::cerr << std::string(line.begin(), line.end()) << '\n';
  }
  std::exit(static_cast<int>(host.log.history.size()));
}

TEST_F(ReportLocaleDeathTest, AnUnknownLocaleIsToldOnceAndUtf8IsWritten) {
  const EnvironmentVariable user("LC_ALL", "xx_YY.nonsense");
  EXPECT_EXIT(CountWarnings(print_, host_), testing::ExitedWithCode(1),
              "^The environment names a locale that this machine does not have; the report is "
              "written in UTF-8.\n$");
  EXPECT_THAT(Text(), HasSubstr("[ GB 50429 \uCB6F 2007 ]\n"));
  EXPECT_THAT(Text(), HasSubstr("   Shape = C\uCB6FSection \n"));
}

TEST_F(ReportLocaleDeathTest, AnUnknownCharacterLocaleAloneIsTheSame) {
  unsetenv("LC_ALL");  // given back with the fixture
  const EnvironmentVariable characters("LC_CTYPE", "xx_YY.nonsense");
  EXPECT_EXIT(CountWarnings(print_, host_), testing::ExitedWithCode(1), "UTF-8");
  EXPECT_THAT(Text(), HasSubstr("[ GB 50429 \uCB6F 2007 ]\n"));
}

TEST_F(ReportLocaleDeathTest, AKnownLocaleIsNotTold) {
  EXPECT_EXIT(CountWarnings(print_, host_), testing::ExitedWithCode(0), "^$");
}

}  // namespace
