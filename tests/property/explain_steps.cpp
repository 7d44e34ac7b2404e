// Whatever is checked can be followed step by step: every formula gives the value of the checks,
// and the steps end in what the checks store.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "aluframe/explain/explain.h"
#include "aluframe/explain/number_text.h"
#include "aluframe/explain/trace.h"
#include "tests/property/engine_generators.h"

namespace {

using namespace engine_generators;
namespace explain = aluframe::explain;

constexpr int kItems[] = {
    RALU_STRENGTH,           RALU_SHEAR_Y,       RALU_SHEAR_Z,      RALU_STABILITY,
    RALU_COMBINED_STABILITY, RALU_SLENDERNESS_Y, RALU_SLENDERNESS_Z};

bool IsSame(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

// The line's numbers are worked out in Python elsewhere; here it is the rule that they follow.
void AssertLineHolds(const explain::Term& formula) {
  const explain::NumberLine line = explain::number_line(formula);
  for (int digits = 5; digits <= 17; ++digits) {
    if (explain::numbers(formula, digits) != line.numbers) continue;
    const double recomputed = explain::value_of_numbers(formula, digits);
    RC_ASSERT(explain::number_text(recomputed, explain::result_digits) == line.result);
    return;
  }
  RC_FAIL("no number of digits gives the line");
}

void AssertStepsHold(const explain::Explanation& explanation) {
  for (const explain::StepPointer& step : explain::steps_of(explanation.ratio)) {
    RC_ASSERT(!step->info.symbol.empty());
    RC_ASSERT(!step->info.quantity.empty());
    if (!step->formula) continue;
    RC_ASSERT(explain::agree(explain::value(*step->formula), step->value));
    AssertLineHolds(*step->formula);
  }
}

void AssertExplained(const ALU_DGN_DATA& data, const AluDgnSectForce& force, int item) {
  const OUTCOME checks = Check(data, force);
  const T_RALU_RLT& stored = checks.result.aItem.at(static_cast<std::size_t>(item));
  const explain::Outcome outcome = explain::explain_item(data, force, item, {});
  if (const auto* none = std::get_if<explain::NotChecked>(&outcome)) {
    RC_ASSERT(!none->why.empty());
    RC_ASSERT(stored.dDemand == 0.0 && stored.dCapacity == 0.0);
    return;
  }
  const auto& explanation = std::get<explain::Explanation>(outcome);
  RC_ASSERT(IsSame(explanation.result.dDemand, stored.dDemand));
  RC_ASSERT(IsSame(explanation.result.dCapacity, stored.dCapacity));
  RC_ASSERT(IsSame(explanation.ratio->value, RaluRatio(stored.dDemand, stored.dCapacity)));
  AssertStepsHold(explanation);
}

void ExplainEveryItem(std::int32_t shape) {
  ALU_DGN_DATA data = AnyData(shape);
  data.code.para.bUserLimit = *rc::gen::element(0, 1);
  data.code.para.dLimitTension = *rc::gen::element(-1.0, 0.0, 300.0, 350.0);
  const AluDgnSectForce force = AnyForces();
  for (const int item : kItems) AssertExplained(data, force, item);
}

RC_GTEST_PROP(Explain, EveryStepGivesTheValueOfTheChecks, ()) {
  ForEveryShape(ExplainEveryItem);
}

void ExplainSwitchedOff(std::int32_t shape) {
  ALU_DGN_DATA data = AnyData(shape);
  for (auto& flag : data.nCheckFlag) flag = *rc::gen::element(0, 1);
  const AluDgnSectForce force = AnyForces();
  for (const int item : kItems) AssertExplained(data, force, item);
}

RC_GTEST_PROP(Explain, WhatIsSwitchedOffHasNoSteps, ()) {
  ForEveryShape(ExplainSwitchedOff);
}

}  // namespace
