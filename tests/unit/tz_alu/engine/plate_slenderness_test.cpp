#include "tz_alu/engine/plate_slenderness.h"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <string>

namespace {

using alu_engine::GoverningPlateRatio;

double RatioOf(std::int32_t nShape, const std::array<double, 8>& size) {
  ALU_SECT_DATA sect;
  sect.nShape = nShape;
  std::copy(size.begin(), size.end(), sect.dSize);
  return GoverningPlateRatio(sect);
}

// One plate of neither width nor thickness, the others sound. Sizes: H, tw, B1, tf1, B2, tf2, r1,
// r2; the corner allowances are 3 and 4 where the shape has them.
struct EMPTY_PLATE {
  const char* name;
  std::int32_t nShape;
  std::array<double, 8> size;
};

void PrintTo(const EMPTY_PLATE& plate, std::ostream* os) {
  *os << plate.name;
}

class EmptyPlate : public testing::TestWithParam<EMPTY_PLATE> {};

TEST_P(EmptyPlate, LeavesTheRatioUndefined) {
  EXPECT_TRUE(std::isnan(RatioOf(GetParam().nShape, GetParam().size)));
}

// Clear widths of 0: channel flange B - tw - r1 - r2, H flange B - tw - 2·r1 - 2·r2, H web
// H - tf1 - tf2 - 2·r1, box flange B - 2·tw, box web H - tf1 - tf2.
INSTANTIATE_TEST_SUITE_P(
    AllPlates, EmptyPlate,
    testing::Values(EMPTY_PLATE{"ChannelTop", ALU_SHAPE_C, {100, 5, 12, 0, 60, 8, 3, 4}},
                    EMPTY_PLATE{"ChannelBottom", ALU_SHAPE_C, {100, 5, 60, 8, 12, 0, 3, 4}},
                    EMPTY_PLATE{"HTop", ALU_SHAPE_H, {100, 5, 19, 0, 60, 8, 3, 4}},
                    EMPTY_PLATE{"HBottom", ALU_SHAPE_H, {100, 5, 60, 8, 19, 0, 3, 4}},
                    EMPTY_PLATE{"HWeb", ALU_SHAPE_H, {21, 0, 60, 8, 60, 7, 3, 4}},
                    EMPTY_PLATE{"BoxTop", ALU_SHAPE_B, {100, 5, 10, 0, 60, 8}},
                    EMPTY_PLATE{"BoxBottom", ALU_SHAPE_B, {100, 5, 60, 8, 10, 0}},
                    EMPTY_PLATE{"BoxWeb", ALU_SHAPE_B, {15, 0, 60, 8, 60, 7}},
                    EMPTY_PLATE{"Pipe", ALU_SHAPE_P, {0, 0}}),
    [](const auto& plate) { return std::string(plate.param.name); });

TEST(GoverningPlateRatio, OfSoundPlatesIsZero) {
  for (std::int32_t shape = ALU_SHAPE_C; shape <= ALU_SHAPE_SR; ++shape) {
    EXPECT_EQ(RatioOf(shape, {100, 5, 60, 8, 60, 8, 3, 4}), 0.0) << shape;
  }
}

TEST(GoverningPlateRatio, OfAPlateWithoutThicknessButWithWidthIsZero) {
  EXPECT_EQ(RatioOf(ALU_SHAPE_C, {100, 5, 60, 0, 60, 8}), 0.0);
}

TEST(GoverningPlateRatio, OfShapesThatAreNotJudgedNeedsNoDimensions) {
  for (const auto shape : {ALU_SHAPE_T, ALU_SHAPE_2C, ALU_SHAPE_SR}) {
    EXPECT_EQ(RatioOf(shape, {}), 0.0) << shape;
  }
}

}  // namespace
