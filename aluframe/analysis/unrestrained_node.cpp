#include "aluframe/analysis/unrestrained_node.h"

#include <fmt/format.h>

#include <Eigen/Eigenvalues>
#include <algorithm>

#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/analysis/mechanism.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

using Matrix6 = Eigen::Matrix<double, 6, 6>;
using Column6 = Eigen::Matrix<double, 6, 1>;

/// Stiffness that each node has when all others are restrained, scaled; 1 where it has no equation.
std::vector<Matrix6> node_blocks(const Frame& frame, const Equations& equations,
                                 const SymmetricMatrix& matrix) {
  std::vector<Matrix6> blocks(frame.nodes.size(), Matrix6::Identity());
  for (int i = 0; i < equations.count(); ++i) {
    const std::size_t dof = equations.dof(i);
    blocks[dof / 6](static_cast<int>(dof % 6), static_cast<int>(dof % 6)) = 0.0;
  }
  for (std::size_t i = 0; i < matrix.values.size(); ++i) {
    const std::size_t row = equations.dof(matrix.rows[i] - 1);
    const std::size_t column = equations.dof(matrix.columns[i] - 1);
    if (row / 6 != column / 6) continue;
    const auto r = static_cast<int>(row % 6), c = static_cast<int>(column % 6);
    blocks[row / 6](r, c) += matrix.values[i];
    if (r != c) blocks[row / 6](c, r) += matrix.values[i];
  }
  return blocks;
}

/// Global axes about (or along) which the node moves by itself, among directions `first` to +2.
std::vector<std::string> free_axes(const Eigen::SelfAdjointEigenSolver<Matrix6>& modes,
                                   int free_modes, std::size_t first) {
  std::vector<std::string> axes;
  for (std::size_t i = first; i < first + 3; ++i) {
    const auto parts = modes.eigenvectors().row(static_cast<int>(i)).head(free_modes);
    if (parts.squaredNorm() > 1.0 - 1e-6) axes.push_back(axis_name(i));
  }
  return axes;
}

/// Whether every beam at the node has a moment of that end released.
bool all_released(const Frame& frame, std::size_t node) {
  const auto released_at = [](const Element& e, std::size_t first) {
    return e.released[first] || e.released[first + 1] || e.released[first + 2];
  };
  return std::all_of(frame.elements.begin(), frame.elements.end(), [&](const Element& e) {
    if (e.kind == ElementKind::truss) return true;
    return (e.start != node || released_at(e, 3)) && (e.end != node || released_at(e, 9));
  });
}

std::string reason(const Frame& frame, std::size_t node, bool rotates) {
  return rotates && all_released(frame, node)
             ? texts::translatable("every element there is released")
             : texts::translatable("the elements there do not resist it");
}

/// How the node moves: about and along which axes, or in one direction across them.
std::string motion_text(const std::string& node,
                        const Eigen::SelfAdjointEigenSolver<Matrix6>& modes, int free_modes,
                        const Column6& scale, bool& rotates) {
  const std::vector<std::string> about = free_axes(modes, free_modes, 3);
  const std::vector<std::string> along = free_axes(modes, free_modes, 0);
  const Column6 mode = modes.eigenvectors().col(0).cwiseProduct(scale);
  rotates = along.empty() && (!about.empty() || modes.eigenvectors().col(0).tail<3>().norm() >
                                                    modes.eigenvectors().col(0).head<3>().norm());
  const bool turns = along.empty() && (!about.empty() || rotates);
  const std::string axes = !along.empty()   ? listed(along)
                           : !about.empty() ? listed(about)
                           : rotates        ? axis_name(Eigen::Vector3d(mode.tail<3>()))
                                            : axis_name(Eigen::Vector3d(mode.head<3>()));
  return turns ? fmt::format(texts::translatable("{} can rotate freely about {}"), node, axes)
               : fmt::format(texts::translatable("{} can move freely along {}"), node, axes);
}

Column6 scale_of(const Equations& equations, const std::vector<double>& scale, std::size_t node) {
  Column6 result = Column6::Zero();
  for (std::size_t i = 0; i < 6; ++i) {
    const int equation = equations.at(node, i);
    if (equation >= 0) result[static_cast<int>(i)] = scale[static_cast<std::size_t>(equation)];
  }
  return result;
}

}  // namespace

std::optional<Problem> find_unrestrained_node(const Frame& frame, const Equations& equations,
                                              const ScaledEquations& scaled) {
  const std::vector<Matrix6> blocks = node_blocks(frame, equations, scaled.matrix);
  std::optional<Problem> found;
  std::size_t more = 0;
  for (std::size_t node = 0; node < blocks.size(); ++node) {
    const Eigen::SelfAdjointEigenSolver<Matrix6> modes(blocks[node]);
    const auto free_modes =
        static_cast<int>((modes.eigenvalues().array() <= least_softness).count());
    if (free_modes == 0) continue;
    if (found) {
      ++more;
      continue;
    }
    bool rotates = false;
    const std::string motion = motion_text(node_name(frame, node), modes, free_modes,
                                           scale_of(equations, scaled.scale, node), rotates);
    found = Problem{Problem::Kind::mechanism, motion + ": " + reason(frame, node, rotates), node,
                    std::nullopt};
  }
  if (found && more > 0) {
    found->text = more == 1 ? fmt::format(texts::translatable("{} (1 more node can move freely)"),
                                          found->text)
                            : fmt::format(texts::translatable("{} ({} more nodes can move freely)"),
                                          found->text, more);
  }
  return found;
}

}  // namespace aluframe::analysis
