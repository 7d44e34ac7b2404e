#include "aluframe/deflections/spans.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <map>
#include <tuple>
#include <unordered_set>
#include <utility>

#include "aluframe/members/cantilever_ends.h"
#include "aluframe/members/find_members.h"
#include "aluframe/members/straightness.h"
#include "aluframe/model/members.h"

namespace aluframe::deflections {

namespace {

/// A support counts along an axis that it holds by more than this share: its own axes may be
/// inclined to that of the element by as much as makes sense of a support.
constexpr double held_share = 0.1;

/// Cosine beyond which an element comes across along an axis: within 60 degrees of it.
constexpr double across_share = 0.5;

/// Whether a support keeps its node from moving along an axis, if softly.
bool holds(const model::Support& support, const Eigen::RowVector3d& axis) {
  for (Eigen::Index k = 0; k < 3; ++k) {
    const auto direction = static_cast<std::size_t>(k);
    const bool acts = support.restrained[direction] || support.springs[direction] > 0.0;
    if (acts && std::abs(axis[k]) > held_share) return true;
  }
  return false;
}

/// The structure alone, for what bends along one local axis: with the supports that hold an element
/// along it, and without design, for that elements are designed one by one does not part what bends
/// together.
model::Model held_along(const model::Model& model, Eigen::Index axis) {
  model::Model frame;
  frame.nodes = model.nodes;
  frame.members = model.members;
  for (model::Element element : model.elements) {
    element.design = {};
    frame.elements.add(std::move(element));
  }
  const model::Connectivity connectivity(model);
  for (const model::Support& support : model.supports) {
    const auto& around = connectivity.elements_at(support.node);
    const bool counts = std::ranges::any_of(around, [&](model::Number number) {
      const model::Element& element = *model.elements.find(number);
      return holds(support, members::geometry_of(model, element).axes.row(axis));
    });
    if (counts) frame.supports.push_back(support);
  }
  return frame;
}

class SpanFinder {
 public:
  /// @param axis local axis along which deflections are looked at, 1 (y) or 2 (z)
  SpanFinder(const model::Model& model, Eigen::Index axis)
      : model_(model),
        axis_(axis),
        connectivity_(model),
        cantilever_ends_(members::cantilever_ends(model, connectivity_)) {}

  std::vector<Span> find() && {
    for (const model::Member& member : model_.members) add_chain(member.number, member.elements);
    std::unordered_set<model::Number> in_chain;
    for (const model::Member& beam : members::find_members(model_)) {
      add_chain(0, beam.elements);
      in_chain.insert(beam.elements.begin(), beam.elements.end());
    }
    for (const model::Element& element : model_.elements) {
      const bool is_alone =
          connectivity_.member_of(element.number) == nullptr && !in_chain.contains(element.number);
      if (is_alone) add_chain(0, {element.number});
    }
    return std::move(spans_);
  }

 private:
  void add_chain(model::Number member, const std::vector<model::Number>& numbers) {
    std::vector<Span::Element> elements;
    std::vector<std::size_t> nodes;
    walk(numbers, elements, nodes);
    const auto bends = [&](const Span::Element& element) {
      return model_.elements[element.place].kind == model::ElementKind::beam;
    };
    if (std::ranges::none_of(elements, bends)) return;
    std::vector<std::size_t> stations{0};
    for (std::size_t i = 1; i < elements.size(); ++i) {
      if (is_station(elements[i], nodes[i])) stations.push_back(i);
    }
    stations.push_back(elements.size());
    for (std::size_t i = 0; stations.size() > 2 && i + 1 < stations.size(); ++i) {
      add(member, elements, nodes, {stations[i], stations[i + 1]}, true);
    }
    // What hangs over a support turns with it: no line from end to end tells its deflection.
    const bool hangs_over =
        stations.size() > 2 && (hangs(elements.front(), true) || hangs(elements.back(), false));
    if (!hangs_over) add(member, elements, nodes, {0, elements.size()}, false);
  }

  /// Whether a support, or an element that comes across along the axis and does not hang on the
  /// chain itself, stands at the node where an element of a chain begins: a column under a beam.
  bool is_station(const Span::Element& begins, std::size_t node) const {
    const model::Number number = model_.nodes[node].number;
    if (connectivity_.support_of(number) != nullptr) return true;
    const Eigen::RowVector3d along = axis_of(begins.place);
    return std::ranges::any_of(connectivity_.elements_at(number), [&](model::Number other) {
      const std::size_t place = model_.elements.position(other);
      const model::Element& element = model_.elements[place];
      const std::size_t far = element.nodes[0] == number ? 1 : 0;
      if (cantilever_ends_[place][far]) return false;
      const Eigen::RowVector3d x = members::geometry_of(model_, element).axes.row(0);
      return std::abs(x.dot(along)) > across_share;
    });
  }

  Eigen::RowVector3d axis_of(std::size_t element) const {
    return members::geometry_of(model_, model_.elements[element]).axes.row(axis_);
  }

  /// The elements of a chain and the nodes that it passes.
  void walk(const std::vector<model::Number>& numbers, std::vector<Span::Element>& elements,
            std::vector<std::size_t>& nodes) const {
    for (std::size_t i = 0; i < numbers.size(); ++i) {
      const std::size_t place = model_.elements.position(numbers[i]);
      const auto& ends = model_.elements[place].nodes;
      bool reversed = false;
      if (i > 0) {
        reversed = model_.nodes[nodes.back()].number == ends[1];
      } else if (numbers.size() > 1) {
        const auto& next = model_.elements.find(numbers[1])->nodes;
        reversed = ends[0] == next[0] || ends[0] == next[1];
      }
      if (i == 0) nodes.push_back(model_.nodes.position(ends[reversed ? 1 : 0]));
      nodes.push_back(model_.nodes.position(ends[reversed ? 0 : 1]));
      elements.push_back({place, reversed});
    }
  }

  void add(model::Number member, const std::vector<Span::Element>& elements,
           const std::vector<std::size_t>& nodes, std::pair<std::size_t, std::size_t> range,
           bool is_part) {
    const auto [first, last] = range;
    Span span;
    span.member = member;
    span.elements.assign(elements.begin() + static_cast<std::ptrdiff_t>(first),
                         elements.begin() + static_cast<std::ptrdiff_t>(last));
    span.start = nodes[first];
    span.end = nodes[last];
    const model::Node &a = model_.nodes[span.start], &b = model_.nodes[span.end];
    span.length = std::hypot(b.x - a.x, b.y - a.y, b.z - a.z);
    if (span.length == 0.0) return;  // a ring
    span.is_part = is_part;
    const bool start_hangs = hangs(span.elements.front(), true);
    const bool end_hangs = hangs(span.elements.back(), false);
    if (start_hangs != end_hangs) {
      span.kind = SpanKind::cantilever;
      if (start_hangs) std::swap(span.start, span.end);
    }
    spans_.push_back(std::move(span));
  }

  /// Whether the outer end of a span's first or last element hangs on that alone.
  bool hangs(const Span::Element& element, bool is_first) const {
    return cantilever_ends_[element.place][element.reversed == is_first ? 1 : 0];
  }

  const model::Model& model_;
  Eigen::Index axis_;
  model::Connectivity connectivity_;
  std::vector<std::array<bool, 2>> cantilever_ends_;
  std::vector<Span> spans_;
};

/// What tells spans apart, but for their axes.
auto key_of(const Span& span) {
  return std::tuple(span.member, span.elements.front().place, span.start, span.end, span.kind,
                    span.is_part);
}

/// Members by their order, then the others by the first of their elements; parts before the whole.
std::pair<std::size_t, bool> place_of(const model::Model& model, const Span& span) {
  if (span.member != 0) return {model.members.position(span.member), !span.is_part};
  std::size_t first = model.elements.size();
  for (const Span::Element& element : span.elements) first = std::min(first, element.place);
  return {model.members.size() + first, !span.is_part};
}

}  // namespace

std::vector<Span> spans_of(const model::Model& model) {
  const std::array<model::Model, 2> frames{held_along(model, 1), held_along(model, 2)};
  std::vector<Span> spans = SpanFinder(frames[0], 1).find();
  std::map<decltype(key_of(spans[0])), std::size_t> places;
  for (Span& span : spans) {
    span.axes = {true, false};
    places.emplace(key_of(span), places.size());
  }
  for (Span& span : SpanFinder(frames[1], 2).find()) {
    const auto same = places.find(key_of(span));
    if (same != places.end()) {
      spans[same->second].axes[1] = true;
      continue;
    }
    span.axes = {false, true};
    spans.push_back(std::move(span));
  }
  std::ranges::stable_sort(spans, {}, [&](const Span& span) { return place_of(model, span); });
  return spans;
}

model::DeflectionLimit limit_of(const model::Model& model, const Span& span) {
  const model::Member* member = span.member == 0 ? nullptr : model.members.find(span.member);
  if (member != nullptr && member->deflection_limit) return *member->deflection_limit;
  return model.serviceability.deflection.value_or(model::DeflectionLimit());
}

double allowed(const model::DeflectionLimit& limit, const Span& span) {
  constexpr double unlimited = std::numeric_limits<double>::infinity();
  const double by_span = limit.span ? span.counted_length() / *limit.span : unlimited;
  return std::min(by_span, limit.absolute.value_or(unlimited));
}

}  // namespace aluframe::deflections
