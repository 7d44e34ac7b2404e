#include "aluframe/analysis/large_displacement.h"

#include <fmt/format.h>

#include <Eigen/Geometry>
#include <algorithm>
#include <cmath>
#include <memory>
#include <utility>

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/case_recovery.h"
#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/analysis/equilibrium_path.h"
#include "aluframe/analysis/input_check.h"
#include "aluframe/analysis/motion_text.h"
#include "aluframe/analysis/softest_mode.h"
#include "aluframe/analysis/stiffness_equations.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

using Found = std::optional<Problem>;

Found find_sliding_release(const Frame& frame) {
  constexpr std::array<const char*, 3> names{"N", "Fy", "Fz"};
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    const Element& element = frame.elements[i];
    if (element.kind == ElementKind::truss) continue;
    for (std::size_t dof = 0; dof < 12; ++dof) {
      if (!element.released[dof] || dof % 6 > 2) continue;
      return Problem{
          .kind = Problem::Kind::input,
          .text = fmt::format(
              texts::translatable("{} releases {}, and an end that slides cannot be "
                                  "followed through large displacements: only Mx, My and "
                                  "Mz may be released"),
              element_name(frame, i), names[dof % 6]),
          .element = i};
    }
  }
  return std::nullopt;
}

/// A frame on its way to a state under loads.
class LargeAnalysis {
 public:
  LargeAnalysis(const Frame& frame, const LoadCase& loads, const PieceCounts& pieces)
      : frame_(frame),
        loads_(loads),
        cut_(frame, pieces),
        cut_loads_(cut_.cut(loads)),
        displaced_(cut_, cut_loads_),
        path_(frame, cut_, displaced_) {}

  EquilibriumPath::End follow(double factor) { return path_.follow(factor); }
  PieceCounts pieces() const;
  /// Pieces that the state at the end of the path wants.
  PieceCounts enough_pieces(const EquilibriumPath::End& end) const;
  /// What moves at a critical point.
  std::string motion_at(const EquilibriumPath::End& end) const;
  Result<SecondOrderResult> result(const EquilibriumPath::End& end);
  NodeValues displacements(const EquilibriumPath::End& end) const;

 private:
  Axes displaced_axes(std::size_t element, const FrameState& state) const;
  FivePositions sections(std::size_t element, const DisplacedFrame::Forces& forces,
                         const Axes& axes) const;
  double force_error(const EquilibriumPath::End& end, const DisplacedFrame::Forces& forces);

  const Frame& frame_;
  const LoadCase& loads_;
  CutFrame cut_;
  LoadCase cut_loads_;
  DisplacedFrame displaced_;
  EquilibriumPath path_;
};

PieceCounts LargeAnalysis::pieces() const {
  PieceCounts counts;
  for (std::size_t i = 0; i < frame_.elements.size(); ++i) counts.push_back(cut_.count_of(i));
  return counts;
}

PieceCounts LargeAnalysis::enough_pieces(const EquilibriumPath::End& end) const {
  const auto forces = displaced_.forces(end.state);
  return forces ? cut_.enough_pieces(forces->axial_forces) : pieces();
}

NodeValues LargeAnalysis::displacements(const EquilibriumPath::End& end) const {
  NodeValues values = displaced_.displacements(end.state);
  values.resize(6 * frame_.nodes.size());
  return values;
}

/// Largest translation among some of the nodes, and whose it is.
std::pair<double, std::size_t> largest_translation(const NodeValues& values, std::size_t from,
                                                   std::size_t to) {
  std::pair<double, std::size_t> largest{0.0, from};
  for (std::size_t i = from; i < to; ++i) {
    const double size = std::hypot(values[6 * i], values[6 * i + 1], values[6 * i + 2]);
    if (size > largest.first) largest = {size, i};
  }
  return largest;
}

std::string LargeAnalysis::motion_at(const EquilibriumPath::End& end) const {
  if (end.element)
    return fmt::format(texts::translatable("{} buckles between its nodes"),
                       element_name(frame_, *end.element));
  const auto mode =
      lost_motion(cut_.frame, displaced_.equations(), {end.stiffness, end.scale}, end.beyond);
  if (!mode) return texts::translatable("its stiffness is used up");
  const std::size_t nodes = frame_.nodes.size();
  const auto [of_cuts, cut] = largest_translation(*mode, nodes, cut_.frame.nodes.size());
  if (of_cuts > 2.0 * largest_translation(*mode, 0, nodes).first) {
    const auto meets = [&](const Element& piece) { return piece.end == cut; };
    const auto piece = std::ranges::find_if(cut_.frame.elements, meets);
    const auto place = static_cast<std::size_t>(piece - cut_.frame.elements.begin());
    const Eigen::Vector3d along((*mode)[6 * cut], (*mode)[6 * cut + 1], (*mode)[6 * cut + 2]);
    return fmt::format(texts::translatable("{} bends out between its nodes, along {}"),
                       element_name(frame_, cut_.element_of[place]), axis_name(along));
  }
  NodeValues own = *mode;
  own.resize(6 * nodes);
  const auto dominant = dominant_motion(frame_, own);
  return dominant ? motion_text(frame_, *dominant)
                  : texts::translatable("its stiffness is used up");
}

/// x between the displaced ends, y as the section in the middle has it: ends may be released.
Axes LargeAnalysis::displaced_axes(std::size_t element, const FrameState& state) const {
  const Element& whole = frame_.elements[element];
  const std::size_t first = cut_.first_piece[element], last = cut_.first_piece[element + 1] - 1;
  const Axes& undisplaced = cut_.geometry[first].axes;
  const double length = cut_.geometry[first].length * static_cast<double>(last - first + 1);
  const Eigen::Vector3d x = (length * undisplaced.row(0).transpose() +
                             state.nodes[whole.end].moved - state.nodes[whole.start].moved)
                                .normalized();
  const std::size_t middle = cut_.frame.elements[(first + last) / 2].end;
  Eigen::Matrix3d turn = state.nodes[middle].turned.matrix();
  if (first == last) {
    const Eigen::Vector3d before = undisplaced.row(0).transpose();
    turn = Eigen::Quaterniond::FromTwoVectors(before, x).matrix();
  }
  const Eigen::Vector3d y = turn * undisplaced.row(1).transpose();
  Axes axes;
  axes.row(0) = x;
  axes.row(1) = (y - x.dot(y) * x).normalized();
  axes.row(2) = x.cross(Eigen::Vector3d(axes.row(1)));
  return axes;
}

/// Forces that the next piece, or the node, exerts on a piece's end, as forces of the section.
FivePositions LargeAnalysis::sections(std::size_t element, const DisplacedFrame::Forces& forces,
                                      const Axes& axes) const {
  const std::size_t first = cut_.first_piece[element], last = cut_.first_piece[element + 1] - 1;
  FivePositions sections;
  if (frame_.elements[element].kind == ElementKind::truss) {
    sections.setZero();
    sections.row(0).setConstant(forces.axial_forces[first]);
    return sections;
  }
  const Eigen::Array<double, 6, 1> signs(1.0, -1.0, -1.0, 1.0, -1.0, 1.0);
  const auto local = [&](std::size_t piece) { return to_local(axes, forces.on_pieces[piece]); };
  sections.col(0) = -(signs * local(first).head<6>().array()).matrix();
  for (std::size_t i = 1; i < 5; ++i) {
    const std::size_t piece = first + i * (last - first + 1) / 4 - 1;
    sections.col(static_cast<int>(i)) = (signs * local(piece).tail<6>().array()).matrix();
  }
  for (int dof = 3; dof < 6; ++dof) {
    // What is left of a released moment is rounding, and that of other moments about oblique axes.
    const auto& released = frame_.elements[element].released;
    if (released[static_cast<std::size_t>(dof)]) sections(dof, 0) = 0.0;
    if (released[static_cast<std::size_t>(dof) + 6]) sections(dof, 4) = 0.0;
  }
  return sections;
}

/// What another step would change the axial forces by, as a share of the largest force.
double LargeAnalysis::force_error(const EquilibriumPath::End& end,
                                  const DisplacedFrame::Forces& forces) {
  const auto tangent = displaced_.factorise(end.state);
  if (!tangent) return std::numeric_limits<double>::infinity();
  const Steps steps = displaced_.solve(*tangent, forces.unbalanced);
  const auto after = displaced_.forces(displaced_.moved(end.state, steps));
  if (!after) return std::numeric_limits<double>::infinity();
  double change = 0.0;
  for (std::size_t i = 0; i < forces.axial_forces.size(); ++i) {
    change = std::max(change, std::abs(after->axial_forces[i] - forces.axial_forces[i]));
  }
  return share({change, 0.0}, forces.scale, lengths_of(frame_, element_geometry(frame_)));
}

Result<SecondOrderResult> LargeAnalysis::result(const EquilibriumPath::End& end) {
  const auto forces = displaced_.forces(end.state);
  const std::vector<Geometry> geometry = element_geometry(frame_);
  SecondOrderResult solved{.result = {}, .iterations = end.iterations};
  solved.change = force_error(end, *forces);
  CaseRecovery recovery(frame_, displacements(end), solved.change);
  for (std::size_t i = 0; i < frame_.elements.size(); ++i) {
    const std::size_t first = cut_.first_piece[i], last = cut_.first_piece[i + 1] - 1;
    Vector12 ends;
    ends << forces->on_pieces[first].head<6>(), forces->on_pieces[last].tail<6>();
    const FivePositions at = sections(i, *forces, displaced_axes(i, end.state));
    recovery.add(i, ends, at.reshaped(), forces->scale);
  }
  const Equations equations(frame_);
  auto found = recovery.finish(equations, loads_, LoadsByElement(frame_, geometry, loads_),
                               geometry, forces->scale, Order::second);
  if (auto* problem = std::get_if<Problem>(&found)) return std::move(*problem);
  solved.result = std::get<CaseResult>(std::move(found));
  // The pieces between the nodes must be in equilibrium as well.
  double& unbalanced = solved.result.equilibrium.nodes;
  unbalanced = std::max(unbalanced, path_.residual_of(*forces));
  return solved;
}

/// A problem of the undisplaced frame, or of the input.
Found find_first_problem(const Frame& frame, const LoadCase& loads) {
  auto first_order = analyse(frame, std::span(&loads, 1));
  if (auto* problem = std::get_if<Problem>(&first_order)) {
    problem->load_case.reset();
    return std::move(*problem);
  }
  return find_sliding_release(frame);
}

Problem limit_problem(const EquilibriumPath::End& end, const std::string& motion) {
  const auto problem = [](Problem::Kind kind, std::string text) {
    return Problem{.kind = kind, .text = std::move(text)};
  };
  using Kind = Problem::Kind;
  switch (end.how) {
    case PathEnd::limit_point:
      return problem(
          Kind::buckling,
          fmt::format(texts::translatable("the frame snaps through at {:.4g} of these loads: "
                                          "{}"),
                      end.factor, motion));
    case PathEnd::bifurcation:
      return problem(
          Kind::buckling,
          fmt::format(texts::translatable("the frame buckles at {:.4g} of these loads: {}"),
                      end.factor, motion));
    case PathEnd::element_buckling: {
      Problem own = problem(
          Kind::buckling,
          fmt::format(texts::translatable("{} at {:.4g} of these loads"), motion, end.factor));
      own.element = end.element;
      return own;
    }
    case PathEnd::rounding:
      return problem(Kind::equilibrium,
                     texts::translatable(
                         "large displacements: rounding in the stiffest elements leaves more than "
                         "1e-9 of the forces unbalanced; a link is rigid enough with some hundred "
                         "times the stiffness of its neighbours"));
    default:
      return problem(
          Kind::divergence,
          fmt::format(
              texts::translatable("large displacements: no equilibrium was found beyond {:.4g} of "
                                  "these loads"),
              end.factor));
  }
}

bool has_no_equilibrium(const EquilibriumPath::End& end) {
  return end.how == PathEnd::lost || end.how == PathEnd::rounding;
}

LimitLoad::Kind kind_of(PathEnd how) {
  switch (how) {
    case PathEnd::limit_point:
      return LimitLoad::Kind::snap_through;
    case PathEnd::bifurcation:
      return LimitLoad::Kind::buckling;
    case PathEnd::element_buckling:
      return LimitLoad::Kind::element_buckling;
    default:
      return LimitLoad::Kind::none;
  }
}

/// An analysis that has followed the path of a frame, with as many pieces as that takes.
struct Followed {
  std::unique_ptr<LargeAnalysis> analysis;
  EquilibriumPath::End end;
};

Followed follow(const Frame& frame, const LoadCase& loads, double factor) {
  constexpr int most_cuts = 4;  // each at least doubles the pieces of an element
  PieceCounts pieces = usual_pieces(frame);
  Followed followed;
  for (int i = 0; i < most_cuts; ++i) {
    followed.analysis = std::make_unique<LargeAnalysis>(frame, loads, pieces);
    followed.end = followed.analysis->follow(factor);
    PieceCounts enough = followed.analysis->enough_pieces(followed.end);
    if (enough == pieces) break;
    pieces = std::move(enough);
  }
  return followed;
}

}  // namespace

Result<SecondOrderResult> analyse_large_displacements(const Frame& frame, const LoadCase& loads,
                                                      const Options& limits) {
  if (auto problem = find_first_problem(frame, loads)) return std::move(*problem);
  const auto [analysis, end] = follow(frame, loads, 1.0);
  if (end.how != PathEnd::reached) {
    return limit_problem(end, has_no_equilibrium(end) ? "" : analysis->motion_at(end));
  }
  auto solved = analysis->result(end);
  if (const auto* found = std::get_if<SecondOrderResult>(&solved)) {
    if (auto problem = find_residual_problem(found->result, 0, limits)) return std::move(*problem);
  }
  return solved;
}

Result<LimitLoad> find_limit_load(const Frame& frame, const LoadCase& loads,
                                  double largest_factor) {
  if (auto problem = find_first_problem(frame, loads)) return std::move(*problem);
  const auto [analysis, end] = follow(frame, loads, largest_factor);
  if (has_no_equilibrium(end)) return limit_problem(end, "");
  LimitLoad limit{.kind = kind_of(end.how), .factor = end.factor, .text = {}, .node = {}};
  if (limit.kind != LimitLoad::Kind::none) limit.text = analysis->motion_at(end);
  const auto [size, node] =
      largest_translation(analysis->displacements(end), 0, frame.nodes.size());
  limit.largest_displacement = size;
  if (size > 0.0) limit.node = node;
  return limit;
}

}  // namespace aluframe::analysis
