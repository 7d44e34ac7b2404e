// The texts beyond ASCII. Encoded in code page 949 and read as GBK they are Chinese, which is typed
// here from its meaning.

#include <gtest/gtest.h>
#include <iconv.h>

#include <cwchar>
#include <stdexcept>
#include <string>

#include "tz_alu/report/report_literals.h"

namespace {

std::string Converted(const char* to, const char* from, std::string bytes) {
  const iconv_t conversion = iconv_open(to, from);
  if (conversion == iconv_t(-1)) throw std::runtime_error("no such conversion");
  std::string out(4 * bytes.size() + 16, '\0');
  char* source = bytes.data();
  char* target = out.data();
  std::size_t source_left = bytes.size();
  std::size_t target_left = out.size();
  const std::size_t result = iconv(conversion, &source, &source_left, &target, &target_left);
  iconv_close(conversion);
  if (result != 0) throw std::runtime_error("a character has no counterpart");
  out.resize(out.size() - target_left);
  return out;
}

/// A text as its reader means it, in UTF-8.
std::string AsChinese(const wchar_t* text) {
  const char* bytes = reinterpret_cast<const char*>(text);
  const std::string wide(bytes, std::wcslen(text) * sizeof(wchar_t));
  return Converted("UTF-8", "GBK", Converted("CP949", "WCHAR_T", wide));
}

struct LITERAL {
  const char* name;
  const wchar_t* stored;
  const char* chinese;
};

void PrintTo(const LITERAL& literal, std::ostream* out) {
  *out << literal.name;
}

class Literals : public testing::TestWithParam<LITERAL> {};

TEST_P(Literals, AreChineseWhenCodePage949IsReadAsGbk) {
  EXPECT_EQ(AsChinese(GetParam().stored), GetParam().chinese);
}

using namespace alu_report;

INSTANTIATE_TEST_SUITE_P(
    Report, Literals,
    testing::Values(
        LITERAL{"dash", kDash, "\u2013"}, LITERAL{"seismic factor", kSeismicFactor, ", \u03B3RE="},
        // load combinations
        LITERAL{"combinations", kCombinationsTitle, "\u8377\u8F7D\u7EC4\u5408"},
        // strength check
        LITERAL{"strength", kStrengthTitle, "\u5F3A\u5EA6\u9A8C\u7B97"},
        // axial stability check
        LITERAL{"stability", kStabilityTitle, "\u8F74\u5411\u7A33\u5B9A\u9A8C\u7B97"},
        LITERAL{"stability y", kStabilityYTitle, "\u8F74\u5411\u7A33\u5B9A\u9A8C\u7B97(Y\u5411)"},
        LITERAL{"stability z", kStabilityZTitle, "\u8F74\u5411\u7A33\u5B9A\u9A8C\u7B97(Z\u5411)"},
        // shear strength check
        LITERAL{"shear y", kShearYTitle, "\u6297\u526A\u5F3A\u5EA6\u9A8C\u7B97(Y\u5411)"},
        LITERAL{"shear z", kShearZTitle, "\u6297\u526A\u5F3A\u5EA6\u9A8C\u7B97(Z\u5411)"},
        // slenderness check
        LITERAL{"slenderness", kSlendernessTitle, "\u957F\u7EC6\u6BD4\u9A8C\u7B97"},
        // stability in the plane of the moment, out of the plane
        LITERAL{"in plane", kInPlaneText,
                "\u5F2F\u77E9\u4F5C\u7528\u5E73\u9762\u5185\u7A33\u5B9A:"},
        LITERAL{"out of plane", kOutOfPlaneText,
                "\u5F2F\u77E9\u4F5C\u7528\u5E73\u9762\u5916\u7A33\u5B9A:"},
        // shear stress along the local axis y, z
        LITERAL{"shear y text", kShearYText,
                "\u5C40\u90E8\u5750\u6807\u7CFBy\u8F74\u65B9\u5411\u7684\u526A\u5E94\u529B"},
        LITERAL{"shear z text", kShearZText,
                "\u5C40\u90E8\u5750\u6807\u7CFBz\u8F74\u65B9\u5411\u7684\u526A\u5E94\u529B"},
        // slenderness of axially compressed members, of pulled ones
        LITERAL{"compressed", kCompressedText,
                "\u8F74\u5411\u53D7\u538B\u6784\u4EF6\u957F\u7EC6\u6BD4"
                "\uFF08kl/i\u9A8C\u7B97\uFF09"},
        LITERAL{"pulled", kPulledText,
                "\u8F74\u5411\u53D7\u62C9\u6784\u4EF6\u957F\u7EC6\u6BD4"
                "\uFF08kl/i\u9A8C\u7B97\uFF09"}));

}  // namespace
