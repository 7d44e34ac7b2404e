#include "aluframe/analysis/beam_column_segment.h"

#include <algorithm>
#include <cmath>
#include <span>

namespace aluframe::analysis {

namespace {

/// Powers after which nothing is left of any series on a segment that is short enough.
constexpr int most_powers = 200;
constexpr double negligible = 1e-19;

/// 1/(k+1).
constexpr auto over_next = [] {
  std::array<double, most_powers> values{};
  for (int k = 0; k < most_powers; ++k) values[static_cast<std::size_t>(k)] = 1.0 / (k + 1);
  return values;
}();

double integral(std::span<const double> polynomial, double to) {
  double sum = 0.0;
  for (std::size_t k = polynomial.size(); k-- > 0;) {
    sum = sum * to + polynomial[k] / static_cast<double>(k + 1);
  }
  return to * sum;
}

/// The axial force times the initial slope of the piece, in powers of the distance from its start.
std::vector<double> lean_of(const SegmentPiece& piece, const std::array<double, 3>& axial,
                            double unit) {
  if (piece.initial == nullptr || piece.initial->is_zero()) return {};
  const double half = piece.whole / 2.0;
  const InitialSlope::Powers slope = piece.initial->around(piece.from / half - 1.0, unit / half);
  std::vector<double> lean(piece.initial->terms() + axial.size() - 1, 0.0);
  for (std::size_t i = 0; i < piece.initial->terms(); ++i) {
    for (std::size_t j = 0; j < axial.size(); ++j) lean[i + j] += slope[i] * axial[j];
  }
  return lean;
}

}  // namespace

void complete_by_statics(const Vector4& rigid_rotation, double length, Matrix4& k) {
  for (const int rotation : {1, 3}) {
    const double force = (rigid_rotation[rotation] - k(rotation, 1) - k(rotation, 3)) / length;
    k(rotation, 2) = k(2, rotation) = force;
    k(rotation, 0) = k(0, rotation) = -force;
  }
  const double force = (rigid_rotation[2] - k(2, 1) - k(2, 3)) / length;
  k(0, 0) = k(2, 2) = force;
  k(0, 2) = k(2, 0) = -force;
}

BeamColumnSegment::BeamColumnSegment(const BendingPlane& plane, std::vector<SegmentPiece> pieces,
                                     double curvature)
    : plane_(plane),
      curvature_(curvature * plane.length),
      shear_(plane.shear / 12.0),
      is_loaded_(curvature != 0.0) {
  for (const SegmentPiece& piece : pieces) {
    const Coefficients& own = pieces_.emplace_back(coefficients_of(piece));
    mean_axial_ += integral(own.axial, own.length);
    is_uneven_ = is_uneven_ || own.axial != pieces_.front().axial || own.axial[1] != 0.0 ||
                 own.axial[2] != 0.0;
    is_loaded_ = is_loaded_ || own.is_loaded();
  }
  if (!is_uneven_) mean_axial_ = pieces_.front().axial[0];
  by_moment_ = at_end({.moment = 1.0});
  by_across_ = at_end({.across = 1.0});
}

BeamColumnSegment::Coefficients BeamColumnSegment::coefficients_of(
    const SegmentPiece& piece) const {
  const double length = plane_.length, ei = plane_.ei;
  const double axial_unit = ei / (length * length), load_unit = axial_unit / length;
  const double own = piece.length / length;
  const SpanAxialForce& n = piece.axial;
  const std::array<double, 3> axial{n.start / axial_unit,
                                    (n.end - n.start + 4.0 * n.bow) / own / axial_unit,
                                    -4.0 * n.bow / (own * own) / axial_unit};
  return {.length = own,
          .axial = axial,
          .load = {piece.across_start / load_unit,
                   (piece.across_end - piece.across_start) / own / load_unit, 0.0},
          .force_at_end = piece.force_at_end / axial_unit,
          .moment_at_end = piece.moment_at_end * length / ei,
          .lean = lean_of(piece, axial, length)};
}

/// Coefficients of all powers follow from those before.
void BeamColumnSegment::advance(const Coefficients& piece, const Start& start, double distance,
                                State& state) const {
  const auto& [n0, n1, n2] = piece.axial;
  std::array<double, 3> across{state.across, 0.0, 0.0};
  if (start.has_loads) {
    across[1] -= piece.load[0];
    across[2] -= piece.load[1] / 2.0;
  }
  if (start.has_uneven_axial_force) {
    across[0] += mean_axial_ - n0;
    across[1] -= n1;
    across[2] -= n2;
  }
  const double by_shear = 1.0 / (1.0 + shear_ * n0);
  const std::span<const double> lean =
      start.has_loads ? std::span<const double>(piece.lean) : std::span<const double>();
  double rotation = state.rotation, moment = state.moment;
  double slope_1 = 0.0, slope_2 = 0.0;  // of the powers one and two below
  double power = 1.0;
  State sum{state.deflection, rotation, moment, state.across, state.bowing};
  int settled = 0;
  for (int k = 0; k < most_powers && settled < 3; ++k) {
    const auto at = static_cast<std::size_t>(k);
    const double by_lean = at < lean.size() ? lean[at] : 0.0;
    const double force = (k < 3 ? across[at] : 0.0) - by_lean;
    const double earlier = n1 * slope_1 + n2 * slope_2;
    const double slope = (rotation + shear_ * (force - earlier)) * by_shear;
    const double bowing = n0 * slope + earlier;
    const double next = over_next[at];
    const double bend = k == 0 && start.has_loads ? moment + curvature_ : moment;
    rotation = bend * next;
    moment = (bowing - force) * next;
    slope_2 = slope_1;
    slope_1 = slope;
    power *= distance;
    const double deflected = slope * next * power;
    sum.deflection += deflected;
    sum.rotation += rotation * power;
    sum.moment += moment * power;
    sum.bowing += bowing * next * power;
    const double size = std::abs(sum.deflection) + std::abs(sum.rotation) + std::abs(sum.moment);
    const double grown =
        std::abs(deflected) + std::abs(rotation * power) + std::abs(moment * power);
    settled = grown <= negligible * size && at + 1 >= lean.size() ? settled + 1 : 0;
  }
  sum.bowing += integral(lean, distance);
  if (start.has_loads) sum.across -= integral(piece.load, distance);
  state = sum;
}

/// @param place part of the length; beyond 1: the very end, with the point load there
BeamColumnSegment::State BeamColumnSegment::at_place(const Start& start, double place) const {
  State state{0.0, start.rotation, start.moment, start.across, 0.0};
  double from = 0.0;
  for (const Coefficients& piece : pieces_) {
    advance(piece, start, std::min(piece.length, place - from), state);
    from += piece.length;
    if (place <= from) break;
    if (!start.has_loads) continue;
    state.across -= piece.force_at_end;
    state.moment -= piece.moment_at_end;
  }
  return state;
}

/// Moment and force across at the start that give the end a deflection and a rotation.
Eigen::Vector2d BeamColumnSegment::start_for(double deflection, double rotation) const {
  const double determinant =
      by_moment_.deflection * by_across_.rotation - by_across_.deflection * by_moment_.rotation;
  return Eigen::Vector2d(by_across_.rotation * deflection - by_across_.deflection * rotation,
                         by_moment_.deflection * rotation - by_moment_.rotation * deflection) /
         determinant;
}

/// Forces acting ON the segment at its two ends, which bring the end back to rest.
Vector4 BeamColumnSegment::restoring_forces(const Start& start) const {
  const State end = at_end(start);
  const Eigen::Vector2d more = start_for(-end.deflection, -end.rotation);
  const double across = by_moment_.across * more[0] + by_across_.across * more[1];
  const double moment = by_moment_.moment * more[0] + by_across_.moment * more[1];
  const double length = plane_.length;
  return plane_.ei / length *
         Vector4(-(start.across + more[1]) / length, -(start.moment + more[0]),
                 (end.across + across) / length, end.moment + moment);
}

Matrix4 BeamColumnSegment::stiffness() const {
  const double unit = plane_.ei / plane_.length;
  const State by_rotation = at_end({.rotation = 1.0});
  const Eigen::Vector2d of_start = start_for(-by_rotation.deflection, -by_rotation.rotation);
  const Eigen::Vector2d of_end = start_for(0.0, 1.0);
  Matrix4 k;
  k(1, 1) = -unit * of_start[0];
  k(1, 3) = k(3, 1) = -unit * of_end[0];
  k(3, 3) = unit * (by_moment_.moment * of_end[0] + by_across_.moment * of_end[1]);
  complete_by_statics(rigid_rotation(), plane_.length, k);
  return k;
}

Vector4 BeamColumnSegment::fixed_end() const {
  if (!is_loaded_) return Vector4::Zero();
  return restoring_forces({.has_loads = true});
}

/// Beside the line turned as a rigid body, which takes the mean axial force across, it deflects
/// where the axial force differs from its mean.
Vector4 BeamColumnSegment::rigid_rotation() const {
  const double by_mean = mean_axial_ * plane_.ei / (plane_.length * plane_.length);
  const Vector4 mean = by_mean * Vector4(-1.0, 0.0, 1.0, 0.0);
  if (!is_uneven_) return mean;
  return mean + restoring_forces({.has_uneven_axial_force = true});
}

/// The start that displaces both ends as given, under the loads.
BeamColumnSegment::Start BeamColumnSegment::start_between(const Vector4& ends) const {
  Start start{.rotation = ends[1], .has_loads = true};
  const State alone = at_end(start);
  const Eigen::Vector2d more =
      start_for((ends[2] - ends[0]) / plane_.length - alone.deflection, ends[3] - alone.rotation);
  start.moment += more[0];
  start.across += more[1];
  return start;
}

double BeamColumnSegment::bowing_moment(const Vector4& ends, double place) const {
  return plane_.ei / plane_.length * at_place(start_between(ends), place / plane_.length).bowing;
}

double BeamColumnSegment::deflection(const Vector4& ends, double place) const {
  return ends[0] + plane_.length * at_place(start_between(ends), place / plane_.length).deflection;
}

}  // namespace aluframe::analysis
