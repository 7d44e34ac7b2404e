#include "aluframe/restraints/axis_segments.h"

#include <algorithm>

namespace aluframe::restraints {

std::vector<AxisSegment> axis_segments(const std::vector<HeldPlace>& places, Axis axis,
                                       double length, double k,
                                       const std::array<bool, 2>& is_supported) {
  const unsigned part = axis == Axis::y ? model::part_about_y : model::part_about_z;
  std::vector<double> held;
  for (const HeldPlace& place : places) {
    if ((place.parts & part) != 0) held.push_back(place.at);
  }
  const bool start_moves = k > 1.0 && !is_supported[0] && !has_start(held);
  const bool end_moves = k > 1.0 && !is_supported[1] && !has_end(held, length);
  std::vector<AxisSegment> segments;
  for (const Segment& segment : segments_between(held, length)) {
    const bool moves =
        (segment.start == 0.0 && start_moves) || (segment.end == length && end_moves);
    const double own = segment.length() / length;
    const bool keeps = moves || own >= k;
    segments.push_back({segment, keeps ? k : own, keeps});
  }
  return segments;
}

double factor_at(const std::vector<AxisSegment>& segments, const Segment& stretch) {
  double k = 0.0;
  for (const AxisSegment& piece : segments) {
    if (piece.segment.overlaps(stretch)) k = std::max(k, piece.k);
  }
  // A stretch that is too short to overlap any takes the longest.
  if (k > 0.0) return k;
  for (const AxisSegment& piece : segments) k = std::max(k, piece.k);
  return k;
}

}  // namespace aluframe::restraints
