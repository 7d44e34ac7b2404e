#include "aluframe/members/mode_lengths.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <numbers>

namespace aluframe::members {

namespace {

/// Segments with less of the work of the one that does most are not told of.
constexpr double least_share = 0.1;
/// Modes with factors above this times the smallest that tells of a segment do not decide.
constexpr double deciding_range = 2.0;
/// Elements of a segment with less of its largest compression do not decide.
constexpr double least_compression = 0.5;

constexpr std::array axes{Axis::y, Axis::z};

double work_about(const analysis::AxialWork& work, Axis axis) {
  return axis == Axis::y ? work.about_y : work.about_z;
}

/// Work of a segment's compressed elements.
double work_of(const MemberSegment& segment, Axis axis, const FrameMode& mode) {
  double sum = 0.0;
  for (const std::size_t place : segment.elements) {
    sum += std::max(0.0, work_about(mode.work[place], axis));
  }
  return sum;
}

double factor_of(const MemberSegments& segments, const MemberSegment& segment, Axis axis,
                 const FrameMode& mode) {
  double largest = 0.0;
  for (const std::size_t place : segment.elements) {
    largest = std::max(largest, mode.compression[place]);
  }
  double ratio = 0.0;  // of stiffness to compression
  for (const std::size_t place : segment.elements) {
    if (mode.compression[place] < least_compression * largest) continue;
    const double compression = segment.has_one_section ? largest : mode.compression[place];
    ratio = std::max(ratio, segments.stiffness(place, axis) / compression);
  }
  return std::numbers::pi / segment.length * std::sqrt(ratio / mode.factor);
}

/// What all modes tell of a segment about an axis.
class ToldLengths {
 public:
  void add(const ModeLength& length) { told_.push_back(length); }

  std::optional<ModeLength> deciding() const {
    if (told_.empty()) return std::nullopt;
    const double smallest = std::ranges::min_element(told_, {}, &ModeLength::factor)->factor;
    const ModeLength* most = nullptr;
    for (const ModeLength& length : told_) {
      if (length.factor > deciding_range * smallest) continue;
      if (most == nullptr || length.k > most->k) most = &length;
    }
    return *most;
  }

 private:
  std::vector<ModeLength> told_;
};

}  // namespace

std::vector<SegmentModeLengths> mode_lengths(const MemberSegments& segments,
                                             std::span<const FrameMode> modes) {
  const std::vector<MemberSegment>& all = segments.all();
  std::vector<std::array<ToldLengths, 2>> told(all.size());
  for (const FrameMode& mode : modes) {
    std::vector<std::array<double, 2>> work(all.size());
    double most = 0.0;
    for (std::size_t i = 0; i < all.size(); ++i) {
      for (const Axis axis : axes) {
        double& of = work[i][static_cast<std::size_t>(axis)];
        of = work_of(all[i], axis, mode);
        most = std::max(most, of);
      }
    }
    for (std::size_t i = 0; i < all.size(); ++i) {
      for (const Axis axis : axes) {
        const auto place = static_cast<std::size_t>(axis);
        if (work[i][place] <= 0.0 || work[i][place] < least_share * most) continue;
        told[i][place].add(
            {factor_of(segments, all[i], axis, mode), mode.combination, mode.factor});
      }
    }
  }
  std::vector<SegmentModeLengths> lengths;
  lengths.reserve(told.size());
  for (const auto& [y, z] : told) lengths.push_back({.y = y.deciding(), .z = z.deciding()});
  return lengths;
}

}  // namespace aluframe::members
