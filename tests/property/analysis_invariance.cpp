#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include "aluframe/analysis/second_order.h"
#include "analysis_changes.h"
#include "analysis_frames.h"

namespace aluframe::analysis {
namespace {

/// The frame with every section's direction given by a vector in place of beta.
Frame oriented(const Frame& frame) {
  Frame result = frame;
  const std::vector<Geometry> geometry = element_geometry(frame);
  for (std::size_t i = 0; i < result.elements.size(); ++i) {
    // Any length, and any part along the axis that leaves a fifth across it.
    const Eigen::RowVector3d towards =
        number_between(0.1, 10) *
        (geometry[i].axes.row(2) + number_between(-4, 4) * geometry[i].axes.row(0));
    result.elements[i].beta = 0.0;
    result.elements[i].reference = Vector3{towards.x(), towards.y(), towards.z()};
  }
  return result;
}

RC_GTEST_PROP(FrameInvariance, AFrameByVectorsMovesLikeTheSameFrameByBeta, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads_of_a_site(frame);
  const CaseResult by_beta = solved(frame, {loads})[0];
  const CaseResult by_vector = solved(oriented(frame), {loads})[0];
  assert_same_forces(by_vector.forces, by_beta.forces);
  double largest = 0.0;
  for (const Vector6& u : by_beta.displacements) {
    for (std::size_t i = 0; i < 3; ++i) largest = std::max(largest, std::abs(u[i]));
  }
  for (std::size_t node = 0; node < frame.nodes.size(); ++node) {
    for (std::size_t i = 0; i < 3; ++i) {
      const double apart = by_vector.displacements[node][i] - by_beta.displacements[node][i];
      RC_ASSERT(std::abs(apart) <= 1e-8 * largest);  // rounding of the axes in a stiff frame
    }
  }
}

RC_GTEST_PROP(FrameInvariance, TurningTheWholeModelTurnsItsDisplacementsAndLeavesItsForces, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads(frame);
  const Rotation r = any_rotation();
  const CaseResult before = solved(frame, {loads})[0];
  const CaseResult after = solved(turned(r, frame), {turned(r, loads)})[0];
  assert_same_forces(after.forces, before.forces);
  double largest = 0.0;
  for (const Vector6& u : before.displacements) {
    for (std::size_t i = 0; i < 3; ++i) largest = std::max(largest, std::abs(u[i]));
  }
  for (std::size_t node = 0; node < frame.nodes.size(); ++node) {
    const Vector6 expected = turned(r, before.displacements[node]);
    for (std::size_t i = 0; i < 3; ++i) {
      RC_ASSERT(std::abs(after.displacements[node][i] - expected[i]) <= 1e-8 * largest);
    }
  }
}

/// Whether the frame stands under the loads in second order; what its forces are then.
std::optional<CaseResult> stands(const Frame& frame, const LoadCase& loads) {
  auto result = analyse_second_order(frame, loads);
  if (std::holds_alternative<Problem>(result)) return std::nullopt;
  return std::get<SecondOrderResult>(std::move(result)).result;
}

RC_GTEST_PROP(FrameInvariance, TurningTheWholeModelLeavesItsForcesOfSecondOrder, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads(frame);
  const auto before = stands(frame, loads);
  RC_PRE(before.has_value());
  const Rotation r = any_rotation();
  const auto after = stands(turned(r, frame), turned(r, loads));
  RC_ASSERT(after.has_value());
  // The two may stop at different iterations.
  assert_same_forces(after->forces, before->forces, 1e-5);
}

RC_GTEST_PROP(FrameInvariance, RenumberingChangesNothing, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads_of_a_site(frame);
  const Renumbered other = renumbered_by_chance(frame, loads);
  const CaseResult before = solved(frame, {loads})[0];
  const CaseResult after = solved(other.frame, {other.loads})[0];
  std::vector<ElementForces> in_order;
  for (const std::size_t place : other.element_at) in_order.push_back(after.forces[place]);
  assert_same_forces(in_order, before.forces);
}

RC_GTEST_PROP(FrameInvariance, UnitsOfKilonewtonAndMetreGiveTheSameForces, ()) {
  Frame frame = any_frame();
  LoadCase loads = any_loads(frame);
  const CaseResult before = solved(frame, {loads})[0];
  constexpr double mm = 1e-3, n = 1e-3;
  for (Node& node : frame.nodes) node = {node.number, node.x * mm, node.y * mm, node.z * mm};
  for (Element& e : frame.elements) {
    const Stiffness s = e.stiffness;
    e.stiffness = {s.e * n / (mm * mm), s.g * n / (mm * mm), s.area * mm * mm, s.ay * mm * mm,
                   s.az * mm * mm,      s.it * 1e-12,        s.iyy * 1e-12,    s.izz * 1e-12};
  }
  for (Spring& s : frame.springs) {
    for (std::size_t i = 0; i < 6; ++i) s.stiffness[i] *= i < 3 ? n / mm : n * mm;
  }
  const auto scale = [](Vector3& v, double by) {
    for (double& x : v) x *= by;
  };
  for (NodalLoad& l : loads.nodal) {
    for (std::size_t i = 0; i < 6; ++i) l.value[i] *= i < 3 ? n : n * mm;
  }
  for (DistributedLoad& l : loads.distributed) {
    scale(l.from_value, n / mm);
    scale(l.to_value, n / mm);
  }
  for (PointLoad& l : loads.points) {
    scale(l.force, n);
    scale(l.moment, n * mm);
  }
  for (Temperature& t : loads.temperatures) {
    t.depth_y *= mm;
    t.depth_z *= mm;
  }
  for (Settlement& s : loads.settlements) s.value *= s.direction < 3 ? mm : 1.0;
  CaseResult after = solved(frame, {loads})[0];
  for (ElementForces& element : after.forces) {
    for (SectionForces& at : element) {
      for (std::size_t i = 0; i < 6; ++i) at[i] *= static_cast<float>(i < 3 ? 1 / n : 1 / (n * mm));
    }
  }
  assert_same_forces(after.forces, before.forces);
}

RC_GTEST_PROP(FrameInvariance, SplittingABeamChangesNothing, ()) {
  Frame frame = any_frame();
  LoadCase loads = any_loads_of_a_site(frame);
  std::size_t place = place_below(frame.elements.size());
  // A truss cut in two would have an unrestrained node; the first element is always a beam.
  if (frame.elements[place].kind == ElementKind::truss) place = 0;
  const CaseResult before = solved(frame, {loads})[0];
  split(frame, loads, place, number_between(0.1, 0.9));
  CaseResult after = solved(frame, {loads})[0];
  const ElementForces second = after.forces.back();
  after.forces.pop_back();
  after.forces[place] = before.forces[place];
  after.forces[place][4] = second[4];
  assert_same_forces(after.forces, before.forces, 5e-6);
}

}  // namespace
}  // namespace aluframe::analysis
