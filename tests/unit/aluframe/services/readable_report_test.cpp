// The readable copy. The Chinese texts are those that an engineer knows the checks by; the stored
// ones are spelled in code points.

#include "aluframe/services/readable_report.h"

#include <gmock/gmock.h>

namespace aluframe::services {
namespace {

struct StoredText {
  const char* name;
  std::string stored;
  std::string readable;
};

const StoredText texts[] = {
    {"Combinations", "\uBD50\u6F7C\u8389\uBD81", "荷载组合"},
    {"Strength", "\uD4FB\uB611\uF91A\u70AC", "强度验算"},
    {"Stability", "\u83C9\u8568\u6D38\uB54D\uF91A\u70AC", "轴向稳定验算"},
    {"StabilityY", "\u83C9\u8568\u6D38\uB54D\uF91A\u70AC(Y\u8568)", "轴向稳定验算(Y向)"},
    {"StabilityZ", "\u83C9\u8568\u6D38\uB54D\uF91A\u70AC(Z\u8568)", "轴向稳定验算(Z向)"},
    {"ShearY", "\uC608\uC20F\uD4FB\uB611\uF91A\u70AC(Y\u8568)", "抗剪强度验算(Y向)"},
    {"ShearZ", "\uC608\uC20F\uD4FB\uB611\uF91A\u70AC(Z\u8568)", "抗剪强度验算(Z向)"},
    {"Slenderness", "\uB080\u7396\uAD90\uF91A\u70AC", "长细比验算"},
    {"InPlane", "\u7428\uC564\u9C57\u75F0\uD2F1\uCDA9\uCF54\u6D38\uB54D:", "弯矩作用平面内稳定:"},
    {"OutOfPlane",
     "\u7428\uC564\u9C57\u75F0\uD2F1\uCDA9\u68CD\u6D38\uB54D:", "弯矩作用平面外稳定:"},
    {"ShearStressY", "\uC560\uAF2C\u9E9F\uAE43\u6E9Dy\u83C9\uB818\u8568\uB3E8\uC20F\u58C7\uC81C",
     "局部坐标系y轴方向的剪应力"},
    {"ShearStressZ", "\uC560\uAF2C\u9E9F\uAE43\u6E9Dz\u83C9\uB818\u8568\uB3E8\uC20F\u58C7\uC81C",
     "局部坐标系z轴方向的剪应力"},
    {"Compressed",
     "\u83C9\u8568\u809D\u7B95\uBB50\uC22D\uB080\u7396\uAD90\uFF08kl/i\uF91A\u70AC\uFF09",
     "轴向受压构件长细比（kl/i验算）"},
    {"Pulled", "\u83C9\u8568\u809D\uC717\uBB50\uC22D\uB080\u7396\uAD90\uFF08kl/i\uF91A\u70AC\uFF09",
     "轴向受拉构件长细比（kl/i验算）"},
    {"SeismicFactor", "N=    10.000, \u251ARE=     0.750", "N=    10.000, γRE=     0.750"},
    {"Dash", "GB 50429 \uCB6F 2007", "GB 50429 – 2007"},
    {"Shape", "Shape = 2C\uCB6FSection ", "Shape = 2C–Section "}};

class ReadableText : public testing::TestWithParam<StoredText> {};

TEST_P(ReadableText, IsTheChineseOfTheStoredOne) {
  EXPECT_EQ(readable_text(GetParam().stored), GetParam().readable);
}

INSTANTIATE_TEST_SUITE_P(OfEveryTitle, ReadableText, testing::ValuesIn(texts),
                         [](const auto& item) { return item.param.name; });

TEST(ReadableTextTest, EveryOccurrenceIsReplaced) {
  EXPECT_EQ(readable_text("\uCB6F a \uCB6F b \uCB6F\uCB6F"), "– a – b ––");
}

TEST(ReadableTextTest, EverythingElseStaysTextByText) {
  const std::string text = "  MEMBER NO = 1,   ELEMENT TYPE = Beam\n\n   kl/i=   120.000<\n\t梁 ß";
  EXPECT_EQ(readable_text(text), text);
}

TEST(ReadableTextTest, NothingGivesNothing) {
  EXPECT_EQ(readable_text(""), "");
}

}  // namespace
}  // namespace aluframe::services
