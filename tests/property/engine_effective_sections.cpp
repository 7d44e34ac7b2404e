// What slender plates may cost: an effective section is never more than the one it comes from,
// except where a rule says so.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "tests/property/engine_generators.h"
#include "tz_alu/engine/effective_section.h"

namespace {

using namespace alu_engine;
using namespace engine_generators;

constexpr REDUCED_PART kAllParts[] = {REDUCED_PART::WholeSection, REDUCED_PART::TopFlange,
                                      REDUCED_PART::BottomFlange};
constexpr std::int32_t kShapes[] = {ALU_SHAPE_C, ALU_SHAPE_H, ALU_SHAPE_B};

double AnyShare() {
  return *rc::gen::inRange(0, 1001) / 1000.0;
}

HAZ AnyHaz() {
  return {Between(0, 240), *rc::gen::element(0.2, 0.5, 0.8, 1.0)};
}

// Sums of about ten areas.
bool IsAtMost(double a, double b) {
  return a <= b * (1.0 + 1e-13);
}

RC_GTEST_PROP(EffectiveArea, OfAnUnweldedSectionIsAtMostTheGrossOne, ()) {
  for (const auto shape : kShapes) {
    const ALU_SECT_DATA sect = AnySection(shape);
    for (const auto part : kAllParts) {
      RC_ASSERT(IsAtMost(UnweldedEffectiveSection(sect, part, AnyShare()).dA, sect.dArea));
    }
  }
}

RC_GTEST_PROP(EffectiveArea, OfAnUnweldedSectionGrowsWithTheThicknessThatCounts, ()) {
  for (const auto shape : kShapes) {
    const ALU_SECT_DATA sect = AnySection(shape);
    const double rho = AnyShare();
    const double more = rho + (1.0 - rho) * AnyShare();
    for (const auto part : kAllParts) {
      const auto less = UnweldedEffectiveSection(sect, part, rho);
      const auto greater = UnweldedEffectiveSection(sect, part, more);
      RC_ASSERT(IsAtMost(less.dA, greater.dA + 1e-13 * sect.dArea));
      RC_ASSERT(less.dW1 <= greater.dW1 + 1e-13 * sect.dIyy);
    }
  }
}

// Holds where only clear parts lose: not for an H whose bottom flange is reduced.
RC_GTEST_PROP(EffectiveArea, OfAWeldedSectionIsAtMostTheHeatAffectedOne, ()) {
  for (const auto shape : kShapes) {
    const ALU_SECT_DATA sect = AnySection(shape);
    const HAZ haz = AnyHaz();
    for (const auto part : kAllParts) {
      if (shape == ALU_SHAPE_H && part == REDUCED_PART::BottomFlange) continue;
      const auto effective = WeldedEffectiveSection(sect, haz, part, AnyShare());
      RC_ASSERT(IsAtMost(effective.dA, HeatAffectedSection(sect, haz).dA));
    }
  }
}

// Kept: its bottom flange then counts in full, without the loss of its strip.
RC_GTEST_PROP(EffectiveArea, OfAWeldedHWithAReducedBottomFlangeIsAtLeastTheHeatAffectedOne, ()) {
  const ALU_SECT_DATA sect = AnySection(ALU_SHAPE_H);
  const HAZ haz = AnyHaz();
  RC_PRE(2.0 * haz.dWidth + sect.dSize[1] <= sect.dSize[4]);  // the strip fits the flange
  const auto effective = WeldedEffectiveSection(sect, haz, REDUCED_PART::BottomFlange, AnyShare());
  RC_ASSERT(IsAtMost(HeatAffectedSection(sect, haz).dA, effective.dA));
}

RC_GTEST_PROP(EffectiveArea, OfAWeldedSectionGrowsWithTheThicknessThatCounts, ()) {
  for (const auto shape : kShapes) {
    const ALU_SECT_DATA sect = AnySection(shape);
    const HAZ haz = AnyHaz();
    const double rho = AnyShare();
    const double more = rho + (1.0 - rho) * AnyShare();
    for (const auto part : kAllParts) {
      const auto less = WeldedEffectiveSection(sect, haz, part, rho);
      const auto greater = WeldedEffectiveSection(sect, haz, part, more);
      RC_ASSERT(IsAtMost(less.dA, greater.dA));
      RC_ASSERT(IsAtMost(less.dW2, greater.dW2));
    }
  }
}

}  // namespace
