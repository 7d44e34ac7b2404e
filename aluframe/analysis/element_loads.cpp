#include "aluframe/analysis/element_loads.h"

#include <algorithm>

#include "aluframe/elementary/functions.h"

namespace aluframe::analysis {

namespace {

Eigen::Vector3d vector_of(const Vector3& v) {
  return {v[0], v[1], v[2]};
}

/// Per global axis: length of an element seen along that axis, as a part of its own length.
Eigen::Vector3d projections(const Axes& axes) {
  const Eigen::Vector3d x = axes.row(0);
  return {elementary::hypotenuse(x.y(), x.z()), elementary::hypotenuse(x.z(), x.x()),
          elementary::hypotenuse(x.x(), x.y())};
}

Eigen::Vector3d local_of(const Vector3& value, LoadAxes load_axes, const Axes& axes) {
  switch (load_axes) {
    case LoadAxes::global:
      return axes * vector_of(value);
    case LoadAxes::projected:
      return axes * vector_of(value).cwiseProduct(projections(axes));
    default:
      return vector_of(value);
  }
}

LocalDistributed local_of(const DistributedLoad& load, const Geometry& g) {
  return {load.from * g.length, load.to * g.length, local_of(load.from_value, load.axes, g.axes),
          local_of(load.to_value, load.axes, g.axes)};
}

LocalPoint local_of(const PointLoad& load, const Geometry& g) {
  // A point has no length to be projected.
  const LoadAxes axes = load.axes == LoadAxes::local ? LoadAxes::local : LoadAxes::global;
  return {load.at * g.length, local_of(load.force, axes, g.axes),
          local_of(load.moment, axes, g.axes)};
}

/// For loads with an `element`: where each element's share begins when sorted by element.
template <class Load>
std::vector<std::size_t> begins(const std::vector<Load>& loads, std::size_t elements,
                                std::size_t each) {
  std::vector<std::size_t> begin(elements + 1, 0);
  for (const Load& load : loads) ++begin[load.element + 1];
  for (std::size_t i = 0; i < elements; ++i) begin[i + 1] += begin[i] + each;
  return begin;
}

bool is_zero(const Vector3& v) {
  return v == Vector3{};
}

}  // namespace

LoadsByElement::LoadsByElement(const Frame& frame, std::span<const Geometry> geometry,
                               const LoadCase& load_case) {
  lengths_.reserve(geometry.size());
  for (const Geometry& g : geometry) lengths_.push_back(g.length);
  add_distributed(frame, geometry, load_case);
  add_points(geometry, load_case);
  add_temperatures(frame, load_case);
}

void LoadsByElement::add_distributed(const Frame& frame, std::span<const Geometry> geometry,
                                     const LoadCase& load_case) {
  const bool weight = !is_zero(load_case.self_weight);
  distributed_begin_ = begins(load_case.distributed, geometry.size(), weight ? 1 : 0);
  distributed_.resize(distributed_begin_.back());
  std::vector<std::size_t> next(distributed_begin_.begin(), distributed_begin_.end() - 1);
  for (std::size_t i = 0; weight && i < geometry.size(); ++i) {
    const Element& element = frame.elements[i];
    const double per_length = element.density * element.stiffness.area * gravity;
    const Eigen::Vector3d q = geometry[i].axes * (per_length * vector_of(load_case.self_weight));
    distributed_[next[i]++] = {0.0, geometry[i].length, q, q};
  }
  for (const DistributedLoad& load : load_case.distributed) {
    distributed_[next[load.element]++] = local_of(load, geometry[load.element]);
  }
}

void LoadsByElement::add_points(std::span<const Geometry> geometry, const LoadCase& load_case) {
  points_begin_ = begins(load_case.points, geometry.size(), 0);
  points_.resize(points_begin_.back());
  std::vector<std::size_t> next(points_begin_.begin(), points_begin_.end() - 1);
  for (const PointLoad& load : load_case.points) {
    points_[next[load.element]++] = local_of(load, geometry[load.element]);
  }
}

void LoadsByElement::add_temperatures(const Frame& frame, const LoadCase& load_case) {
  if (load_case.temperatures.empty()) return;
  free_.resize(frame.elements.size());
  for (const Temperature& t : load_case.temperatures) {
    const double alpha = frame.elements[t.element].expansion;
    FreeDeformation& free = free_[t.element];
    free.strain += alpha * t.change;
    // The warmer face grows longer and the axis bends away from it.
    if (t.depth_y > 0.0) free.curvature_y -= alpha * t.difference_y / t.depth_y;
    if (t.depth_z > 0.0) free.curvature_z -= alpha * t.difference_z / t.depth_z;
  }
}

Resultant resultant_before(const ElementLoads& loads, double x) {
  Resultant sum;
  const auto add = [&](double at, const Eigen::Vector3d& force) {
    const double arm = at - x;
    sum.force += force;
    sum.moment.y() -= arm * force.z();
    sum.moment.z() += arm * force.y();
  };
  for (const LocalDistributed& load : loads.distributed) {
    const double to = std::min(load.to, x);
    if (to <= load.from) continue;
    if (load.from_value == load.to_value) {
      add((load.from + to) / 2.0, (to - load.from) * load.from_value);
      continue;
    }
    // Two triangles, each acting at the third that is nearer to its larger end.
    const double third = (to - load.from) / 3.0;
    add(load.from + third, 1.5 * third * load.from_value);
    add(to - third, 1.5 * third * load.value_at(to));
  }
  for (const LocalPoint& load : loads.points) {
    if (load.at >= x && x < loads.length) continue;
    add(load.at, load.force);
    sum.moment += load.moment;
  }
  return sum;
}

}  // namespace aluframe::analysis
