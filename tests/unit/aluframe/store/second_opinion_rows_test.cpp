#include <SQLiteCpp/SQLiteCpp.h>
#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "tests/unit/aluframe/store/store_samples.h"

namespace aluframe::store {
namespace {

constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();
constexpr double infinite = std::numeric_limits<double>::infinity();

SafeRow sample_row(std::uint32_t element) {
  return {.element = element,
          .code = 0.241,
          .safe = 1.083,
          .item = RALU_STABILITY,
          .rules = "C3, C4",
          .combination = 7,
          .min_side = 1,
          .fraction = 0.375,
          .from_start = 1500.0};
}

class SecondOpinionRows : public testing::Test {
 protected:
  void write_safe(const std::vector<SafeRow>& rows) {
    const auto writer = ResultWriter::create(folder.file(), store_test::sample_info());
    for (const SafeRow& row : rows) {
      store_test::write_element(*writer, row.element);
      writer->end_element({.element = row.element, .safe = row});
    }
    writer->finish(RunState::complete);
  }
  void write_remarks(const std::vector<RemarkRow>& rows) {
    const auto writer = ResultWriter::create(folder.file(), store_test::sample_info());
    for (const RemarkRow& row : rows) writer->add_remark(row);
    writer->finish(RunState::complete);
  }
  std::vector<SafeRow> safe() { return ResultReader::open(folder.file())->safe(); }
  std::vector<RemarkRow> remarks() { return ResultReader::open(folder.file())->remarks(); }

  store_test::Folder folder;
};

TEST_F(SecondOpinionRows, DisplacementsComeBackInTheirOrder) {
  const std::vector<DisplacementRow> rows{
      {.kind = DisplacementKind::deflection,
       .member = 3,
       .elements = "1-2, 7",
       .name = "rail",
       .first_node = 1,
       .second_node = 4,
       .is_cantilever = true,
       .direction = "z",
       .length = 3600.0,
       .value = -12.5,
       .limit = 20.0,
       .combination = 11,
       .element = 7,
       .from_start = 0.25,
       .absolute = 13.0},
      {.kind = DisplacementKind::drift,
       .name = "storey",
       .first_node = 4,
       .second_node = 2,
       .direction = "horizontal"},
      {.kind = DisplacementKind::node, .first_node = 9, .direction = "X", .value = 0.0}};
  {
    const auto writer = ResultWriter::create(folder.file(), store_test::sample_info());
    for (const DisplacementRow& row : rows) writer->add_displacement(row);
    writer->finish(RunState::complete);
  }
  EXPECT_EQ(ResultReader::open(folder.file())->displacements(), rows);
}

TEST_F(SecondOpinionRows, ARunWithoutOneHasNone) {
  write_safe({});
  EXPECT_TRUE(safe().empty());
  EXPECT_TRUE(remarks().empty());
}

TEST_F(SecondOpinionRows, SafeRatiosComeBackAsWritten) {
  write_safe({sample_row(1), sample_row(2)});
  EXPECT_EQ(safe(), (std::vector{sample_row(1), sample_row(2)}));
}

TEST_F(SecondOpinionRows, ASafeRatioOfTheWholeMemberHasNoPlace) {
  SafeRow row = sample_row(1);
  row.fraction = std::nullopt;
  row.from_start = 0.0;
  write_safe({row});
  EXPECT_EQ(safe(), std::vector{row});
}

TEST_F(SecondOpinionRows, ARatioThatIsNotFiniteComesBack) {
  SafeRow undefined = sample_row(1), endless = sample_row(2);
  undefined.code = undefined.safe = not_a_number;
  endless.code = endless.safe = infinite;
  write_safe({undefined, endless});
  const auto found = safe();
  ASSERT_EQ(found.size(), 2U);
  ASSERT_TRUE(found[0].code.has_value());
  EXPECT_TRUE(std::isnan(*found[0].code) && std::isnan(found[0].safe));
  EXPECT_EQ(found[1].code, infinite);
  EXPECT_EQ(found[1].safe, infinite);
}

TEST_F(SecondOpinionRows, AnElementThatComesAgainReplacesItsRow) {
  SafeRow again = sample_row(1);
  again.safe = 2.0;
  write_safe({sample_row(1), again});
  EXPECT_EQ(safe(), std::vector{again});
}

TEST_F(SecondOpinionRows, ARatioThatNoCheckHasIsNull) {
  SafeRow row = sample_row(1);
  row.code = std::nullopt;
  write_safe({row});
  EXPECT_EQ(safe(), std::vector{row});
  SQLite::Database database(folder.file().string());
  EXPECT_TRUE(database.execAndGet("SELECT code_ratio FROM safe").isNull());
}

TEST_F(SecondOpinionRows, GoverningValuesStandInPlainColumns) {
  write_safe({sample_row(1)});
  SQLite::Database database(folder.file().string());
  SQLite::Statement select(database,
                           "SELECT code_ratio, safe_ratio, item_name, rules, combination, "
                           "min_side, fraction, from_start_mm FROM safe WHERE element = 1");
  ASSERT_TRUE(select.executeStep());
  EXPECT_EQ(select.getColumn(0).getDouble(), 0.241);
  EXPECT_EQ(select.getColumn(1).getDouble(), 1.083);
  EXPECT_EQ(select.getColumn(2).getString(), "stability");
  EXPECT_EQ(select.getColumn(3).getString(), "C3, C4");
  EXPECT_EQ(select.getColumn(4).getInt(), 7);
  EXPECT_EQ(select.getColumn(5).getInt(), 1);
  EXPECT_EQ(select.getColumn(6).getDouble(), 0.375);
  EXPECT_EQ(select.getColumn(7).getDouble(), 1500.0);
}

TEST_F(SecondOpinionRows, RemarksComeBackInTheirOrder) {
  const RemarkRow with_ratio{"C6", "1-3, 7", "torsion", 0.752, 2, 5};
  const RemarkRow without{"W1",         "",           "strips are \"wide\"",
                          std::nullopt, std::nullopt, std::nullopt};
  write_remarks({with_ratio, without, with_ratio});
  EXPECT_EQ(remarks(), (std::vector{with_ratio, without, with_ratio}));
}

}  // namespace
}  // namespace aluframe::store
