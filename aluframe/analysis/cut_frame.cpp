#include "aluframe/analysis/cut_frame.h"

#include <algorithm>
#include <cmath>

#include "aluframe/analysis/fixed_end_forces.h"

namespace aluframe::analysis {

namespace {

/// sqrt(|N|/EI)·l of a piece up to which its cubic shape will do: a clamped bar that buckles has
/// 2π/8 a piece.
constexpr double longest_piece = 0.8;

/// An element's part from one cut to the next; releases stay at the ends of the whole.
Element piece_of(const Element& element, std::size_t i, std::size_t count, std::size_t start,
                 std::size_t end) {
  Element piece = element;
  piece.start = start;
  piece.end = end;
  for (std::size_t dof = 0; dof < 6; ++dof) {
    if (i > 0) piece.released[dof] = false;
    if (i + 1 < count) piece.released[6 + dof] = false;
  }
  return piece;
}

Node between(const Node& a, const Node& b, double part) {
  return {.number = 0,
          .x = a.x + part * (b.x - a.x),
          .y = a.y + part * (b.y - a.y),
          .z = a.z + part * (b.z - a.z)};
}

Vector3 between(const Vector3& a, const Vector3& b, double part) {
  Vector3 value{};
  for (std::size_t i = 0; i < 3; ++i) value[i] = a[i] + part * (b[i] - a[i]);
  return value;
}

/// The part of a distributed load on a piece, both by parts of the element's length.
std::optional<DistributedLoad> clipped(const DistributedLoad& load, std::size_t piece,
                                       double pieces) {
  const double start = static_cast<double>(piece) / pieces;
  const double from = std::max(load.from * pieces, start * pieces) / pieces;
  const double to = std::min(load.to, start + 1.0 / pieces);
  if (!(to > from)) return std::nullopt;
  DistributedLoad part = load;
  const double length = load.to - load.from;
  part.from_value = between(load.from_value, load.to_value, (from - load.from) / length);
  part.to_value = between(load.from_value, load.to_value, (to - load.from) / length);
  part.from = std::clamp((from - start) * pieces, 0.0, 1.0);
  part.to = std::clamp((to - start) * pieces, 0.0, 1.0);
  return part;
}

/// The loads with one component of their forces, or of their moments, turned to where a bending
/// plane looks for its own.
ElementLoads seen_along(const ElementLoads& loads, int component,
                        std::vector<LocalDistributed>& distributed,
                        std::vector<LocalPoint>& points) {
  const auto all = [&](const Eigen::Vector3d& v) {
    return Eigen::Vector3d::Constant(v[component]).eval();
  };
  distributed.assign(loads.distributed.begin(), loads.distributed.end());
  for (LocalDistributed& load : distributed) {
    load.from_value = all(load.from_value);
    load.to_value = all(load.to_value);
  }
  points.assign(loads.points.begin(), loads.points.end());
  for (LocalPoint& load : points) {
    load.force = all(load.force);
    load.moment.setZero();
  }
  return {loads.length, distributed, points, {}};
}

/// Shares of a moment between the nodes that go to the start and to the end. A released end takes
/// none.
Eigen::Vector2d moment_shares(const Element& piece, double part) {
  const auto is_released = [&](std::size_t first) {
    return piece.released[first] || piece.released[first + 1] || piece.released[first + 2];
  };
  if (is_released(3)) return {0.0, 1.0};
  if (is_released(9)) return {1.0, 0.0};
  return {1.0 - part, part};
}

/// Forces by lever, moments by their shares; directions are local.
void add_to_nodes(const Element& piece, const ElementLoads& loads, Vector12& on_nodes) {
  on_nodes -= simply_supported_reactions(loads);
  if (piece.kind == ElementKind::truss) return;
  for (const LocalPoint& load : loads.points) {
    const Eigen::Vector2d shares = moment_shares(piece, load.at / loads.length);
    on_nodes.segment<3>(3) += shares[0] * load.moment;
    on_nodes.segment<3>(9) += shares[1] * load.moment;
  }
}

/// Fixing moments about z and y by forces across the piece; columns: by local components.
void add_forces_within(const Element& piece, const ElementLoads& loads, PieceLoads& within) {
  const BendingPlane y = plane_y(piece.stiffness, loads.length);
  const BendingPlane z = plane_z(piece.stiffness, loads.length);
  std::vector<LocalDistributed> distributed;
  std::vector<LocalPoint> points;
  for (int i = 0; i < 3; ++i) {
    const ElementLoads seen = seen_along(loads, i, distributed, points);
    const Vector4 about_z = plane_fixed_end_forces(y, seen, 1);
    const Vector4 about_y = plane_fixed_end_forces(z, seen, 2);
    within.about_z.col(i) += Eigen::Vector2d(about_z[1], about_z[3]);
    within.about_y.col(i) -= Eigen::Vector2d(about_y[1], about_y[3]);
  }
}

/// Moments at points between the nodes, against those that have gone to the nodes.
void add_moments_within(const Element& piece, const ElementLoads& loads, PieceLoads& within) {
  const BendingPlane y = plane_y(piece.stiffness, loads.length);
  const BendingPlane z = plane_z(piece.stiffness, loads.length);
  for (const LocalPoint& load : loads.points) {
    if (load.moment.isZero(0.0)) continue;
    const double part = load.at / loads.length;
    const Eigen::Vector2d shares = moment_shares(piece, part);
    const Vector4 about_z = fixed_end_forces_of_moment(y, load.at, 1.0);
    const Vector4 about_y = fixed_end_forces_of_moment(z, load.at, 1.0);
    // A piece's rotation about z goes with a moment along its z, seen along z below; both ends.
    const Eigen::Vector2d by_z = Eigen::Vector2d(about_z[1], about_z[3]) + shares;
    const Eigen::Vector2d by_y = Eigen::Vector2d(about_y[1], about_y[3]) + shares;
    within.moments_about_z += by_z * load.moment.transpose();
    within.moments_about_y += by_y * load.moment.transpose();
    within.torque += (1.0 - part - shares[0]) * load.moment;
  }
}

void add_temperature(const Element& piece, const ElementLoads& loads, PieceLoads& within) {
  within.free_strain = loads.free.strain;
  if (piece.kind == ElementKind::truss) return;
  const Vector4 z =
      fixed_end_forces_of_curvature(plane_y(piece.stiffness, loads.length), loads.free.curvature_y);
  const Vector4 y =
      fixed_end_forces_of_curvature(plane_z(piece.stiffness, loads.length), loads.free.curvature_z);
  within.free_about_z = {z[1], z[3]};
  within.free_about_y = {-y[1], -y[3]};
}

}  // namespace

PieceCounts usual_pieces(const Frame& frame) {
  PieceCounts counts;
  for (const Element& element : frame.elements) {
    counts.push_back(element.kind == ElementKind::truss ? 1 : pieces_of_beam);
  }
  return counts;
}

CutFrame::CutFrame(const Frame& original, const PieceCounts& counts) : frame(original) {
  const std::vector<Geometry> whole = element_geometry(original);
  frame.elements.clear();
  for (std::size_t i = 0; i < original.elements.size(); ++i) {
    const Element& element = original.elements[i];
    const auto count = static_cast<double>(counts[i]);
    first_piece.push_back(frame.elements.size());
    std::size_t from = element.start;
    for (std::size_t piece = 0; piece < counts[i]; ++piece) {
      std::size_t to = element.end;
      if (piece + 1 < counts[i]) {
        to = frame.nodes.size();
        frame.nodes.push_back(between(original.nodes[element.start], original.nodes[element.end],
                                      static_cast<double>(piece + 1) / count));
      }
      frame.elements.push_back(piece_of(element, piece, counts[i], from, to));
      geometry.push_back({whole[i].length / count, whole[i].axes});
      element_of.push_back(i);
      from = to;
    }
  }
  first_piece.push_back(frame.elements.size());
}

PieceCounts CutFrame::enough_pieces(std::span<const double> axial_forces) const {
  PieceCounts counts(first_piece.size() - 1);
  for (std::size_t i = 0; i < counts.size(); ++i) counts[i] = count_of(i);
  for (std::size_t i = 0; i < axial_forces.size(); ++i) {
    const Element& piece = frame.elements[i];
    const double ei = piece.stiffness.e * std::min(piece.stiffness.iyy, piece.stiffness.izz);
    if (piece.kind == ElementKind::truss || !(ei > 0.0)) continue;
    const double longest = longest_piece * std::sqrt(ei / std::abs(axial_forces[i]));
    std::size_t& count = counts[element_of[i]];
    const double length = geometry[i].length * static_cast<double>(count_of(element_of[i]));
    while (length > longest * static_cast<double>(count) && count < most_pieces_of_beam) {
      count *= 2;
    }
  }
  return counts;
}

LoadCase CutFrame::cut(const LoadCase& loads) const {
  LoadCase out = loads;
  out.distributed.clear();
  out.points.clear();
  out.temperatures.clear();
  const auto is_whole = [&](std::size_t element) { return count_of(element) == 1; };
  for (DistributedLoad load : loads.distributed) {
    const std::size_t first = first_piece[load.element];
    if (is_whole(load.element)) {
      load.element = first;
      out.distributed.push_back(load);
      continue;
    }
    const std::size_t count = count_of(load.element);
    for (std::size_t i = 0; i < count; ++i) {
      if (auto part = clipped(load, i, static_cast<double>(count))) {
        part->element = first + i;
        out.distributed.push_back(*part);
      }
    }
  }
  for (PointLoad load : loads.points) {
    const std::size_t first = first_piece[load.element];
    // At a cut it belongs to the piece behind it: the section before is that towards the start.
    const auto pieces = static_cast<double>(count_of(load.element));
    const double at = is_whole(load.element) ? load.at : load.at * pieces;
    const double piece = is_whole(load.element) ? 0.0 : std::min(std::floor(at), pieces - 1.0);
    load.element = first + static_cast<std::size_t>(piece);
    load.at = at - piece;
    out.points.push_back(load);
  }
  for (Temperature load : loads.temperatures) {
    const std::size_t element = load.element;
    for (std::size_t i = first_piece[element]; i < first_piece[element + 1]; ++i) {
      load.element = i;
      out.temperatures.push_back(load);
    }
  }
  return out;
}

LoadedPiece loaded_piece(const Element& piece, const Geometry& geometry,
                         const ElementLoads& loads) {
  LoadedPiece out;
  Vector12 local = Vector12::Zero();
  add_to_nodes(piece, loads, local);
  out.on_nodes = to_global(geometry.axes, local);
  add_temperature(piece, loads, out.within);
  if (piece.kind == ElementKind::truss) return out;
  add_forces_within(piece, loads, out.within);
  add_moments_within(piece, loads, out.within);
  // From local components of the undisplaced piece to global ones.
  PieceLoads& w = out.within;
  w.about_z *= geometry.axes;
  w.about_y *= geometry.axes;
  w.moments_about_z *= geometry.axes;
  w.moments_about_y *= geometry.axes;
  w.torque = geometry.axes.transpose() * w.torque;
  return out;
}

}  // namespace aluframe::analysis
