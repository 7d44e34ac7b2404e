#pragma once

#include <optional>

#include "aluframe/analysis/displaced_frame.h"
#include "aluframe/analysis/equilibrium.h"

namespace aluframe::analysis {

/// How the path of equilibrium ends that a frame takes while its loads grow.
enum class PathEnd {
  reached,           ///< in equilibrium under the loads that were asked for
  limit_point,       ///< the loads have a maximum: beyond it the frame snaps through
  bifurcation,       ///< another equilibrium branches off: the frame buckles
  element_buckling,  ///< a truss reaches its own buckling load between its nodes
  rounding,          ///< no equilibrium is found, because rounding leaves too much unbalanced
  lost               ///< no equilibrium was found further on, however short the steps
};

/// Follows the equilibrium of a frame from no load, in steps so short that it cannot jump to
/// another one: a step whose corrections are more than a share of it is halved. Steps are of a
/// length along the path, of displacements and loads (Riks, Int. J. Solids Structures 15 (1979)
/// 529; normal plane), so that limit points are passed; the last one ends at the load factor.
/// Negative pivots of the stiffness tell that a critical point was passed, which is then closed in
/// by bisection.
class EquilibriumPath {
 public:
  /// All must outlive the object; `frame` is that of `cut`, before the cuts.
  EquilibriumPath(const Frame& frame, const CutFrame& cut, DisplacedFrame& displaced);

  struct End {
    PathEnd how = PathEnd::lost;
    double factor = 0.0;  ///< of the loads; of a critical point certain to 1e-4 of itself
    FrameState state;     ///< the last one in stable equilibrium
    SymmetricMatrix stiffness = {};  ///< there, scaled
    std::vector<double> scale = {};
    SymmetricMatrix beyond = {};  ///< the same just beyond a critical point of the stiffness
    std::optional<std::size_t> element = std::nullopt;  ///< that buckles between its nodes
    int iterations = 0;
    double residual = 0.0;  ///< unbalanced share at the last state
  };

  /// @param target load factor to go to, positive
  End follow(double target);

  /// The largest unbalanced share at the nodes of the pieces; the estimated error of the forces.
  double residual_of(const DisplacedFrame::Forces& forces) const;

 private:
  /// A state in equilibrium, and where the path goes on from it.
  struct Point {
    FrameState state;
    DisplacedFrame::Tangent tangent;
    Steps rate;              ///< of the free directions per unit of the load factor
    double direction = 1.0;  ///< of the load factor
    int critical = 0;        ///< negative pivots and trusses beyond their own buckling loads
    std::optional<std::size_t> buckled;
  };
  enum class Control { load, arc };

  std::optional<Point> point_at(FrameState state, const Steps* way);
  std::optional<FrameState> correct(const Point& from, double change, Control control);
  std::optional<Point> advance(const Point& from, double length, double target);
  double square(const Steps& steps, double factor) const;
  double speed(const Point& point) const;
  double cosine(const Point& a, const Point& b) const;
  std::optional<std::size_t> find_buckled(const DisplacedFrame::Forces& forces) const;
  End end_of(PathEnd how, Point&& point, double factor);

  const Frame& frame_;
  const CutFrame& cut_;
  DisplacedFrame& displaced_;
  Lengths lengths_;
  Steps weights_;  // of steps in their norm
  double factor_weight_ = 1.0;
  Steps way_;                // of the last step
  double correction_ = 0.0;  // its share that was corrected
  int iterations_ = 0;
  bool is_rounding_ = false;  // what the last step that failed is left with
};

}  // namespace aluframe::analysis
