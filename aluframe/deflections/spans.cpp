#include "aluframe/deflections/spans.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <iterator>
#include <limits>
#include <map>
#include <optional>
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

using AllAxes = std::vector<Eigen::Matrix3d>;  ///< local axes in rows, by element

AllAxes axes_of(const model::Model& model) {
  AllAxes all;
  all.reserve(model.elements.size());
  for (const model::Element& element : model.elements) {
    all.emplace_back(members::geometry_of(model, element).axes);
  }
  return all;
}

/// The structure alone, with some of its supports: without design, for that elements are designed
/// one by one does not part what bends together.
model::Model undesigned(const model::Model& model, std::vector<model::Support> supports) {
  model::Model frame;
  frame.nodes = model.nodes;
  frame.supports = std::move(supports);
  frame.members = model.members;
  for (model::Element element : model.elements) {
    element.design = {};
    frame.elements.add(std::move(element));
  }
  return frame;
}

/// The supports that hold an element along one of its local axes.
std::vector<model::Support> supports_along(const model::Model& model, const AllAxes& axes,
                                           Eigen::Index axis) {
  std::vector<model::Support> supports;
  const model::Connectivity connectivity(model);
  std::ranges::copy_if(model.supports, std::back_inserter(supports), [&](const auto& support) {
    return std::ranges::any_of(connectivity.elements_at(support.node), [&](model::Number number) {
      return holds(support, axes[model.elements.position(number)].row(axis));
    });
  });
  return supports;
}

/// A frame with what its spans follow from.
struct Frame {
  explicit Frame(model::Model held)
      : model(std::move(held)),
        connectivity(model),
        cantilever_ends(members::cantilever_ends(model, connectivity)),
        beams(members::find_members(model)) {}
  Frame(const Frame&) = delete;
  Frame& operator=(const Frame&) = delete;
  ~Frame() = default;

  model::Model model;
  model::Connectivity connectivity;
  std::vector<std::array<bool, 2>> cantilever_ends;
  std::vector<model::Member> beams;  ///< of elements in no member
};

class SpanFinder {
 public:
  /// @param axis local axis along which deflections are looked at, 1 (y) or 2 (z)
  SpanFinder(const Frame& frame, const AllAxes& axes, Eigen::Index axis)
      : frame_(frame), model_(frame.model), axes_(axes), axis_(axis) {}

  std::vector<Span> find() && {
    for (const model::Member& member : model_.members) add_chain(member.number, member.elements);
    std::unordered_set<model::Number> in_chain;
    for (const model::Member& beam : frame_.beams) {
      add_chain(0, beam.elements);
      in_chain.insert(beam.elements.begin(), beam.elements.end());
    }
    for (const model::Element& element : model_.elements) {
      const bool is_alone = frame_.connectivity.member_of(element.number) == nullptr &&
                            !in_chain.contains(element.number);
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
    if (frame_.connectivity.support_of(number) != nullptr) return true;
    const Eigen::RowVector3d along = axes_[begins.place].row(axis_);
    return std::ranges::any_of(frame_.connectivity.elements_at(number), [&](model::Number other) {
      const std::size_t place = model_.elements.position(other);
      const model::Element& element = model_.elements[place];
      const std::size_t far = element.nodes[0] == number ? 1 : 0;
      if (frame_.cantilever_ends[place][far]) return false;
      return std::abs(axes_[place].row(0).dot(along)) > across_share;
    });
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
    return frame_.cantilever_ends[element.place][element.reversed == is_first ? 1 : 0];
  }

  const Frame& frame_;
  const model::Model& model_;
  const AllAxes& axes_;
  Eigen::Index axis_;
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
  const AllAxes axes = axes_of(model);
  const auto held_along_y = supports_along(model, axes, 1);
  const auto held_along_z = supports_along(model, axes, 2);
  const Frame for_y(undesigned(model, held_along_y));
  std::optional<Frame> for_z;
  if (held_along_z != held_along_y) for_z.emplace(undesigned(model, held_along_z));
  std::vector<Span> spans = SpanFinder(for_y, axes, 1).find();
  std::map<decltype(key_of(spans[0])), std::size_t> places;
  for (Span& span : spans) {
    span.axes = {true, false};
    places.emplace(key_of(span), places.size());
  }
  for (Span& span : SpanFinder(for_z ? *for_z : for_y, axes, 2).find()) {
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
