#include "aluframe/area_loads/line_loads.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <set>
#include <utility>

#include "aluframe/area_loads/one_way.h"
#include "aluframe/area_loads/panels.h"
#include "aluframe/area_loads/surface.h"
#include "aluframe/area_loads/two_way.h"
#include "aluframe/area_loads/wind_and_snow.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/texts/text.h"

namespace aluframe::area_loads {

namespace {

/// What the surface carries and its true area.
struct Carried {
  std::vector<WidthPiece> widths;
  double area = 0.0;
};

/// "1-4, 7" of the elements round a panel.
std::string elements_round(const model::Model& model, const Panel& panel) {
  std::set<model::Number> numbers;
  for (const auto& edge : panel.edges) {
    for (const Carrier& carrier : edge) numbers.insert(model.elements[carrier.element].number);
  }
  return model::join_as_ranges({numbers.begin(), numbers.end()}, 5);
}

Carried one_way_in_region(const Surface& surface) {
  std::vector<Carrier> pieces;
  for (const Carrier& carrier : surface.carriers) {
    const auto parts = inside(*surface.region, carrier, surface.near);
    pieces.insert(pieces.end(), parts.begin(), parts.end());
  }
  return {one_way_widths(*surface.region, pieces, surface.near, surface.plane),
          signed_area(*surface.region)};
}

Carried one_way_in_panels(const Surface& surface, const std::vector<Panel>& panels) {
  Carried out;
  for (const Panel& panel : panels) {
    std::vector<Carrier> carriers;
    for (const auto& edge : panel.edges) carriers.insert(carriers.end(), edge.begin(), edge.end());
    const auto widths = one_way_widths(panel.corners, carriers, surface.near, surface.plane);
    out.widths.insert(out.widths.end(), widths.begin(), widths.end());
    out.area += signed_area(panel.corners);
  }
  return out;
}

Carried two_ways(const model::Model& model, const Surface& surface,
                 const std::vector<Panel>& panels) {
  Carried out;
  for (const Panel& panel : panels) {
    if (add_two_way_widths(panel, surface.near, out.widths, out.area)) continue;
    throw Fault{surface.region ? "/region" : "/elements",
                texts::translated("the panel between the elements {} has a corner that points "
                                  "inwards, which two ways do not share out; divide it or name "
                                  "the direction in which it spans",
                                  elements_round(model, panel))};
  }
  return out;
}

/// Throws Fault unless the panels fill the region, but for what joining changes.
void require_filled(const Surface& surface, const std::vector<Panel>& panels) {
  double filled = 0.0, round = 0.0;
  for (const Panel& panel : panels) filled += signed_area(panel.corners);
  const Polygon& region = *surface.region;
  for (std::size_t i = 0; i < region.size(); ++i) {
    round += distance(region[i], region[(i + 1) % region.size()]);
  }
  const double area = signed_area(region);
  if (std::abs(filled - area) <= surface.near * round) return;
  throw Fault{"/region", texts::translated("two ways need elements along all edges of the region: "
                                           "the panels between elements are {:.4g} % of its area",
                                           100.0 * filled / area)};
}

Carried carried_by(const model::Model& model, const Surface& surface, bool is_one_way) {
  if (surface.region && is_one_way) return one_way_in_region(surface);
  const auto panels = panels_between(surface.carriers, surface.region, surface.near, surface.plane);
  if (surface.region) require_filled(surface, panels);
  if (panels.empty()) throw Fault{"/elements", texts::translated("enclose no panel")};
  return is_one_way ? one_way_in_panels(surface, panels) : two_ways(model, surface, panels);
}

/// The field that lays a load on what is seen along an axis.
const char* field_that_projects(const model::AreaLoad& load) {
  return std::holds_alternative<model::SnowPressure>(load.pressure) ? "/snow" : "/projected";
}

/// Area seen along the axis of a projected load, for an area of 1.
double seen_part(const model::AreaLoad& load, const Point3& normal) {
  if (!load.direction || load.direction->axes != model::LoadAxes::projected) return 1.0;
  const double part = std::abs(normal[load.direction->axis]);
  if (part > 0.0) return part;
  throw Fault{field_that_projects(load),
              texts::translated("acts on nothing: the surface is seen from its edge")};
}

Distribution distribute_surface(const model::Model& model, const model::AreaLoad& load) {
  const Surface surface = surface_of(model, load);
  const Point3& normal = surface.plane.normal();
  const double seen = seen_part(load, normal);
  Carried carried = carried_by(model, surface, load.span.has_value());
  Distribution out{.pressure = pressure_of(load.pressure),
                   .area = seen * carried.area,
                   .per_area = {},
                   .widths = added_up(std::move(carried.widths))};
  for (std::size_t i = 0; i < 3; ++i) {
    const double direction = !load.direction ? normal[i] : load.direction->axis == i ? seen : 0.0;
    out.per_area[i] = out.pressure * direction;
  }
  return out;
}

/// Length of an element, seen along an axis where the load is projected.
double seen_length(const model::Model& model, const model::AreaLoad& load, std::size_t place) {
  const model::Element& element = model.elements[place];
  const model::Node& start = *model.nodes.find(element.nodes[0]);
  const model::Node& end = *model.nodes.find(element.nodes[1]);
  Point3 along{end.x - start.x, end.y - start.y, end.z - start.z};
  if (load.direction->axes == model::LoadAxes::projected) along[load.direction->axis] = 0.0;
  return norm(along);
}

Distribution distribute_by_spacing(const model::Model& model, const model::AreaLoad& load) {
  Distribution out{.pressure = pressure_of(load.pressure)};
  out.per_area[load.direction->axis] = out.pressure;
  const auto add = [&](std::size_t place) {
    out.widths.push_back({place, 0.0, 1.0, *load.spacing, *load.spacing});
    out.area += *load.spacing * seen_length(model, load, place);
  };
  if (load.elements.all) {
    for (std::size_t place = 0; place < model.elements.size(); ++place) add(place);
  }
  for (const model::Number number : load.elements.numbers) add(model.elements.position(number));
  if (out.area > 0.0) return out;
  throw Fault{field_that_projects(load),
              texts::translated("acts on nothing: all elements of the load lie along "
                                "its direction")};
}

/// A load along one axis on all pieces. With a spacing the load's own axes stay what they are.
void append_along(const model::Model& model, const model::AreaLoad& load,
                  const Distribution& distribution, std::size_t axis,
                  std::vector<model::SpanLoad>& out) {
  const double per_area = distribution.per_area[axis];
  if (per_area == 0.0) return;
  const auto axes = load.spacing ? load.direction->axes : model::LoadAxes::global;
  for (const WidthPiece& piece : distribution.widths) {
    out.push_back({.elements = {.all = false, .numbers = {model.elements[piece.element].number}},
                   .direction = {axes, axis},
                   .from_value = per_area * piece.from_width,
                   .to_value = per_area * piece.to_width,
                   .from = piece.from,
                   .to = piece.to});
  }
}

}  // namespace

std::variant<Distribution, Fault> distribute(const model::Model& model,
                                             const model::AreaLoad& load) {
  try {
    return load.spacing ? distribute_by_spacing(model, load) : distribute_surface(model, load);
  } catch (const Fault& fault) {
    return fault;
  }
}

std::variant<std::vector<model::SpanLoad>, Fault> line_loads(const model::Model& model,
                                                             const model::AreaLoad& load) {
  const auto distributed = distribute(model, load);
  if (const auto* fault = std::get_if<Fault>(&distributed)) return *fault;
  std::vector<model::SpanLoad> out;
  for (std::size_t axis = 0; axis < 3; ++axis) {
    append_along(model, load, std::get<Distribution>(distributed), axis, out);
  }
  return out;
}

}  // namespace aluframe::area_loads
