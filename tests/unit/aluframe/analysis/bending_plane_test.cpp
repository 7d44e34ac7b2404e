#include "aluframe/analysis/bending_plane.h"

#include <gtest/gtest.h>

#include <functional>

namespace aluframe::analysis {
namespace {

/// 2.5 m, EI of an aluminium beam; shear flexibility of an everyday depth.
constexpr double length = 2500.0, ei = 6.5e11, gas = 3.0e7;

/// End forces by the force method: the beam cut free at its end, its flexibility and the free end's
/// displacement under the load integrated by many small steps. Shares no formula with the code.
/// @param shear, moment of the determinate cantilever held at its START, at x; moment counts
/// positive when it turns the piece before x towards positive slope, shear when it pushes that
/// piece along w
struct Determinate {
  std::function<double(double)> shear, moment;
  double curvature = 0.0;
};

struct EndDisplacement {
  double w = 0.0, t = 0.0;
};

/// Displacement of the free end at `length`, from t' = M/EI + curvature, w' = t + V/GAs.
EndDisplacement end_of_cantilever(const Determinate& beam, double shear_stiffness) {
  constexpr int steps = 200000;
  const double h = length / steps;
  EndDisplacement end;
  for (int i = 0; i < steps; ++i) {
    const double x = (i + 0.5) * h;
    const double bend = beam.moment(x) / ei + beam.curvature;
    const double slope = shear_stiffness > 0.0 ? beam.shear(x) / shear_stiffness : 0.0;
    end.t += bend * h;
    end.w += bend * h * (length - x) + slope * h;
  }
  return end;
}

/// Force and moment that the fixed end exerts, so that the end stays where it is.
Eigen::Vector2d forces_of_fixed_end(const Determinate& beam, double shear_stiffness) {
  const Determinate force{[](double) { return 1.0; }, [](double x) { return length - x; }};
  const Determinate moment{[](double) { return 0.0; }, [](double) { return 1.0; }};
  const EndDisplacement f = end_of_cantilever(force, shear_stiffness);
  const EndDisplacement m = end_of_cantilever(moment, shear_stiffness);
  const EndDisplacement load = end_of_cantilever(beam, shear_stiffness);
  Eigen::Matrix2d flexibility;
  flexibility << f.w, m.w, f.t, m.t;
  return flexibility.inverse() * -Eigen::Vector2d(load.w, load.t);
}

/// Steps of 1/200000 of the length leave about 1e-9; a load that jumps inside a step 1e-5.
void expect_fixed_end_forces(const Vector4& found, const Determinate& beam, double shear_stiffness,
                             double total, double tolerance) {
  const Eigen::Vector2d end = forces_of_fixed_end(beam, shear_stiffness);
  EXPECT_NEAR(found[2], end[0], tolerance * total);
  EXPECT_NEAR(found[3], end[1], tolerance * total * length);
}

class BothShearRigidities : public testing::TestWithParam<double> {
 protected:
  BendingPlane plane() const { return BendingPlane::of(ei, GetParam(), length); }
};
INSTANTIATE_TEST_SUITE_P(Shear, BothShearRigidities, testing::Values(0.0, gas));

TEST_P(BothShearRigidities, TrapezoidOnAPartIsHeldAsByIntegration) {
  const double a = 400.0, b = 1900.0, qa = 3.0, qb = -1.2;
  const auto q = [&](double s) { return qa + (qb - qa) * (s - a) / (b - a); };
  // Load and first moment beyond x, in closed form.
  const auto beyond = [&](double x, bool moment) {
    const double from = std::clamp(x, a, b), h = b - from, f = q(from);
    const double slope = (qb - qa) / (b - a);
    const double force = f * h + slope * h * h / 2;
    if (!moment) return force;
    return force * (from - x) + f * h * h / 2 + slope * h * h * h / 3;
  };
  const Determinate beam{[&](double x) { return beyond(x, false); },
                         [&](double x) { return beyond(x, true); }};
  expect_fixed_end_forces(fixed_end_forces_of_load(plane(), {a, b, qa, qb}), beam, GetParam(),
                          3.0 * 1500, 1e-8);
}

TEST_P(BothShearRigidities, ForceIsHeldAsByIntegration) {
  const double a = 900.0, p = 5000.0;
  const Determinate beam{[&](double x) { return x < a ? p : 0.0; },
                         [&](double x) { return x < a ? p * (a - x) : 0.0; }};
  expect_fixed_end_forces(fixed_end_forces_of_force(plane(), a, p), beam, GetParam(), p, 1e-5);
}

TEST_P(BothShearRigidities, MomentIsHeldAsByIntegration) {
  const double a = 1700.0, m = 4.0e6;
  const Determinate beam{[](double) { return 0.0; }, [&](double x) { return x < a ? m : 0.0; }};
  expect_fixed_end_forces(fixed_end_forces_of_moment(plane(), a, m), beam, GetParam(), m / length,
                          1e-5);
}

TEST_P(BothShearRigidities, CurvatureIsHeldAsByIntegration) {
  const double curvature = 2.0e-6;
  const auto none = [](double) { return 0.0; };
  expect_fixed_end_forces(fixed_end_forces_of_curvature(plane(), curvature),
                          {none, none, curvature}, GetParam(), ei * curvature / length, 1e-8);
}

TEST_P(BothShearRigidities, HeldLoadIsInEquilibrium) {
  const double q = 2.0;
  const Vector4 f = fixed_end_forces_of_load(plane(), {0.0, length, q, q});
  EXPECT_NEAR(f[0] + f[2], -q * length, 1e-9 * q * length);
  // Moments about the start; the load's own lever is half the length.
  EXPECT_NEAR(f[1] + f[3] + f[2] * length, -q * length * length / 2, 1e-9 * q * length * length);
}

TEST_P(BothShearRigidities, StiffnessIsTheInverseOfTheFlexibility) {
  // Free end under a unit force and a unit moment: L³/3EI + L/GAs, L²/2EI, L/EI.
  const double shear = GetParam() > 0.0 ? length / GetParam() : 0.0;
  Eigen::Matrix2d flexibility;
  flexibility << std::pow(length, 3) / (3 * ei) + shear, length * length / (2 * ei),
      length * length / (2 * ei), length / ei;
  const Eigen::Matrix2d k = bending_stiffness(plane()).bottomRightCorner<2, 2>();
  // One entry is a length, so its rounding is larger by a length.
  EXPECT_TRUE((k * flexibility).isIdentity(1e-9)) << k * flexibility;
}

TEST_P(BothShearRigidities, RigidMotionCostsNothing) {
  const Matrix4 k = bending_stiffness(plane());
  const double size = k.cwiseAbs().maxCoeff();
  EXPECT_LT((k * Vector4(1, 0, 1, 0)).norm(), 1e-12 * size);
  EXPECT_LT((k * Vector4(0, 1, length, 1)).norm(), 1e-9 * size);
}

}  // namespace
}  // namespace aluframe::analysis
