#include "aluframe/explain/trace.h"

#include <gtest/gtest.h>

#include <cmath>

namespace aluframe::explain {
namespace {

class ExplainTrace : public testing::Test {
 protected:
  std::vector<std::string> names_of(const std::vector<StepPointer>& steps) {
    std::vector<std::string> names;
    for (const StepPointer& step : steps) names.push_back(step->info.symbol);
    return names;
  }

  Trace trace_;
  Term N_ = trace_.given({"N", "force", "N"}, 12.0);
  Term A_ = trace_.given({"A", "area", "mm²"}, 4.0);
};

TEST_F(ExplainTrace, LinksAStepToThoseOfItsFormulaAndItsReason) {
  trace_.given({"R", "ratio"}, 0.5);
  trace_.define({"σ", "stress"}, 3.0, N_ / A_, {"R"});
  EXPECT_EQ(names_of(trace_.step("σ")->from), (std::vector<std::string>{"N", "A", "R"}));
}

TEST_F(ExplainTrace, RefusesAFormulaThatDoesNotGiveTheValue) {
  EXPECT_THROW(trace_.define({"σ", "stress"}, 3.0 + 1e-9, N_ / A_), StepMismatch);
  EXPECT_NO_THROW(trace_.define({"σ", "stress"}, 3.0 + 1e-13, N_ / A_));
}

TEST_F(ExplainTrace, KeepsTheValueThatItIsGiven) {
  EXPECT_EQ(trace_.define({"σ", "stress"}, 3.0 + 1e-13, N_ / A_).own_value(), 3.0 + 1e-13);
}

TEST_F(ExplainTrace, RefusesASymbolWithoutAStep) {
  EXPECT_THROW(trace_.part({"x", "x"}, N_ * Term::symbol("y", 1.0)), StepMismatch);
}

TEST_F(ExplainTrace, RefusesASymbolWithTwoValues) {
  EXPECT_NO_THROW(trace_.given({"A", "area", "mm²"}, 4.0));
  EXPECT_THROW(trace_.given({"A", "area", "mm²"}, 5.0), StepMismatch);
}

TEST_F(ExplainTrace, ListsStepsBeforeWhatFollowsFromThem) {
  const Term stress = trace_.part({"σ", "stress"}, N_ / A_);
  trace_.part({"r", "ratio"}, stress / N_);
  EXPECT_EQ(names_of(steps_of(trace_.step("r"))), (std::vector<std::string>{"N", "A", "σ", "r"}));
}

TEST(Agree, TakesWhatIsNotFiniteForTheSameAlone) {
  EXPECT_TRUE(agree(std::nan(""), std::nan("")));
  EXPECT_FALSE(agree(std::nan(""), 1.0));
  EXPECT_TRUE(agree(INFINITY, INFINITY));
  EXPECT_FALSE(agree(INFINITY, -INFINITY));
  EXPECT_FALSE(agree(INFINITY, 1e300));
}

}  // namespace
}  // namespace aluframe::explain
