#include "aluframe/io/csv_rows.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "aluframe/io/failure.h"

namespace aluframe::io {
namespace {

using testing::ElementsAre;
using Cells = std::vector<std::string>;

struct Line {
  std::size_t number;
  Cells cells;
  friend bool operator==(const Line&, const Line&) = default;
};

std::vector<Line> rows_of(std::string_view text) {
  std::vector<Line> lines;
  CsvRows rows(text);
  while (rows.next()) lines.push_back({rows.line(), rows.cells()});
  return lines;
}

std::string failure_of(std::string_view text) {
  try {
    rows_of(text);
  } catch (const Failure& failure) {
    return failure.place + ": " + failure.text;
  }
  return "no failure";
}

TEST(CsvRowsTest, LinesEndWithLineFeedOrWithCarriageReturnAndLineFeed) {
  EXPECT_THAT(rows_of("a,b\nc,d\r\ne,f"),
              ElementsAre(Line{1, {"a", "b"}}, Line{2, {"c", "d"}}, Line{3, {"e", "f"}}));
}

TEST(CsvRowsTest, LastLineMayEndOrNot) {
  EXPECT_THAT(rows_of("a\n"), ElementsAre(Line{1, {"a"}}));
  EXPECT_THAT(rows_of("a\r\n"), ElementsAre(Line{1, {"a"}}));
  EXPECT_THAT(rows_of("a\r"), ElementsAre(Line{1, {"a"}}));
  EXPECT_THAT(rows_of("a"), ElementsAre(Line{1, {"a"}}));
}

TEST(CsvRowsTest, TextWithoutRowsHasNone) {
  EXPECT_TRUE(rows_of("").empty());
  EXPECT_TRUE(rows_of("\n\r\n  \n,,\n").empty());
}

TEST(CsvRowsTest, BlankLinesAndRowsOfCommasAreSkippedAndCounted) {
  EXPECT_THAT(rows_of("a\n\n \t\n,,,\nb"), ElementsAre(Line{1, {"a"}}, Line{5, {"b"}}));
}

TEST(CsvRowsTest, EmptyCellsInsideARowStay) {
  EXPECT_THAT(rows_of("a,,b,"), ElementsAre(Line{1, {"a", "", "b", ""}}));
}

TEST(CsvRowsTest, BlanksAroundCellsAreDropped) {
  EXPECT_THAT(rows_of(" a b ,\t\"c\" ,d"), ElementsAre(Line{1, {"a b", "c", "d"}}));
}

TEST(CsvRowsTest, QuotedCellsHoldCommasQuotesAndLines) {
  EXPECT_THAT(rows_of("\"a,b\",\"say \"\"x\"\"\",\"two\nlines\"\nc"),
              ElementsAre(Line{1, {"a,b", "say \"x\"", "two\nlines"}}, Line{3, {"c"}}));
}

TEST(CsvRowsTest, QuotedBlanksStay) {
  EXPECT_THAT(rows_of("\" a \""), ElementsAre(Line{1, {" a "}}));
}

TEST(CsvRowsTest, RowsAfterALongOneHaveTheirOwnCells) {
  EXPECT_THAT(rows_of("a,b,c\nd\ne,f"),
              ElementsAre(Line{1, {"a", "b", "c"}}, Line{2, {"d"}}, Line{3, {"e", "f"}}));
}

TEST(CsvRowsTest, QuoteThatIsNeverClosedIsFoundWhereItOpens) {
  EXPECT_EQ(failure_of("a\nb,\"c\nd\n"), "line 2: a quote is opened and never closed");
}

TEST(CsvRowsTest, TextBehindAClosingQuoteIsRejected) {
  EXPECT_EQ(failure_of("a\n\"b\"c\n"), "line 2: found text behind a closing quote");
}

}  // namespace
}  // namespace aluframe::io
