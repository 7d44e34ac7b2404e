#pragma once

#include <vector>

#include "aluframe/analysis/load_case.h"
#include "aluframe/analysis/results.h"

namespace aluframe::analysis {

/// Equation of every direction of every node, in an order of elimination.
///
/// A direction has no equation when a support restrains it, and when nothing there can ever resist
/// it: the rotations of a node that only trusses meet, and all of a node that nothing meets. A
/// spring gives its direction an equation in any case.
class Equations {
 public:
  static constexpr int supported = -1;
  static constexpr int absent = -2;

  explicit Equations(const Frame& frame);

  int count() const { return count_; }
  /// Number from 0, or `supported`, or `absent`.
  int at(std::size_t node, std::size_t direction) const { return numbers_[6 * node + direction]; }
  /// Of the six directions of a node.
  const int* of_node(std::size_t node) const { return &numbers_[6 * node]; }
  /// Degree of freedom of equation i: 6·node + direction.
  std::size_t dof(int equation) const { return dofs_[static_cast<std::size_t>(equation)]; }

 private:
  std::vector<int> numbers_;
  std::vector<std::size_t> dofs_;
  int count_ = 0;
};

/// A load where neither stiffness nor support can take it: "node 5 is loaded with a moment about X,
/// but only trusses meet there".
std::optional<Problem> find_lost_load(const Frame& frame, const Equations& equations,
                                      const LoadCase& load_case);

}  // namespace aluframe::analysis
