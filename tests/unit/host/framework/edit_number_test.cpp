// Numbers in edits.

#include <gtest/gtest.h>

#include <bit>
#include <cmath>
#include <cstdint>
#include <limits>
#include <random>

#include "host/tz_common/dlg_util_ex.h"
#include "tests/unit/host/framework/sample_test.h"

namespace {

using namespace test_support;
using dialog_test::DialogUser;
using dialog_test::SampleDialog;

class EditNumberTest : public dialog_test::SampleTest {
 protected:
  void Open(const std::function<void()>& script) {
    Run(dialog_, [&](DialogUser&) { script(); });
  }
  std::wstring TextOf(double value, int decimals = -1) {
    CDlgUtilEx::SetWindowVal(&dialog_, name_edit, value, decimals);
    return dialog_.GetDlgItemText(name_edit).GetString();
  }
  double ValueOf(const CString& text) {
    dialog_.SetDlgItemText(name_edit, text);
    return CDlgUtilEx::GetWindowVal(&dialog_, name_edit);
  }
  void ExpectReadBack(double value) {
    CDlgUtilEx::SetWindowVal(&dialog_, name_edit, value);
    const double read = CDlgUtilEx::GetWindowVal(&dialog_, name_edit);
    ASSERT_EQ(std::bit_cast<std::uint64_t>(read), std::bit_cast<std::uint64_t>(value)) << value;
  }

  SampleDialog dialog_;
};

TEST_F(EditNumberTest, AnyNumberIsReadBackUnchanged) {
  Open([this] {
    std::mt19937_64 bits(50429);
    for (int i = 0; i < 20000; ++i) {
      const auto value = std::bit_cast<double>(bits());
      if (std::isfinite(value)) ExpectReadBack(value);
    }
  });
}

TEST_F(EditNumberTest, NumbersOfEverydaySizeAreReadBackUnchanged) {
  Open([this] {
    std::mt19937_64 engine(2007);
    std::uniform_real_distribution<double> exponent(-7.0, 17.0);
    for (int i = 0; i < 20000; ++i) ExpectReadBack(std::pow(10.0, exponent(engine)));
  });
}

TEST_F(EditNumberTest, TheOutermostNumbersAreReadBackUnchanged) {
  Open([this] {
    using limits = std::numeric_limits<double>;
    for (const double value : {limits::max(), limits::lowest(), limits::min(), limits::denorm_min(),
                               limits::epsilon(), 0.0, -0.0}) {
      ExpectReadBack(value);
    }
  });
}

TEST_F(EditNumberTest, ANumberHasTheDigitsThatItNeeds) {
  Open([this] {
    EXPECT_EQ(TextOf(0.85), L"0.85");
    EXPECT_EQ(TextOf(70000.0), L"70000");
    EXPECT_EQ(TextOf(-2.5), L"-2.5");
    EXPECT_EQ(TextOf(0.0), L"0");
    EXPECT_EQ(TextOf(0.1 + 0.2), L"0.30000000000000004");  // the nearest double, in all its digits
  });
}

// Neighbouring doubles of a border are its next one up and down.
TEST_F(EditNumberTest, BelowOneHundredThousandthAnExponentIsShown) {
  Open([this] {
    EXPECT_EQ(TextOf(1e-5), L"0.00001");
    EXPECT_EQ(TextOf(-1e-5), L"-0.00001");
    EXPECT_EQ(TextOf(9e-6), L"9e-06");
    EXPECT_EQ(TextOf(-9e-6), L"-9e-06");
    EXPECT_NE(TextOf(std::nextafter(1e-5, 0.0)).find(L"e-06"), std::wstring::npos);
  });
}

TEST_F(EditNumberTest, FromOneThousandMillionMillionsOnAnExponentIsShown) {
  Open([this] {
    EXPECT_EQ(TextOf(1e15), L"1e+15");
    EXPECT_EQ(TextOf(-1e15), L"-1e+15");
    EXPECT_EQ(TextOf(1e15 - 1.0), L"999999999999999");
    EXPECT_EQ(TextOf(1e14), L"100000000000000");
    EXPECT_EQ(TextOf(std::nextafter(1e15, 0.0)).find(L'e'), std::wstring::npos);
  });
}

TEST_F(EditNumberTest, DecimalsAreKeptWhenAskedFor) {
  Open([this] {
    EXPECT_EQ(TextOf(1.2, 3), L"1.200");
    EXPECT_EQ(TextOf(2.75, 1), L"2.8");
    EXPECT_EQ(TextOf(2.5, 0), L"2");  // a tie goes to the even digit
    EXPECT_EQ(TextOf(1e-6, 2), L"1.00e-06");
    EXPECT_EQ(TextOf(0.0, 2), L"0.00");
  });
}

TEST_F(EditNumberTest, ALongNumberWithManyDecimalsIsWhole) {
  Open([this] {
    EXPECT_EQ(TextOf(999999999999999.0, 30), L"999999999999999." + std::wstring(30, L'0'));
  });
}

TEST_F(EditNumberTest, EveryUsualWayOfWritingIsRead) {
  Open([this] {
    EXPECT_EQ(ValueOf(L"1.5"), 1.5);
    EXPECT_EQ(ValueOf(L"+1.5"), 1.5);
    EXPECT_EQ(ValueOf(L"-1.5"), -1.5);
    EXPECT_EQ(ValueOf(L".5"), 0.5);
    EXPECT_EQ(ValueOf(L"5."), 5.0);
    EXPECT_EQ(ValueOf(L"007"), 7.0);
    EXPECT_EQ(ValueOf(L"7E4"), 70000.0);
    EXPECT_EQ(ValueOf(L"1e-6"), 1e-6);
    EXPECT_EQ(ValueOf(L"1e+3"), 1000.0);
  });
}

TEST_F(EditNumberTest, BlanksAroundANumberArePassedOver) {
  Open([this] {
    EXPECT_EQ(ValueOf(L"  1.5\t"), 1.5);
    EXPECT_EQ(ValueOf(L"\t +1.5 "), 1.5);
  });
}

TEST_F(EditNumberTest, WhatIsNoNumberIsZero) {
  Open([this] {
    for (const wchar_t* text :
         {L"",      L" ",   L"abc", L"1.2x", L"x1.2", L"1,5",    L"1 2",     L"1..2",
          L"1.2.3", L"e5",  L"1e",  L"0x10", L"+",    L"-",      L".",       L"--1",
          L"++1",   L"+-1", L"-+1", L"+ 1",  L"1-",   L"\uFF11", L"1\u00A0", L"\u0661"}) {
      EXPECT_EQ(ValueOf(text), 0.0) << testing::PrintToString(std::wstring(text));
    }
  });
}

TEST_F(EditNumberTest, WhatIsNotFiniteIsZero) {
  Open([this] {
    for (const wchar_t* text : {L"inf", L"-inf", L"+inf", L"INF", L"infinity", L"nan", L"-nan",
                                L"NaN", L"nan(1)", L"1e309", L"-1e309", L"1e99999"}) {
      EXPECT_EQ(ValueOf(text), 0.0) << testing::PrintToString(std::wstring(text));
    }
  });
}

TEST_F(EditNumberTest, AnInfiniteNumberIsShownButReadAsZero) {
  Open([this] {
    EXPECT_EQ(TextOf(std::numeric_limits<double>::infinity()), L"inf");
    EXPECT_EQ(CDlgUtilEx::GetWindowVal(&dialog_, name_edit), 0.0);
  });
}

}  // namespace
