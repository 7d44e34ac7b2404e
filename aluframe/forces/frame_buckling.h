#pragma once

#include <map>
#include <memory>
#include <optional>
#include <vector>

#include "aluframe/analysis/buckling.h"
#include "aluframe/forces/load_sets.h"
#include "aluframe/model/model.h"

namespace aluframe::forces {

/// Linear buckling of a model under sets of its load cases, by the axial forces of first order.
///
///     auto made = FrameBuckling::of(model);
///     auto found = std::get<FrameBuckling>(made).under({{place_of_case, 1.35}}, 1);
class FrameBuckling {
 public:
  /// Analyses the load cases, all of them; those without loads press nothing. The model must
  /// outlive the object.
  /// @return what stands in the way of the analysis, with the place of its load case
  static analysis::Result<FrameBuckling> of(const model::Model& model);

  /// The smallest factors of a set of loads, each set worked out once.
  /// @param modes how many factors, at least 1
  analysis::Result<analysis::BucklingResult> under(const LoadSet& set, int modes);

  /// The smallest factor of a set of loads and those near it.
  analysis::Result<analysis::BucklingResult> near(const LoadSet& set);

 private:
  /// Factors of load cases, and how many modes; nothing: those near the smallest.
  using Key = std::pair<std::vector<std::pair<std::size_t, double>>, std::optional<int>>;

  FrameBuckling() = default;

  analysis::Result<analysis::BucklingResult> find(const LoadSet& set, std::optional<int> modes);

  std::unique_ptr<analysis::Frame> frame_;
  std::vector<analysis::LoadCase> loads_;          ///< by place of the load case
  std::vector<std::vector<double>> axial_forces_;  ///< of each, by element, at its start
  std::unique_ptr<analysis::Buckling> buckling_;
  std::map<Key, analysis::BucklingResult> known_;
};

/// A problem of second order, and where the loads lie that have no equilibrium there: "...;
/// by forces of first order the factor of these loads is 0.834: nodes 2-3 move along X", without
/// what buckles where the problem has said it. Other
/// problems, and loads whose factor is not found, are left as they are.
analysis::Problem with_buckling_factor(analysis::Problem problem, const analysis::Frame& frame,
                                       const analysis::LoadCase& loads);

}  // namespace aluframe::forces
