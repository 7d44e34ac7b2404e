#include "aluframe/analysis/second_order.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

#include "aluframe/analysis/beam_column.h"
#include "aluframe/analysis/buckling.h"
#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/analysis/displaced_growth.h"
#include "aluframe/analysis/initial_state.h"
#include "aluframe/analysis/input_check.h"
#include "aluframe/analysis/mechanism.h"
#include "aluframe/analysis/motion_text.h"
#include "aluframe/analysis/refinement.h"
#include "aluframe/analysis/shallow_nodes.h"
#include "aluframe/analysis/softest_mode.h"
#include "aluframe/analysis/stiffness_equations.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

using Found = std::optional<Problem>;

/// Axial forces below this share of the loads do nothing worth another iteration.
constexpr double least_axial_share = 1e-3;
/// Softness below which every step is refined: the tip of a long oblique chain is displaced so far
/// that the axial forces of its elements would be rounding, and the steps would not settle.
/// Building grids of 10,000 elements lie at 1e-4.
constexpr double soft = 1e-8;

/// Gives equations the scale of others of the same frame.
void take_scale(const std::vector<double>& scale, ScaledEquations& equations) {
  SymmetricMatrix& matrix = equations.matrix;
  const auto change = [&](int counted_from_one) {
    const auto at = static_cast<std::size_t>(counted_from_one - 1);
    return scale[at] / equations.scale[at];
  };
  for (std::size_t i = 0; i < matrix.values.size(); ++i) {
    matrix.values[i] *= change(matrix.rows[i]) * change(matrix.columns[i]);
  }
  equations.scale = scale;
}

/// What iterates: elements under the axial forces of the last solution.
class Iteration {
 public:
  Iteration(const Frame& frame, const LoadCase& loads, const Imperfections& imperfections)
      : frame_(frame),
        load_case_(loads),
        geometry_(element_geometry(frame)),
        equations_(frame),
        loads_(frame, geometry_, loads),
        initial_(frame, geometry_, loads, imperfections),
        axial_forces_(frame.elements.size()),
        solver_(make_solver()) {}

  Found find_lost() const { return find_lost_load(frame_, equations_, load_case_); }
  /// Solves once with the axial forces known so far and finds new ones. Imperfections join one
  /// step after another, as their signs become known.
  Found step();
  /// Whether the last step had all imperfections.
  bool is_complete() const { return initial_.is_complete(); }
  /// Largest change of an axial force in the last step, as a share of the largest.
  double change() const { return change_; }
  Result<CaseResult> result();
  InitialCurvatures initial_curvatures() const { return initial_.curvatures(); }
  std::vector<ElementShape> shapes() const;
  /// Displacements that the geometry of the displaced nodes adds.
  NodeValues growth();
  std::optional<NodeValues> flattening();
  const NodeValues& displacements() const { return displacements_; }

 private:
  Found add_imperfection();
  Found make_columns();
  Found solve_equations();
  Found find_buckling(const Factorisation& done, const ScaledEquations& scaled) const;
  Problem buckled_element(std::size_t place) const;
  Problem buckled(const ScaledEquations& scaled) const;
  const RefinedCase& refine_solution();
  Vector12 end_forces(std::size_t place) const;
  void update_forces();
  Result<CaseResult> plain_result() const;
  Result<CaseResult> result_of(const RefinedCase& refined) const;
  StiffnessSource stiffness() const;
  EquivalentLoads equivalent_loads() const;
  ScaledEquations displaced_equations(double times) const;
  double largest_turn() const;

  const Frame& frame_;
  const LoadCase& load_case_;
  std::vector<Geometry> geometry_;
  Equations equations_;
  LoadsByElement loads_;
  InitialState initial_;
  std::vector<std::optional<double>> axial_forces_;  // at the starts; nothing in first order
  std::vector<double> next_axial_forces_;
  std::vector<double> first_axial_forces_;  // of first order, where a mode goes by them
  std::vector<BeamColumn> columns_;
  NodeValues displacements_;
  std::optional<RefinedCase> refined_;  // where double precision does not suffice
  std::vector<double> scale_;           // of the equations that gave them
  Norms load_norms_;
  std::unique_ptr<LinearSolver> solver_;
  double change_ = 0.0;
  bool first_ = true;
};

StiffnessSource Iteration::stiffness() const {
  return [this](std::size_t i, ElementStiffness& k) { k = columns_[i].stiffness(); };
}

EquivalentLoads Iteration::equivalent_loads() const {
  EquivalentLoads loads(frame_, geometry_, load_case_);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    if (!loads_.is_loaded(i) && initial_.is_straight(i)) continue;
    const FixedEndForces& ends = columns_[i].fixed_end();
    loads.add_fixed_end_forces(i, ends.condensed, EndForceNorms::of(ends.unreleased));
  }
  loads.add_settlements(stiffness());
  return loads;
}

Problem Iteration::buckled_element(std::size_t place) const {
  const bool is_truss = frame_.elements[place].kind == ElementKind::truss;
  const double at_start = *axial_forces_[place];
  const double least =
      is_truss ? at_start : -largest_compression(spans_of(loads_.of(place), at_start));
  return {Problem::Kind::buckling,
          fmt::format(
              texts::translatable("{} buckles between its nodes: its axial force reaches {:.4g} N"),
              element_name(frame_, place), least),
          std::nullopt, place};
}

Found Iteration::make_columns() {
  columns_.clear();
  columns_.reserve(frame_.elements.size());
  for (std::size_t i = 0; i < frame_.elements.size(); ++i) {
    auto column =
        BeamColumn::of(frame_.elements[i], loads_.of(i), axial_forces_[i], initial_.of(i));
    if (!column || column->buckles()) return buckled_element(i);
    columns_.push_back(std::move(*column));
  }
  return std::nullopt;
}

Problem Iteration::buckled(const ScaledEquations& scaled) const {
  const ScaledEquations unloaded =
      assemble(frame_, geometry_, equations_, elastic_source(frame_, geometry_));
  return {Problem::Kind::buckling,
          fmt::format(texts::translatable("the frame buckles under these loads: {}"),
                      describe_lost_motion(frame_, equations_, unloaded, scaled.matrix)),
          std::nullopt, std::nullopt};
}

Found Iteration::find_buckling(const Factorisation& done, const ScaledEquations& scaled) const {
  if (first_) return find_problem(done, frame_, equations_, scaled);
  using Status = Factorisation::Status;
  const bool singular = done.status == Status::zero_pivot;
  if (!singular && done.status != Status::done) {
    return find_problem(done, frame_, equations_, scaled);
  }
  if (!singular && done.negative_pivots == 0) return std::nullopt;
  return buckled(scaled);
}

Found Iteration::solve_equations() {
  displacements_ = settlements(frame_, load_case_);
  refined_.reset();
  const EquivalentLoads loads = equivalent_loads();
  load_norms_ = loads.norms();
  if (equations_.count() == 0) return std::nullopt;
  const ScaledEquations scaled = assemble(frame_, geometry_, equations_, stiffness());
  scale_ = scaled.scale;
  if (auto problem = find_buckling(solver_->factorise(scaled.matrix), scaled)) return problem;
  LoadVectors vectors(equations_, scaled);
  vectors.add(loads.values());
  const double softest = vectors.solve(*solver_);
  const bool is_stable = softest >= least_softness;
  if (!is_stable) return first_ ? explain_mechanism(frame_, equations_, scaled) : buckled(scaled);
  vectors.add_displacements(0, displacements_);
  if (softest < soft) refine_solution();
  return std::nullopt;
}

const RefinedCase& Iteration::refine_solution() {
  CaseLoads loads{nodal_loads(frame_, load_case_), {}, load_norms_};
  for (const BeamColumn& column : columns_)
    loads.fixed_end_forces.push_back(column.fixed_end().condensed);
  const RefinedCase& refined = refined_.emplace(refine(
      {frame_, geometry_, equations_, scale_, stiffness(), *solver_}, loads, displacements_));
  displacements_ = refined.displacements;
  return refined;
}

Vector12 Iteration::end_forces(std::size_t place) const {
  if (refined_) return refined_->end_forces[place];
  const Vector12 u =
      to_local(geometry_[place].axes, at_ends(frame_.elements[place], displacements_));
  return columns_[place].stiffness().condensed * u + columns_[place].fixed_end().condensed;
}

void Iteration::update_forces() {
  next_axial_forces_.resize(axial_forces_.size());
  double largest = least_axial_share * load_norms_.force, change = 0.0;
  for (std::size_t i = 0; i < axial_forces_.size(); ++i) {
    const Vector12 ends = end_forces(i);
    const double now = axial_force_at_start(frame_.elements[i].kind, ends, loads_.of(i));
    next_axial_forces_[i] = now;
    largest = std::max({largest, std::abs(now), std::abs(ends[6])});
    change = std::max(change, std::abs(now - axial_forces_[i].value_or(0.0)));
  }
  change_ = change == 0.0 ? 0.0 : change / largest;
}

Found Iteration::add_imperfection() {
  if (initial_.is_complete()) return std::nullopt;
  if (first_axial_forces_.empty() && initial_.wants_axial_forces()) {
    const auto solved = result();
    if (const auto* problem = std::get_if<Problem>(&solved)) return *problem;
    first_axial_forces_ = axial_forces_at_start(std::get<CaseResult>(solved));
  }
  return initial_.add_next(
      {frame_, geometry_, loads_, columns_, next_axial_forces_, displacements_},
      first_axial_forces_);
}

Found Iteration::step() {
  if (!first_) {
    if (auto problem = add_imperfection()) return problem;
  }
  if (!first_) std::ranges::copy(next_axial_forces_, axial_forces_.begin());
  if (auto problem = make_columns()) return problem;
  if (auto problem = solve_equations()) return problem;
  update_forces();
  first_ = false;
  return std::nullopt;
}

Result<CaseResult> Iteration::plain_result() const {
  CaseRecovery recovery(frame_, displacements_);
  for (std::size_t i = 0; i < frame_.elements.size(); ++i) {
    const Element& element = frame_.elements[i];
    const Vector12 u = to_local(geometry_[i].axes, recovery.displacements_of(element));
    const ElementResponse response = columns_[i].response(element, loads_.of(i), u);
    recovery.add(i, to_global(geometry_[i].axes, response.end_forces), response.sections.reshaped(),
                 response.magnitude);
  }
  return recovery.finish(equations_, load_case_, loads_, geometry_, load_norms_, Order::second);
}

Result<CaseResult> Iteration::result_of(const RefinedCase& refined) const {
  CaseRecovery recovery(frame_, displacements_, refined.force_error);
  for (std::size_t i = 0; i < frame_.elements.size(); ++i) {
    const Element& element = frame_.elements[i];
    const Axes& axes = geometry_[i].axes;
    const Vector12 u = to_local(axes, recovery.displacements_of(element));
    const Vector12& ends = refined.end_forces[i];
    const FivePositions sections = columns_[i].sections(element, loads_.of(i), u, ends);
    recovery.add(i, to_global(axes, ends), sections.reshaped(), refined.largest);
  }
  return recovery.finish(equations_, load_case_, loads_, geometry_, load_norms_, Order::second);
}

std::vector<ElementShape> Iteration::shapes() const {
  // Between two loads the axial force bends an element to sines of few waves.
  constexpr int pieces = 4;
  std::vector<ElementShape> out;
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const Element& element = frame_.elements[i];
    const Vector12 u = to_local(geometry_[i].axes, at_ends(element, displacements_));
    std::vector<double> bounds{0.0};
    for (const ElementSpan& span : spans_of(loads_.of(i), std::nullopt)) {
      for (int k = 1; k < pieces; ++k) bounds.push_back(span.from + span.length() * k / pieces);
      bounds.push_back(span.to);
    }
    out.push_back(shape_through(bounds, [&](std::span<const double> places) {
      return columns_[i].deflections(geometry_[i].length, u, places);
    }));
  }
  return out;
}

NodeValues Iteration::growth() {
  NodeValues unbalanced(displacements_.size(), 0.0), growth(displacements_.size(), 0.0);
  for (std::size_t i = 0; i < columns_.size(); ++i) {
    const Element& element = frame_.elements[i];
    const Stiffness& s = element.stiffness;
    const bool slides = element.released[0] || element.released[6];
    const double thermal = slides ? 0.0 : -s.e * s.area * loads_.of(i).free.strain;
    const Vector12 change = change_by_displacement(geometry_[i], columns_[i].stiffness(), thermal,
                                                   at_ends(element, displacements_));
    add_at_ends(element, Vector12(-change), unbalanced);
  }
  if (equations_.count() == 0) return growth;
  std::vector<double> column;
  for (int i = 0; i < equations_.count(); ++i) {
    column.push_back(unbalanced[equations_.dof(i)] * scale_[static_cast<std::size_t>(i)]);
  }
  solver_->solve(column);
  for (int i = 0; i < equations_.count(); ++i) {
    const auto place = static_cast<std::size_t>(i);
    growth[equations_.dof(i)] = column[place] * scale_[place];
  }
  return growth;
}

/// The frame displaced so many times as far: elements keep their lengths and axial forces and turn
/// as their chords do.
ScaledEquations Iteration::displaced_equations(double times) const {
  std::vector<Geometry> turned = geometry_;
  for (std::size_t i = 0; i < turned.size(); ++i) {
    const Vector12 u = times * at_ends(frame_.elements[i], displacements_);
    turned[i].axes = turned_with_chord(geometry_[i], u.segment<3>(6) - u.segment<3>(0));
  }
  return assemble(frame_, turned, equations_, stiffness());
}

double Iteration::largest_turn() const {
  double largest = 0.0;
  for (std::size_t i = 0; i < geometry_.size(); ++i) {
    const Vector12 u = at_ends(frame_.elements[i], displacements_);
    const Eigen::Vector3d apart = u.segment<3>(6) - u.segment<3>(0);
    largest = std::max(largest, apart.norm() / geometry_[i].length);
  }
  return largest;
}

/// @return what moves in it; nothing when some stiffness is left everywhere
std::optional<NodeValues> Iteration::flattening() {
  // Of a long chain that is displaced far, rounding tells nothing.
  if (equations_.count() == 0 || refined_) return std::nullopt;
  // Three elements of a shallow node may be out of their plane by three times what each turns.
  constexpr double of_a_node = 3.0;
  const double turn = of_a_node * flattening_times * largest_turn();
  if (!has_shallow_nodes(frame_, geometry_, turn)) return std::nullopt;
  // One may lie far beyond the flat state, on its other side, where another does not.
  for (const double times : {flattening_times, flattening_times / 2.0, flattening_times / 4.0}) {
    ScaledEquations there = displaced_equations(times);
    const Factorisation done = solver_->factorise(there.matrix);
    if (done.status == Factorisation::Status::done && done.negative_pivots == 0) continue;
    const ScaledEquations here = displaced_equations(0.0);
    take_scale(here.scale, there);
    return lost_motion(frame_, equations_, here, there.matrix)
        .value_or(NodeValues(displacements_.size(), 0.0));
  }
  return std::nullopt;
}

Result<CaseResult> Iteration::result() {
  if (refined_) return result_of(*refined_);
  auto plain = plain_result();
  const auto* found = std::get_if<CaseResult>(&plain);
  if (found == nullptr || !needs_refinement(found->equilibrium)) return plain;
  return result_of(refine_solution());
}

Problem diverged(const SecondOrderOptions& options, double change) {
  return {
      Problem::Kind::divergence,
      fmt::format(texts::translatable(
                      "no equilibrium of second order after {} iterations: axial forces still "
                      "change by {:.1e} of the largest; the loads are close to what buckles the "
                      "frame"),
                  options.most_iterations, change),
      std::nullopt, std::nullopt};
}

}  // namespace

std::string SecondOrderResult::message() const {
  return iterations == 1
             ? fmt::format(texts::translatable(
                               "in equilibrium after 1 iteration, axial forces certain to {:.1e}"),
                           change)
             : fmt::format(
                   texts::translatable(
                       "in equilibrium after {} iterations, axial forces certain to {:.1e}"),
                   iterations, change);
}

Result<SecondOrderResult> analyse_second_order(const Frame& frame, const LoadCase& loads,
                                               const SecondOrderOptions& options) {
  if (auto problem = find_problem(frame)) return std::move(*problem);
  if (auto problem = find_problem(frame, loads)) return std::move(*problem);
  Iteration iteration(frame, loads, options.imperfections);
  if (auto problem = iteration.find_lost()) return std::move(*problem);
  if (auto problem = iteration.step()) return std::move(*problem);
  SecondOrderResult solved;
  do {
    if (solved.iterations == options.most_iterations) return diverged(options, iteration.change());
    if (auto problem = iteration.step()) return std::move(*problem);
    ++solved.iterations;
    solved.change = iteration.change();
  } while (!iteration.is_complete() || !(solved.change <= options.tolerance));
  auto result = iteration.result();
  if (auto* problem = std::get_if<Problem>(&result)) return std::move(*problem);
  solved.result = std::get<CaseResult>(std::move(result));
  solved.initial = iteration.initial_curvatures();
  if (options.with_shapes) solved.shapes = iteration.shapes();
  if (auto problem = find_residual_problem(solved.result, 0, options.limits)) {
    return std::move(*problem);
  }
  const NodeValues growth = iteration.growth();
  solved.growth = growth_share(iteration.displacements(), growth);
  const bool grows = solved.growth > noticeable_growth;
  const auto flattening = iteration.flattening();
  solved.flattens = flattening.has_value();
  if (grows || flattening) {
    const auto moves = dominant_motion(frame, grows ? growth : *flattening);
    solved.growing = moves ? motion_text(frame, *moves) : texts::translatable("the frame moves");
  }
  return solved;
}

}  // namespace aluframe::analysis
