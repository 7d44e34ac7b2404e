#include "aluframe/members/mode_lengths.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <numbers>

#include "aluframe/members/buckling_lines.h"

namespace aluframe::members {

namespace {

/// Lines with less of the work of the one that does most are not told of.
constexpr double least_share = 0.1;
/// Modes in which a segment is pressed by less than this share of its largest compression do not
/// decide, nor do elements of a segment count with less.
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

double compression_of(const MemberSegment& segment, const FrameMode& mode) {
  double largest = 0.0;
  for (const std::size_t place : segment.elements) {
    largest = std::max(largest, mode.compression[place]);
  }
  return largest;
}

double factor_of(const MemberSegments& segments, const MemberSegment& segment, Axis axis,
                 const FrameMode& mode) {
  const double largest = compression_of(segment, mode);
  double ratio = 0.0;  // of stiffness to compression
  for (const std::size_t place : segment.elements) {
    const double compression = segment.has_one_section
                                   ? largest
                                   : std::max(mode.compression[place], least_compression * largest);
    ratio = std::max(ratio, segments.stiffness(place, axis) / compression);
  }
  return std::numbers::pi / segment.length * std::sqrt(ratio / mode.factor);
}

/// What all modes tell of a segment about an axis.
class ToldLengths {
 public:
  void add(const ModeLength& length, double compression) { told_.push_back({length, compression}); }

  /// The largest of modes that press it as much as any, and of the one with the smallest factor;
  /// modes far from the first of their loads decide where no others tell.
  std::optional<ModeLength> deciding() const {
    const bool has_near =
        std::ranges::any_of(told_, [](const Told& t) { return t.length.is_near; });
    double most = 0.0, smallest = std::numeric_limits<double>::infinity();
    for (const auto& [length, compression] : told_) {
      if (length.is_near != has_near) continue;
      most = std::max(most, compression);
      smallest = std::min(smallest, length.factor);
    }
    std::optional<ModeLength> deciding;
    for (const auto& [length, compression] : told_) {
      if (length.is_near != has_near) continue;
      if (compression < least_compression * most && length.factor > smallest) continue;
      if (!deciding || length.k > deciding->k) deciding = length;
    }
    return deciding;
  }

 private:
  struct Told {
    ModeLength length;
    double compression = 0.0;
  };
  std::vector<Told> told_;
};

/// Lines about both axes.
struct Lines {
  std::vector<std::size_t> about_y, about_z;
  const std::vector<std::size_t>& of(Axis axis) const {
    return axis == Axis::y ? about_y : about_z;
  }
};

/// Adds what a mode tells of all segments about an axis.
/// @param work of the lines; `most` of any line about any axis
void add_told(const MemberSegments& segments, std::span<const std::size_t> lines,
              std::span<const double> work, double most, Axis axis, const FrameMode& mode,
              std::vector<ToldLengths>& told) {
  const std::vector<MemberSegment>& all = segments.all();
  for (std::size_t i = 0; i < all.size(); ++i) {
    const double of_line = work[lines[i]], compression = compression_of(all[i], mode);
    if (of_line <= 0.0 || of_line < least_share * most || compression <= 0.0) continue;
    told[i].add({.k = factor_of(segments, all[i], axis, mode),
                 .combination = mode.combination,
                 .factor = mode.factor,
                 .is_near = mode.is_near},
                compression);
  }
}

/// Work of each line about an axis, by its number.
std::vector<double> work_of_lines(const MemberSegments& segments, const Lines& lines, Axis axis,
                                  const FrameMode& mode) {
  const std::vector<MemberSegment>& all = segments.all();
  std::vector<double> work(all.size(), 0.0);
  for (std::size_t i = 0; i < all.size(); ++i) {
    work[lines.of(axis)[i]] += work_of(all[i], axis, mode);
  }
  return work;
}

/// Adds what a mode tells of all segments about both axes.
void add_told(const MemberSegments& segments, const Lines& lines, const FrameMode& mode,
              std::array<std::vector<ToldLengths>, 2>& told) {
  const std::vector<double> about_y = work_of_lines(segments, lines, Axis::y, mode);
  const std::vector<double> about_z = work_of_lines(segments, lines, Axis::z, mode);
  const double most =
      std::max(*std::ranges::max_element(about_y), *std::ranges::max_element(about_z));
  for (const Axis axis : axes) {
    add_told(segments, lines.of(axis), axis == Axis::y ? about_y : about_z, most, axis, mode,
             told[static_cast<std::size_t>(axis)]);
  }
}

}  // namespace

std::vector<SegmentModeLengths> mode_lengths(const MemberSegments& segments,
                                             std::span<const FrameMode> modes) {
  std::vector<SegmentModeLengths> lengths(segments.all().size());
  if (lengths.empty() || modes.empty()) return lengths;
  const Lines lines{buckling_lines(segments, Axis::y), buckling_lines(segments, Axis::z)};
  std::array<std::vector<ToldLengths>, 2> told;
  for (auto& of_axis : told) of_axis.resize(lengths.size());
  for (const FrameMode& mode : modes) add_told(segments, lines, mode, told);
  for (std::size_t i = 0; i < lengths.size(); ++i) {
    lengths[i] = {.y = told[0][i].deciding(), .z = told[1][i].deciding()};
  }
  return lengths;
}

}  // namespace aluframe::members
