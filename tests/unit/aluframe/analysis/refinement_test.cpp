#include "aluframe/analysis/refinement.h"

#include <gtest/gtest.h>

#include "aluframe/analysis/extended_element.h"
#include "frames.h"

namespace aluframe::analysis {
namespace {

/// A solver that returns so many times the right solution: 1 − `factor` of the error stays.
class WrongSolver final : public LinearSolver {
 public:
  explicit WrongSolver(double factor) : factor_(factor) {}
  Factorisation factorise(const SymmetricMatrix& matrix) override {
    return right_->factorise(matrix);
  }
  void solve(std::span<double> columns) override {
    right_->solve(columns);
    for (double& value : columns) value *= factor_;
  }

 private:
  double factor_;
  std::unique_ptr<LinearSolver> right_ = make_solver();
};

/// A cantilever of 1 m under 100 N at its tip, which a spring may hold, refined from nothing.
RefinedCase refined_by(LinearSolver& solver, double spring = 0.0) {
  Frame frame = cantilever(1000);
  if (spring > 0.0) frame.springs.push_back({1, {0.0, 0.0, spring}});
  const auto geometry = element_geometry(frame);
  const Equations equations(frame);
  const StiffnessSource source = elastic_source(frame, geometry);
  const ScaledEquations scaled = assemble(frame, geometry, equations, source);
  solver.factorise(scaled.matrix);
  CaseLoads loads{NodeValues(12, 0.0), {Vector12::Zero()}, {100.0, 0.0}};
  loads.nodal[6 + dz] = -100.0;
  return refine({frame, geometry, equations, scaled.scale, source, solver}, loads,
                NodeValues(12, 0.0));
}

TEST(Refinement, CorrectsASolverThatIsATenthWrong) {
  WrongSolver solver(0.9);
  const RefinedCase refined = refined_by(solver);
  // P·L³/(3·EI).
  const Stiffness s = plain_stiffness();
  EXPECT_THAT(refined.displacements[6 + dz], close_to(-100 * 1e9 / (3 * s.e * s.iyy)));
  EXPECT_NEAR(refined.end_forces[0][my], -100 * 1000.0, 1e-6);
  EXPECT_LT(refined.force_error, 1e-13);
}

TEST(Refinement, CorrectsWhatASpringTakes) {
  // w = P/(3·EI/L³ + k).
  WrongSolver solver(0.9);
  const RefinedCase refined = refined_by(solver, 500.0);
  const Stiffness s = plain_stiffness();
  const double tip = -100 / (3 * s.e * s.iyy / 1e9 + 500.0);
  EXPECT_THAT(refined.displacements[6 + dz], close_to(tip));
  EXPECT_NEAR(refined.end_forces[0][my], (-100 - 500.0 * tip) * 1000.0, 1e-6);
}

TEST(Refinement, SolutionThatSettlesSlowlyHasAnErrorThatIsTold) {
  // Each step leaves 0.7 of the error, 30 N of the 100 N after the first.
  WrongSolver solver(0.3);
  EXPECT_GT(refined_by(solver).force_error, 1e-2);
}

TEST(Refinement, SolutionThatRunsAwayHasAnErrorThatIsTold) {
  WrongSolver solver(3.0);
  EXPECT_GT(refined_by(solver).force_error, 1e-2);
}

class ElementMovedAsAWhole : public testing::Test {
 protected:
  ElementMovedAsAWhole() {
    frame_.elements[0].stiffness = shear_stiffness();
    geometry_ = element_geometry(frame_)[0];
    elastic_source(frame_, {&geometry_, 1})(0, stiffness_);
  }
  double largest_force(const Extended12& displacements) const {
    double largest = 0.0;
    for (const Extended& force : extended_end_forces(stiffness_, geometry_, displacements)) {
      largest = std::max(largest, std::abs(force.value()));
    }
    return largest;
  }

  Frame frame_ = cantilever(997.3);
  Geometry geometry_;
  ElementStiffness stiffness_;
};

TEST_F(ElementMovedAsAWhole, HasNoForceWhenShifted) {
  Extended12 displacements;
  for (const std::size_t i : {0U, 6U}) {
    displacements[i] = Extended(1e6 / 3);
    displacements[i + 1] = Extended(-1e5 / 7);
    displacements[i + 2] = Extended(1e4 / 9);
  }
  EXPECT_EQ(largest_force(displacements), 0.0);
}

TEST_F(ElementMovedAsAWhole, HasNoForceWhenTurned) {
  // About y by a third: its end moves along −z. Doubles leave 1e-7 N·mm of 4·E·I/L = 2.6e9.
  constexpr double turn = 1.0 / 3;
  Extended12 displacements;
  displacements[4] = displacements[10] = Extended(turn);
  displacements[8] = -exact_product(turn, geometry_.length);
  EXPECT_LT(largest_force(displacements), 1e-20);
}

TEST_F(ElementMovedAsAWhole, HasTheForceOfItsStringWhenTurned) {
  // A tension of 5 kN pulls the end back by 5 kN times the turn.
  stiffness_.rigid_rotation[2] = -5000;
  stiffness_.rigid_rotation[8] = 5000;
  Extended12 displacements;
  displacements[4] = displacements[10] = Extended(0.5);
  displacements[8] = -exact_product(0.5, geometry_.length);
  const Extended12 forces = extended_end_forces(stiffness_, geometry_, displacements);
  EXPECT_NEAR(forces[8].value(), -2500, 1e-12);
  EXPECT_NEAR(forces[2].value(), 2500, 1e-12);
  EXPECT_NEAR(forces[4].value(), 0, 1e-9);
}

}  // namespace
}  // namespace aluframe::analysis
