#include "aluframe/analysis/beam_column_plane.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

namespace aluframe::analysis {
namespace {

/// 4 m of an aluminium beam under more than twice its Euler load, so that it is cut into segments:
/// the stiffness of its two ends.
class PlaneUnderAPush : public testing::Test {
 protected:
  static constexpr double length = 4000.0, ei = 6.5e11, push = 9.0e5;

  static std::vector<ElementSpan> pushed() {
    ElementSpan span;
    span.to = length;
    span.axial = {-push, -push, 0.0};
    return {span};
  }

  BeamColumnPlane plane_{{length, ei, 0.0}, pushed(), 1, 0.0};
};

TEST_F(PlaneUnderAPush, HasNoForceAtAllWhenTranslated) {
  // A translation bends nothing, to the last digit: what rounding leaves of the segments' stiffness
  // would act on frames that drift far.
  const Matrix4& k = plane_.stiffness();
  for (int row = 0; row < 4; ++row) EXPECT_EQ(k(row, 0) + k(row, 2), 0.0) << row;
}

TEST_F(PlaneUnderAPush, HasTheForceOfItsChordAloneWhenRotated) {
  // Rotated as a rigid body by 1 it pushes its end sideways by its axial force and bends nothing; a
  // few roundings of what is added up remain, not those of the stiffer segments.
  const Matrix4& k = plane_.stiffness();
  const Vector4 expected(push, 0.0, -push, 0.0);
  const double epsilon = std::numeric_limits<double>::epsilon();
  for (int row = 0; row < 4; ++row) {
    const double force = k(row, 1) + k(row, 3) + length * k(row, 2);
    const double added = std::abs(k(row, 1)) + std::abs(k(row, 3)) + length * std::abs(k(row, 2));
    EXPECT_NEAR(force, plane_.rigid_rotation()[row], 4 * epsilon * added) << row;
    EXPECT_NEAR(plane_.rigid_rotation()[row], expected[row], 1e-6 * push * length) << row;
  }
}

}  // namespace
}  // namespace aluframe::analysis
