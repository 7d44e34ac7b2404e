#include "aluframe/model/combinations.h"
#include "models.h"

namespace aluframe::model {
namespace {

class SeismicCombinations : public testing::Test {
 protected:
  SeismicCombinations() {
    model_.load_cases.add(load_case(1, LoadCaseKind::static_load));
    model_.load_cases.add(load_case(2, LoadCaseKind::seismic_static));
    model_.load_cases.add(load_case(3, LoadCaseKind::response_spectrum));
    model_.load_cases.add(load_case(4, LoadCaseKind::time_history));
    model_.load_cases.add(load_case(5, LoadCaseKind::settlement));
  }

  bool is_seismic(const Combination& combination) {
    model_.combinations.add(combination);
    return CombinationEvaluator(model_).is_seismic(combination.number);
  }

  Model model_;
};

TEST_F(SeismicCombinations, HaveASeismicStaticCase) {
  EXPECT_TRUE(is_seismic(linear(1, {of_case(1), of_case(2)})));
}

TEST_F(SeismicCombinations, HaveAResponseSpectrumCase) {
  EXPECT_TRUE(is_seismic(envelope(1, {of_case(1), of_case(3)})));
}

TEST_F(SeismicCombinations, AreNotThoseOfOtherCases) {
  EXPECT_FALSE(is_seismic(linear(1, {of_case(1), of_case(4), of_case(5)})));
}

TEST_F(SeismicCombinations, HaveASeismicCaseThroughNesting) {
  model_.combinations.add(linear(2, {of_combination(3)}));
  model_.combinations.add(envelope(3, {of_case(2)}));
  EXPECT_TRUE(is_seismic(linear(1, {of_case(1), of_combination(2)})));
}

TEST_F(SeismicCombinations, AreMarkedByTheUser) {
  Combination marked = linear(1, {of_case(1)});
  marked.seismic = true;
  EXPECT_TRUE(is_seismic(marked));
}

TEST_F(SeismicCombinations, DoNotPassTheirMarkOn) {
  Combination marked = linear(2, {of_case(1)});
  marked.seismic = true;
  model_.combinations.add(marked);
  EXPECT_FALSE(is_seismic(linear(1, {of_combination(2)})));
}

TEST_F(SeismicCombinations, AreNotThoseWhoseSeismicCaseTakesNoPart) {
  EXPECT_FALSE(is_seismic(linear(1, {of_case(1), of_case(2, 0)})));
}

}  // namespace
}  // namespace aluframe::model
