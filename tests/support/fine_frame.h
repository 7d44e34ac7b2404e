#pragma once

#include <Eigen/Sparse>
#include <array>
#include <optional>
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

  /// The smallest factor of the loads at which the frame buckles, to 1e-4, and how.
  struct Mode {
    double factor = 0.0;
    /// By element of the frame: work of its axial force when it bends about its y and its z.
    std::vector<std::array<double, 2>> work;
    std::vector<double> compression;  ///< by element, the largest at the factor 1; 0 without
  };
  /// Nothing when no factor lies below a million.
  std::optional<Mode> first_mode() const;

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
    std::size_t element = 0;  ///< of the frame
  };

  void number_nodes(const Frame& frame);
  void add_member(const Frame& frame, const Element& element, const Vector3& load, int parts);
  void add_springs(const Frame& frame);
  Eigen::SparseMatrix<double> stiffness(double factor) const;
  void find_axial_forces();
  Eigen::VectorXd shape_near(double factor) const;
  Vector local_displacements(const Piece& piece, const Eigen::VectorXd& u) const;

  int count_ = 0;
  std::vector<std::array<int, 6>> of_node_;  ///< below 0: restrained
  std::vector<Piece> pieces_;
  std::vector<std::pair<int, double>> springs_;
  std::vector<double> loads_;
};

}  // namespace aluframe::analysis::verification
