// Expected values by hand: 0.6·M1 + 0.4·M2 of straight diagrams.

#include "aluframe/second_opinion/piece_moments.h"

#include <gtest/gtest.h>

#include "aluframe/model/force_component.h"

namespace aluframe::second_opinion {
namespace {

model::CaseForces straight(float start, float end, bool inner = true) {
  model::CaseForces forces;
  forces.inner = inner;
  for (std::size_t i = 0; i < 5; ++i) {
    if (!inner && i % 4 != 0) continue;
    forces.at[i][model::about_y] = start + (end - start) * static_cast<float>(i) / 4.0F;
  }
  return forces;
}

double of_one(const model::CaseForces& forces, const std::vector<double>& at) {
  PieceMoments moments;
  moments.add(forces, model::about_y, at, 1.0, false);
  return moments.largest();
}

TEST(PieceMoments, OfAnUndividedMemberAreThoseOfItsEnds) {
  EXPECT_DOUBLE_EQ(of_one(straight(10, -10), {}), 2.0);
  EXPECT_DOUBLE_EQ(of_one(straight(10, 10), {}), 10.0);
  EXPECT_DOUBLE_EQ(of_one(straight(0, -5), {}), 3.0);
}

TEST(PieceMoments, OfHalvesOfADoubleCurvatureAreThoseOfAMomentAtOneEnd) {
  EXPECT_DOUBLE_EQ(of_one(straight(10, -10), {0.5}), 6.0);
  EXPECT_DOUBLE_EQ(of_one(straight(10, -10, false), {0.5}), 6.0);
}

TEST(PieceMoments, AreThoseOfThePieceWithMost) {
  // 10, 6, 0: 6 + 2.4 of the first piece, 3.6 of the second.
  EXPECT_DOUBLE_EQ(of_one(straight(10, 0), {0.4}), 8.4);
  EXPECT_DOUBLE_EQ(of_one(straight(10, 0), {0.7, 0.4}), 8.4);
  // 10, 5, 0 and 0, −20: the last piece has 12 − 0.
  PieceMoments two;
  two.add(straight(10, 0), model::about_y, {0.5}, 1.0, false);
  two.add(straight(0, -20), model::about_y, {0.0}, 1.0, false);
  EXPECT_DOUBLE_EQ(two.largest(), 12.0);
}

TEST(PieceMoments, APieceReachesOverElements) {
  PieceMoments moments;
  moments.add(straight(10, 5), model::about_y, {0.2}, 1.0, false);
  moments.add(straight(5, 0), model::about_y, {}, 1.0, false);
  // 10 and 9: 9.6; 9 and 0: 5.4.
  EXPECT_DOUBLE_EQ(moments.largest(), 9.6);
}

TEST(PieceMoments, AMomentInsideThatExceedsBothEndsCountsInFull) {
  model::CaseForces forces = straight(0, 0);
  forces.at[1][model::about_y] = 4.0F;
  forces.at[2][model::about_y] = 8.0F;
  forces.at[3][model::about_y] = 4.0F;
  EXPECT_DOUBLE_EQ(of_one(forces, {}), 8.0);
  // Parted at its largest moment: 8 at one end of both pieces.
  EXPECT_DOUBLE_EQ(of_one(forces, {0.5}), 4.8);
}

TEST(PieceMoments, AnElementAgainstTheMemberIsReadFromItsEnd) {
  PieceMoments moments;
  moments.add(straight(10, 5), model::about_y, {}, 1.0, false);
  // From its own start 0 to 5 with the other sign; pieces meet at 3/4 of it, at −3.75.
  moments.add(straight(0, -5), model::about_y, {0.75}, -1.0, true);
  // 10 and 3.75: 7.5; 3.75 and 0: 2.25.
  EXPECT_DOUBLE_EQ(moments.largest(), 7.5);
}

TEST(PieceMoments, OfNothingAreNothing) {
  EXPECT_EQ(PieceMoments().largest(), 0.0);
}

}  // namespace
}  // namespace aluframe::second_opinion
