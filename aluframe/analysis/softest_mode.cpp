#include "aluframe/analysis/softest_mode.h"

#include <Eigen/Eigenvalues>
#include <cmath>

#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/analysis/mechanism.h"

namespace aluframe::analysis {

namespace {

/// Added to the scaled diagonal, so that singular equations can be factorised. Far above rounding
/// and far below the stiffness of a restrained frame.
constexpr double shift = 1e-9;
constexpr int trial_modes = 4;
constexpr int iterations = 4;
/// Below this, rounding of the stiffness is all that resists.
constexpr double no_resistance = 1e-14;

using Modes = Eigen::MatrixXd;

SymmetricMatrix shifted(const SymmetricMatrix& matrix, double shift_by) {
  SymmetricMatrix result = matrix;
  for (int i = 1; i <= matrix.size; ++i) {
    result.rows.push_back(i);
    result.columns.push_back(i);
    result.values.push_back(shift_by);
  }
  return result;
}

Modes times(const SymmetricMatrix& matrix, const Modes& modes) {
  Modes result = Modes::Zero(modes.rows(), modes.cols());
  for (std::size_t i = 0; i < matrix.values.size(); ++i) {
    const int row = matrix.rows[i] - 1, column = matrix.columns[i] - 1;
    result.row(row) += matrix.values[i] * modes.row(column);
    if (row != column) result.row(column) += matrix.values[i] * modes.row(row);
  }
  return result;
}

Modes orthonormal(const Modes& modes) {
  const Eigen::HouseholderQR<Modes> qr(modes);
  return qr.householderQ() * Modes::Identity(modes.rows(), modes.cols());
}

struct SoftestMode {
  double softness = 0.0;
  Eigen::VectorXd shape;  // scaled
};

/// Inverse iteration with several modes at once; returns the softest one among them.
std::optional<SoftestMode> softest_mode(const SymmetricMatrix& matrix, double shift_by) {
  const auto solver = make_solver();
  if (solver->factorise(shifted(matrix, shift_by)).status != Factorisation::Status::done) {
    return std::nullopt;
  }
  const int count = std::min(trial_modes, matrix.size);
  const std::vector<double> load = probing_load(matrix.size * count);
  Modes modes = Eigen::Map<const Modes>(load.data(), matrix.size, count);
  for (int i = 0; i < iterations; ++i) {
    modes = orthonormal(modes);
    solver->solve({modes.data(), static_cast<std::size_t>(modes.size())});
  }
  modes = orthonormal(modes);
  const Eigen::SelfAdjointEigenSolver<Modes> reduced(modes.transpose() * times(matrix, modes));
  return SoftestMode{reduced.eigenvalues()[0], modes * reduced.eigenvectors().col(0)};
}

/// Displacement (first = 0) or rotation (first = 3) of each node in the mode.
std::vector<Eigen::Vector3d> by_node(const Frame& frame, const Equations& equations,
                                     const ScaledEquations& scaled, const SoftestMode& mode,
                                     std::size_t first) {
  std::vector<Eigen::Vector3d> result(frame.nodes.size(), Eigen::Vector3d::Zero());
  for (int i = 0; i < equations.count(); ++i) {
    const std::size_t direction = equations.dof(i) % 6;
    if (direction < first || direction >= first + 3) continue;
    result[equations.dof(i) / 6][static_cast<int>(direction - first)] =
        mode.shape[i] * scaled.scale[static_cast<std::size_t>(i)];
  }
  return result;
}

struct Moving {
  std::vector<std::size_t> nodes;  ///< that move at least half as much as the one that moves most
  Eigen::Vector3d direction = Eigen::Vector3d::Zero();  ///< of that one
};

Moving moving_most(const std::vector<Eigen::Vector3d>& shape) {
  Moving result;
  for (const auto& m : shape) {
    // A hair's more is needed, so that of nodes moving alike the first one counts.
    if (m.stableNorm() > result.direction.stableNorm() * (1.0 + 1e-6)) result.direction = m;
  }
  for (std::size_t i = 0; i < shape.size(); ++i) {
    if (shape[i].stableNorm() >= 0.5 * result.direction.stableNorm()) result.nodes.push_back(i);
  }
  return result;
}

double mean_length(const Frame& frame) {
  double sum = 0.0;
  for (const Element& e : frame.elements) {
    const Node &a = frame.nodes[e.start], &b = frame.nodes[e.end];
    sum += std::hypot(b.x - a.x, b.y - a.y, b.z - a.z);
  }
  return sum / static_cast<double>(frame.elements.size());
}

/// Which nodes a mode moves most, and whether they rotate more than they translate.
struct DominantMotion {
  Moving moving;
  bool rotates = false;
};

/// Nothing when the mode is too large or too small for numbers.
std::optional<DominantMotion> dominant_motion(const Frame& frame, const Equations& equations,
                                              const ScaledEquations& scaled,
                                              const SoftestMode& mode) {
  const Moving most_translated = moving_most(by_node(frame, equations, scaled, mode, 0));
  const Moving most_rotated = moving_most(by_node(frame, equations, scaled, mode, 3));
  const bool rotates = most_translated.direction.stableNorm() <
                       1e-3 * most_rotated.direction.stableNorm() * mean_length(frame);
  const Moving& most = rotates ? most_rotated : most_translated;
  const double size = most.direction.stableNorm();
  if (!std::isfinite(size) || size == 0.0) return std::nullopt;
  return DominantMotion{most, rotates};
}

}  // namespace

Problem describe_softest_mode(const Frame& frame, const Equations& equations,
                              const ScaledEquations& scaled) {
  Problem problem{Problem::Kind::mechanism, "the stiffness is singular", {}, {}};
  const auto mode = softest_mode(scaled.matrix, shift);
  if (!mode) return problem;
  const auto dominant = dominant_motion(frame, equations, scaled, *mode);
  if (!dominant) return problem;
  const auto& [moving, rotates] = *dominant;
  const bool free = mode->softness < no_resistance;
  problem.text = node_names(frame, moving.nodes) + (rotates ? " can rotate" : " can move") +
                 (free ? " freely" : " almost freely") + (rotates ? " about " : " along ") +
                 axis_name(moving.direction) +
                 (free ? ": no element or support resists it"
                       : ": what resists is too soft for a certain result");
  problem.node = moving.nodes.front();
  return problem;
}

std::string describe_buckling_mode(const Frame& frame, const Equations& equations,
                                   const ScaledEquations& scaled) {
  const auto mode = softest_mode(scaled.matrix, 0.0);
  const auto dominant = mode ? dominant_motion(frame, equations, scaled, *mode) : std::nullopt;
  if (!dominant) return "its stiffness is used up";
  const auto& [moving, rotates] = *dominant;
  const std::string verb = moving.nodes.size() == 1 ? "s" : "";
  return node_names(frame, moving.nodes) + (rotates ? " turn" : " move") + verb +
         (rotates ? " about " : " along ") + axis_name(moving.direction);
}

}  // namespace aluframe::analysis
