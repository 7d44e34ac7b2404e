#include "aluframe/model/units.h"

#include <gtest/gtest.h>

namespace aluframe::model {
namespace {

TEST(Units, OfForceAreInNewtons) {
  // g = 9.80665 m/s², 1 lb = 0.45359237 kg, both exact by definition: 1 lbf = 4.4482216152605 N.
  EXPECT_EQ(newtons_per(ForceUnit::newton), 1);
  EXPECT_EQ(newtons_per(ForceUnit::kilonewton), 1000);
  EXPECT_DOUBLE_EQ(newtons_per(ForceUnit::kilogram_force), 9.80665);
  EXPECT_DOUBLE_EQ(newtons_per(ForceUnit::tonne_force), 9806.65);
  EXPECT_DOUBLE_EQ(newtons_per(ForceUnit::pound_force), 4.4482216152605);
  EXPECT_DOUBLE_EQ(newtons_per(ForceUnit::kip), 4448.2216152605);
}

TEST(Units, OfLengthAreInMillimetres) {
  EXPECT_EQ(millimetres_per(LengthUnit::metre), 1000);
  EXPECT_EQ(millimetres_per(LengthUnit::centimetre), 10);
  EXPECT_EQ(millimetres_per(LengthUnit::millimetre), 1);
  EXPECT_EQ(millimetres_per(LengthUnit::foot), 304.8);
  EXPECT_EQ(millimetres_per(LengthUnit::inch), 25.4);
}

TEST(Units, AreReadBackFromTheirNames) {
  EXPECT_EQ(parse_force_unit("kN"), ForceUnit::kilonewton);
  EXPECT_EQ(name_of(ForceUnit::kip), "kip");
  EXPECT_EQ(parse_length_unit("ft"), LengthUnit::foot);
  EXPECT_EQ(name_of(LengthUnit::metre), "m");
}

TEST(Units, OfOtherNamesAreUnknown) {
  EXPECT_EQ(parse_force_unit("KN"), std::nullopt);
  EXPECT_EQ(parse_length_unit("metre"), std::nullopt);
}

}  // namespace
}  // namespace aluframe::model
