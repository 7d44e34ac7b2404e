#include "aluframe/document/member_diagram.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <ranges>

#include "aluframe/document/names.h"
#include "aluframe/document/strip.h"
#include "aluframe/model/members.h"
#include "aluframe/model/xml_text.h"
#include "aluframe/picture/colours.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

/// An element of the member, where it lies along it.
struct Stretch {
  const model::Element* element = nullptr;
  double from = 0.0, length = 0.0;  ///< mm
  bool is_reversed = false;         ///< it ends where the member goes on from

  double at(double fraction) const {
    return from + length * (is_reversed ? 1.0 - fraction : fraction);
  }
  model::Number first_node() const { return element->nodes[is_reversed ? 1 : 0]; }
  model::Number last_node() const { return element->nodes[is_reversed ? 0 : 1]; }
};

bool has_node(const model::Element& element, model::Number node) {
  return element.nodes[0] == node || element.nodes[1] == node;
}

std::vector<Stretch> stretches_of(const model::Model& model,
                                  const std::vector<model::Number>& numbers) {
  std::vector<Stretch> out;
  double from = 0.0;
  for (std::size_t i = 0; i < numbers.size(); ++i) {
    const model::Element& element = *model.elements.find(numbers[i]);
    bool is_reversed = false;
    if (i > 0) {
      is_reversed = element.nodes[1] == out.back().last_node();
    } else if (numbers.size() > 1) {
      is_reversed = has_node(*model.elements.find(numbers[1]), element.nodes[0]);
    }
    const double length = model::element_length(model, element);
    out.push_back({&element, from, length, is_reversed});
    from += length;
  }
  return out;
}

Curve curve_of(const Stretch& stretch, const std::vector<picture::Ordinate>& values, double unit) {
  Curve curve;
  for (const picture::Ordinate& ordinate : values) {
    curve.push_back({stretch.at(ordinate.fraction), ordinate.value / unit});
  }
  if (stretch.is_reversed) std::ranges::reverse(curve);
  return curve;
}

/// The curves of one force, both sides of an envelope.
std::vector<Curve> curves_of(const std::vector<Stretch>& stretches,
                             const std::vector<picture::ForceLine>& lines, double unit) {
  std::vector<Curve> curves;
  for (const picture::ForceLine& line : lines) {
    const auto found = std::ranges::find_if(
        stretches, [&](const Stretch& each) { return each.element->number == line.element; });
    if (found == stretches.end()) continue;
    curves.push_back(curve_of(*found, line.values, unit));
    if (!line.minimum.empty()) curves.push_back(curve_of(*found, line.minimum, unit));
  }
  return curves;
}

std::vector<Curve> ratio_curves(const std::vector<Stretch>& stretches,
                                const run::GoverningMember& member) {
  std::vector<Curve> curves;
  for (std::size_t i = 0; i < stretches.size(); ++i) {
    Curve curve;
    const auto& ratios = member.ratios[i];
    for (std::size_t position = 0; position < ratios.size(); ++position) {
      if (!std::isfinite(ratios[position])) continue;
      const double fraction =
          static_cast<double>(position) / static_cast<double>(ratios.size() - 1);
      curve.push_back({stretches[i].at(fraction), ratios[position]});
    }
    if (stretches[i].is_reversed) std::ranges::reverse(curve);
    curves.push_back(std::move(curve));
  }
  return curves;
}

/// Forces that are shown as zero everywhere are left out.
bool is_noticeable(const std::vector<Curve>& curves) {
  constexpr double shown = 5e-4;
  return std::ranges::any_of(curves, [](const Curve& curve) {
    return std::ranges::any_of(curve,
                               [](const CurvePoint& p) { return std::fabs(p.value) >= shown; });
  });
}

/// The nodes of the member under the strips, where they are few enough to be read.
std::string nodes_text(const StripFrame& frame, const std::vector<Stretch>& stretches, double y) {
  constexpr std::size_t most = 25;
  std::string out = strip_text(frame.left, y + 5.0, "start", texts::translated("node"));
  if (stretches.size() > most) return out;
  const auto add = [&](double x, model::Number node) {
    out += strip_text(frame.x(x), y + 5.0, "middle", fmt::format("{}", node));
  };
  for (const Stretch& stretch : stretches) add(stretch.from, stretch.first_node());
  add(frame.length, stretches.back().last_node());
  return out;
}

std::string lines_at_nodes(const StripFrame& frame, const std::vector<Stretch>& stretches,
                           double bottom) {
  std::string out;
  const auto add = [&](double x) {
    out += fmt::format(
        "<line x1=\"{0:.2f}\" y1=\"0\" x2=\"{0:.2f}\" y2=\"{1:.2f}\" stroke=\"{2}\" "
        "stroke-width=\"0.15\"/>\n",
        frame.x(x), bottom, picture::pale);
  };
  for (const Stretch& stretch : stretches) add(stretch.from);
  add(frame.length);
  return out;
}

}  // namespace

std::string member_diagram(const model::Model& model, const run::GoverningMember& member,
                           const std::string& id, const std::string& title) {
  const std::vector<Stretch> stretches = stretches_of(model, member.elements);
  const Scale scale(model.units);
  const StripFrame frame{.length = stretches.back().from + stretches.back().length};
  std::string body;
  double y = 2.0;
  for (std::size_t i = 0; i < member.forces.size(); ++i) {
    const auto component = static_cast<picture::ForceComponent>(i);
    const bool is_moment = picture::is_moment(component);
    const auto curves =
        curves_of(stretches, member.forces[i], is_moment ? scale.moment() : scale.force);
    if (!is_noticeable(curves)) continue;
    body += strip(frame, y, curves,
                  {.heading = in_unit(std::string(picture::name_of(component)),
                                      is_moment ? scale.moment_unit() : scale.force_unit),
                   .grows_down = is_moment,
                   .threshold = {}});
    y += strip_height;
  }
  body += strip(frame, y, ratio_curves(stretches, member),
                {.heading = texts::translated("ratio"), .grows_down = false, .threshold = 1.0});
  y += strip_height;
  const std::string nodes = nodes_text(frame, stretches, y);
  return fmt::format(
             "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100%\" viewBox=\"0 0 {0:.2f} "
             "{1:.2f}\" role=\"img\" aria-labelledby=\"{2}-title {2}-shown\" "
             "font-family=\"sans-serif\">\n<title id=\"{2}-title\">{3}</title>\n"
             "<desc id=\"{2}-shown\">{4}</desc>\n",
             frame.width, y + 7.0, model::for_xml(id), model::for_xml(title),
             model::for_xml(texts::translated(
                 "Forces along the member, moments drawn downwards where they are positive, and "
                 "the largest ratio at each position"))) +
         lines_at_nodes(frame, stretches, y) + body + nodes + "</svg>\n";
}

}  // namespace aluframe::document
