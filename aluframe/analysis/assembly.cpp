#include "aluframe/analysis/assembly.h"

#include <cmath>

#include "aluframe/analysis/element_stiffness.h"
#include "aluframe/analysis/releases.h"

namespace aluframe::analysis {

namespace {

using Matrix6 = Eigen::Matrix<double, 6, 6, Eigen::RowMajor>;
using Vector6e = Eigen::Matrix<double, 6, 1>;

/// Stiffness as it grows: the 6 x 6 blocks of the nodes, and below them one block an element, which
/// stands in the rows of its later node. No exact zero inside a block is dropped.
class Blocks {
 public:
  Blocks(const Frame& frame, const Equations& equations)
      : frame_(frame),
        equations_(equations),
        diagonal_(frame.nodes.size(), Matrix6::Zero()),
        reference_(frame.nodes.size(), Vector6e::Zero()) {
    const std::size_t most = 21 * frame.nodes.size() + 36 * frame.elements.size();
    matrix_.rows.reserve(most);
    matrix_.columns.reserve(most);
    matrix_.values.reserve(most);
  }

  void add_element(std::size_t place, const Geometry& geometry, const ElementStiffness& stiffness);
  void add_spring(const Spring& spring);
  ScaledEquations finish();

 private:
  void add_entry(int row, int column, double value);
  void add_lower_half(std::size_t node);
  std::vector<double> scales() const;

  const Frame& frame_;
  const Equations& equations_;
  std::vector<Matrix6> diagonal_;
  std::vector<Vector6e> reference_;
  SymmetricMatrix matrix_;
};

/// Diagonal in global axes of a stiffness that is diagonal in local ones.
Vector6e global_diagonal(const Axes& axes, const Vector6e& local) {
  const Axes squares = axes.cwiseAbs2();
  Vector6e global;
  global.head<3>() = squares.transpose() * local.head<3>();
  global.tail<3>() = squares.transpose() * local.tail<3>();
  return global;
}

void Blocks::add_entry(int row, int column, double value) {
  matrix_.rows.push_back(row + 1);
  matrix_.columns.push_back(column + 1);
  matrix_.values.push_back(value);
}

void Blocks::add_element(std::size_t place, const Geometry& geometry,
                         const ElementStiffness& stiffness) {
  const Element& element = frame_.elements[place];
  const Matrix12 k = to_global(geometry.axes, stiffness.condensed);
  diagonal_[element.start] += k.topLeftCorner<6, 6>();
  diagonal_[element.end] += k.bottomRightCorner<6, 6>();
  reference_[element.start] += global_diagonal(geometry.axes, stiffness.unreleased.head<6>());
  reference_[element.end] += global_diagonal(geometry.axes, stiffness.unreleased.tail<6>());
  const int* starts = equations_.of_node(element.start);
  const int* ends = equations_.of_node(element.end);
  for (int i = 0; i < 6; ++i) {
    if (starts[i] < 0) continue;
    for (int j = 0; j < 6; ++j) {
      if (ends[j] < 0) continue;
      add_entry(std::max(starts[i], ends[j]), std::min(starts[i], ends[j]), k(i, 6 + j));
    }
  }
}

void Blocks::add_spring(const Spring& spring) {
  for (std::size_t i = 0; i < 6; ++i) {
    const auto at = static_cast<int>(i);
    diagonal_[spring.node](at, at) += spring.stiffness[i];
    reference_[spring.node][at] += spring.stiffness[i];
  }
}

void Blocks::add_lower_half(std::size_t node) {
  const int* rows = equations_.of_node(node);
  for (int i = 0; i < 6; ++i) {
    if (rows[i] < 0) continue;
    for (int j = 0; j <= i; ++j) {
      if (rows[j] >= 0) add_entry(rows[i], rows[j], diagonal_[node](i, j));
    }
  }
}

std::vector<double> Blocks::scales() const {
  std::vector<double> scale(static_cast<std::size_t>(equations_.count()));
  for (std::size_t i = 0; i < scale.size(); ++i) {
    const std::size_t place = equations_.dof(static_cast<int>(i));
    const double reference = reference_[place / 6][static_cast<int>(place % 6)];
    scale[i] = reference > 0.0 ? 1.0 / std::sqrt(reference) : 1.0;
  }
  return scale;
}

ScaledEquations Blocks::finish() {
  for (std::size_t node = 0; node < frame_.nodes.size(); ++node) add_lower_half(node);
  ScaledEquations result{std::move(matrix_), scales()};
  SymmetricMatrix& m = result.matrix;
  m.size = equations_.count();
  const auto scale = [&](int counted_from_one) {
    return result.scale[static_cast<std::size_t>(counted_from_one - 1)];
  };
  for (std::size_t i = 0; i < m.values.size(); ++i) {
    m.values[i] *= scale(m.rows[i]) * scale(m.columns[i]);
  }
  return result;
}

}  // namespace

StiffnessSource elastic_source(const Frame& frame, std::span<const Geometry> geometry) {
  return [&frame, geometry](std::size_t place, ElementStiffness& stiffness) {
    const Element& element = frame.elements[place];
    stiffness.condensed = elastic_stiffness(element, geometry[place].length);
    stiffness.unreleased = stiffness.condensed.diagonal();
    stiffness.rigid_rotation.setZero();
    Releases::condense(element.released, stiffness.condensed);
  };
}

ScaledEquations assemble(const Frame& frame, std::span<const Geometry> geometry,
                         const Equations& equations, const StiffnessSource& source) {
  Blocks blocks(frame, equations);
  ElementStiffness stiffness;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    source(i, stiffness);
    blocks.add_element(i, geometry[i], stiffness);
  }
  for (const Spring& spring : frame.springs) blocks.add_spring(spring);
  return blocks.finish();
}

}  // namespace aluframe::analysis
