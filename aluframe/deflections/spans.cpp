#include "aluframe/deflections/spans.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <limits>
#include <unordered_set>
#include <utility>

#include "aluframe/members/cantilever_ends.h"
#include "aluframe/members/find_members.h"
#include "aluframe/model/members.h"

namespace aluframe::deflections {

namespace {

/// Whether a support keeps its node from moving in some direction, if softly.
bool holds(const model::Support* support) {
  if (support == nullptr) return false;
  for (std::size_t k = 0; k < 3; ++k) {
    if (support->restrained[k] || support->springs[k] > 0.0) return true;
  }
  return false;
}

/// The structure alone: that elements are designed one by one does not part what bends together.
model::Model undesigned(const model::Model& model) {
  model::Model frame;
  frame.nodes = model.nodes;
  frame.supports = model.supports;
  frame.members = model.members;
  for (model::Element element : model.elements) {
    element.design = {};
    frame.elements.add(std::move(element));
  }
  return frame;
}

class SpanFinder {
 public:
  explicit SpanFinder(const model::Model& model)
      : model_(model),
        connectivity_(model),
        cantilever_ends_(members::cantilever_ends(model, connectivity_)) {}

  std::vector<Span> find() && {
    for (const model::Member& member : model_.members) add_chain(member.number, member.elements);
    std::unordered_set<model::Number> in_chain;
    for (const model::Member& beam : members::find_members(undesigned(model_))) {
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
      if (holds(connectivity_.support_of(model_.nodes[nodes[i]].number))) stations.push_back(i);
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
  model::Connectivity connectivity_;
  std::vector<std::array<bool, 2>> cantilever_ends_;
  std::vector<Span> spans_;
};

}  // namespace

std::vector<Span> spans_of(const model::Model& model) {
  return SpanFinder(model).find();
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
