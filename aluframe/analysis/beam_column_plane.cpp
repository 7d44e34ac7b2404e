#include "aluframe/analysis/beam_column_plane.h"

#include <algorithm>

#include "aluframe/analysis/fixed_end_forces.h"

namespace aluframe::analysis {

namespace {

/// Loads of an element that stand on one of its pieces, counted from the piece's start.
class PieceLoads {
 public:
  PieceLoads(const ElementLoads& loads, std::size_t piece) {
    const double length = loads.length / static_cast<double>(pieces);
    const double start = length * static_cast<double>(piece);
    for (const LocalDistributed& load : loads.distributed) {
      const double from = std::max(load.from, start), to = std::min(load.to, start + length);
      if (from >= to) continue;
      distributed_.push_back({from - start, to - start, load.value_at(from), load.value_at(to)});
    }
    for (const LocalPoint& load : loads.points) {
      const double place = load.at / length;
      if (std::min(static_cast<std::size_t>(place), pieces - 1) != piece) continue;
      points_.push_back({load.at - start, load.force, load.moment});
    }
    view_ = {length, distributed_, points_, loads.free};
  }

  const ElementLoads& view() const { return view_; }

 private:
  std::vector<LocalDistributed> distributed_;
  std::vector<LocalPoint> points_;
  ElementLoads view_;
};

int negative_eigenvalues(const Eigen::Matrix2d& k) {
  if (k.determinant() < 0.0) return 1;
  return k.trace() < 0.0 ? 2 : 0;
}

/// One of several equal pieces: the share of shear grows with the square of the shorter length.
BendingPlane piece_of(const BendingPlane& plane) {
  constexpr auto count = static_cast<double>(pieces);
  return {plane.length / count, plane.ei, plane.shear * count * count};
}

}  // namespace

BeamColumnPlane::BeamColumnPlane(const BendingPlane& plane, const ElementLoads& loads, int axis,
                                 const PieceForces& forces)
    : piece_(piece_of(plane)), forces_(forces) {
  const Matrix4 bending = bending_stiffness(piece_);
  // Rotated without bending, a piece has the forces of its geometric stiffness alone.
  const Vector4 unit_slope(0.0, 1.0, piece_.length, 1.0);
  for (std::size_t i = 0; i < pieces; ++i) {
    const Matrix4 geometric = geometric_stiffness(piece_, forces[i]);
    const Vector4 fixed_end = plane_fixed_end_forces(piece_, PieceLoads(loads, i).view(), axis);
    append(i, bending + geometric, fixed_end, geometric * unit_slope);
  }
  balance();
}

/// Elimination leaves rounding of the pieces' stiffness, hundreds of times that of the element, in
/// what should need no force: a rigid-body motion of the element. In a chain of many elements that
/// rounding outgrows the loads. So only the stiffness against rotations is kept, and the rest
/// follows from it by statics: no force under translation, under rotation that of the geometric
/// stiffness.
void BeamColumnPlane::balance() {
  const double length = piece_.length * static_cast<double>(pieces);
  Matrix4& k = stiffness_;
  for (const int rotation : {1, 3}) {
    const double force = (rigid_rotation_[rotation] - k(rotation, 1) - k(rotation, 3)) / length;
    k(rotation, 2) = k(2, rotation) = force;
    k(rotation, 0) = k(0, rotation) = -force;
  }
  const double force = (rigid_rotation_[2] - k(2, 1) - k(2, 3)) / length;
  k(0, 0) = k(2, 2) = force;
  k(0, 2) = k(2, 0) = -force;
}

void BeamColumnPlane::append(std::size_t piece, const Matrix4& k, const Vector4& fixed_end,
                             const Vector4& rigid_rotation) {
  if (piece == 0) {
    stiffness_ = k;
    fixed_end_ = fixed_end;
    rigid_rotation_ = rigid_rotation;
    return;
  }
  const Eigen::Matrix2d pivot = stiffness_.bottomRightCorner<2, 2>() + k.topLeftCorner<2, 2>();
  negative_pivots_ += negative_eigenvalues(pivot);
  const Eigen::Matrix2d inverse = pivot.inverse();
  Eigen::Matrix<double, 2, 4> coupling;
  coupling << stiffness_.bottomLeftCorner<2, 2>(), k.topRightCorner<2, 2>();
  const Eigen::Vector2d force = fixed_end_.tail<2>() + fixed_end.head<2>();
  Eliminated& node = inner_[piece - 1];
  node.by_ends = inverse * coupling;
  node.own = inverse * force;
  Matrix4 joined = Matrix4::Zero();
  joined.topLeftCorner<2, 2>() = stiffness_.topLeftCorner<2, 2>();
  joined.bottomRightCorner<2, 2>() = k.bottomRightCorner<2, 2>();
  stiffness_ = joined - coupling.transpose() * node.by_ends;
  Vector4 forces;
  forces << fixed_end_.head<2>(), fixed_end.tail<2>();
  fixed_end_ = forces - coupling.transpose() * node.own;
  const Eigen::Vector2d turning = rigid_rotation_.tail<2>() + rigid_rotation.head<2>();
  forces << rigid_rotation_.head<2>(), rigid_rotation.tail<2>();
  rigid_rotation_ = forces - coupling.transpose() * (inverse * turning);
}

std::array<Eigen::Vector2d, pieces + 1> BeamColumnPlane::displacements(const Vector4& ends) const {
  std::array<Eigen::Vector2d, pieces + 1> result;
  result[0] = ends.head<2>();
  result[pieces] = ends.tail<2>();
  Vector4 around = ends;
  for (std::size_t i = pieces - 1; i >= 1; --i) {
    around.tail<2>() = -(inner_[i - 1].by_ends * around + inner_[i - 1].own).eval();
    result[i] = around.tail<2>();
  }
  return result;
}

std::array<double, 5> BeamColumnPlane::bowing_moments(const Vector4& ends) const {
  // A slope of 1 everywhere: what the force does on it is its integral with the real slope.
  const Vector4 unit_slope(0.0, 1.0, piece_.length, 1.0);
  const auto displaced = displacements(ends);
  std::array<double, 5> moments{};
  double sum = 0.0;
  for (std::size_t i = 0; i < pieces; ++i) {
    Vector4 u;
    u << displaced[i], displaced[i + 1];
    sum += unit_slope.dot(geometric_stiffness(piece_, forces_[i]) * u);
    if ((i + 1) % (pieces / 4) == 0) moments[(i + 1) / (pieces / 4)] = sum;
  }
  return moments;
}

}  // namespace aluframe::analysis
