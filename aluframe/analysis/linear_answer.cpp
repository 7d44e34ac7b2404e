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

/// Cases that one element answers together.
struct Group {
  std::size_t first = 0;  // place of the first among all cases
  std::span<CaseRecovery> recoveries;
  std::span<const ClampedElement> clamped;  // the element, in those that load it

  Eigen::Index column(const ClampedElement& held) const {
    return static_cast<Eigen::Index>(held.load_case - first);
  }
};

/// The next group, whose clamped ends it takes away from the front of those that are left.
Group next_group(std::size_t first, std::span<CaseRecovery> recoveries,
                 std::span<const ClampedElement>& left) {
  const std::size_t count = std::min(together, recoveries.size() - first);
  std::size_t loaded = 0;
  while (loaded < left.size() && left[loaded].load_case < first + count) ++loaded;
  const Group group{first, recoveries.subspan(first, count), left.first(loaded)};
  left = left.subspan(loaded);
  return group;
}

/// One element, and what is the same for it in all cases.
struct Place {
  std::size_t element = 0;
  ElementKind kind = ElementKind::beam;
  const Geometry& geometry;
  const ElementStiffness& stiffness;
};

Columns<30> sections_of(const Place& place, const Columns<12>& end_forces,
                        std::span<const LoadsByElement> loads, const Group& group) {
  Columns<30> sections;
  sections_of_ends(place.kind, place.geometry.length, end_forces, sections);
  for (const ClampedElement& held : group.clamped) {
    const LoadsByElement& of_case = loads[held.load_case];
    if (!of_case.has_forces(place.element)) continue;
    const FivePositions between = sections_of_loads(place.kind, of_case.of(place.element));
    sections.col(group.column(held)) += between.reshaped();
  }
  return sections;
}

void answer(const Place& place, const Columns<12>& u, std::span<const LoadsByElement> loads,
            const Group& group) {
  const Columns<12> own = place.stiffness.unreleased.asDiagonal() * u;
  Columns<12> end_forces = product(place.stiffness.condensed, u);
  std::array<EndSizes, together> clamped{};
  for (const ClampedElement& held : group.clamped) {
    end_forces.col(group.column(held)) += held.condensed;
    clamped[held.load_case - group.first] = held.unreleased;
  }
  const Columns<30> sections = sections_of(place, end_forces, loads, group);
  const Columns<12> global = to_global(place.geometry.axes, end_forces);
  for (std::size_t c = 0; c < group.recoveries.size(); ++c) {
    const auto i = static_cast<Eigen::Index>(c);
    group.recoveries[c].add(
        place.element, global.col(i), sections.col(i),
        magnitude_of(EndSizes::of(own.col(i)), clamped[c], place.geometry.length));
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
  ElementStiffness k;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    stiffness(i, k);
    const Element& element = frame.elements[i];
    const Place place{i, element.kind, geometry[i], k};
    std::span<const ClampedElement> left = clamped.of(i);
    for (std::size_t first = 0; first < recoveries.size(); first += together) {
      const Group group = next_group(first, recoveries, left);
      answer(place, displacements(element, geometry[i].axes, group.recoveries), loads, group);
    }
  }
}

}  // namespace aluframe::analysis
