#include "aluframe/analysis/unrestrained_part.h"

#include <Eigen/Eigenvalues>
#include <numeric>

#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

/// A rigid-body mode with this share of the stiffest one's stiffness is not restrained.
constexpr double not_restrained = 1e-10;

using Matrix6 = Eigen::Matrix<double, 6, 6>;
using Column6 = Eigen::Matrix<double, 6, 1>;

/// Nodes connected by elements: the first node of the part that each belongs to.
std::vector<std::size_t> part_of_nodes(const Frame& frame) {
  std::vector<std::size_t> parent(frame.nodes.size());
  std::iota(parent.begin(), parent.end(), std::size_t{0});
  const auto root = [&](std::size_t node) {
    while (parent[node] != node) node = parent[node] = parent[parent[node]];
    return node;
  };
  for (const Element& e : frame.elements) {
    const std::size_t a = root(e.start), b = root(e.end);
    parent[std::max(a, b)] = std::min(a, b);
  }
  for (std::size_t i = 0; i < parent.size(); ++i) parent[i] = root(i);
  return parent;
}

/// Which directions of a node mean anything: none without elements, no rotations with trusses only.
std::vector<std::size_t> active_directions(const Frame& frame) {
  std::vector<std::size_t> active(frame.nodes.size(), 0);
  for (const Element& e : frame.elements) {
    const std::size_t count = e.kind == ElementKind::beam ? 6 : 3;
    active[e.start] = std::max(active[e.start], count);
    active[e.end] = std::max(active[e.end], count);
  }
  return active;
}

/// A part: its nodes, its middle, and half its size, by which rotations are made lengths.
struct Part {
  std::vector<std::size_t> nodes;
  Eigen::Vector3d middle = Eigen::Vector3d::Zero();
  double size = 0.0;
  Matrix6 support = Matrix6::Zero();  ///< stiffness of the supports against its rigid-body modes

  void measure(const Frame& frame) {
    Eigen::AlignedBox3d box;
    for (const std::size_t i : nodes) {
      box.extend(Eigen::Vector3d(frame.nodes[i].x, frame.nodes[i].y, frame.nodes[i].z));
    }
    middle = box.center();
    size = box.diagonal().norm() / 2.0;
  }

  /// One restrained direction of a node: what each of the six rigid-body modes does there.
  void restrain(const Node& node, std::size_t direction) {
    const auto i = static_cast<int>(direction % 3);
    Column6 row = Column6::Zero();
    if (direction < 3) {
      const Eigen::Vector3d arm = (Eigen::Vector3d(node.x, node.y, node.z) - middle) / size;
      row[i] = 1.0;
      row.tail<3>() = arm.cross(Eigen::Vector3d::Unit(i));
    } else {
      row[3 + i] = 1.0;
    }
    support += row * row.transpose();
  }
};

std::vector<Part> parts_of(const Frame& frame, const std::vector<std::size_t>& active,
                           std::vector<std::size_t>& part_of_node) {
  std::vector<Part> parts;
  std::vector<std::size_t> place(frame.nodes.size(), frame.nodes.size());
  for (std::size_t i = 0; i < frame.nodes.size(); ++i) {
    if (active[i] == 0) continue;
    std::size_t& at = place[part_of_node[i]];
    if (at == frame.nodes.size()) {
      at = parts.size();
      parts.emplace_back();
    }
    parts[at].nodes.push_back(i);
    part_of_node[i] = at;
  }
  for (Part& part : parts) part.measure(frame);
  return parts;
}

std::string motion_text(const Column6& motion) {
  const Eigen::Vector3d shift = motion.head<3>(), turn = motion.tail<3>();
  if (turn.norm() < 1e-6 * shift.norm())
    return fmt::format(texts::translatable("move along {}"), axis_name(shift));
  return fmt::format(texts::translatable("turn about an axis along {}"), axis_name(turn));
}

/// A single bar of trusses may turn about itself: that moves none of its points.
bool moves_any_node(const Frame& frame, const std::vector<std::size_t>& active, const Part& part,
                    const Column6& motion) {
  for (const std::size_t i : part.nodes) {
    if (active[i] == 6 && motion.tail<3>().norm() > 1e-6) return true;
    const Node& node = frame.nodes[i];
    const Eigen::Vector3d arm = (Eigen::Vector3d(node.x, node.y, node.z) - part.middle) / part.size;
    if ((motion.head<3>() + motion.tail<3>().cross(arm)).norm() > 1e-6) return true;
  }
  return false;
}

std::optional<Problem> find_motion(const Frame& frame, const std::vector<std::size_t>& active,
                                   const Part& part, bool whole) {
  const std::string nodes = node_names(frame, part.nodes);
  const std::string what =
      whole ? fmt::format(texts::translatable("the structure with {}"), nodes)
            : fmt::format(texts::translatable("the part of the structure with {}"), nodes);
  const auto problem = [&](std::string text) {
    // The whole structure has no node to point at.
    const auto node = whole ? std::nullopt : std::optional(part.nodes.front());
    return Problem{Problem::Kind::mechanism, std::move(text), node, std::nullopt};
  };
  if (part.support.isZero(0.0))
    return problem(fmt::format(texts::translatable("nothing supports {}"), what));
  const Eigen::SelfAdjointEigenSolver<Matrix6> modes(part.support);
  for (int i = 0; i < 6 && modes.eigenvalues()[i] <= not_restrained * modes.eigenvalues()[5]; ++i) {
    const Column6 motion = modes.eigenvectors().col(i);
    if (!moves_any_node(frame, active, part, motion)) continue;
    return problem(fmt::format(texts::translatable("the supports do not hold {}: it can {}"), what,
                               motion_text(motion)));
  }
  return std::nullopt;
}

}  // namespace

std::optional<Problem> find_unrestrained_part(const Frame& frame) {
  const std::vector<std::size_t> active = active_directions(frame);
  std::vector<std::size_t> part_of_node = part_of_nodes(frame);
  std::vector<Part> parts = parts_of(frame, active, part_of_node);
  for (const Support& support : frame.supports) {
    for (std::size_t i = 0; i < active[support.node]; ++i) {
      if (support.fixed[i])
        parts[part_of_node[support.node]].restrain(frame.nodes[support.node], i);
    }
  }
  for (const Spring& spring : frame.springs) {
    for (std::size_t i = 0; i < active[spring.node]; ++i) {
      if (spring.stiffness[i] > 0.0) {
        parts[part_of_node[spring.node]].restrain(frame.nodes[spring.node], i);
      }
    }
  }
  for (const Part& part : parts) {
    if (auto problem = find_motion(frame, active, part, parts.size() == 1)) return problem;
  }
  return std::nullopt;
}

}  // namespace aluframe::analysis
