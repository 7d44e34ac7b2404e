#include "apps/cli/output_table.h"

#include <gtest/gtest.h>

#include <limits>

namespace aluframe::cli {
namespace {

constexpr double infinity = std::numeric_limits<double>::infinity();
constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

OutputTable sample() {
  return {{{.key = "name", .heading = "name"},
           {.key = "count", .heading = "count"},
           {.key = "ratio", .heading = "ratio", .decimals = 2, .is_ratio = true}},
          {{std::string("N/mm²"), std::int64_t{7}, 0.5}, {std::string("b"), Cell(), 1.25}}};
}

TEST(OutputTable, TextStandsLeftAndNumbersRightByTheirWidthOnTheScreen) {
  EXPECT_EQ(to_text(sample(), false),
            "name   count  ratio\n"
            "-----  -----  -----\n"
            "N/mm²      7   0.50\n"
            "b          -   1.25\n");
}

TEST(OutputTable, ARatioOverOneIsRedWhenColourIsWanted) {
  const std::string text = to_text(sample(), true);
  EXPECT_NE(text.find("\x1b[31m 1.25\x1b[0m"), std::string::npos);
  EXPECT_EQ(text.find("\x1b[31m 0.50"), std::string::npos);
}

TEST(OutputTable, CsvQuotesOnlyWhatNeedsIt) {
  OutputTable table{{{.key = "a", .heading = "a"}, {.key = "b", .heading = "b"}},
                    {{std::string("1.3G, \"wind\""), true}, {std::string("plain"), Cell()}}};
  EXPECT_EQ(to_csv(table), "a,b\n\"1.3G, \"\"wind\"\"\",true\nplain,\n");
}

TEST(OutputTable, JsonHasOneObjectARow) {
  EXPECT_EQ(to_json(sample()),
            "[\n  {\"name\":\"N/mm²\",\"count\":7,\"ratio\":0.5},\n"
            "  {\"name\":\"b\",\"count\":null,\"ratio\":1.25}\n]\n");
  EXPECT_EQ(to_json({sample().columns, {}}), "[]\n");
}

TEST(OutputTable, NumbersThatAreNotFiniteAreNamedInEveryFormat) {
  const OutputTable table{{{.key = "x", .heading = "x"}},
                          {{infinity}, {-infinity}, {not_a_number}}};
  EXPECT_EQ(to_csv(table), "x\ninf\n-inf\nnan\n");
  EXPECT_EQ(to_json(table), "[\n  {\"x\":\"inf\"},\n  {\"x\":\"-inf\"},\n  {\"x\":\"nan\"}\n]\n");
  EXPECT_EQ(to_text(table, false), "   x\n----\n inf\n-inf\n nan\n");
}

TEST(OutputTable, CsvNumbersReadBackAsTheSameNumbers) {
  EXPECT_EQ(std::stod(full_number(0.1)), 0.1);
  EXPECT_EQ(std::stod(full_number(1.0 / 3.0)), 1.0 / 3.0);
}

TEST(OutputTable, FormatsAreNamed) {
  EXPECT_EQ(parse_format("csv"), Format::csv);
  EXPECT_EQ(parse_format("xml"), std::nullopt);
}

}  // namespace
}  // namespace aluframe::cli
