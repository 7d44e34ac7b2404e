#include "aluframe/analysis/displaced_frame.h"

#include <algorithm>
#include <cmath>
#include <limits>

#include "aluframe/analysis/element_stiffness.h"

namespace aluframe::analysis {

namespace {

using Wanted = CorotatedPiece::Wanted;

Eigen::Vector3d part_of(const NodeValues& values, std::size_t node, std::size_t first) {
  const double* const at = &values[6 * node + first];
  return {at[0], at[1], at[2]};
}

/// In global axes, of the undisplaced piece.
Matrix12 global_stiffness(const Element& piece, const Geometry& geometry) {
  return to_global(geometry.axes, elastic_stiffness(piece, geometry.length));
}

/// What rounding of positions and directions leaves of a piece's forces.
Norms rounding_of(const Element& piece, double length) {
  constexpr double epsilon = std::numeric_limits<double>::epsilon();
  const Stiffness& s = piece.stiffness;
  Norms rounding{.force = epsilon * s.e * s.area};
  if (piece.kind == ElementKind::truss) return rounding;
  for (const BendingPlane& plane : {plane_y(s, length), plane_z(s, length)}) {
    const Matrix4 k = bending_stiffness(plane);
    rounding.force = std::max(rounding.force, epsilon * k(0, 0) * length);
    rounding.moment = std::max(rounding.moment, epsilon * k(1, 1));
  }
  return rounding;
}

void include(Norms& norms, const Norms& others) {
  norms.include(0, others.force);
  norms.include(3, others.moment);
}

}  // namespace

DisplacedFrame::DisplacedFrame(const CutFrame& cut, const LoadCase& loads_on_pieces)
    : cut_(cut),
      equations_(cut.frame),
      global_axes_(cut.geometry),
      nodal_(nodal_loads(cut.frame, loads_on_pieces)),
      prescribed_(settlements(cut.frame, loads_on_pieces)),
      has_settlements_(!loads_on_pieces.settlements.empty()),
      solver_(make_solver()) {
  const LoadsByElement loads(cut.frame, cut.geometry, loads_on_pieces);
  for (std::size_t i = 0; i < cut.frame.elements.size(); ++i) {
    const Element& piece = cut.frame.elements[i];
    const Geometry& geometry = cut.geometry[i];
    pieces_.emplace_back(piece, geometry.length * geometry.axes.row(0).transpose(), geometry.axes);
    loads_.push_back(loaded_piece(piece, geometry, loads.of(i)));
    stiff_.push_back(global_stiffness(piece, geometry).diagonal());
    include(rounding_, rounding_of(piece, geometry.length));
    has_loads_ = has_loads_ || loads.has_forces(i);
    global_axes_[i].axes.setIdentity();
  }
  has_loads_ = has_loads_ || std::ranges::any_of(nodal_, [](double value) { return value != 0.0; });
  held_ = held_forces();
}

Norms DisplacedFrame::held_forces() const {
  Norms norms;
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    const Element& piece = cut_.frame.elements[i];
    const PieceLoads& within = loads_[i].within;
    norms.include(0, piece.stiffness.e * piece.stiffness.area * within.free_strain);
    for (const int end : {0, 1}) {
      norms.include(3, within.free_about_z[end]);
      norms.include(3, within.free_about_y[end]);
    }
    if (!has_settlements_) continue;
    const Vector12 forces = global_stiffness(piece, cut_.geometry[i]) * at_ends(piece, prescribed_);
    for (int k = 0; k < 12; ++k) norms.include(static_cast<std::size_t>(k), forces[k]);
  }
  return norms;
}

/// Where no load acts, the forces of a frame that gives way are rounding: they are small against
/// those of one that does not. Where rounding of stiff pieces is more than the least that forces
/// are balanced to, no more can be had.
/// @param scale of what acts
Norms DisplacedFrame::scale_of(Norms scale, double factor) const {
  constexpr double rounding_share = 1e-11, most = 1e3;
  const double size = std::abs(factor);
  const Norms least{.force = rounding_.force / rounding_share + size * held_.force,
                    .moment = rounding_.moment / rounding_share + size * held_.moment};
  if (!has_loads_) {
    include(scale, least);
  } else {
    include(scale, {.force = std::min(least.force, most * scale.force),
                    .moment = std::min(least.moment, most * scale.moment)});
  }
  return scale;
}

FrameState DisplacedFrame::undisplaced() const {
  return {std::vector<Pose>(cut_.frame.nodes.size()), 0.0};
}

FrameState DisplacedFrame::under(FrameState state, double factor) const {
  const double change = factor - state.factor;
  state.factor = factor;
  if (!has_settlements_) return state;
  for (std::size_t node = 0; node < state.nodes.size(); ++node) {
    const Eigen::Vector3d by = part_of(prescribed_, node, 0), turn = part_of(prescribed_, node, 3);
    if (!by.isZero(0.0) || !turn.isZero(0.0)) state.nodes[node].move(change * by, change * turn);
  }
  return state;
}

FrameState DisplacedFrame::moved(FrameState state, const Steps& steps) const {
  const NodeValues all = node_values(steps);
  for (std::size_t node = 0; node < state.nodes.size(); ++node) {
    state.nodes[node].move(part_of(all, node, 0), part_of(all, node, 3));
  }
  return state;
}

NodeValues DisplacedFrame::node_values(const Steps& steps) const {
  NodeValues values(6 * cut_.frame.nodes.size(), 0.0);
  for (int i = 0; i < equations_.count(); ++i) values[equations_.dof(i)] = steps[i];
  return values;
}

NodeValues DisplacedFrame::displacements(const FrameState& state) const {
  NodeValues values;
  values.reserve(6 * state.nodes.size());
  for (const Pose& pose : state.nodes) {
    const Eigen::Vector3d turned = pose.rotation_vector();
    values.insert(values.end(), pose.moved.begin(), pose.moved.end());
    values.insert(values.end(), turned.begin(), turned.end());
  }
  return values;
}

/// @return false where a piece has none
template <class Use>
bool DisplacedFrame::for_each_piece(const FrameState& state, Wanted wanted, const Use& use) const {
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    const Element& piece = cut_.frame.elements[i];
    const auto response = pieces_[i].response(state.nodes[piece.start], state.nodes[piece.end],
                                              loads_[i].within, state.factor, wanted);
    if (!response) return false;
    use(i, *response);
  }
  return true;
}

std::optional<DisplacedFrame::Forces> DisplacedFrame::forces(const FrameState& state) const {
  Forces out;
  out.unbalanced = nodal_;
  for (std::size_t i = 0; i < nodal_.size(); ++i) {
    out.unbalanced[i] *= state.factor;
    out.scale.include(i, out.unbalanced[i]);
  }
  const bool has_forces = for_each_piece(state, Wanted::forces, [&](std::size_t i, const auto& r) {
    const Vector12 of_loads = state.factor * loads_[i].on_nodes;
    out.on_pieces.push_back(r.forces - of_loads);
    out.axial_forces.push_back(r.axial_force);
    out.scale.include(0, r.axial_force);
    out.scale.include(3, r.largest_moment);
    for (int k = 0; k < 12; ++k) {
      out.scale.include(static_cast<std::size_t>(k), of_loads[k]);
      out.scale.include(static_cast<std::size_t>(k), r.forces[k]);
    }
    add_at_ends(cut_.frame.elements[i], Vector12(-out.on_pieces.back()), out.unbalanced);
  });
  if (!has_forces) return std::nullopt;
  for (const Spring& spring : cut_.frame.springs) {
    const Pose& pose = state.nodes[spring.node];
    const Eigen::Vector3d turned = pose.rotation_vector();
    for (std::size_t i = 0; i < 6; ++i) {
      const auto at = static_cast<int>(i % 3);
      out.unbalanced[6 * spring.node + i] -=
          spring.stiffness[i] * (i < 3 ? pose.moved[at] : turned[at]);
    }
  }
  out.scale = scale_of(out.scale, state.factor);
  return out;
}

std::optional<DisplacedFrame::Tangent> DisplacedFrame::factorise(const FrameState& state) {
  std::vector<Matrix12> stiffness(pieces_.size());
  Tangent tangent;
  const bool has_tangent =
      for_each_piece(state, Wanted::tangent, [&](std::size_t i, const auto& r) {
        stiffness[i] = r.tangent;
        tangent.negative_pivots += r.negative_pivots;
      });
  if (!has_tangent) return std::nullopt;
  const StiffnessSource source = [&](std::size_t i, ElementStiffness& k) {
    k.condensed = stiffness[i];
    k.unreleased = stiff_[i];
    k.rigid_rotation.setZero();
  };
  tangent.scaled = assemble(cut_.frame, global_axes_, equations_, source);
  if (equations_.count() == 0) {
    tangent.factorisation.status = Factorisation::Status::done;
    return tangent;
  }
  tangent.factorisation = solver_->factorise(tangent.scaled.matrix);
  tangent.negative_pivots += tangent.factorisation.negative_pivots;
  return tangent;
}

Steps DisplacedFrame::solve(const Tangent& tangent, const NodeValues& forces) {
  Steps steps(equations_.count());
  const Eigen::Map<const Steps> scale(tangent.scaled.scale.data(), equations_.count());
  for (int i = 0; i < equations_.count(); ++i) steps[i] = forces[equations_.dof(i)] * scale[i];
  if (equations_.count() > 0)
    solver_->solve({steps.data(), static_cast<std::size_t>(steps.size())});
  return steps.cwiseProduct(scale);
}

bool DisplacedFrame::deforms_as_foreseen(const FrameState& from, const Steps& steps,
                                         double factor_change, const FrameState& to) const {
  /// Part of the step, and of what a piece is deformed by already, that it may deform otherwise.
  constexpr double of_step = 0.5, of_all = 0.1;
  /// Part of the most deformed piece, and strains and angles, that do not matter.
  constexpr double of_frame = 1e-3, in_any = 1e-6;
  NodeValues motion = node_values(steps);
  for (std::size_t i = 0; i < motion.size(); ++i) motion[i] += factor_change * prescribed_[i];
  struct Piece {
    double otherwise = 0.0, step = 0.0, all = 0.0, nothing = 0.0;
  };
  std::vector<Piece> found;
  double most = 0.0;
  for (std::size_t i = 0; i < pieces_.size(); ++i) {
    const Element& piece = cut_.frame.elements[i];
    const CorotatedPiece& own = pieces_[i];
    const auto before = own.deformations(from.nodes[piece.start], from.nodes[piece.end]);
    const auto after = own.deformations(to.nodes[piece.start], to.nodes[piece.end]);
    if (!before || !after) return false;
    CorotatedPiece::Natural unit = CorotatedPiece::Natural::Ones();
    unit[0] = own.length();
    const CorotatedPiece::Natural step = before->gradient * at_ends(piece, motion);
    const CorotatedPiece::Natural otherwise = after->value - before->value - step;
    found.push_back({std::sqrt(own.energy(otherwise)), std::sqrt(own.energy(step)),
                     std::sqrt(std::max(own.energy(before->value), own.energy(after->value))),
                     in_any * std::sqrt(own.energy(unit))});
    most = std::max(most, found.back().all);
  }
  return std::ranges::all_of(found, [&](const Piece& piece) {
    return piece.otherwise <=
           of_step * piece.step + of_all * piece.all + of_frame * most + piece.nothing;
  });
}

std::optional<NodeValues> DisplacedFrame::load_rate(const FrameState& state) const {
  // Loads and temperatures are linear in the factor; displaced supports nearly.
  constexpr double change = 1e-3;
  const auto before = forces(under(state, state.factor - change)),
             after = forces(under(state, state.factor + change));
  if (!before || !after) return std::nullopt;
  NodeValues rate = after->unbalanced;
  for (std::size_t i = 0; i < rate.size(); ++i) {
    rate[i] = (rate[i] - before->unbalanced[i]) / (2.0 * change);
  }
  return rate;
}

}  // namespace aluframe::analysis
