#pragma once

#include <span>
#include <vector>

#include "aluframe/analysis/load_case.h"
#include "aluframe/analysis/local_axes.h"

namespace aluframe::analysis {

/// Force per length in local axes, linear from `from` to `to`, mm from the start.
struct LocalDistributed {
  double from = 0.0, to = 0.0;
  Eigen::Vector3d from_value, to_value;

  Eigen::Vector3d value_at(double x) const {
    if (to == from) return from_value;
    return from_value + (to_value - from_value) * ((x - from) / (to - from));
  }
};

/// Force and moment in local axes at one place, mm from the start.
struct LocalPoint {
  double at = 0.0;
  Eigen::Vector3d force, moment;
};

/// What an element would do by itself under its temperature: strain of the axis and curvatures
/// d²w/dx² of its two bending planes, 1/mm.
struct FreeDeformation {
  double strain = 0.0, curvature_y = 0.0, curvature_z = 0.0;

  bool operator==(const FreeDeformation&) const = default;
};

/// Loads of one case on one element, in local axes.
struct ElementLoads {
  double length = 0.0;
  std::span<const LocalDistributed> distributed;
  std::span<const LocalPoint> points;
  FreeDeformation free;
};

/// Loads of one case sorted by element and turned into local axes, self-weight among them.
/// Refers to nothing of the case or the frame once it is built.
class LoadsByElement {
 public:
  LoadsByElement(const Frame& frame, std::span<const Geometry> geometry, const LoadCase& load_case);

  ElementLoads of(std::size_t element) const {
    const std::size_t d = distributed_begin_[element], p = points_begin_[element];
    return {lengths_[element],
            {distributed_.data() + d, distributed_begin_[element + 1] - d},
            {points_.data() + p, points_begin_[element + 1] - p},
            free_.empty() ? FreeDeformation{} : free_[element]};
  }

  /// Whether forces act on the element between its nodes.
  bool has_forces(std::size_t element) const {
    return (!distributed_.empty() &&
            distributed_begin_[element] != distributed_begin_[element + 1]) ||
           (!points_.empty() && points_begin_[element] != points_begin_[element + 1]);
  }
  /// Whether anything acts on it, its temperature included.
  bool is_loaded(std::size_t element) const {
    return has_forces(element) || (!free_.empty() && free_[element] != FreeDeformation{});
  }

 private:
  void add_distributed(const Frame& frame, std::span<const Geometry> geometry,
                       const LoadCase& load_case);
  void add_points(std::span<const Geometry> geometry, const LoadCase& load_case);
  void add_temperatures(const Frame& frame, const LoadCase& load_case);

  std::vector<double> lengths_;
  std::vector<std::size_t> distributed_begin_, points_begin_;  // per element, and the end
  std::vector<LocalDistributed> distributed_;
  std::vector<LocalPoint> points_;
  std::vector<FreeDeformation> free_;  // empty without temperatures
};

/// Resultant of what acts between the start and x: force, and moment about the section at x.
struct Resultant {
  Eigen::Vector3d force = Eigen::Vector3d::Zero();
  Eigen::Vector3d moment = Eigen::Vector3d::Zero();
};

/// A point load at x itself counts only when x is the end, so that an inner section takes the side
/// towards the start.
Resultant resultant_before(const ElementLoads& loads, double x);

}  // namespace aluframe::analysis
