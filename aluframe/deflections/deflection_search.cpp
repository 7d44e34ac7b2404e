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

/// The largest magnitude of some polynomials at both ends and in the middle.
double largest_sample(const std::vector<analysis::Bernstein>& polynomials) {
  double largest = 0.0;
  for (const analysis::Bernstein& c : polynomials) {
    const double middle = (c[0] + c[5] + 5.0 * (c[1] + c[4]) + 10.0 * (c[2] + c[3])) / 32.0;
    largest = std::max({largest, std::abs(c[0]), std::abs(middle), std::abs(c[5])});
  }
  return largest;
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
      const Eigen::Matrix4Xd chords = chords_of(place, references[span], shapes.across.cols());
      for (const Eigen::Index axis : {0, 1}) {
        if (!out_.spans[span].axes[static_cast<std::size_t>(axis)]) continue;
        const auto chord = chords.middleRows<2>(2 * axis);
        AxisDeflection& best = out_.of_spans[span][static_cast<std::size_t>(axis)];
        for (std::size_t piece = 0; piece + 1 < shapes.bounds.size(); ++piece) {
          take_piece(displacements.combinations(), {place, axis, piece}, shapes, chord, best);
        }
      }
    }
  }

  /// Where the ends of an element would be, had they moved with the span: along its y at the start
  /// and at the end, then along its z; a column a state.
  Eigen::Matrix4Xd chords_of(std::size_t element, const Reference& reference,
                             Eigen::Index states) const {
    const Eigen::Matrix<double, 2, 3> across = geometry_[element].axes.bottomRows<2>();
    const auto& nodes = model_.elements[element].nodes;
    const Vector3d start = position(*model_.nodes.find(nodes[0]));
    const Vector3d end = position(*model_.nodes.find(nodes[1]));
    Eigen::Matrix4Xd chords(4, states);
    for (Eigen::Index state = 0; state < states; ++state) {
      const Eigen::Vector2d at_start = across * reference.at(start, state);
      const Eigen::Vector2d at_end = across * reference.at(end, state);
      chords.col(state) << at_start[0], at_end[0], at_start[1], at_end[1];
    }
    return chords;
  }

  /// A stretch of an element along one of its axes.
  struct Piece {
    std::size_t element = 0;
    Eigen::Index axis = 0;
    std::size_t number = 0;
  };

  using Chord = Eigen::Ref<const Eigen::Matrix2Xd, 0, Eigen::OuterStride<>>;

  void take_piece(const std::vector<model::Number>& combinations, const Piece& piece,
                  const Shapes& shapes, const Chord& chord, AxisDeflection& best) const {
    const double from = shapes.bounds[piece.number], to = shapes.bounds[piece.number + 1];
    const double length = geometry_[piece.element].length;
    const auto row = static_cast<Eigen::Index>(12 * piece.number) + 6 * piece.axis;
    std::vector<analysis::Bernstein> absolute, relative;
    for (Eigen::Index state = 0; state < chord.cols(); ++state) {
      analysis::Bernstein polynomial = coefficients(shapes.across, row, state);
      absolute.push_back(polynomial);
      const double a = chord(0, state), slope = (chord(1, state) - a) / length;
      for (std::size_t k = 0; k < polynomial.size(); ++k) {
        polynomial[k] -= a + slope * (from + (to - from) * static_cast<double>(k) / 5.0);
      }
      relative.push_back(polynomial);
    }
    const auto improve = [&](const std::vector<analysis::Bernstein>& polynomials,
                             Extreme& extreme) {
      // Some state has this, so that one that has less need not be looked at.
      const double reached = (1.0 - 2.0 * margin) * largest_sample(polynomials);
      for (std::size_t state = 0; state < polynomials.size(); ++state) {
        const double known = std::max(std::abs(extreme.value), reached);
        if (!is_larger(bound_of(polynomials[state]), known)) continue;
        const analysis::Peak peak = analysis::peak_of(polynomials[state], known);
        if (std::abs(peak.value) < reached || !is_larger(peak.value, extreme.value)) continue;
        extreme = {peak.value, piece.element, from + peak.part * (to - from), combinations[state]};
      }
    };
    improve(absolute, best.absolute);
    improve(relative, best.relative);
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
                             const GoesOn& goes_on, const forces::CaseDisplacements* known) {
  Deflections out = without_values(model);
  Search search(model, out);
  if (!model.analysis.second_order) {
    const auto found = linear_displacements(model, states, known);
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
