#include "aluframe/analysis/soft_motion.h"

#include <Eigen/Eigenvalues>
#include <cmath>

#include "aluframe/analysis/mechanism.h"
#include "aluframe/analysis/words.h"

namespace aluframe::analysis {

namespace {

/// Added to the scaled diagonal, so that singular equations can be factorised. Far above rounding
/// and far below what holds a frame.
constexpr double shift = 1e-9;
constexpr int trial_motions = 4;
constexpr int iterations = 4;
/// Below this, rounding of the stiffness is all that resists.
constexpr double no_resistance = 1e-14;

using Motions = Eigen::MatrixXd;

SymmetricMatrix shifted(const SymmetricMatrix& matrix, double shift_by) {
  SymmetricMatrix result = matrix;
  for (int i = 1; i <= matrix.size; ++i) {
    result.rows.push_back(i);
    result.columns.push_back(i);
    result.values.push_back(shift_by);
  }
  return result;
}

Motions times(const SymmetricMatrix& matrix, const Motions& motions) {
  Motions result = Motions::Zero(motions.rows(), motions.cols());
  for (std::size_t i = 0; i < matrix.values.size(); ++i) {
    const int row = matrix.rows[i] - 1, column = matrix.columns[i] - 1;
    result.row(row) += matrix.values[i] * motions.row(column);
    if (row != column) result.row(column) += matrix.values[i] * motions.row(row);
  }
  return result;
}

Motions orthonormal(const Motions& motions) {
  const Eigen::HouseholderQR<Motions> qr(motions);
  return qr.householderQ() * Motions::Identity(motions.rows(), motions.cols());
}

struct SoftMotion {
  double softness = 0.0;
  Eigen::VectorXd shape;  // scaled
};

/// Inverse iteration with several motions at once, and the softest one among them.
std::optional<SoftMotion> softest(const SymmetricMatrix& matrix, double shift_by) {
  const auto solver = make_solver();
  if (solver->factorise(shifted(matrix, shift_by)).status != Factorisation::Status::done) {
    return std::nullopt;
  }
  const int count = std::min(trial_motions, matrix.size);
  const std::vector<double> load = probing_load(matrix.size * count);
  Motions motions = Eigen::Map<const Motions>(load.data(), matrix.size, count);
  for (int i = 0; i < iterations; ++i) {
    motions = orthonormal(motions);
    solver->solve({motions.data(), static_cast<std::size_t>(motions.size())});
  }
  motions = orthonormal(motions);
  const Eigen::SelfAdjointEigenSolver<Motions> modes(motions.transpose() * times(matrix, motions));
  return SoftMotion{modes.eigenvalues()[0], motions * modes.eigenvectors().col(0)};
}

/// Displacement (first = 0) or rotation (first = 3) of each node in the motion.
std::vector<Eigen::Vector3d> by_node(const Frame& frame, const Equations& equations,
                                     const ScaledEquations& scaled, const SoftMotion& motion,
                                     std::size_t first) {
  std::vector<Eigen::Vector3d> result(frame.nodes.size(), Eigen::Vector3d::Zero());
  for (int i = 0; i < equations.count(); ++i) {
    const std::size_t direction = equations.place(i) % 6;
    if (direction < first || direction >= first + 3) continue;
    result[equations.place(i) / 6][static_cast<int>(direction - first)] =
        motion.shape[i] * scaled.scale[static_cast<std::size_t>(i)];
  }
  return result;
}

struct Moving {
  std::vector<std::size_t> nodes;  ///< that move at least half as much as the one that moves most
  Eigen::Vector3d direction = Eigen::Vector3d::Zero();  ///< of that one
};

Moving moving_most(const std::vector<Eigen::Vector3d>& motion) {
  Moving result;
  for (const auto& m : motion) {
    // A hair's more is needed, so that of nodes moving alike the first one counts.
    if (m.stableNorm() > result.direction.stableNorm() * (1.0 + 1e-6)) result.direction = m;
  }
  for (std::size_t i = 0; i < motion.size(); ++i) {
    if (motion[i].stableNorm() >= 0.5 * result.direction.stableNorm()) result.nodes.push_back(i);
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

/// Which nodes a motion moves, and whether they turn more than they shift.
struct Told {
  Moving moving;
  bool turns = false;
};

/// Nothing when the motion is too large or too small for numbers.
std::optional<Told> most_of(const Frame& frame, const Equations& equations,
                            const ScaledEquations& scaled, const SoftMotion& motion) {
  const Moving shifted_most = moving_most(by_node(frame, equations, scaled, motion, 0));
  const Moving turned_most = moving_most(by_node(frame, equations, scaled, motion, 3));
  const bool turns = shifted_most.direction.stableNorm() <
                     1e-3 * turned_most.direction.stableNorm() * mean_length(frame);
  const Moving& most = turns ? turned_most : shifted_most;
  const double size = most.direction.stableNorm();
  if (!std::isfinite(size) || size == 0.0) return std::nullopt;
  return Told{most, turns};
}

}  // namespace

Problem tell_softest_motion(const Frame& frame, const Equations& equations,
                            const ScaledEquations& scaled) {
  Problem problem{Problem::Kind::mechanism, "the stiffness is singular", {}, {}};
  const auto motion = softest(scaled.matrix, shift);
  if (!motion) return problem;
  const auto told = most_of(frame, equations, scaled, *motion);
  if (!told) return problem;
  const auto& [moving, turns] = *told;
  const bool free = motion->softness < no_resistance;
  problem.text = node_names(frame, moving.nodes) + (turns ? " can rotate" : " can move") +
                 (free ? " freely" : " almost freely") + (turns ? " about " : " along ") +
                 axis_name(moving.direction) +
                 (free ? ": no element or support resists it"
                       : ": what resists is too soft for a certain result");
  problem.node = moving.nodes.front();
  return problem;
}

std::string tell_motion_near_zero(const Frame& frame, const Equations& equations,
                                  const ScaledEquations& scaled) {
  const auto motion = softest(scaled.matrix, 0.0);
  const auto told = motion ? most_of(frame, equations, scaled, *motion) : std::nullopt;
  if (!told) return "its stiffness is used up";
  const auto& [moving, turns] = *told;
  const std::string verb = moving.nodes.size() == 1 ? "s" : "";
  return node_names(frame, moving.nodes) + (turns ? " turn" : " move") + verb +
         (turns ? " about " : " along ") + axis_name(moving.direction);
}

}  // namespace aluframe::analysis
