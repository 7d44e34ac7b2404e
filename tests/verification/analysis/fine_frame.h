#pragma once

#include <Eigen/Sparse>
#include <vector>

#include "aluframe/analysis/load_case.h"

namespace aluframe::analysis::verification {

/// A frame cut into short cubic elements with consistent geometric stiffness (Przemieniecki, Theory
/// of Matrix Structural Analysis, 1968, chapter 15), apart from the analysis: released ends have
/// degrees of freedom of their own instead of being condensed, trusses are beams on hinges, and the
/// axial forces are those of its own linear solution. Nodal loads and uniform vertical loads on
/// elements.
class FineFrame {
 public:
  FineFrame(const Frame& frame, const LoadCase& loads, int parts);

  /// Negative eigenvalues of the stiffness under a factor of the loads: so many factors lie below.
  int factors_below(double factor) const;

 private:
  using Matrix = Eigen::Matrix<double, 12, 12>;
  using Vector = Eigen::Matrix<double, 12, 1>;
  /// A piece: how its local displacements follow from the degrees of freedom of the frame.
  struct Piece {
    std::vector<int> dofs;
    Eigen::MatrixXd to_local;   ///< 12 rows
    Matrix elastic, geometric;  ///< the latter under a tension of 1
    double axial_force = 0.0;
  };

  void number_nodes(const Frame& frame);
  void add_member(const Frame& frame, const Element& element, const Vector3& load, int parts);
  void add_springs(const Frame& frame);
  Eigen::SparseMatrix<double> stiffness(double factor) const;
  void find_axial_forces();

  int count_ = 0;
  std::vector<std::array<int, 6>> of_node_;  ///< below 0: restrained
  std::vector<Piece> pieces_;
  std::vector<std::pair<int, double>> springs_;
  std::vector<double> loads_;
};

}  // namespace aluframe::analysis::verification
