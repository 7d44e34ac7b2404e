#include "aluframe/analysis/linear_recovery.h"

#include <algorithm>

namespace aluframe::analysis {

namespace {

/// Load cases of a batch, each in a column: the processor works on several numbers of a row at
/// once.
constexpr std::size_t batch_size = 4;
/// Elements of a block, recovered one after the other in the same cases: the memory of a case is
/// read in order, and their stiffnesses stay in the cache until all cases are recovered.
constexpr std::size_t block_size = 32;

template <int rows>
using Columns = Eigen::Matrix<double, rows, static_cast<int>(batch_size), Eigen::RowMajor>;

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
  const auto add_group = [&](const auto& dofs) {
    for (const int row : dofs) {
      Columns<1> sum = Columns<1>::Zero();
      for (const int column : dofs) sum += k(row, column) * u.row(column);
      forces.row(row) = sum;
    }
  };
  for (const auto& spring : springs) add_group(spring);
  add_group(dofs_y.dof);
  add_group(dofs_z.dof);
  return forces;
}

/// Local displacements of the ends; columns without a case are zero.
Columns<12> displacements(const Element& element, const Axes& axes,
                          std::span<const CaseRecovery> recoveries) {
  Columns<12> global;
  if (recoveries.size() < batch_size) global.setZero();
  for (std::size_t c = 0; c < recoveries.size(); ++c) {
    global.col(static_cast<int>(c)) = recoveries[c].displacements_of(element);
  }
  return to_local(axes, global);
}

/// One element of a block, and what is the same for it in all cases.
struct BlockElement {
  std::size_t element = 0;
  const Geometry* geometry = nullptr;
  ElementStiffness stiffness;
  std::span<const FixedEndEntry> fixed_end;  // in the cases that are not recovered yet
};

/// A batch of load cases, recovered at once.
struct Batch {
  std::size_t first = 0;  // index of the first among all cases
  std::span<CaseRecovery> recoveries;
  std::span<const LoadsByElement> loads;

  std::size_t index_of(const FixedEndEntry& entry) const { return entry.load_case - first; }
  Eigen::Index column_of(const FixedEndEntry& entry) const {
    return static_cast<Eigen::Index>(index_of(entry));
  }
};

/// Fixed-end forces of the element in the cases of the batch, taken from those not recovered yet.
std::span<const FixedEndEntry> take_fixed_end(const Batch& batch, BlockElement& current) {
  const std::size_t end = batch.first + batch.recoveries.size();
  std::size_t count = 0;
  while (count < current.fixed_end.size() && current.fixed_end[count].load_case < end) ++count;
  const auto taken = current.fixed_end.first(count);
  current.fixed_end = current.fixed_end.subspan(count);
  return taken;
}

Columns<30> sections_of(const Element& element, const BlockElement& current,
                        const Columns<12>& end_forces, std::span<const FixedEndEntry> fixed_end,
                        const Batch& batch) {
  Columns<30> sections;
  sections_of_ends(element.kind, current.geometry->length, end_forces, sections);
  for (const FixedEndEntry& entry : fixed_end) {
    const LoadsByElement& loads = batch.loads[batch.index_of(entry)];
    if (!loads.has_forces(current.element)) continue;
    const FivePositions between = sections_of_loads(element.kind, loads.of(current.element));
    sections.col(batch.column_of(entry)) += between.reshaped();
  }
  return sections;
}

void recover(const Element& element, BlockElement& current, const Batch& batch) {
  const Axes& axes = current.geometry->axes;
  const Columns<12> u = displacements(element, axes, batch.recoveries);
  const Columns<12> own = current.stiffness.unreleased.asDiagonal() * u;
  Columns<12> end_forces = product(current.stiffness.condensed, u);
  std::array<EndForceNorms, batch_size> norms{};
  const auto fixed_end = take_fixed_end(batch, current);
  for (const FixedEndEntry& entry : fixed_end) {
    end_forces.col(batch.column_of(entry)) += entry.condensed;
    norms[batch.index_of(entry)] = entry.unreleased;
  }
  const Columns<30> sections = sections_of(element, current, end_forces, fixed_end, batch);
  const Columns<12> global = to_global(axes, end_forces);
  for (std::size_t c = 0; c < batch.recoveries.size(); ++c) {
    const auto i = static_cast<Eigen::Index>(c);
    batch.recoveries[c].add(
        current.element, global.col(i), sections.col(i),
        magnitude_of(EndForceNorms::of(own.col(i)), norms[c], current.geometry->length));
  }
}

}  // namespace

Norms magnitude_of(const EndForceNorms& own, const EndForceNorms& fixed_end, double length) {
  const double shear = own.shear + fixed_end.shear, moment = own.moment + fixed_end.moment;
  return {std::max({own.axial + fixed_end.axial, shear, moment / length}),
          std::max(moment, shear * length)};
}

void recover_linear(const Frame& frame, std::span<const Geometry> geometry,
                    std::span<const LoadsByElement> loads, const FixedEndTable& fixed_end,
                    std::span<CaseRecovery> recoveries) {
  const StiffnessSource stiffness = elastic_source(frame, geometry);
  std::vector<BlockElement> block;
  for (std::size_t begin = 0; begin < frame.elements.size(); begin += block_size) {
    block.resize(std::min(block_size, frame.elements.size() - begin));
    for (std::size_t i = 0; i < block.size(); ++i) {
      block[i].element = begin + i;
      block[i].geometry = &geometry[begin + i];
      block[i].fixed_end = fixed_end.of(begin + i);
      stiffness(begin + i, block[i].stiffness);
    }
    for (std::size_t first = 0; first < recoveries.size(); first += batch_size) {
      const std::size_t count = std::min(batch_size, recoveries.size() - first);
      const Batch batch{first, recoveries.subspan(first, count), loads.subspan(first, count)};
      for (BlockElement& current : block) recover(frame.elements[current.element], current, batch);
    }
  }
}

}  // namespace aluframe::analysis
