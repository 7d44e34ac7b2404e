#pragma once

#include <Eigen/Dense>
#include <memory>
#include <span>
#include <vector>

#include "aluframe/analysis/element_shape.h"
#include "aluframe/analysis/results.h"
#include "aluframe/analysis/second_order.h"
#include "aluframe/deflections/deflection_search.h"

namespace aluframe::deflections {

/// How elements are displaced across their axes under several states, one a column.
struct Shapes {
  std::vector<double> bounds;  ///< of the pieces, mm from the start of the element
  /// Twelve rows a piece: Bernstein coefficients along local y, then along z, mm.
  Eigen::MatrixXd across;
};

/// The displacements of a frame under several states.
class Displacements {
 public:
  virtual ~Displacements() = default;
  virtual const std::vector<model::Number>& combinations() const = 0;  ///< by state
  virtual Eigen::Matrix3Xd of_node(std::size_t node) const = 0;        ///< global axes, mm
  virtual Shapes of_element(std::size_t element) const = 0;
  /// Whether they are too large for how they were found.
  virtual bool are_too_large() const { return false; }
};

/// In first order, under all states at once.
/// @param known of `find_deflections`; it must outlive what is returned
/// @return what stands in the way of the analysis
analysis::Result<std::unique_ptr<Displacements>> linear_displacements(
    const model::Model& model, const std::vector<State>& states,
    const forces::CaseDisplacements* known);

/// In second order, under one state.
analysis::Result<std::unique_ptr<Displacements>> second_order_displacements(
    const model::Model& model, const State& state);

/// Of any size, under one state: of nodes alone, elements have no shapes.
analysis::Result<std::unique_ptr<Displacements>> large_displacements(const model::Model& model,
                                                                     const State& state);

}  // namespace aluframe::deflections
