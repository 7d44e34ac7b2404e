#include "aluframe/analysis/beam_column_plane.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <utility>

namespace aluframe::analysis {

namespace {

/// So many segments hold a tie of ten million times its Euler load, a cable; beyond, digits are
/// lost.
constexpr double most_segments = 4096.0;
/// A compression above this part of the shear stiffness is not carried.
constexpr double largest_shear_share = 0.99;

int negative_eigenvalues(const Eigen::Matrix2d& k) {
  if (k.determinant() < 0.0) return 1;
  return k.trace() < 0.0 ? 2 : 0;
}

/// A part of the plane: the share of shear grows with the square of the shorter length.
BendingPlane part_of(const BendingPlane& plane, double length) {
  const double ratio = plane.length / length;
  return {length, plane.ei, plane.shear * ratio * ratio};
}

/// The piece of a span between two distances from its start, without the point load at its end.
SegmentPiece piece_of(const ElementSpan& span, double from, double to, int axis) {
  const double a = from / span.length(), b = to / span.length();
  const SpanAxialForce& n = span.axial;
  const double start = span.load_start[axis], end = span.load_end[axis];
  return {.length = to - from,
          .axial = {n.at(a), n.at(b), n.bow * (b - a) * (b - a)},
          .across_start = start + (end - start) * a,
          .across_end = start + (end - start) * b};
}

/// 1/GAs.
double shear_flexibility(const BendingPlane& plane) {
  return plane.shear * plane.length * plane.length / (12.0 * plane.ei);
}

/// sqrt(|N|/EI)·L of a span, larger where shear softens it, and where a compression that grows
/// along it comes near to the shear stiffness: the power series converge up to the place where both
/// would be equal. Infinite when it is not carried.
double own_length(const BendingPlane& plane, const ElementSpan& span) {
  const double compression = span.axial.largest_compression();
  const double largest =
      std::max({compression, std::abs(span.axial.start), std::abs(span.axial.end)});
  const double shear_share = compression * shear_flexibility(plane);
  if (shear_share > largest_shear_share) return std::numeric_limits<double>::infinity();
  const double change =
      std::abs(span.axial.end - span.axial.start) + 4.0 * std::abs(span.axial.bow);
  const double to_pole = (1.0 - shear_share) / (change * shear_flexibility(plane));
  constexpr double share_of_radius = 0.5;
  return std::max(std::sqrt(largest / (plane.ei * (1.0 - shear_share))) * span.length(),
                  longest_segment / (share_of_radius * to_pole));
}

}  // namespace

double carried_compression(const BendingPlane& plane) {
  return largest_shear_share / shear_flexibility(plane);
}

BeamColumnPlane::BeamColumnPlane(const BendingPlane& plane, std::span<const ElementSpan> spans,
                                 int axis, double curvature, const InitialSlope& initial)
    : plane_(plane) {
  cut(spans, axis, curvature, initial);
  for (const BeamColumnSegment& segment : segments_) join(segment);
  if (segments_.size() > 1) complete_by_statics(rigid_rotation_, plane.length, stiffness_);
}

/// Segments of equal length, so many that none can buckle by itself even if the largest axial force
/// acted on the whole of it, and none is very short: the rounding of its stiffness would be that of
/// a much stiffer bar.
void BeamColumnPlane::cut(std::span<const ElementSpan> spans, int axis, double curvature,
                          const InitialSlope& initial) {
  double longest = 0.0;
  for (const ElementSpan& span : spans) {
    longest = std::max(longest, own_length(plane_, span) / span.length());
  }
  is_carried_ = std::isfinite(longest);
  if (!is_carried_) return;
  const double count =
      std::clamp(std::ceil(longest * plane_.length / longest_segment), 1.0, most_segments);
  const double rotation_sign = (axis == 1 ? dofs_y : dofs_z).rotation_sign;
  std::vector<SegmentPiece> pieces;
  double length = 0.0;
  const auto end_segment = [&] {
    segments_.emplace_back(part_of(plane_, length), std::move(pieces), curvature);
    pieces.clear();
    length = 0.0;
  };
  const auto add_piece = [&](const ElementSpan& span, double from, double to) {
    pieces.push_back(piece_of(span, from, to, axis));
    pieces.back().initial = &initial;
    pieces.back().from = span.from + from;
    pieces.back().whole = plane_.length;
  };
  const double step = plane_.length / count, same = 1e-6 * step;
  const auto is_last_segment = [&] { return static_cast<double>(segments_.size()) >= count - 1.0; };
  double next_cut = step;
  for (const ElementSpan& span : spans) {
    double from = 0.0;
    for (; !is_last_segment() && next_cut < span.to - same; next_cut += step) {
      const double to = next_cut - span.from;
      add_piece(span, from, to);
      length += to - from;
      from = to;
      end_segment();
    }
    add_piece(span, from, span.length());
    length += span.length() - from;
    // Axis 1 bends about z, axis 2 about y.
    pieces.back().force_at_end = span.force_at_end[axis];
    pieces.back().moment_at_end = rotation_sign * span.moment_at_end[3 - axis];
    if (!is_last_segment() && next_cut <= span.to + same) {
      end_segment();
      next_cut += step;
    }
  }
  end_segment();
}

void BeamColumnPlane::join(const BeamColumnSegment& next) {
  const Matrix4 k = next.stiffness();
  const Vector4 fixed_end = next.fixed_end(), rotated = next.rigid_rotation();
  if (&next == segments_.data()) {
    stiffness_ = k;
    fixed_end_ = fixed_end;
    rigid_rotation_ = rotated;
    return;
  }
  const Eigen::Matrix2d pivot = stiffness_.bottomRightCorner<2, 2>() + k.topLeftCorner<2, 2>();
  negative_pivots_ += negative_eigenvalues(pivot);
  const Eigen::Matrix2d inverse = pivot.inverse();
  Eigen::Matrix<double, 2, 4> coupling;
  coupling << stiffness_.bottomLeftCorner<2, 2>(), k.topRightCorner<2, 2>();
  const Eigen::Vector2d force = fixed_end_.tail<2>() + fixed_end.head<2>();
  Eliminated& node = inner_.emplace_back();
  node.by_ends = inverse * coupling;
  node.own = inverse * force;
  Matrix4 joined = Matrix4::Zero();
  joined.topLeftCorner<2, 2>() = stiffness_.topLeftCorner<2, 2>();
  joined.bottomRightCorner<2, 2>() = k.bottomRightCorner<2, 2>();
  stiffness_ = joined - coupling.transpose() * node.by_ends;
  const Vector4 forces = (Vector4() << fixed_end_.head<2>(), fixed_end.tail<2>()).finished();
  fixed_end_ = forces - coupling.transpose() * node.own;
  const Eigen::Vector2d rotation = rigid_rotation_.tail<2>() + rotated.head<2>();
  const Vector4 ends = (Vector4() << rigid_rotation_.head<2>(), rotated.tail<2>()).finished();
  rigid_rotation_ = ends - coupling.transpose() * (inverse * rotation);
}

std::vector<Eigen::Vector2d> BeamColumnPlane::displacements(const Vector4& ends) const {
  std::vector<Eigen::Vector2d> result(inner_.size() + 2);
  result.front() = ends.head<2>();
  result.back() = ends.tail<2>();
  Vector4 around = ends;
  for (std::size_t i = inner_.size(); i >= 1; --i) {
    around.tail<2>() = -(inner_[i - 1].by_ends * around + inner_[i - 1].own).eval();
    result[i] = around.tail<2>();
  }
  return result;
}

std::array<double, 5> BeamColumnPlane::bowing_moments(const Vector4& ends) const {
  const std::vector<Eigen::Vector2d> at = displacements(ends);
  std::array<double, 5> moments{};
  double sum = 0.0, from = 0.0;
  std::size_t position = 1;
  for (std::size_t i = 0; i < segments_.size(); ++i) {
    const BeamColumnSegment& segment = segments_[i];
    const Vector4 own = (Vector4() << at[i], at[i + 1]).finished();
    const bool is_last = i + 1 == segments_.size();
    for (; position < moments.size(); ++position) {
      const double x = plane_.length * static_cast<double>(position) / 4.0 - from;
      if (x > segment.length() && !is_last) break;
      moments[position] = sum + segment.bowing_moment(own, std::min(x, segment.length()));
    }
    if (is_last) break;
    sum += segment.bowing_moment(own, segment.length());
    from += segment.length();
  }
  return moments;
}

std::vector<double> BeamColumnPlane::deflections(const Vector4& ends,
                                                 std::span<const double> places) const {
  const std::vector<Eigen::Vector2d> at = displacements(ends);
  std::vector<double> result;
  for (const double place : places) {
    double from = 0.0;
    std::size_t i = 0;
    while (i + 1 < segments_.size() && place > from + segments_[i].length()) {
      from += segments_[i++].length();
    }
    const Vector4 own = (Vector4() << at[i], at[i + 1]).finished();
    result.push_back(segments_[i].deflection(own, std::min(place - from, segments_[i].length())));
  }
  return result;
}

}  // namespace aluframe::analysis
