// The readable copy. The Chinese texts are those that an engineer knows the checks by; the stored
// ones are spelled in code points.

#include "aluframe/services/readable_report.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::services {
namespace {

using testing::HasSubstr;

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

class ReadableReport : public testing::Test {
 protected:
  static constexpr const char* kUtf8 = "UTF-8";

  void report(const std::string& bytes) const { std::ofstream(report_, std::ios::binary) << bytes; }
  std::string readable() const {
    std::ifstream file(readable_, std::ios::binary);
    return {std::istreambuf_iterator<char>(file), {}};
  }
  std::string error(const std::string& charset) const {
    try {
      write_readable_report(report_, charset, readable_);
    } catch (const std::runtime_error& problem) {
      return problem.what();
    }
    return "no error";
  }

  const TemporaryFolder folder_;
  const std::filesystem::path report_ = folder_.path() / "frame.alu";
  std::filesystem::path readable_ = folder_.path() / "frame.txt";
};

TEST_F(ReadableReport, IsWrittenBesideTheReport) {
  report("  [[[*]]]   \uD4FB\uB611\uF91A\u70AC\n   f =    90.000\n");
  write_readable_report(report_, kUtf8, readable_);
  EXPECT_EQ(readable(), "  [[[*]]]   强度验算\n   f =    90.000\n");
}

TEST_F(ReadableReport, LeavesTheReportAsItIs) {
  const std::string bytes = "  [[[*]]]   \uD4FB\uB611\uF91A\u70AC\n";
  report(bytes);
  write_readable_report(report_, kUtf8, readable_);
  std::ifstream file(report_, std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(file), {}), bytes);
}

// U+D4FB U+B611 U+F91A U+70AC in code page 949, which read as GBK are the four characters of
// 强度验算.
TEST_F(ReadableReport, OfOneInCodePage949IsTheSame) {
  report("[[[*]]]   \xC7\xBF\xB6\xC8\xD1\xE9\xCB\xE3\n");
  write_readable_report(report_, "CP949", readable_);
  EXPECT_EQ(readable(), "[[[*]]]   强度验算\n");
}

TEST_F(ReadableReport, OfAnEmptyReportIsEmpty) {
  report("");
  write_readable_report(report_, kUtf8, readable_);
  EXPECT_TRUE(std::filesystem::exists(readable_));
  EXPECT_EQ(readable(), "");
}

TEST_F(ReadableReport, ReplacesAnEarlierCopy) {
  std::ofstream(readable_) << "an earlier and much longer copy";
  report("new\n");
  write_readable_report(report_, kUtf8, readable_);
  EXPECT_EQ(readable(), "new\n");
}

TEST_F(ReadableReport, OfAMissingReportIsAnErrorThatNamesIt) {
  EXPECT_EQ(error(kUtf8), report_.string() + ": cannot be opened: No such file or directory");
  EXPECT_FALSE(std::filesystem::exists(readable_));
}

TEST_F(ReadableReport, OfAnUnknownCharacterSetIsAnErrorThatNamesIt) {
  report("text\n");
  EXPECT_EQ(error("NO-SUCH-SET"), report_.string() + ": no conversion from NO-SUCH-SET to UTF-8");
}

TEST_F(ReadableReport, OfBytesThatAreNotInTheCharacterSetIsAnErrorThatSaysSo) {
  report("a \xB6\xC8 b\n");
  EXPECT_EQ(error(kUtf8), report_.string() + ": holds bytes that are not UTF-8");
}

TEST_F(ReadableReport, OfAReportCutInTheMiddleOfACharacterIsAnError) {
  report("  [[[*]]]   \xED\x93");
  EXPECT_EQ(error(kUtf8), report_.string() + ": holds bytes that are not UTF-8");
}

TEST_F(ReadableReport, ThatFailsLeavesAnEarlierCopy) {
  std::ofstream(readable_) << "earlier";
  report("a \xB6\xC8 b\n");
  error(kUtf8);
  EXPECT_EQ(readable(), "earlier");
}

TEST_F(ReadableReport, InAMissingFolderIsAnErrorThatNamesTheCopy) {
  report("text\n");
  readable_ = folder_.path() / "missing" / "frame.txt";
  EXPECT_EQ(error(kUtf8), readable_.string() + ": cannot be written: No such file or directory");
}

TEST_F(ReadableReport, OnAFullDiskIsAnErrorThatNamesTheCopy) {
  report("text\n");
  readable_ = "/dev/full";
  EXPECT_EQ(error(kUtf8), "/dev/full: cannot be written: No space left on device");
}

}  // namespace
}  // namespace aluframe::services
