#include "aluframe/deflections/deflection_search.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <optional>
#include <utility>

#include "aluframe/analysis/local_axes.h"
#include "aluframe/deflections/element_deflections.h"
#include "aluframe/forces/frame_of_model.h"
#include "aluframe/texts/text.h"

namespace aluframe::deflections {

namespace {

using Eigen::Vector3d;

Vector3d position(const model::Node& node) {
  return {node.x, node.y, node.z};
}

/// What the deflection of a span is counted from, under several states: where its points would be,
/// had it moved with its ends as a rigid bar that stretches; of a cantilever, with its held end.
class Reference {
 public:
  Reference(const model::Model& model, const Span& span, const Displacements& displacements)
      : start_(position(model.nodes[span.start])),
        chord_((position(model.nodes[span.end]) - start_) / span.length),
        length_(span.length),
        of_start_(displacements.of_node(span.start)) {
    if (span.kind == SpanKind::between) apart_ = displacements.of_node(span.end) - of_start_;
  }

  Vector3d at(const Vector3d& point, Eigen::Index state) const {
    if (apart_.cols() == 0) return of_start_.col(state);
    const Vector3d from_start = point - start_;
    const Vector3d apart = apart_.col(state) / length_;
    const Vector3d turn = chord_.cross(apart);
    return of_start_.col(state) + turn.cross(from_start) +
           chord_.dot(apart) * chord_.dot(from_start) * chord_;
  }

 private:
  Vector3d start_, chord_;
  double length_;
  Eigen::Matrix3Xd of_start_;
  Eigen::Matrix3Xd apart_;  ///< of the end against the start; without columns: does not turn
};

analysis::Bernstein coefficients(const Eigen::MatrixXd& across, Eigen::Index row,
                                 Eigen::Index state) {
  analysis::Bernstein out{};
  for (Eigen::Index k = 0; k < 6; ++k) out[static_cast<std::size_t>(k)] = across(row + k, state);
  return out;
}

double bound_of(const analysis::Bernstein& polynomial) {
  double bound = 0.0;
  for (const double c : polynomial) bound = std::max(bound, std::abs(c));
  return bound;
}

/// Of what differs by rounding alone the first is told, whatever the compiler rounds.
constexpr double margin = 1e-10;

bool is_larger(double value, double than) {
  return std::abs(value) > std::abs(than) * (1.0 + margin);
}

class Search {
 public:
  Search(const model::Model& model, Deflections& out)
      : model_(model),
        geometry_(analysis::element_geometry(forces::frame_of(model))),
        spans_of_(model.elements.size()),
        out_(out) {
    for (std::size_t i = 0; i < out.spans.size(); ++i) {
      for (const Span::Element& element : out.spans[i].elements) {
        spans_of_[element.place].push_back(i);
      }
    }
  }

  void take(const Displacements& displacements, const GoesOn& goes_on = {}) {
    take_spans(displacements, goes_on);
    take_limited_nodes(displacements);
  }

  void take_spans(const Displacements& displacements, const GoesOn& goes_on = {}) {
    std::vector<Reference> references;
    references.reserve(out_.spans.size());
    for (const Span& span : out_.spans) references.emplace_back(model_, span, displacements);
    const auto elements = static_cast<int>(model_.elements.size());
    for (int i = 0; i < elements; ++i) {
      if (goes_on && !goes_on(i, elements)) return;
      take_element(displacements, references, static_cast<std::size_t>(i));
    }
  }

  void take_limited_nodes(const Displacements& displacements) {
    take_drifts(displacements);
    take_nodes(displacements);
  }

 private:
  /// An element for all spans that it is in: its shape is worked out once.
  void take_element(const Displacements& displacements, const std::vector<Reference>& references,
                    std::size_t place) {
    if (spans_of_[place].empty()) return;
    const Shapes shapes = displacements.of_element(place);
    for (const std::size_t span : spans_of_[place]) {
      for (std::size_t state = 0; state < displacements.combinations().size(); ++state) {
        take_shape(place, shapes, references[span], static_cast<Eigen::Index>(state),
                   displacements.combinations()[state], out_.spans[span].axes, out_.of_spans[span]);
      }
    }
  }

  void take_shape(std::size_t element, const Shapes& shapes, const Reference& reference,
                  Eigen::Index state, model::Number combination, const std::array<bool, 2>& axes,
                  std::array<AxisDeflection, 2>& best) const {
    const analysis::Geometry& geometry = geometry_[element];
    const auto& nodes = model_.elements[element].nodes;
    const Vector3d at_start =
        geometry.axes * reference.at(position(*model_.nodes.find(nodes[0])), state);
    const Vector3d at_end =
        geometry.axes * reference.at(position(*model_.nodes.find(nodes[1])), state);
    for (std::size_t piece = 0; piece + 1 < shapes.bounds.size(); ++piece) {
      const double from = shapes.bounds[piece], to = shapes.bounds[piece + 1];
      for (Eigen::Index axis = 0; axis < 2; ++axis) {
        if (!axes[static_cast<std::size_t>(axis)]) continue;
        const auto row = static_cast<Eigen::Index>(12 * piece) + 6 * axis;
        analysis::Bernstein polynomial = coefficients(shapes.across, row, state);
        const auto improve = [&](Extreme& extreme) {
          if (!is_larger(bound_of(polynomial), extreme.value)) return;
          const analysis::Peak peak = analysis::peak_of(polynomial, std::abs(extreme.value));
          if (!is_larger(peak.value, extreme.value)) return;
          extreme = {peak.value, element, from + peak.part * (to - from), combination};
        };
        AxisDeflection& of_axis = best[static_cast<std::size_t>(axis)];
        improve(of_axis.absolute);
        const double a = at_start[1 + axis], slope = (at_end[1 + axis] - a) / geometry.length;
        for (std::size_t k = 0; k < polynomial.size(); ++k) {
          polynomial[k] -= a + slope * (from + (to - from) * static_cast<double>(k) / 5.0);
        }
        improve(of_axis.relative);
      }
    }
  }

  void take_drifts(const Displacements& displacements) {
    const auto& limits = model_.serviceability.drifts;
    for (std::size_t i = 0; i < limits.size(); ++i) {
      const Eigen::Matrix3Xd apart = displacements.of_node(model_.nodes.position(limits[i].upper)) -
                                     displacements.of_node(model_.nodes.position(limits[i].lower));
      for (Eigen::Index state = 0; state < apart.cols(); ++state) {
        const double drift = apart.col(state).head<2>().norm();
        if (is_larger(drift, out_.drifts[i].value)) {
          out_.drifts[i] = {drift, displacements.combinations()[static_cast<std::size_t>(state)]};
        }
      }
    }
  }

  static double along(model::DisplacementDirection direction, const Vector3d& displacement) {
    using enum model::DisplacementDirection;
    switch (direction) {
      case x:
        return displacement.x();
      case y:
        return displacement.y();
      case z:
        return displacement.z();
      case horizontal:
        return displacement.head<2>().norm();
      default:
        return displacement.norm();
    }
  }

  void take_nodes(const Displacements& displacements) {
    for (NodeDisplacement& node : out_.nodes) {
      const Eigen::Matrix3Xd all = displacements.of_node(node.node);
      const auto direction = model_.serviceability.displacements[node.limit].direction;
      for (Eigen::Index state = 0; state < all.cols(); ++state) {
        const double value = along(direction, all.col(state));
        if (is_larger(value, node.value)) {
          node.value = value;
          node.combination = displacements.combinations()[static_cast<std::size_t>(state)];
        }
      }
    }
  }

  const model::Model& model_;
  std::vector<analysis::Geometry> geometry_;
  std::vector<std::vector<std::size_t>> spans_of_;  ///< by element
  Deflections& out_;
};

Deflections without_values(const model::Model& model) {
  Deflections out;
  out.spans = spans_of(model);
  out.of_spans.resize(out.spans.size());
  out.drifts.resize(model.serviceability.drifts.size());
  const auto& limits = model.serviceability.displacements;
  for (std::size_t i = 0; i < limits.size(); ++i) {
    for (const model::Number node : limits[i].nodes) {
      out.nodes.push_back({.limit = i, .node = model.nodes.position(node)});
    }
  }
  return out;
}

/// A shape of second order is not known to be right where displacements are large.
std::string large_text() {
  return texts::translatable(
      "its displacements are too large for second order, by which deflections are found");
}

/// Nodes move by large displacements themselves: no shape between them is needed.
std::optional<analysis::Problem> take_nodes_of_large(const model::Model& model, const State& state,
                                                     Search& search) {
  const model::ServiceabilityLimits& limits = model.serviceability;
  if (limits.drifts.empty() && limits.displacements.empty()) return std::nullopt;
  auto found = large_displacements(model, state);
  if (auto* problem = std::get_if<analysis::Problem>(&found)) return std::move(*problem);
  search.take_limited_nodes(*std::get<std::unique_ptr<Displacements>>(found));
  return std::nullopt;
}

}  // namespace

Deflections find_deflections(const model::Model& model, const std::vector<State>& states,
                             const GoesOn& goes_on) {
  Deflections out = without_values(model);
  Search search(model, out);
  if (!model.analysis.second_order) {
    const auto found = linear_displacements(model, states);
    if (const auto* problem = std::get_if<analysis::Problem>(&found)) {
      for (const State& state : states) out.unknown.push_back({state.combination, problem->text});
      return out;
    }
    search.take(*std::get<std::unique_ptr<Displacements>>(found), goes_on);
    return out;
  }
  int done = 0;
  for (const State& state : states) {
    if (goes_on && !goes_on(done++, static_cast<int>(states.size()))) return out;
    const auto found = second_order_displacements(model, state);
    if (const auto* problem = std::get_if<analysis::Problem>(&found)) {
      out.unknown.push_back({state.combination, problem->text});
      continue;
    }
    const auto& displacements = *std::get<std::unique_ptr<Displacements>>(found);
    search.take_spans(displacements);
    if (displacements.are_too_large()) out.unknown.push_back({state.combination, large_text()});
    if (!model.analysis.large_displacements) {
      search.take_limited_nodes(displacements);
    } else if (auto problem = take_nodes_of_large(model, state, search)) {
      out.unknown.push_back({state.combination, problem->text});
    }
  }
  return out;
}

}  // namespace aluframe::deflections
