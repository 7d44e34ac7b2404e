#include "aluframe/analysis/initial_shapes.h"

namespace aluframe::analysis {

namespace {

/// Whether the member passes the element at a place of it from its end to its start.
bool is_reversed(const Frame& frame, std::span<const std::size_t> member, std::size_t place) {
  if (member.size() < 2) return false;
  const bool is_last = place + 1 == member.size();
  const Element& own = frame.elements[member[place]];
  const Element& other = frame.elements[member[is_last ? place - 1 : place + 1]];
  const bool start_meets = own.start == other.start || own.start == other.end;
  return start_meets != is_last;
}

}  // namespace

InitialShape shape_of_sway(const Frame& frame, std::span<const Geometry> geometry,
                           std::size_t direction, double lean) {
  InitialShape shape;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    const Element& element = frame.elements[i];
    const double rise = frame.nodes[element.end].z - frame.nodes[element.start].z;
    if (rise == 0.0) continue;
    const double turn = lean * rise / geometry[i].length;
    const auto along = static_cast<Eigen::Index>(direction);
    ElementSlopes& leaning = shape.emplace_back(ElementSlopes{i, {}});
    for (std::size_t axis = 0; axis < 2; ++axis) {
      const double slope = turn * geometry[i].axes(static_cast<Eigen::Index>(axis) + 1, along);
      leaning.slopes[axis] = InitialSlope(std::span(&slope, 1));
    }
  }
  return shape;
}

std::vector<std::vector<std::size_t>> all_members(const Frame& frame,
                                                  const Imperfections& imperfections) {
  std::vector<std::vector<std::size_t>> members = imperfections.members;
  std::vector<bool> is_in_one(frame.elements.size(), false);
  for (const std::vector<std::size_t>& member : members) {
    for (const std::size_t element : member) is_in_one[element] = true;
  }
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    if (!is_in_one[i]) members.push_back({i});
  }
  return members;
}

InitialShape shape_of_bow(const Frame& frame, std::span<const Geometry> geometry,
                          std::span<const std::size_t> member, std::size_t axis, double bow) {
  double length = 0.0;
  for (const std::size_t element : member) length += geometry[element].length;
  const Eigen::Vector3d along =
      geometry[member.front()].axes.row(static_cast<Eigen::Index>(axis) + 1).transpose();
  InitialShape shape;
  double from = 0.0;
  for (std::size_t place = 0; place < member.size(); ++place) {
    const Geometry& own = geometry[member[place]];
    const double sense = is_reversed(frame, member, place) ? -1.0 : 1.0;
    // w = 4·e·s·(L - s)/L², so dw/ds = 4·(e/L)·(1 - 2·s/L): the same along an element that points
    // the other way, but for its sign.
    const double middle = from + own.length / 2.0;
    const std::array<double, 2> slope{sense * 4.0 * bow * (1.0 - 2.0 * middle / length),
                                      -4.0 * bow * own.length / length};
    ElementSlopes& bowed = shape.emplace_back(ElementSlopes{member[place], {}});
    for (std::size_t i = 0; i < 2; ++i) {
      const double part = own.axes.row(static_cast<Eigen::Index>(i) + 1).dot(along);
      bowed.slopes[i].add(InitialSlope(slope), part);
    }
    from += own.length;
  }
  return shape;
}

}  // namespace aluframe::analysis
