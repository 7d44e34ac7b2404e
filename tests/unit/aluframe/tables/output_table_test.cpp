#include "aluframe/tables/output_table.h"

#include <gtest/gtest.h>

#include <limits>

namespace aluframe::tables {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

OutputTable sample() {
  return {{{.key = "name", .heading = "name"},
           {.key = "count", .heading = "count"},
           {.key = "ratio", .heading = "ratio", .decimals = 2, .is_ratio = true}},
          {{std::string("N/mm²"), std::int64_t{7}, 0.5}, {std::string("b"), Cell(), 1.25}}};
}

/// A table of one column.
OutputTable column(std::vector<Cell> cells) {
  OutputTable table{{{.key = "x", .heading = "x"}}, {}};
  for (Cell& cell : cells) table.rows.push_back({std::move(cell)});
  return table;
}

TEST(OutputTable, TextStandsLeftAndNumbersRightByTheirWidthOnTheScreen) {
  EXPECT_EQ(to_text(sample(), false),
            "name   count  ratio\n"
            "-----  -----  -----\n"
            "N/mm²      7   0.50\n"
            "b          -   1.25\n");
}

// Chinese characters, full-width forms and pictographs take two columns of a terminal each.
TEST(OutputTable, WideCharactersCountTwice) {
  OutputTable table = sample();
  table.rows[0][0] = std::string("风荷载");
  table.rows[1][0] = std::string("（a）");
  EXPECT_EQ(to_text(table, false),
            "name    count  ratio\n"
            "------  -----  -----\n"
            "风荷载      7   0.50\n"
            "（a）       -   1.25\n");
}

TEST(OutputTable, AColumnIsAsWideAsItsHeading) {
  EXPECT_EQ(to_text({{{.key = "x", .heading = "Länge"}}, {{std::int64_t{1}}}}, false),
            "Länge\n-----\n    1\n");
}

TEST(OutputTable, ControlCharactersOfANameDoNotReachTheTerminal) {
  EXPECT_EQ(to_text(column({std::string("a\nb\x1b[2J")}), false), "x\n-------\na b [2J\n");
}

TEST(OutputTable, NoLineEndsInBlanks) {
  EXPECT_EQ(to_text(column({std::string("long"), std::string("s")}), false), "x\n----\nlong\ns\n");
}

TEST(OutputTable, ATableWithoutRowsHasItsHeadings) {
  const OutputTable empty{sample().columns, {}};
  EXPECT_EQ(to_text(empty, false), "name  count  ratio\n----  -----  -----\n");
  EXPECT_EQ(to_csv(empty), "name,count,ratio\n");
  EXPECT_EQ(to_json(empty), "[]\n");
}

TEST(OutputTable, NumbersHaveTheDecimalsOfTheirColumn) {
  const OutputTable table{{{.key = "a", .heading = "a"},
                           {.key = "b", .heading = "b", .decimals = 0},
                           {.key = "c", .heading = "c", .decimals = 4}},
                          {{1.23456789, 2.5001, -0.00006}}};
  EXPECT_EQ(to_text(table, false), "    a  b        c\n-----  -  -------\n1.235  3  -0.0001\n");
}

TEST(OutputTable, WhatRoundsToZeroHasNoSign) {
  const OutputTable table{{{.key = "a", .heading = "a"}}, {{-0.0004}}};
  EXPECT_EQ(to_text(table, false), "    a\n-----\n0.000\n");
}

TEST(OutputTable, TruthIsNamedByTheFormat) {
  const OutputTable table = column({true, false});
  EXPECT_EQ(to_text(table, false), "  x\n---\nyes\n no\n");
  EXPECT_EQ(to_csv(table), "x\ntrue\nfalse\n");
  EXPECT_EQ(to_json(table), "[\n  {\"x\":true},\n  {\"x\":false}\n]\n");
}

TEST(OutputTable, WhatHoldsNothingIsNamedByTheFormat) {
  const OutputTable table = column({Cell()});
  EXPECT_EQ(to_text(table, false), "x\n-\n-\n");
  EXPECT_EQ(to_csv(table), "x\n\n");
  EXPECT_EQ(to_json(table), "[\n  {\"x\":null}\n]\n");
}

TEST(OutputTable, ARatioOverOneIsRedWhenColourIsWanted) {
  const std::string text = to_text(sample(), true);
  EXPECT_NE(text.find("\x1b[31m 1.25\x1b[0m"), std::string::npos);
  EXPECT_EQ(text.find("\x1b[31m 0.50"), std::string::npos);
  EXPECT_EQ(to_text(sample(), false).find('\x1b'), std::string::npos);
}

TEST(OutputTable, OnlyRatiosThatFailAreRed) {
  OutputTable table = column({1.0, 1.0 + 0.5e-10});
  table.columns[0].is_ratio = true;
  EXPECT_EQ(to_text(table, true).find('\x1b'), std::string::npos);
  EXPECT_EQ(to_text(column({5.0}), true).find('\x1b'), std::string::npos) << "no ratio";
  table.rows = {{not_a_number}};
  EXPECT_NE(to_text(table, true).find("\x1b[31mnan\x1b[0m"), std::string::npos);
}

TEST(OutputTable, CsvQuotesOnlyWhatNeedsIt) {
  const OutputTable table =
      column({std::string("plain 1.3"), std::string("1.3G, wind"), std::string("\"wind\""),
              std::string("two\nlines"), std::string("cr\r"), std::string()});
  EXPECT_EQ(to_csv(table), "x\nplain 1.3\n\"1.3G, wind\"\n\"\"\"wind\"\"\"\ntwo lines\ncr \n\n");
}

TEST(OutputTable, CsvQuotesItsHeaderLikeAnyText) {
  EXPECT_EQ(to_csv({{{.key = "a,b", .heading = "a"}, {.key = "c", .heading = "c"}}, {}}),
            "\"a,b\",c\n");
}

TEST(OutputTable, JsonHasOneObjectARow) {
  EXPECT_EQ(to_json(sample()),
            "[\n  {\"name\":\"N/mm²\",\"count\":7,\"ratio\":0.5},\n"
            "  {\"name\":\"b\",\"count\":null,\"ratio\":1.25}\n]\n");
}

TEST(OutputTable, JsonEscapesItsTexts) {
  EXPECT_EQ(to_json(column({std::string("a\"b\\c\n")})), "[\n  {\"x\":\"a\\\"b\\\\c\\n\"}\n]\n");
}

TEST(OutputTable, JsonOfBytesThatAreNotUtf8IsStillJson) {
  EXPECT_EQ(to_json(column({std::string("a\xFFz")})), "[\n  {\"x\":\"a\uFFFDz\"}\n]\n");
}

TEST(OutputTable, NumbersThatAreNotFiniteAreNamedInEveryFormat) {
  const OutputTable table = column({infinity, -infinity, not_a_number});
  EXPECT_EQ(to_csv(table), "x\ninf\n-inf\nnan\n");
  EXPECT_EQ(to_json(table), "[\n  {\"x\":\"inf\"},\n  {\"x\":\"-inf\"},\n  {\"x\":\"nan\"}\n]\n");
  EXPECT_EQ(to_text(table, false), "   x\n----\n inf\n-inf\n nan\n");
}

// 17 significant digits tell any two numbers apart.
TEST(OutputTable, CsvNumbersReadBackAsTheSameNumbers) {
  for (const double value :
       {0.1, 1.0 / 3.0, 1e300, 2.2250738585072014e-308, -123456789.123456789, 0.0}) {
    EXPECT_EQ(std::stod(full_number(value)), value);
  }
  EXPECT_EQ(full_number(0.5), "0.5");
}

TEST(OutputTable, FormatsAreNamed) {
  EXPECT_EQ(parse_format("table"), Format::table);
  EXPECT_EQ(parse_format("csv"), Format::csv);
  EXPECT_EQ(parse_format("json"), Format::json);
  for (const char* other : {"xml", "CSV", ""}) EXPECT_EQ(parse_format(other), std::nullopt);
}

TEST(OutputTable, RendersTheFormatThatIsAskedFor) {
  EXPECT_EQ(render(sample(), Format::table, true), to_text(sample(), true));
  EXPECT_EQ(render(sample(), Format::csv, true), to_csv(sample()));
  EXPECT_EQ(render(sample(), Format::json, true), to_json(sample()));
}

}  // namespace
}  // namespace aluframe::tables
