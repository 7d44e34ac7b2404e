// Which elements of stored results the user gets to see.
#include <gmock/gmock.h>

#include "aluframe/run/results.h"
#include "governing_row.h"

namespace aluframe::run {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Results of elements 1 to 3, whose checks have 0.5, 0.9 and 1.2, and safe ratios of 0.95, none
/// and 1.3.
class ThreeElements : public store::ResultReader {
 public:
  store::RunState state() const override { return store::RunState::complete; }
  const store::RunInfo& info() const override { return info_; }
  std::vector<std::uint32_t> elements() override { return {1, 2, 3}; }
  std::vector<store::GoverningRow> governing() override {
    return {row(1, RALU_STRENGTH, 50, 100), row(2, RALU_STRENGTH, 90, 100),
            row(3, RALU_STRENGTH, 120, 100)};
  }
  std::optional<T_RALU_D> read(std::uint32_t, std::uint32_t, int) override { return std::nullopt; }
  std::vector<store::StoredRecord> read_all(std::uint32_t) override { return {}; }
  std::vector<store::NotChecked> not_checked() override { return {}; }
  std::vector<store::SafeRow> safe() override {
    store::SafeRow first, third;
    first.element = 1;
    first.code = 0.5;
    first.safe = 0.95;
    third.element = 3;
    third.code = 1.2;
    third.safe = 1.3;
    return {first, third};
  }
  std::vector<store::RemarkRow> remarks() override { return {}; }
  std::vector<store::BucklingRow> buckling() override { return {}; }
  std::vector<store::DisplacementRow> displacements() override { return {}; }

 private:
  store::RunInfo info_;
};

std::vector<std::uint32_t> found_by(const ResultsQuery& query) {
  ThreeElements reader;
  const auto found = elements_of(reader, query);
  std::vector<std::uint32_t> numbers;
  for (const ElementResult& element : std::get<std::vector<ElementResult>>(found)) {
    numbers.push_back(element.element);
  }
  return numbers;
}

TEST(ResultsQuery, OverARatioKeepsElementsWhoseSafeRatioIsLargerAlone) {
  EXPECT_THAT(found_by({.elements = {}, .top = {}, .over = 0.92}), ElementsAre(1, 3));
  EXPECT_THAT(found_by({.elements = {}, .top = {}, .over = 0.4}), ElementsAre(1, 2, 3));
  EXPECT_THAT(found_by({.elements = {}, .top = {}, .over = 1.3}), IsEmpty()) << "1.3 is not over";
}

TEST(ResultsQuery, SortsByTheRatioOfTheChecksOrBySafeRatios) {
  EXPECT_THAT(found_by({.elements = {}, .sort = "ratio", .top = {}, .over = {}}),
              ElementsAre(3, 2, 1));
  EXPECT_THAT(found_by({.elements = {}, .sort = "safe", .top = {}, .over = {}}),
              ElementsAre(3, 1, 2));
  EXPECT_THAT(found_by({.elements = {}, .sort = "ratio", .top = 2, .over = {}}), ElementsAre(3, 2));
}

}  // namespace
}  // namespace aluframe::run
