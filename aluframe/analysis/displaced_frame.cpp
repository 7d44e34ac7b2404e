#include "aluframe/analysis/displaced_frame.h"

#include "aluframe/analysis/element_stiffness.h"

namespace aluframe::analysis {

namespace {

using Wanted = CorotatedPiece::Wanted;

Eigen::Vector3d part_of(const NodeValues& values, std::size_t node, std::size_t first) {
  const double* const at = &values[6 * node + first];
  return {at[0], at[1], at[2]};
}

/// Diagonal in global axes of the undisplaced piece's stiffness.
Vector12 global_diagonal(const Element& piece, const Geometry& geometry) {
  return to_global(geometry.axes, elastic_stiffness(piece, geometry.length)).diagonal();
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
    stiff_.push_back(global_diagonal(piece, geometry));
    global_axes_[i].axes.setIdentity();
  }
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

std::optional<NodeValues> DisplacedFrame::load_rate(const FrameState& state) const {
  // Loads and temperatures are linear in the factor; displaced supports nearly.
  constexpr double change = 1e-3;
  const auto here = forces(state), there = forces(under(state, state.factor + change));
  if (!here || !there) return std::nullopt;
  NodeValues rate = there->unbalanced;
  for (std::size_t i = 0; i < rate.size(); ++i) rate[i] = (rate[i] - here->unbalanced[i]) / change;
  return rate;
}

}  // namespace aluframe::analysis
