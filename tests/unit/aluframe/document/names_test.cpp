#include "aluframe/document/names.h"

#include <gtest/gtest.h>

namespace aluframe::document {
namespace {

TEST(DocumentNumbers, HaveNoSignOfNothing) {
  EXPECT_EQ(fixed(-0.0004, 3), "0.000");
  EXPECT_EQ(fixed(-0.0006, 3), "-0.001");
  EXPECT_EQ(short_value(-0.0), "0");
  EXPECT_EQ(short_value(70000), "70000");
  EXPECT_EQ(short_value(2.3e-5), "2.3e-05");
}

TEST(DocumentRatios, AreLeftOutWithoutALimit) {
  store::GoverningRow row;
  row.item = RALU_SLENDERNESS_Y;
  row.governing.dDemand = 90.0;
  EXPECT_EQ(ratio_text(row), "");
  row.governing.dCapacity = 200.0;
  EXPECT_EQ(ratio_text(row), "0.4500");
}

TEST(DocumentCombinations, OfStatesAreCalledByTheirEnvelope) {
  store::RunInfo info;
  info.combinations = {{.number = 3, .name = "1.3G", .two_sides = true},
                       {.number = 7003, .name = "Extremes: 1.3G+1.5W", .state_of = 7}};
  EXPECT_EQ(combination_label(info, 7003, 0), "7 Extremes: 1.3G+1.5W");
  EXPECT_EQ(combination_label(info, 3, 0), "3 \"1.3G\", maximum side");
  EXPECT_EQ(combination_label(info, 3, 1), "3 \"1.3G\", minimum side");
}

TEST(DocumentScale, IsThatOfTheModelsUnits) {
  const Scale scale({.force = model::ForceUnit::kilonewton, .length = model::LengthUnit::metre});
  EXPECT_EQ(scale.moment(), 1e6);
  EXPECT_EQ(scale.moment_unit(), "kN·m");
  EXPECT_EQ(scale.line_load_unit(), "kN/m");
}

TEST(DocumentNames, KnowEverySettingAndSayOthersAsTheyAre) {
  EXPECT_EQ(setting_label("strength_ratio"), "net over gross area in strength checks");
  EXPECT_EQ(setting_label("some_other"), "some other");
  EXPECT_EQ(origin_label("given"), "user, in the model");
  EXPECT_EQ(origin_label("--second-order"), "--second-order");
}

}  // namespace
}  // namespace aluframe::document
