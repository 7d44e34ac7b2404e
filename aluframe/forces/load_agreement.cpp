#include "aluframe/forces/load_agreement.h"

#include <algorithm>
#include <cmath>

#include "aluframe/forces/section_line.h"

namespace aluframe::forces {

namespace {

using Forces = std::array<double, 6>;

constexpr double half_of_third_digit = 0.005;
constexpr double left_over = 1e-6;

/// How far each component may be from what statics give.
Forces tolerances_of(const model::CaseForces& forces, double length) {
  Forces largest{};
  for (const model::SectionForces& at : forces.at) {
    for (std::size_t i = 0; i < largest.size(); ++i) {
      largest[i] = std::max(largest[i], std::abs(double{at[i]}));
    }
  }
  const double force = std::max({largest[0], largest[1], largest[2]});
  const double moment = std::max({largest[3], largest[4], largest[5], force * length});
  Forces out{};
  for (std::size_t i = 0; i < out.size(); ++i) {
    out[i] = half_of_third_digit * largest[i] + left_over * (i < 3 ? force : moment);
  }
  // A moment follows from a shear force, whose digits count as well.
  out[4] += half_of_third_digit * largest[2] * length;
  out[5] += half_of_third_digit * largest[1] * length;
  return out;
}

bool agree(const model::SectionForces& given, const Forces& expected, const Forces& tolerances) {
  for (std::size_t i = 0; i < expected.size(); ++i) {
    if (!(std::abs(double{given[i]} - expected[i]) <= tolerances[i])) return false;
  }
  return true;
}

}  // namespace

bool follow_from_loads(const model::CaseForces& forces, std::span<const SpanChange> changes,
                       double length) {
  const Forces tolerances = tolerances_of(forces, length);
  SectionLine line = SectionLine::from(forces.at[0]);
  double x = 0.0;
  auto next = changes.begin();
  const auto go_to = [&](double place) {
    line.advance(place - x);
    x = place;
  };
  const std::size_t step = forces.inner ? 1 : forces.at.size() - 1;
  for (std::size_t position = step; position < forces.at.size(); position += step) {
    const double place = length * static_cast<double>(position) / 4.0;
    for (; next != changes.end() && next->x < place; ++next) {
      go_to(next->x);
      line.add(*next, 1.0);
    }
    go_to(place);
    const Forces before = line.forces;
    for (; next != changes.end() && next->x <= place; ++next) line.add(*next, 1.0);
    // Where a force acts at a position, programs differ in the side that they give.
    const model::SectionForces& given = forces.at[position];
    if (!agree(given, before, tolerances) && !agree(given, line.forces, tolerances)) return false;
  }
  return true;
}

}  // namespace aluframe::forces
