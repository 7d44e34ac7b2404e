#include "aluframe/analysis/softest_mode.h"

#include <Eigen/Eigenvalues>

#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/analysis/mechanism.h"
#include "aluframe/analysis/motion_text.h"
#include "aluframe/analysis/symmetric_product.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

/// Added to the scaled diagonal, so that singular equations can be factorised. Far above rounding
/// and far below the stiffness of a restrained frame.
constexpr double shift = 1e-9;
constexpr int trial_modes = 4;
constexpr int iterations = 4;
/// Below this, rounding of the stiffness is all that resists.
constexpr double no_resistance = 1e-14;

SymmetricMatrix shifted(const SymmetricMatrix& matrix, double shift_by) {
  SymmetricMatrix result = matrix;
  for (int i = 1; i <= matrix.size; ++i) {
    result.rows.push_back(i);
    result.columns.push_back(i);
    result.values.push_back(shift_by);
  }
  return result;
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
  Columns modes = Eigen::Map<const Columns>(load.data(), matrix.size, count);
  for (int i = 0; i < iterations; ++i) {
    modes = orthonormal(modes);
    solver->solve({modes.data(), static_cast<std::size_t>(modes.size())});
  }
  modes = orthonormal(modes);
  const Eigen::SelfAdjointEigenSolver<Columns> reduced(modes.transpose() * times(matrix, modes));
  return SoftestMode{reduced.eigenvalues()[0], modes * reduced.eigenvectors().col(0)};
}

std::optional<DominantMotion> motion_of(const Frame& frame, const Equations& equations,
                                        const ScaledEquations& scaled, const SoftestMode& mode) {
  return dominant_motion(frame, node_values(mode.shape, equations, scaled.scale, frame));
}

/// How nodes move that little or nothing resists.
std::string soft_motion_text(const std::string& nodes, const std::string& axis, bool rotates,
                             bool free) {
  const char* const held_by_nothing =
      rotates
          ? texts::translatable("{} can rotate freely about {}: no element or support resists it")
          : texts::translatable("{} can move freely along {}: no element or support resists it");
  const char* const held_softly =
      rotates ? texts::translatable(
                    "{} can rotate almost freely about {}: what resists is too soft "
                    "for a certain result")
              : texts::translatable(
                    "{} can move almost freely along {}: what resists is too soft "
                    "for a certain result");
  return fmt::format(fmt::runtime(free ? held_by_nothing : held_softly), nodes, axis);
}

}  // namespace

Problem describe_softest_mode(const Frame& frame, const Equations& equations,
                              const ScaledEquations& scaled) {
  Problem problem{
      Problem::Kind::mechanism, texts::translatable("the stiffness is singular"), {}, {}};
  const auto mode = softest_mode(scaled.matrix, shift);
  if (!mode) return problem;
  const auto dominant = motion_of(frame, equations, scaled, *mode);
  if (!dominant) return problem;
  const auto& [nodes, direction, rotates] = *dominant;
  const bool free = mode->softness < no_resistance;
  problem.text = soft_motion_text(node_names(frame, nodes), axis_name(direction), rotates, free);
  problem.node = nodes.front();
  return problem;
}

std::optional<NodeValues> lost_motion(const Frame& frame, const Equations& equations,
                                      const ScaledEquations& scaled,
                                      const SymmetricMatrix& beyond) {
  const auto solver = make_solver();
  if (solver->factorise(scaled.matrix).status != Factorisation::Status::done) return std::nullopt;
  SymmetricMatrix lost = scaled.matrix;
  for (std::size_t i = 0; i < lost.values.size(); ++i) lost.values[i] -= beyond.values[i];
  const int count = std::min(trial_modes, lost.size);
  const std::vector<double> load = probing_load(lost.size * count);
  Columns modes = Eigen::Map<const Columns>(load.data(), lost.size, count);
  // What is lost by others is of the same size where it is not.
  constexpr int steps = 4 * iterations;
  for (int i = 0; i < steps; ++i) {
    modes = times(lost, orthonormal(modes));
    solver->solve({modes.data(), static_cast<std::size_t>(modes.size())});
  }
  modes = orthonormal(modes);
  const Eigen::GeneralizedSelfAdjointEigenSolver<Columns> reduced(
      modes.transpose() * times(lost, modes), modes.transpose() * times(scaled.matrix, modes));
  if (reduced.info() != Eigen::Success) return std::nullopt;
  const Eigen::VectorXd most = modes * reduced.eigenvectors().rightCols<1>();
  if (!most.allFinite()) return std::nullopt;
  return node_values(most, equations, scaled.scale, frame);
}

std::string describe_lost_motion(const Frame& frame, const Equations& equations,
                                 const ScaledEquations& scaled, const SymmetricMatrix& beyond) {
  const auto motion = lost_motion(frame, equations, scaled, beyond);
  const auto dominant = motion ? dominant_motion(frame, *motion) : std::nullopt;
  return dominant ? motion_text(frame, *dominant) : texts::translatable("its stiffness is used up");
}

}  // namespace aluframe::analysis
