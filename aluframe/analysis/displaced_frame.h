#pragma once

#include <memory>
#include <optional>
#include <vector>

#include "aluframe/analysis/cut_frame.h"
#include "aluframe/analysis/linear_solver.h"

namespace aluframe::analysis {

/// Where a cut frame is under a factor of its loads, in equilibrium or not.
struct FrameState {
  std::vector<Pose> nodes;
  double factor = 0.0;  ///< of the loads, temperatures and prescribed displacements
};

/// Steps in the free directions of a frame, by equation.
using Steps = Eigen::VectorXd;

/// Forces in a frame whose nodes have moved and turned by any amount, and its stiffness there.
class DisplacedFrame {
 public:
  /// Both must outlive the object.
  DisplacedFrame(const CutFrame& cut, const LoadCase& loads_on_pieces);

  const Equations& equations() const { return equations_; }
  FrameState undisplaced() const;

  /// The state with other loads, supports displaced accordingly.
  FrameState under(FrameState state, double factor) const;
  /// The state with its free directions displaced further.
  FrameState moved(FrameState state, const Steps& steps) const;

  struct Forces {
    std::vector<Vector12> on_pieces;   ///< acting ON each, its own loads included; global axes
    std::vector<double> axial_forces;  ///< of pieces, between the loads on their ends
    NodeValues unbalanced;  ///< what loads exert on nodes, less what pieces and springs take
    /// Of the largest force and moment of a load or a piece, and of what temperatures and displaced
    /// supports would exert on a frame that gives way nowhere.
    Norms scale;
  };
  /// @return nothing where pieces are deformed beyond what they can be
  std::optional<Forces> forces(const FrameState& state) const;

  struct Tangent {
    ScaledEquations scaled;
    Factorisation factorisation;
    int negative_pivots = 0;  ///< of the equations and of released ends; many when it is singular
  };
  /// Assembles and factorises the stiffness of the state. The last one solves.
  std::optional<Tangent> factorise(const FrameState& state);
  /// Solves for forces on nodes.
  Steps solve(const Tangent& tangent, const NodeValues& forces);

  /// The change of the unbalanced forces per unit of the load factor.
  std::optional<NodeValues> load_rate(const FrameState& state) const;

  /// Whether every piece deforms between two states as a step foresees at the first of them, by and
  /// large: a piece that does otherwise has gone to another branch of the path, however little it
  /// has moved beside others.
  /// @param steps foreseen of the free directions, with a change of the load factor
  bool deforms_as_foreseen(const FrameState& from, const Steps& steps, double factor_change,
                           const FrameState& to) const;

  /// Six values a node: displacements and rotation vectors.
  NodeValues displacements(const FrameState& state) const;
  NodeValues node_values(const Steps& steps) const;

 private:
  Norms held_forces() const;
  Norms scale_of(Norms scale, double factor) const;
  template <class Use>
  bool for_each_piece(const FrameState& state, CorotatedPiece::Wanted wanted, const Use& use) const;

  const CutFrame& cut_;
  Equations equations_;
  std::vector<Geometry> global_axes_;  // of pieces whose stiffness is in global axes already
  std::vector<CorotatedPiece> pieces_;
  std::vector<LoadedPiece> loads_;
  std::vector<Vector12> stiff_;  // diagonals that stiffness is measured by
  NodeValues nodal_, prescribed_;
  bool has_settlements_ = false;
  bool has_loads_ = false;  // forces on nodes or on pieces
  Norms held_;              // of temperatures and displaced supports, if nothing gave way
  Norms rounding_;          // of forces of pieces
  std::unique_ptr<LinearSolver> solver_;
};

}  // namespace aluframe::analysis
