#include "aluframe/analysis/linear_answer.h"

#include <algorithm>

namespace aluframe::analysis {

namespace {

/// Cases whose answers are computed together, each in a column: the processor works on several
/// numbers of a row at once.
constexpr std::size_t together = 4;
/// Elements that answer one after the other to the same cases: the memory of a case is walked
/// along, and their stiffnesses stay in the cache until all cases are answered.
constexpr std::size_t of_block = 32;

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

/// One element, and what is the same for it in all cases.
struct Place {
  std::size_t element = 0;
  const Geometry* geometry = nullptr;
  ElementStiffness stiffness;
  std::span<const ClampedElement> clamped;  // in the cases that are not answered yet
};

/// Cases that an element answers together.
struct Group {
  std::size_t first = 0;  // place of the first among all cases
  std::span<CaseRecovery> recoveries;
  std::span<const LoadsByElement> loads;

  std::size_t place_of(const ClampedElement& held) const { return held.load_case - first; }
  Eigen::Index column_of(const ClampedElement& held) const {
    return static_cast<Eigen::Index>(place_of(held));
  }
};

/// The element in the cases of the group that load it, which it takes from those not answered yet.
std::span<const ClampedElement> take_clamped(const Group& group, Place& place) {
  const std::size_t end = group.first + group.recoveries.size();
  std::size_t count = 0;
  while (count < place.clamped.size() && place.clamped[count].load_case < end) ++count;
  const auto taken = place.clamped.first(count);
  place.clamped = place.clamped.subspan(count);
  return taken;
}

Columns<30> sections_of(const Element& element, const Place& place, const Columns<12>& end_forces,
                        std::span<const ClampedElement> clamped, const Group& group) {
  Columns<30> sections;
  sections_of_ends(element.kind, place.geometry->length, end_forces, sections);
  for (const ClampedElement& held : clamped) {
    const LoadsByElement& loads = group.loads[group.place_of(held)];
    if (!loads.has_forces(place.element)) continue;
    const FivePositions between = sections_of_loads(element.kind, loads.of(place.element));
    sections.col(group.column_of(held)) += between.reshaped();
  }
  return sections;
}

void answer(const Element& element, Place& place, const Group& group) {
  const Axes& axes = place.geometry->axes;
  const Columns<12> u = displacements(element, axes, group.recoveries);
  const Columns<12> own = place.stiffness.unreleased.asDiagonal() * u;
  Columns<12> end_forces = product(place.stiffness.condensed, u);
  std::array<EndSizes, together> sizes{};
  const auto clamped = take_clamped(group, place);
  for (const ClampedElement& held : clamped) {
    end_forces.col(group.column_of(held)) += held.condensed;
    sizes[group.place_of(held)] = held.unreleased;
  }
  const Columns<30> sections = sections_of(element, place, end_forces, clamped, group);
  const Columns<12> global = to_global(axes, end_forces);
  for (std::size_t c = 0; c < group.recoveries.size(); ++c) {
    const auto i = static_cast<Eigen::Index>(c);
    group.recoveries[c].add(
        place.element, global.col(i), sections.col(i),
        magnitude_of(EndSizes::of(own.col(i)), sizes[c], place.geometry->length));
  }
}

}  // namespace

Norms magnitude_of(const EndSizes& own, const EndSizes& clamped, double length) {
  const double shear = own.shear + clamped.shear, moment = own.moment + clamped.moment;
  return {std::max({own.axial + clamped.axial, shear, moment / length}),
          std::max(moment, shear * length)};
}

void recover_linear(const Frame& frame, std::span<const Geometry> geometry,
                    std::span<const LoadsByElement> loads, const ClampedElements& clamped,
                    std::span<CaseRecovery> recoveries) {
  const StiffnessSource stiffness = elastic_source(frame, geometry);
  std::vector<Place> block;
  for (std::size_t begin = 0; begin < frame.elements.size(); begin += of_block) {
    block.resize(std::min(of_block, frame.elements.size() - begin));
    for (std::size_t i = 0; i < block.size(); ++i) {
      block[i].element = begin + i;
      block[i].geometry = &geometry[begin + i];
      block[i].clamped = clamped.of(begin + i);
      stiffness(begin + i, block[i].stiffness);
    }
    for (std::size_t first = 0; first < recoveries.size(); first += together) {
      const std::size_t count = std::min(together, recoveries.size() - first);
      const Group group{first, recoveries.subspan(first, count), loads.subspan(first, count)};
      for (Place& place : block) answer(frame.elements[place.element], place, group);
    }
  }
}

}  // namespace aluframe::analysis
