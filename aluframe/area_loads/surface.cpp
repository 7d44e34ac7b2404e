#include "aluframe/area_loads/surface.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <ranges>
#include <string>
#include <utility>

#include "aluframe/area_loads/fault.h"
#include "aluframe/texts/text.h"

namespace aluframe::area_loads {

namespace {

Point3 point_of(const model::Model& model, model::Number node) {
  const model::Node& found = *model.nodes.find(node);
  return {found.x, found.y, found.z};
}

std::array<Point3, 2> ends_of(const model::Model& model, const model::Element& element) {
  return {point_of(model, element.nodes[0]), point_of(model, element.nodes[1])};
}

/// Path of a corner of the region.
std::string corner_field(const model::AreaLoad& load, std::size_t corner) {
  return fmt::format("/region/{}/{}", load.region.nodes.empty() ? "points" : "nodes", corner);
}

std::vector<Point3> corners_of(const model::Model& model, const model::AreaRegion& region) {
  if (region.nodes.empty()) return region.points;
  std::vector<Point3> corners;
  for (const model::Number node : region.nodes) corners.push_back(point_of(model, node));
  return corners;
}

/// Elements of a load by their places, in its order.
std::vector<std::size_t> elements_of(const model::Model& model, const model::AreaLoad& load) {
  std::vector<std::size_t> places;
  if (load.elements.all) {
    for (std::size_t i = 0; i < model.elements.size(); ++i) places.push_back(i);
  }
  for (const model::Number number : load.elements.numbers) {
    places.push_back(model.elements.position(number));
  }
  return places;
}

Carrier carrier_of(const model::Model& model, std::size_t place, const Plane& plane) {
  const auto [start, end] = ends_of(model, model.elements[place]);
  return {.element = place,
          .length = norm(difference(end, start)),
          .start = plane.local(start),
          .end = plane.local(end)};
}

/// Points that differ from a node of the model by less than they can be meant to are there.
void join_to_nodes(const model::Model& model, std::vector<Point3>& corners, double near) {
  for (Point3& corner : corners) {
    double nearest = near;
    for (const model::Node& node : model.nodes) {
      const Point3 at{node.x, node.y, node.z};
      const double gap = norm(difference(at, corner));
      if (gap > nearest) continue;
      nearest = gap;
      corner = at;
    }
  }
}

void require_in_one_plane(const model::AreaLoad& load, const std::vector<Point3>& corners,
                          const Plane& plane) {
  const double allowed = allowed_height(extent_of(corners));
  const auto height_over = [](const Plane& of) {
    return [of](const Point3& corner) { return std::abs(of.height(corner)); };
  };
  if (std::ranges::max(corners | std::views::transform(height_over(plane))) <= allowed) return;
  const auto heights = height_over(plane_of_first(corners).value_or(plane));
  const auto out = std::ranges::find_if(
      corners, [&](const Point3& corner) { return heights(corner) > allowed; });
  const auto named = out == corners.end() ? std::ranges::max_element(corners, {}, heights) : out;
  throw Fault{corner_field(load, static_cast<std::size_t>(named - corners.begin())),
              texts::translated("stands {:.4g} mm outside of the plane of the corners before it, "
                                "must be within {:.4g} mm; divide the region",
                                heights(*named), allowed)};
}

Plane plane_of_corners(const model::AreaLoad& load, const std::vector<Point3>& corners) {
  for (std::size_t i = 0; i < corners.size(); ++i) {
    if (corners[i] != corners[(i + 1) % corners.size()]) continue;
    throw Fault{corner_field(load, (i + 1) % corners.size()),
                texts::translated("stands where the corner before it stands")};
  }
  const auto plane = plane_through(corners);
  if (!plane) {
    throw Fault{"/region", texts::translated("has no area: all corners stand on one line")};
  }
  require_in_one_plane(load, corners, *plane);
  return *plane;
}

Polygon local(const Plane& plane, const std::vector<Point3>& points) {
  Polygon polygon;
  for (const Point3& point : points) polygon.push_back(plane.local(point));
  return polygon;
}

void require_simple(const Polygon& polygon) {
  const auto crossing = find_crossing(polygon);
  if (!crossing) return;
  const auto edge = [&](std::size_t i) {
    return fmt::format("{}-{}", i + 1, (i + 1) % polygon.size() + 1);
  };
  throw Fault{"/region", texts::translated("crosses or touches itself: its edges from corner to "
                                           "corner {} and {} meet",
                                           edge(crossing->first), edge(crossing->second))};
}

/// The plane of a region, its normal by the right-hand rule of the corners.
Plane plane_of_region(const model::AreaLoad& load, const std::vector<Point3>& corners) {
  const Plane plane = plane_of_corners(load, corners);
  const Polygon polygon = local(plane, corners);
  require_simple(polygon);
  return signed_area(polygon) > 0.0 ? plane : plane.turned_over();
}

/// The plane of elements that enclose panels. Nothing says which side is the front: it is the one
/// that looks up, else along Y, else along X.
Plane plane_of_elements(const std::vector<Point3>& ends) {
  const auto plane = plane_through(ends);
  if (!plane) {
    throw Fault{"/elements", texts::translated("enclose no panel: they stand on one line")};
  }
  const Point3& normal = plane->normal();
  const double first = normal[2] != 0.0 ? normal[2] : normal[1] != 0.0 ? normal[1] : normal[0];
  return first > 0.0 ? *plane : plane->turned_over();
}

/// The largest distance of an element from a plane.
double height_of(const model::Model& model, std::size_t place, const Plane& plane) {
  const auto [start, end] = ends_of(model, model.elements[place]);
  return std::max(std::abs(plane.height(start)), std::abs(plane.height(end)));
}

std::string element_field(const model::AreaLoad& load, std::size_t place_in_list) {
  return load.elements.all ? "/elements" : fmt::format("/elements/{}", place_in_list);
}

void require_in_plane(const model::Model& model, const model::AreaLoad& load, const Plane& plane,
                      double allowed) {
  const std::vector<std::size_t> places = elements_of(model, load);
  for (std::size_t i = 0; i < places.size(); ++i) {
    const double height = height_of(model, places[i], plane);
    if (height <= allowed) continue;
    throw Fault{element_field(load, i),
                texts::translated("element {} leaves the plane of the load by {:.4g} mm, must stay "
                                  "within {:.4g} mm",
                                  model.elements[places[i]].number, height, allowed)};
  }
}

/// In a direction in the plane when the surface spans one way; throws Fault when there is none.
Plane turned(const Plane& plane, const model::AreaLoad& load) {
  if (!load.span) return plane;
  Point3 span = *load.span;
  const double largest = std::max({std::abs(span[0]), std::abs(span[1]), std::abs(span[2])});
  for (double& component : span) component /= largest;
  // Within 3° of the normal a direction does not tell which way it means.
  constexpr double least_part = 0.05;
  const double part = norm(cross(span, plane.normal()));
  if (part < least_part * norm(span)) {
    throw Fault{"/span", texts::translated("is square to the surface, must run along it")};
  }
  return plane.with_y_along(span);
}

void keep_inside(const model::Model& model, const model::AreaLoad& load, Surface& surface) {
  const std::vector<std::size_t> places = elements_of(model, load);
  const double allowed = allowed_height(extent_of(corners_of(model, load.region)));
  for (std::size_t i = 0; i < places.size(); ++i) {
    if (height_of(model, places[i], surface.plane) > allowed) continue;
    const Carrier carrier = carrier_of(model, places[i], surface.plane);
    if (!inside(*surface.region, carrier, surface.near).empty()) {
      surface.carriers.push_back(carrier);
    } else if (!load.elements.all) {
      throw Fault{element_field(load, i), texts::translated("element {} is outside of the region",
                                                            model.elements[places[i]].number)};
    }
  }
  if (surface.carriers.empty()) {
    throw Fault{"/region", texts::translated("no element carries it: none lies in its plane and "
                                             "within its corners")};
  }
}

Surface surface_of_region(const model::Model& model, const model::AreaLoad& load) {
  std::vector<Point3> corners = corners_of(model, load.region);
  const double extent = extent_of(corners);
  const double near = joining_distance(extent);
  if (load.region.nodes.empty()) join_to_nodes(model, corners, near);
  const Plane plane = turned(plane_of_region(load, corners), load);
  if (!load.elements.all) require_in_plane(model, load, plane, allowed_height(extent));
  Surface surface{.plane = plane, .region = local(plane, corners), .carriers = {}, .near = near};
  keep_inside(model, load, surface);
  return surface;
}

Surface surface_of_elements(const model::Model& model, const model::AreaLoad& load) {
  std::vector<Point3> ends;
  for (const std::size_t place : elements_of(model, load)) {
    for (const Point3& end : ends_of(model, model.elements[place])) ends.push_back(end);
  }
  const double extent = extent_of(ends);
  const Plane plane = turned(plane_of_elements(ends), load);
  const double allowed = allowed_height(extent);
  const bool is_plane = std::ranges::all_of(
      ends, [&](const Point3& end) { return std::abs(plane.height(end)) <= allowed; });
  if (!is_plane) require_in_plane(model, load, plane_of_first(ends).value_or(plane), allowed);
  require_in_plane(model, load, plane, allowed);
  Surface surface{.plane = plane, .region = {}, .carriers = {}, .near = joining_distance(extent)};
  for (const std::size_t place : elements_of(model, load)) {
    surface.carriers.push_back(carrier_of(model, place, plane));
  }
  return surface;
}

}  // namespace

Surface surface_of(const model::Model& model, const model::AreaLoad& load) {
  return load.region.empty() ? surface_of_elements(model, load) : surface_of_region(model, load);
}

}  // namespace aluframe::area_loads
