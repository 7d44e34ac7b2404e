#include "aluframe/analysis/equilibrium.h"

#include <algorithm>
#include <cmath>

namespace aluframe::analysis {

namespace {

double longest(std::span<const Geometry> geometry) {
  double length = 0.0;
  for (const Geometry& g : geometry) length = std::max(length, g.length);
  return length;
}

/// Residual forces and moments of many nodes: the largest, and their Euclidean norms.
struct Residual {
  Norms largest, euclidean;

  void include(std::size_t direction, double value) {
    largest.include(direction, value);
    (direction < 3 ? euclidean.force : euclidean.moment) += value * value;
  }
  void finish() { euclidean = {std::sqrt(euclidean.force), std::sqrt(euclidean.moment)}; }
};

/// Out-of-balance forces at the nodes' free directions.
Residual unbalanced_nodes(const Balance& b) {
  NodeValues residual = b.internal;
  for (const Spring& spring : b.frame.springs) {
    for (std::size_t i = 0; i < 6; ++i) {
      const std::size_t dof = 6 * spring.node + i;
      residual[dof] += spring.stiffness[i] * b.displacements[dof];
    }
  }
  Residual unbalanced;
  for (std::size_t node = 0; node < b.frame.nodes.size(); ++node) {
    const int* equations = b.equations.of_node(node);
    for (std::size_t i = 0; i < 6; ++i) {
      const std::size_t dof = 6 * node + i;
      if (equations[i] >= 0) unbalanced.include(i, residual[dof] - b.nodal[dof]);
    }
  }
  unbalanced.finish();
  return unbalanced;
}

Eigen::Vector3d position(const Node& node) {
  return {node.x, node.y, node.z};
}

/// Sum of forces, and of moments about one point; and the sums of their magnitudes.
class Sum {
 public:
  explicit Sum(const Eigen::Vector3d& about) : about_(about) {}

  void add(const Node& node, const Eigen::Vector3d& force, const Eigen::Vector3d& moment) {
    const Eigen::Vector3d turning = moment + (position(node) - about_).cross(force);
    force_ += force;
    moment_ += turning;
    gross_.force += force.norm();
    gross_.moment += turning.norm();
  }
  void add(const Node& node, const double* six) {
    add(node, Eigen::Vector3d(six[0], six[1], six[2]), Eigen::Vector3d(six[3], six[4], six[5]));
  }
  Norms net(Order order) const {
    // In second order the moments balance about displaced points only.
    return {force_.cwiseAbs().maxCoeff(),
            order == Order::first ? moment_.cwiseAbs().maxCoeff() : 0.0};
  }
  /// What the net is to be measured by, not less than `least`.
  Norms gross(const Norms& least) const {
    return {std::max(gross_.force, least.force), std::max(gross_.moment, least.moment)};
  }

 private:
  Eigen::Vector3d about_, force_ = Eigen::Vector3d::Zero(), moment_ = Eigen::Vector3d::Zero();
  Norms gross_;
};

}  // namespace

Extent extent_of(const Frame& frame) {
  Eigen::AlignedBox3d box;
  for (const Node& node : frame.nodes) box.extend(position(node));
  return {box.center(), box.diagonal().norm()};
}

Lengths lengths_of(const Frame& frame, std::span<const Geometry> geometry) {
  return {longest(geometry), extent_of(frame).size};
}

double share(const Norms& part, const Norms& whole, const Lengths& lengths) {
  const auto share_of = [](double value, double all) { return value == 0.0 ? 0.0 : value / all; };
  const double of_forces =
      share_of(part.force, std::max(whole.force, whole.moment / lengths.extent));
  const double of_moments =
      share_of(part.moment, std::max(whole.moment, whole.force * lengths.longest));
  // What is not a number is the worst.
  return of_forces > of_moments || std::isnan(of_forces) ? of_forces : of_moments;
}

Equilibrium check_equilibrium(const Balance& b, const LoadsByElement& loads,
                              std::span<const Reaction> reactions, Order order) {
  if (b.frame.elements.empty()) return {};
  const Extent extent = extent_of(b.frame);
  Sum sum(extent.middle);
  for (std::size_t i = 0; i < b.frame.nodes.size(); ++i) {
    const double* six = &b.nodal[6 * i];
    if (std::any_of(six, six + 6, [](double value) { return value != 0.0; })) {
      sum.add(b.frame.nodes[i], six);
    }
  }
  for (const Reaction& r : reactions) sum.add(b.frame.nodes[r.node], r.value.data());
  for (std::size_t i = 0; i < b.frame.elements.size(); ++i) {
    if (!loads.has_forces(i)) continue;
    const ElementLoads here = loads.of(i);
    const Resultant all = resultant_before(here, here.length);
    const Eigen::Matrix3d back = b.geometry[i].axes.transpose();
    sum.add(b.frame.nodes[b.frame.elements[i].end], back * all.force, back * all.moment);
  }
  const Residual residual = unbalanced_nodes(b);
  const Lengths lengths{longest(b.geometry), extent.size};
  const Norms through_frame{residual.euclidean.force,
                            residual.euclidean.moment + extent.size * residual.euclidean.force};
  return {share(residual.largest, b.scale, lengths),
          share(sum.net(order), sum.gross(b.scale), {extent.size, extent.size}),
          share(through_frame, b.scale, lengths)};
}

}  // namespace aluframe::analysis
