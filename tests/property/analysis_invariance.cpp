#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <algorithm>
#include <numbers>
#include <numeric>

#include "aluframe/analysis/second_order.h"
#include "analysis_frames.h"

namespace aluframe::analysis {
namespace {

using Rotation = Eigen::Matrix3d;

Rotation any_rotation() {
  const Vector3 axis = any_vector(1);
  const Eigen::Vector3d unit = Eigen::Vector3d(axis[0], axis[1], axis[2] + 1.5).normalized();
  return Eigen::AngleAxisd(number_between(-3, 3), unit).toRotationMatrix();
}

Vector3 turned(const Rotation& r, const Vector3& v) {
  const Eigen::Vector3d t = r * Eigen::Vector3d(v[0], v[1], v[2]);
  return {t.x(), t.y(), t.z()};
}

Vector6 turned(const Rotation& r, const Vector6& v) {
  const Vector3 f = turned(r, Vector3{v[0], v[1], v[2]}), m = turned(r, Vector3{v[3], v[4], v[5]});
  return {f[0], f[1], f[2], m[0], m[1], m[2]};
}

/// Turns the nodes; each element's beta makes up for the vertical that did not turn with it.
Frame turned(const Rotation& r, const Frame& frame) {
  Frame result = frame;
  for (Node& node : result.nodes) {
    const Vector3 p = turned(r, Vector3{node.x, node.y, node.z});
    node = {node.number, p[0], p[1], p[2]};
  }
  const std::vector<Geometry> before = element_geometry(frame);
  for (std::size_t i = 0; i < result.elements.size(); ++i) {
    Element& e = result.elements[i];
    const Axes plain = geometry_between(result.nodes[e.start], result.nodes[e.end], 0.0).axes;
    const Eigen::Vector3d y = r * before[i].axes.row(1).transpose();
    e.beta = std::atan2(plain.row(2).dot(y), plain.row(1).dot(y)) * 180.0 / std::numbers::pi;
  }
  return result;
}

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

LoadCase turned(const Rotation& r, const LoadCase& loads) {
  LoadCase result = loads;
  for (NodalLoad& load : result.nodal) load.value = turned(r, load.value);
  for (DistributedLoad& load : result.distributed) {
    if (load.axes == LoadAxes::local) continue;
    load.from_value = turned(r, load.from_value);
    load.to_value = turned(r, load.to_value);
  }
  for (PointLoad& load : result.points) {
    if (load.axes == LoadAxes::local) continue;
    load.force = turned(r, load.force);
    load.moment = turned(r, load.moment);
  }
  result.settlements.clear();
  for (const Settlement& s : loads.settlements) {
    Vector6 value{};
    value[s.direction] = s.value;
    value = turned(r, value);
    for (std::size_t i = 0; i < 6; ++i) result.settlements.push_back({s.node, i, value[i]});
  }
  return result;
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

std::vector<std::size_t> any_permutation(std::size_t count) {
  std::vector<std::size_t> places(count);
  std::iota(places.begin(), places.end(), std::size_t{0});
  for (std::size_t i = count; i > 1; --i) std::swap(places[i - 1], places[place_below(i)]);
  return places;
}

RC_GTEST_PROP(FrameInvariance, RenumberingChangesNothing, ()) {
  const Frame frame = any_frame();
  const LoadCase loads = any_loads_of_a_site(frame);
  const auto node_at = any_permutation(frame.nodes.size());
  const auto element_at = any_permutation(frame.elements.size());
  Frame other = frame;
  LoadCase renumbered = loads;
  for (std::size_t i = 0; i < node_at.size(); ++i) other.nodes[node_at[i]] = frame.nodes[i];
  for (std::size_t i = 0; i < element_at.size(); ++i) {
    Element& e = other.elements[element_at[i]] = frame.elements[i];
    e.start = node_at[e.start];
    e.end = node_at[e.end];
  }
  for (Support& s : other.supports) s.node = node_at[s.node];
  for (Spring& s : other.springs) s.node = node_at[s.node];
  for (NodalLoad& l : renumbered.nodal) l.node = node_at[l.node];
  for (Settlement& l : renumbered.settlements) l.node = node_at[l.node];
  for (DistributedLoad& l : renumbered.distributed) l.element = element_at[l.element];
  for (PointLoad& l : renumbered.points) l.element = element_at[l.element];
  for (Temperature& l : renumbered.temperatures) l.element = element_at[l.element];
  const CaseResult before = solved(frame, {loads})[0];
  const CaseResult after = solved(other, {renumbered})[0];
  std::vector<ElementForces> in_order;
  for (const std::size_t place : element_at) in_order.push_back(after.forces[place]);
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

/// Cuts an element at a part of its length; the second half is added at the end.
void split(Frame& frame, LoadCase& loads, std::size_t place, double at) {
  const Node a = frame.nodes[frame.elements[place].start],
             b = frame.nodes[frame.elements[place].end];
  frame.nodes.push_back({static_cast<Number>(frame.nodes.size() + 1), a.x + at * (b.x - a.x),
                         a.y + at * (b.y - a.y), a.z + at * (b.z - a.z)});
  Element second = frame.elements[place];
  second.start = frame.elements[place].end = frame.nodes.size() - 1;
  for (std::size_t i = 0; i < 6; ++i) {
    second.released[i] = false;
    frame.elements[place].released[6 + i] = false;
  }
  frame.elements.push_back(second);
  const std::size_t other = frame.elements.size() - 1;
  LoadCase parts = loads;
  parts.distributed.clear();
  parts.points.clear();
  for (const DistributedLoad& load : loads.distributed) {
    const auto part = [&](double from, double to, std::size_t on, double start, double length) {
      if (from >= to) return;
      DistributedLoad piece = load;
      const auto value = [&](double x, std::size_t i) {
        const double share = (x - load.from) / (load.to - load.from);
        return load.from_value[i] + share * (load.to_value[i] - load.from_value[i]);
      };
      for (std::size_t i = 0; i < 3; ++i) {
        piece.from_value[i] = value(from, i);
        piece.to_value[i] = value(to, i);
      }
      piece.element = on;
      piece.from = std::clamp((from - start) / length, 0.0, 1.0);
      piece.to = std::clamp((to - start) / length, 0.0, 1.0);
      parts.distributed.push_back(piece);
    };
    if (load.element != place) {
      parts.distributed.push_back(load);
      continue;
    }
    part(load.from, std::min(load.to, at), place, 0.0, at);
    part(std::max(load.from, at), load.to, other, at, 1.0 - at);
  }
  for (PointLoad load : loads.points) {
    if (load.element == place) {
      const bool first = load.at <= at;
      load.element = first ? place : other;
      load.at = first ? load.at / at : (load.at - at) / (1.0 - at);
    }
    parts.points.push_back(load);
  }
  for (Temperature t : loads.temperatures) {
    if (t.element != place) continue;
    t.element = other;
    parts.temperatures.push_back(t);
  }
  loads = parts;
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
