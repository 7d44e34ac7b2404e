// The report's file: how it is opened, what stands in it and when.

#include "tz_alu/report/report_stream.h"

#include <sstream>
#include <vector>

#include "tests/unit/tz_alu/report/report_fixture.h"
#include "tz_alu/report/report_block.h"

namespace {

using alu_report::REPORT_BLOCK;
using report_test::BytesOf;
using report_test::ReportTest;
using testing::HasSubstr;
using testing::Not;
using STREAM = rptbasic_ofstream<wchar_t>;

class ReportStream : public ReportTest {};

TEST_F(ReportStream, OutputEmptiesTheFile) {
  Fill("an earlier report\n");
  {
    STREAM out(path_.wstring(), std::ios_base::out, RPT_SHARE::DenyNone);
  }
  EXPECT_TRUE(FileExists());
  EXPECT_EQ(Text(), "");
}

TEST_F(ReportStream, AppendKeepsWhatIsThere) {
  Fill("first\n");
  STREAM(path_.wstring(), std::ios_base::app, RPT_SHARE::DenyNone) << L"second" << std::endl;
  EXPECT_EQ(Text(), "first\nsecond\n");
}

TEST_F(ReportStream, OutputIsPartOfEveryMode) {
  STREAM out(path_.wstring(), std::ios_base::openmode{}, RPT_SHARE::DenyNone);
  out << L"text";
  EXPECT_TRUE(out.good());
  out.flush();
  EXPECT_EQ(Text(), "text");
}

TEST_F(ReportStream, TheFileIsOpenFromTheStart) {
  const STREAM out(path_.wstring(), std::ios_base::app, RPT_SHARE::DenyNone);
  EXPECT_TRUE(FileExists());
}

TEST_F(ReportStream, AFileThatCannotBeOpenedIsAFailure) {
  const auto missing = folder_.path() / "missing" / "frame.alu";
  const STREAM out(missing.wstring(), std::ios_base::app, RPT_SHARE::DenyNone);
  EXPECT_TRUE(out.fail());
}

TEST_F(ReportStream, AFileThatOpensIsNoFailure) {
  const STREAM out(path_.wstring(), std::ios_base::app, RPT_SHARE::DenyNone);
  EXPECT_TRUE(out.good());
}

TEST_F(ReportStream, WhatIsWrittenIsInTheFileOnceTheStreamIsGone) {
  {
    STREAM(path_.wstring(), std::ios_base::app, RPT_SHARE::DenyNone) << L"unended";
  }
  EXPECT_EQ(Text(), "unended");
}

TEST_F(ReportStream, TwoStreamsMayHaveTheFileOpen) {
  STREAM first(path_.wstring(), std::ios_base::app, RPT_SHARE::DenyNone);
  first << L"one" << std::endl;
  STREAM second(path_.wstring(), std::ios_base::app, RPT_SHARE::DenyNone);
  second << L"two" << std::endl;
  first << L"three" << std::endl;
  EXPECT_EQ(Text(), "one\ntwo\nthree\n");
}

TEST_F(ReportStream, TakesTextsOfTheFramework) {
  STREAM(path_.wstring(), std::ios_base::app, RPT_SHARE::DenyNone) << CString(L"kN") << L", m";
  EXPECT_EQ(Text(), "kN, m");
}

// UTF-8 of U+6846, U+67B6 and U+00FC.
const char* const kNameInUtf8 = "\xE6\xA1\x86\xE6\x9E\xB6 \xC3\xBC.alu";

TEST_F(ReportStream, APathMayHoldAnyCharacters) {
  const std::wstring path = folder_.path().wstring() + L"/\u6846\u67B6 \u00FC.alu";
  {
    STREAM(path, std::ios_base::app, RPT_SHARE::DenyNone) << L"text";
  }
  EXPECT_EQ(BytesOf(folder_.path() / kNameInUtf8), "text");
}

// --- blocks ---

class ReportBlock : public ReportTest {};

TEST_F(ReportBlock, ALineIsInTheFileAtOnce) {
  REPORT_BLOCK block(path_.wstring());
  block.Line(L"one", L" ", CString(L"line"));
  EXPECT_EQ(Text(), "one line\n");
}

TEST_F(ReportBlock, PutLeavesTheLineOpen) {
  {
    REPORT_BLOCK block(path_.wstring());
    block.Put(L"a", L"b");
    block.Put(L"c");
    block.EndLine();
    block.Put(L"d");
  }
  EXPECT_EQ(Text(), "abc\nd");
}

TEST_F(ReportBlock, AnEmptyLineIsALineFeedAlone) {
  REPORT_BLOCK(path_.wstring()).EndLine();
  EXPECT_EQ(Text(), "\n");
}

TEST_F(ReportBlock, ARuleIsAHundredEqualSigns) {
  REPORT_BLOCK(path_.wstring()).Rule();
  EXPECT_EQ(Text(),
            "=================================================="
            "==================================================\n");
}

TEST_F(ReportBlock, ABannerIsATitleBetweenRules) {
  REPORT_BLOCK(path_.wstring()).Banner(L"  ", L"Title");
  const std::string rule = report_test::Rule();
  EXPECT_EQ(Text(), rule + "\n  [[[*]]]   Title\n" + rule + "\n");
}

TEST_F(ReportBlock, CharactersBeyondAsciiAreUtf8InAUtf8Locale) {
  REPORT_BLOCK(path_.wstring()).Line(L"\u251ARE \uD4FB \uF91A");
  EXPECT_EQ(Text(), "\xE2\x94\x9ARE \xED\x93\xBB \xEF\xA4\x9A\n");
}

// --- the writer's file ---

class ReportFile : public ReportTest {
 protected:
  /// One of everything that a report consists of.
  void PrintAllBlocks() {
    ALU_DGN_DATA data;
    data.nMembType = ALU_MEMBER_BEAM;
    AluDgnSectForce force;
    force.dForce[ALU_FORCE_N] = -1.0;
    force.dForce[ALU_FORCE_MY] = 1.0;
    const ALU_CAL_BUFF buffer;
    const T_RALU_SECT result;
    const ALU_REPORT_INPUT in{data, force, buffer, result};
    print_.PrintHeader({});
    print_.PrintMember(data);
    print_.PrintStrength(in);
    print_.PrintStability(in);
    print_.PrintCombinedStability(in);
    print_.PrintShearY(in);
    print_.PrintShearZ(in);
    print_.PrintSlenderness(in);
  }
};

TEST_F(ReportFile, ResetLeavesAnEmptyFile) {
  Fill("an earlier report\n");
  print_.ResetReport();
  EXPECT_TRUE(FileExists());
  EXPECT_EQ(Text(), "");
}

TEST_F(ReportFile, ResetMakesAFileWhereThereWasNone) {
  print_.ResetReport();
  EXPECT_TRUE(FileExists());
}

TEST_F(ReportFile, TouchMakesAnEmptyFileWhereThereWasNone) {
  print_.TouchReport();
  EXPECT_TRUE(FileExists());
  EXPECT_EQ(Text(), "");
}

TEST_F(ReportFile, TouchKeepsWhatIsThere) {
  Fill("a report\n");
  print_.TouchReport();
  EXPECT_EQ(Text(), "a report\n");
}

TEST_F(ReportFile, BlocksAreAppended) {
  Fill("before\n");
  print_.PrintHeader({});
  print_.PrintMember({});
  EXPECT_TRUE(Text().starts_with("before\n====="));
  EXPECT_LT(Text().find("Aluminum Alloy"), Text().find("MEMBER NO"));
}

TEST_F(ReportFile, ASecondReportToThePathIsLikeTheFirst) {
  print_.ResetReport();
  PrintAllBlocks();
  const std::string first = Text();
  print_.ResetReport();
  PrintAllBlocks();
  EXPECT_EQ(Text(), first);
  EXPECT_THAT(first, HasSubstr("MEMBER NO"));
}

TEST_F(ReportFile, LinesEndWithASingleLineFeed) {
  PrintAllBlocks();
  EXPECT_THAT(Text(), Not(HasSubstr("\r")));
  EXPECT_THAT(Text(), Not(HasSubstr("\n\n")));
  EXPECT_TRUE(Text().ends_with("\n"));
}

// "Section Properties: " and "Shape = ...Section " end with a blank of their own.
TEST_F(ReportFile, OnlyTwoLinesEndWithABlank) {
  PrintAllBlocks();
  std::istringstream file(Text());
  std::vector<std::string> found;
  for (std::string line; std::getline(file, line);) {
    if (line.ends_with(' ')) found.push_back(line);
  }
  EXPECT_THAT(found, testing::ElementsAre("   Section Properties: ", "   Shape = C\uCB6FSection "));
}

TEST_F(ReportFile, APathInAMissingFolderIsPassedOverInSilence) {
  const auto missing = folder_.path() / "missing";
  print_.SetReportPath((missing / "frame.alu").wstring());
  EXPECT_NO_THROW({
    print_.ResetReport();
    print_.TouchReport();
    PrintAllBlocks();
  });
  EXPECT_FALSE(std::filesystem::exists(missing));
  EXPECT_TRUE(host_.log.history.empty());
  EXPECT_TRUE(host_.log.messages.empty());
}

TEST_F(ReportFile, AFolderInPlaceOfTheFileIsPassedOverInSilence) {
  std::filesystem::create_directory(path_);
  EXPECT_NO_THROW({
    print_.ResetReport();
    PrintAllBlocks();
  });
  EXPECT_TRUE(std::filesystem::is_empty(path_));
}

TEST_F(ReportFile, AFileThatTakesNoMoreIsPassedOverInSilence) {
  print_.SetReportPath(L"/dev/full");
  EXPECT_NO_THROW(PrintAllBlocks());
  EXPECT_TRUE(host_.log.history.empty());
  EXPECT_TRUE(host_.log.messages.empty());
}

TEST_F(ReportFile, WithoutAPathNothingIsWritten) {
  print_.SetReportPath(CString());
  EXPECT_NO_THROW({
    print_.ResetReport();
    PrintAllBlocks();
  });
  EXPECT_TRUE(std::filesystem::is_empty(folder_.path()));
}

}  // namespace
