#include "aluframe/analysis/linear_answer.h"

#include <algorithm>

namespace aluframe::analysis {

namespace {

/// Cases whose answers are computed together, each in a column: the processor works on several
/// numbers of a row at once.
constexpr std::size_t together = 4;
template <int rows>
using Columns = Eigen::Matrix<double, rows, static_cast<int>(together), Eigen::RowMajor>;

Columns<12> to_local(const Axes& axes, const Columns<12>& global) {
  Columns<12> local;
  for (int i = 0; i < 12; i += 3) {
    local.middleRows<3>(i).noalias() = axes.lazyProduct(global.middleRows<3>(i));
  }
  return local;
}

Columns<12> to_global(const Axes& axes, const Columns<12>& local) {
  Columns<12> global;
  for (int i = 0; i < 12; i += 3) {
    global.middleRows<3>(i).noalias() = axes.transpose().lazyProduct(local.middleRows<3>(i));
  }
  return global;
}

/// Components that act on each other: axial force, torsion and the two bending planes are apart,
/// with releases as well.
Columns<12> product(const Matrix12& k, const Columns<12>& u) {
  constexpr std::array<std::array<int, 2>, 2> springs{{{0, 6}, {3, 9}}};
  Columns<12> forces;
  const auto add_group = [&](const auto& places) {
    for (const int row : places) {
      Columns<1> sum = Columns<1>::Zero();
      for (const int column : places) sum += k(row, column) * u.row(column);
      forces.row(row) = sum;
    }
  };
  for (const auto& spring : springs) add_group(spring);
  add_group(places_y.place);
  add_group(places_z.place);
  return forces;
}

/// Local displacements of the ends; columns without a case are zero.
Columns<12> displacements(const Element& element, const Axes& axes,
                          std::span<const CaseRecovery> recoveries) {
  Columns<12> global;
  if (recoveries.size() < together) global.setZero();
  for (std::size_t c = 0; c < recoveries.size(); ++c) {
    global.col(static_cast<int>(c)) = recoveries[c].displacements_of(element);
  }
  return to_local(axes, global);
}

/// Answers of one element to as many cases as are computed together, or fewer.
void answer(const Frame& frame, std::size_t place, const Geometry& geometry,
            const ElementStiffness& k, const LoadedCases& cases) {
  const Element& element = frame.elements[place];
  const Columns<12> u = displacements(element, geometry.axes, cases.recoveries);
  Columns<12> end_forces = product(k.condensed, u);
  Columns<12> own = (k.unreleased.asDiagonal() * u).cwiseAbs();
  for (std::size_t c = 0; c < cases.clamped.size(); ++c) {
    if (!cases.clamped[c].is_loaded(place)) continue;
    const auto column = static_cast<int>(c);
    end_forces.col(column) += cases.clamped[c].condensed(place);
    own.col(column) += cases.clamped[c].unreleased(place).cwiseAbs();
  }
  Columns<30> sections;
  sections_of_ends(element.kind, geometry.length, end_forces, sections);
  const Columns<12> global = to_global(geometry.axes, end_forces);
  for (std::size_t c = 0; c < cases.recoveries.size(); ++c) {
    const auto column = static_cast<int>(c);
    if (cases.loads[c].has_forces(place)) {
      sections.col(column) += sections_of_loads(element.kind, cases.loads[c].of(place)).reshaped();
    }
    cases.recoveries[c].add(place, global.col(column), sections.col(column),
                            magnitude_of(own.col(column), geometry.length));
  }
}

}  // namespace

LoadedCases LoadedCases::part(std::size_t first, std::size_t most) const {
  const std::size_t count = std::min(most, recoveries.size() - first);
  return {loads.subspan(first, count), clamped.subspan(first, count),
          recoveries.subspan(first, count)};
}

void recover_linear(const Frame& frame, std::span<const Geometry> geometry,
                    const LoadedCases& cases) {
  const StiffnessSource stiffness = elastic_source(frame, geometry);
  ElementStiffness k;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    stiffness(i, k);
    for (std::size_t first = 0; first < cases.recoveries.size(); first += together) {
      answer(frame, i, geometry[i], k, cases.part(first, together));
    }
  }
}

}  // namespace aluframe::analysis
