#pragma once

#include "aluframe/analysis/initial_shapes.h"
#include "aluframe/analysis/shape_work.h"

namespace aluframe::analysis {

/// What a frame is out of true by, its signs taken so that everything adds: sway by the
/// displacements of first order, then the mode by those with sway, then the bows by those with
/// both. Each wants one more solution.
class InitialState {
 public:
  InitialState(const Frame& frame, std::span<const Geometry> geometry, const LoadCase& loads,
               const Imperfections& imperfections);

  bool is_complete() const { return stages_.empty(); }
  bool wants_axial_forces() const { return imperfections_.mode > 0.0; }
  /// Adds what comes next, by the last solution; nothing when all is there.
  /// @param first_axial_forces of first order, cleared of rounding, where it wants them
  /// @return why the mode cannot be had
  std::optional<Problem> add_next(const DisplacedFrame& displaced,
                                  std::span<const double> first_axial_forces);

  bool is_straight() const { return slopes_.empty(); }
  bool is_straight(std::size_t element) const {
    return is_straight() || (slopes_[element][0].is_zero() && slopes_[element][1].is_zero());
  }
  const InitialSlopes& of(std::size_t element) const {
    return is_straight() ? straight_ : slopes_[element];
  }
  InitialCurvatures curvatures() const;

 private:
  enum class Stage { sway, mode, bow };

  std::vector<InitialShape> swayed() const;
  std::vector<InitialShape> bowed() const;
  Result<std::vector<InitialShape>> of_mode(std::span<const double> axial_forces) const;
  Result<std::vector<InitialShape>> shapes_of(Stage stage,
                                              std::span<const double> axial_forces) const;

  const Frame& frame_;
  std::span<const Geometry> geometry_;
  const LoadCase& loads_;
  const Imperfections& imperfections_;
  std::vector<Stage> stages_;  // still to come, the next one last
  InitialSlopes straight_;
  std::vector<InitialSlopes> slopes_;
};

}  // namespace aluframe::analysis
