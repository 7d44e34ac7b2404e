#include "aluframe/forces/bowed_line.h"

#include <algorithm>
#include <cmath>
#include <vector>

namespace aluframe::forces {

namespace {

/// Places of the shear force and the moment of a plane among the six components.
constexpr std::array<std::size_t, 2> shear_of{2, 1}, moment_of{4, 5};
/// Parts of a quarter that rounding leaves.
constexpr double same_place = 1e-9;
/// An axial force that cancels itself over a quarter, but for this part, does not show the slope.
constexpr double least_part = 0.1;

/// 1/(k + 1)
constexpr Series reciprocals = [] {
  Series out{};
  for (std::size_t k = 0; k < out.size(); ++k) out[k] = 1.0 / static_cast<double>(k + 1);
  return out;
}();

}  // namespace

BowedLine::BowedLine(const Planes& planes, double length, const model::CaseForces& five,
                     std::span<const FactoredChange> changes)
    : SectionLine(SectionLine::from(five.at[0])), planes_(planes), quarter_(length / 4.0) {
  find_rotations(five, changes);
  rotations_ = rotations_of_quarters_[0];
}

/// The rotation at the start of each quarter with which the moment at its end is the known one; it
/// depends on the rotation linearly.
void BowedLine::find_rotations(const model::CaseForces& five,
                               std::span<const FactoredChange> changes) {
  BowedLine line = *this;
  std::size_t next = 0;
  for (std::size_t i = 0; i < rotations_of_quarters_.size(); ++i) {
    const double end = quarter_ * static_cast<double>(i + 1);
    line.add_here(changes, next);
    BowedLine flat = line, turned = line;
    flat.rotations_ = {0.0, 0.0};
    turned.rotations_ = {1.0, 1.0};
    std::size_t next_of_flat = next, next_of_turned = next;
    flat.go_to(end, changes, next_of_flat);
    turned.go_to(end, changes, next_of_turned);
    const double axial = std::max(std::abs(line.forces[0]), std::abs(flat.forces[0]));
    for (std::size_t plane = 0; plane < planes_.size(); ++plane) {
      const std::size_t m = moment_of[plane];
      const double by_rotation = turned.forces[m] - flat.forces[m];
      if (!(std::abs(by_rotation) > least_part * axial * quarter_)) continue;
      line.rotations_[plane] = (double{five.at[i + 1][m]} - flat.forces[m]) / by_rotation;
    }
    rotations_of_quarters_[i] = line.rotations_;
    line.go_to(end, changes, next);
  }
}

/// Adds the changes at the place of the line.
void BowedLine::add_here(std::span<const FactoredChange> changes, std::size_t& next) {
  for (; next < changes.size() && changes[next].change->x <= x_; ++next) {
    add(*changes[next].change, changes[next].factor);
  }
}

/// Up to x within a quarter, with all changes on the way but those at x itself.
void BowedLine::go_to(double x, std::span<const FactoredChange> changes, std::size_t& next) {
  while (x_ < x) {
    const double stop = next < changes.size() ? std::min(changes[next].change->x, x) : x;
    const double left = stop - x_, piece = std::min(left, longest_series(left));
    move(piece);
    if (piece == left) x_ = stop;
    if (x_ < x) add_here(changes, next);
  }
}

/// As far as no solution of the equations changes by more than a factor of e.
double BowedLine::longest_series(double length) const {
  const double axial =
      std::abs(forces[0]) + length * (std::abs(rate[0]) + length / 2.0 * std::abs(slope[0]));
  double longest = length;
  for (const BowedPlane& plane : planes_) {
    if (axial > 0.0) longest = std::min(longest, std::sqrt(plane.ei / axial));
  }
  return longest;
}

double BowedLine::longest_piece(double length) const {
  const double next_quarter = quarter_ * (std::floor(x_ / quarter_ + same_place) + 1.0);
  return std::min(longest_series(length), next_quarter - x_);
}

/// Curvature before the element is loaded, in powers of the distance from here.
Series BowedLine::initial_curvature(std::size_t plane) const {
  const std::span<const float> powers = planes_[plane].initial;
  Series out{};
  if (powers.empty()) return out;
  const double half = 2.0 * quarter_, here = x_ / half - 1.0;
  std::vector<double> around(powers.begin(), powers.end());
  double scale = 1.0;
  for (std::size_t k = 0; k < std::min(around.size(), out.size()); ++k) {
    for (std::size_t j = around.size() - 1; j-- > k;) around[j] += here * around[j + 1];
    out[k] = around[k] * scale;
    scale /= half;
  }
  return out;
}

BowedLine::Bow BowedLine::bow_of(std::size_t plane) const {
  const auto& [ei, gas, curvature, initial] = planes_[plane];
  const Series bowed = initial_curvature(plane);
  const std::size_t v = shear_of[plane];
  const std::array<double, 3> axial{forces[0], rate[0], slope[0] / 2.0};
  const std::array<double, 3> shear{forces[v], rate[v], slope[v] / 2.0};
  const double flexibility = 1.0 / ei;
  const double by_shear = gas > 0.0 ? gas / (gas + forces[0]) : 1.0;
  Bow bow;
  Series &r = bow.rotation, &m = bow.moment;
  r[0] = rotations_[plane];
  m[0] = forces[moment_of[plane]];
  for (std::size_t k = 0; k + 1 < m.size(); ++k) {
    double growth = k < shear.size() ? shear[k] : 0.0;
    for (std::size_t j = 0; j < axial.size() && j <= k; ++j) growth += axial[j] * r[k - j];
    m[k + 1] = growth * by_shear * reciprocals[k];
    r[k + 1] = (m[k] * flexibility + bowed[k] + (k == 0 ? curvature : 0.0)) * reciprocals[k];
  }
  return bow;
}

std::array<double, 6> BowedLine::forces_after(double distance) const {
  std::array<double, 6> out = SectionLine::forces_after(distance);
  for (std::size_t plane = 0; plane < planes_.size(); ++plane) {
    out[moment_of[plane]] = value_of(bow_of(plane).moment, distance);
  }
  return out;
}

void BowedLine::move(double distance) {
  const std::array<Bow, 2> bows{bow_of(0), bow_of(1)};
  SectionLine::advance(distance);
  for (std::size_t plane = 0; plane < bows.size(); ++plane) {
    forces[moment_of[plane]] = value_of(bows[plane].moment, distance);
    rotations_[plane] = value_of(bows[plane].rotation, distance);
  }
  x_ += distance;
}

void BowedLine::advance(double distance) {
  move(distance);
  const double quarters = x_ / quarter_, nearest = std::round(quarters);
  if (nearest > 3.0 || std::abs(quarters - nearest) > same_place) return;
  x_ = nearest * quarter_;
  rotations_ = rotations_of_quarters_[static_cast<std::size_t>(nearest)];
}

}  // namespace aluframe::forces
