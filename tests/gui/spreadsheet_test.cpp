// Workbooks, read back by another program.

#include "apps/desktop/spreadsheet.h"

#include <gmock/gmock.h>

#include <QProcess>
#include <QTemporaryDir>
#include <fstream>
#include <limits>

#include "tests/support/used_language.h"

namespace gui_test {
namespace {

using namespace aluframe;
using testing::HasSubstr;

class SpreadsheetTest : public testing::Test {
 protected:
  QTemporaryDir folder;
  const std::filesystem::path path = folder.filePath("table.xlsx").toStdString();
  tables::OutputTable table{
      {{.key = "element", .heading = "element"},
       {.key = "name", .heading = "name"},
       {.key = "ratio", .heading = "ratio", .decimals = 2, .is_ratio = true}},
      {{std::int64_t{7}, std::string("=1+1"), 1.0 / 3},
       {std::int64_t{8}, std::string("@a<b>&\x01 \u6881"), 1.25},
       {std::int64_t{9}, tables::Cell(), std::numeric_limits<double>::infinity()}}};

  /// A part of the workbook.
  std::string part(const char* name) const {
    QProcess python;
    python.start("/usr/bin/python3",
                 {"-c",
                  "import sys, zipfile\n"
                  "sys.stdout.buffer.write(zipfile.ZipFile(sys.argv[1]).read(sys.argv[2]))",
                  QString::fromStdString(path.string()), name});
    python.waitForFinished();
    EXPECT_EQ(python.exitCode(), 0) << python.readAllStandardError().toStdString();
    return python.readAllStandardOutput().toStdString();
  }
  std::string sheet() const { return part("xl/worksheets/sheet1.xml"); }
  std::string texts() const { return part("xl/sharedStrings.xml"); }
};

TEST_F(SpreadsheetTest, NumbersAreNumbersWithAllTheirDigits) {
  ASSERT_EQ(desktop::write_spreadsheet(table, "Ratios", path), std::nullopt);
  EXPECT_THAT(sheet(), HasSubstr("<c r=\"A2\"><v>7</v></c>"));
  EXPECT_THAT(sheet(), testing::ContainsRegex("<c r=\"C2\" s=\"[0-9]+\"><v>0.333333333333333"));
  EXPECT_THAT(part("xl/styles.xml"), HasSubstr("formatCode=\"0.00\""));
}

TEST_F(SpreadsheetTest, ATextThatBeginsAsAFormulaStaysAText) {
  ASSERT_EQ(desktop::write_spreadsheet(table, "Ratios", path), std::nullopt);
  EXPECT_EQ(sheet().find("<f>"), std::string::npos);
  EXPECT_THAT(texts(), HasSubstr("=1+1"));
  EXPECT_THAT(texts(), HasSubstr("@a&lt;b&gt;&amp;"));
  EXPECT_THAT(texts(), HasSubstr("\u6881"));
  EXPECT_EQ(texts().find('\x01'), std::string::npos);
}

TEST_F(SpreadsheetTest, WhatIsNoNumberIsATextAndNothingIsAnEmptyCell) {
  ASSERT_EQ(desktop::write_spreadsheet(table, "Ratios", path), std::nullopt);
  EXPECT_THAT(texts(), HasSubstr("inf"));
  EXPECT_EQ(sheet().find("r=\"B4\""), std::string::npos);
}

TEST_F(SpreadsheetTest, HeadingsStandStillWithFiltersAndRatiosOverOneAreMarked) {
  ASSERT_EQ(desktop::write_spreadsheet(table, "Ratios", path), std::nullopt);
  EXPECT_THAT(sheet(), HasSubstr("state=\"frozen\""));
  EXPECT_THAT(sheet(), HasSubstr("<autoFilter ref=\"A1:C4\"/>"));
  EXPECT_THAT(sheet(), HasSubstr("<conditionalFormatting sqref=\"C2:C4\">"));
  EXPECT_THAT(sheet(), HasSubstr("operator=\"greaterThan\"><formula>1</formula>"));
  EXPECT_THAT(sheet(), HasSubstr("<cols>"));
}

TEST_F(SpreadsheetTest, HeadingsAreInTheLanguageInUse) {
  const test_support::UsedLanguage used(texts::Language::chinese);
  ASSERT_EQ(desktop::write_spreadsheet(table, "\u5E94\u529B\u6BD4", path), std::nullopt);
  EXPECT_THAT(texts(), HasSubstr("\u5355\u5143"));
  EXPECT_THAT(part("xl/workbook.xml"), HasSubstr("\u5E94\u529B\u6BD4"));
}

TEST_F(SpreadsheetTest, ANameThatASheetCannotHaveIsMadeOneThatItCan) {
  const std::string name = "a/b:c*d?[e] " + std::string(40, 'x');
  ASSERT_EQ(desktop::write_spreadsheet(table, name, path), std::nullopt);
  EXPECT_THAT(part("xl/workbook.xml"), HasSubstr("name=\"abcde " + std::string(25, 'x') + "\""));
}

// A cell takes 32767 characters.
TEST_F(SpreadsheetTest, AVeryLongListEndsInDots) {
  table.rows[0][1] = std::string(40000, '1');
  ASSERT_EQ(desktop::write_spreadsheet(table, "Ratios", path), std::nullopt);
  EXPECT_THAT(texts(), HasSubstr(std::string(32766, '1') + "\u2026"));
}

TEST_F(SpreadsheetTest, ATableWithoutRowsHasItsHeadings) {
  table.rows.clear();
  ASSERT_EQ(desktop::write_spreadsheet(table, "Ratios", path), std::nullopt);
  EXPECT_THAT(texts(), HasSubstr("element"));
}

TEST_F(SpreadsheetTest, WhereItCannotBeWrittenOneMessageNamesTheFileAndNothingIsLeft) {
  const std::filesystem::path missing = folder.filePath("missing/table.xlsx").toStdString();
  const auto problem = desktop::write_spreadsheet(table, "Ratios", missing);
  ASSERT_TRUE(problem);
  EXPECT_THAT(*problem, HasSubstr(missing.string()));
}

TEST_F(SpreadsheetTest, AnEarlierFileStaysWhenTheNewOneCannotBeWritten) {
  std::ofstream(path) << "earlier";
  table.rows.assign(1048576, {std::int64_t{1}, tables::Cell(), tables::Cell()});
  const auto problem = desktop::write_spreadsheet(table, "Ratios", path);
  ASSERT_TRUE(problem);
  EXPECT_THAT(*problem, HasSubstr("1048576 rows are more than a sheet takes"));
  std::string content;
  std::ifstream(path) >> content;
  EXPECT_EQ(content, "earlier");
  EXPECT_EQ(QDir(folder.path()).entryList(QDir::Files | QDir::Hidden).size(), 1);
}

}  // namespace
}  // namespace gui_test
