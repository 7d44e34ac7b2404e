#include "aluframe/analysis/corotated_piece.h"

#include <algorithm>
#include <cmath>

#include "aluframe/analysis/element_stiffness.h"
#include "aluframe/elementary/functions.h"

namespace aluframe::analysis {

namespace {

/// Sine of the angle between an end and the chord beyond which a piece is no longer one.
constexpr double largest_sine = 0.9;
/// Released rotations are exact to this part of the moments that turn them.
constexpr double settled = 1e-13;
constexpr int most_steps = 30;

Eigen::Matrix3d cross_matrix(const Eigen::Vector3d& v) {
  Eigen::Matrix3d m;
  m << 0, -v.z(), v.y(), v.z(), 0, -v.x(), -v.y(), v.x(), 0;
  return m;
}

/// Symmetric part of a·bᵀ, twice.
Eigen::Matrix3d both(const Eigen::Vector3d& a, const Eigen::Vector3d& b) {
  return a * b.transpose() + b * a.transpose();
}

/// Bending stiffness against rotations of the two ends.
Eigen::Matrix2d rotational(const BendingPlane& plane) {
  const Matrix4 k = bending_stiffness(plane);
  Eigen::Matrix2d part;
  part << k(1, 1), k(1, 3), k(3, 1), k(3, 3);
  return part;
}

/// Half of a'·B·a is the shortening ½·∫w'² dx by rotations a of the ends: a symmetric and an
/// antisymmetric part, of which shear takes from the latter.
Eigen::Matrix2d bowing(const BendingPlane& plane) {
  const double stiff = 1.0 + plane.shear;
  const double apart = plane.length / 12.0, alike = plane.length / (20.0 * stiff * stiff);
  Eigen::Matrix2d bow;
  bow << apart + alike, alike - apart, alike - apart, apart + alike;
  return bow;
}

/// A deformation's first and second derivative in terms of its sine's.
struct Slopes {
  double angle = 0.0, first = 0.0, second = 0.0;
  static Slopes of_sine(double s) {
    const double square = 1.0 - s * s;
    return {elementary::angle_of_sine(s), 1.0 / std::sqrt(square),
            s / (square * std::sqrt(square))};
  }
};

}  // namespace

void Pose::move(const Eigen::Vector3d& by, const Eigen::Vector3d& turn) {
  // The rounding of the sum (Knuth), exact.
  const Eigen::Vector3d sum = moved + by, part = sum - moved;
  moved_rest += (moved - (sum - part)) + (by - part);
  moved = sum;
  const double angle = turn.norm();
  if (angle == 0.0) return;
  Eigen::Quaterniond further;
  further.w() = elementary::cosine(angle / 2.0);
  further.vec() = elementary::sine(angle / 2.0) / angle * turn;
  turned = (further * turned).normalized();  // roundings of many steps do not add up
}

Eigen::Vector3d Pose::rotation_vector() const {
  const double sense = turned.w() < 0.0 ? -1.0 : 1.0;
  const double sine = turned.vec().norm();
  if (sine == 0.0) return Eigen::Vector3d::Zero();
  return 2.0 * sense * elementary::angle_of(sine, sense * turned.w()) / sine * turned.vec();
}

Eigen::Vector3d Pose::change_of(const Eigen::Vector3d& direction) const {
  const Eigen::Vector3d across = 2.0 * turned.vec().cross(direction);
  return turned.w() * across + turned.vec().cross(across);
}

/// Positions of the piece, and its deformations as they follow from them.
struct CorotatedPiece::Motion {
  Eigen::Vector3d chord;  ///< unit vector
  double length = 0.0;
  std::array<Eigen::Vector3d, 2> y, z;  ///< of the sections at both ends
  Natural deformations;
  std::array<double, natural> sines{};
  std::array<Slopes, natural> slopes;
  Eigen::Matrix<double, natural, 12> gradient;  ///< of the deformations
};

/// Forces on the deformations, and their derivatives; released ones eliminated.
struct CorotatedPiece::Inner {
  Natural forces = Natural::Zero();
  NaturalMatrix stiffness = NaturalMatrix::Zero();
  int negative_pivots = 0;
};

CorotatedPiece::CorotatedPiece(const Element& element, const Eigen::Vector3d& chord,
                               const Axes& axes)
    : chord_(chord),
      axes_(axes),
      length_(chord.norm()),
      is_truss_(element.kind == ElementKind::truss) {
  const Stiffness& s = element.stiffness;
  axial_ = s.e * s.area / length_;
  bending_z_ = bending_y_ = bow_z_ = bow_y_ = Eigen::Matrix2d::Zero();
  if (is_truss_) return;
  const BendingPlane about_z = plane_y(s, length_), about_y = plane_z(s, length_);
  bending_z_ = rotational(about_z);
  bending_y_ = rotational(about_y);
  bow_z_ = bowing(about_z);
  bow_y_ = bowing(about_y);
  const auto& r = element.released;
  released_ = {false, r[5], r[11], r[4], r[10], false};
  torsion_ = r[3] || r[9] ? 0.0 : s.g * s.it / length_;
}

std::optional<CorotatedPiece::Motion> CorotatedPiece::motion_of(const Pose& start,
                                                                const Pose& end) const {
  Motion m;
  const Eigen::Vector3d apart = (end.moved - start.moved) + (end.moved_rest - start.moved_rest);
  const Eigen::Vector3d chord = chord_ + apart;
  m.length = chord.norm();
  if (!(m.length > 0.0) || !std::isfinite(m.length)) return std::nullopt;
  m.chord = chord / m.length;
  m.gradient.setZero();
  // Without the difference of two nearly equal lengths.
  m.deformations.setZero();
  m.deformations[0] = (2.0 * chord_ + apart).dot(apart) / (m.length + length_);
  m.gradient.row(0).segment<3>(0) = -m.chord;
  m.gradient.row(0).segment<3>(6) = m.chord;
  if (is_truss_) return m;
  // Sines from changes of the directions: products of the directions themselves are rounded to
  // 1e-16, which is more than small loads turn anything by.
  const Eigen::Vector3d x = axes_.row(0), y = axes_.row(1), z = axes_.row(2);
  const Eigen::Vector3d change = (apart - m.deformations[0] * x) / m.length;  // of the chord
  const std::array<Eigen::Vector3d, 2> dy{start.change_of(y), end.change_of(y)};
  const std::array<Eigen::Vector3d, 2> dz{start.change_of(z), end.change_of(z)};
  for (std::size_t i = 0; i < 2; ++i) {
    m.y[i] = y + dy[i];
    m.z[i] = z + dz[i];
  }
  for (std::size_t i = 0; i < 4; ++i) {
    const bool is_y = i < 2;
    const Eigen::Vector3d t = is_y ? Eigen::Vector3d(-m.y[i]) : m.z[i - 2];
    const int row = static_cast<int>(i) + 1;
    if (released_[i + 1]) continue;  // the node may turn as it likes
    const double sine =
        is_y ? -dy[i].dot(m.chord) - y.dot(change) : dz[i - 2].dot(m.chord) + z.dot(change);
    if (!(std::abs(sine) <= largest_sine)) return std::nullopt;
    m.sines[i + 1] = sine;
    m.slopes[i + 1] = Slopes::of_sine(sine);
    m.deformations[row] = m.slopes[i + 1].angle;
    const Eigen::Vector3d across = (t - sine * m.chord) / m.length;
    m.gradient.row(row).segment<3>(0) = -across;
    m.gradient.row(row).segment<3>(6) = across;
    m.gradient.row(row).segment<3>(i % 2 == 0 ? 3 : 9) = t.cross(m.chord);
    m.gradient.row(row) *= m.slopes[i + 1].first;
  }
  const double sine = (dz[0].dot(m.y[1]) + z.dot(dy[1]) - dy[0].dot(m.z[1]) - y.dot(dz[1])) / 2.0;
  if (torsion_ == 0.0) return m;  // it turns freely
  if (!(std::abs(sine) <= largest_sine)) return std::nullopt;
  m.slopes[5] = Slopes::of_sine(sine);
  m.deformations[5] = m.slopes[5].angle;
  const Eigen::Vector3d turn = (m.z[0].cross(m.y[1]) - m.y[0].cross(m.z[1])) / 2.0;
  m.gradient.row(5).segment<3>(3) = m.slopes[5].first * turn;
  m.gradient.row(5).segment<3>(9) = -m.slopes[5].first * turn;
  return m;
}

std::optional<CorotatedPiece::Deformations> CorotatedPiece::deformations(const Pose& start,
                                                                         const Pose& end) const {
  const auto motion = motion_of(start, end);
  if (!motion) return std::nullopt;
  return Deformations{motion->deformations, motion->gradient};
}

double CorotatedPiece::energy(const Natural& d) const {
  const Eigen::Vector2d z = d.segment<2>(1), y = d.segment<2>(3);
  return (axial_ * d[0] * d[0] + z.dot(bending_z_ * z) + y.dot(bending_y_ * y) +
          torsion_ * d[5] * d[5]) /
         2.0;
}

/// Forces and stiffness of deformations, no release taken into account.
/// @param loads forces that are there without deformations
CorotatedPiece::Inner CorotatedPiece::elastic(const Natural& d, const Natural& loads) const {
  const Eigen::Vector2d z = d.segment<2>(1), y = d.segment<2>(3);
  const Eigen::Vector2d bow_z = bow_z_ * z, bow_y = bow_y_ * y;
  const double axial = axial_ * (d[0] + (z.dot(bow_z) + y.dot(bow_y)) / 2.0) + loads[0];
  Inner inner;
  inner.forces[0] = axial;
  inner.forces.segment<2>(1) = bending_z_ * z + axial * bow_z + loads.segment<2>(1);
  inner.forces.segment<2>(3) = bending_y_ * y + axial * bow_y + loads.segment<2>(3);
  inner.forces[5] = torsion_ * d[5] + loads[5];
  Natural longer = Natural::Zero();
  longer << 1.0, bow_z, bow_y, 0.0;
  inner.stiffness = axial_ * longer * longer.transpose();
  inner.stiffness.block<2, 2>(1, 1) += bending_z_ + axial * bow_z_;
  inner.stiffness.block<2, 2>(3, 3) += bending_y_ + axial * bow_y_;
  inner.stiffness(5, 5) += torsion_;
  return inner;
}

std::optional<CorotatedPiece::Inner> CorotatedPiece::inner_of(const Motion& m,
                                                              const PieceLoads& loads,
                                                              double factor) const {
  Natural own = Natural::Zero();
  own[0] = -axial_ * length_ * loads.free_strain;
  if (!is_truss_) {
    const Eigen::Vector3d y = (m.y[0] + m.y[1]) / 2.0, z = (m.z[0] + m.z[1]) / 2.0;
    own.segment<2>(1) = loads.about_z * y + loads.moments_about_z * z + loads.free_about_z;
    own.segment<2>(3) = loads.about_y * z + loads.moments_about_y * y + loads.free_about_y;
    if (torsion_ > 0.0) own[5] = loads.torque.dot(m.chord);
  }
  own *= factor;
  std::vector<int> free;
  for (int i = 0; i < natural; ++i) {
    if (released_[static_cast<std::size_t>(i)]) free.push_back(i);
  }
  Natural d = m.deformations;
  for (const int i : free) d[i] = 0.0;
  Inner inner = elastic(d, own);
  if (free.empty()) return inner;
  const double scale =
      std::max(inner.forces.segment<4>(1).cwiseAbs().maxCoeff(), bending_z_(0, 0) * settled);
  for (int step = 0;; ++step) {
    const Eigen::VectorXd f = inner.forces(free);
    if (f.cwiseAbs().maxCoeff() <= settled * scale) break;
    if (step == most_steps) return std::nullopt;
    const Eigen::MatrixXd k = inner.stiffness(free, free);
    const Eigen::VectorXd by = -k.fullPivLu().solve(f);
    if (!by.allFinite()) return std::nullopt;
    for (std::size_t i = 0; i < free.size(); ++i) d[free[i]] += by[static_cast<int>(i)];
    inner = elastic(d, own);
  }
  const Eigen::MatrixXd pivot = inner.stiffness(free, free);
  const Eigen::MatrixXd coupling = inner.stiffness(free, Eigen::all);
  const Eigen::LDLT<Eigen::MatrixXd> ldlt(pivot);
  inner.negative_pivots = static_cast<int>((ldlt.vectorD().array() < 0.0).count());
  inner.stiffness -= coupling.transpose() * pivot.fullPivLu().solve(coupling);
  for (const int i : free) {
    inner.forces[i] = 0.0;
    inner.stiffness.row(i).setZero();
    inner.stiffness.col(i).setZero();
  }
  return inner;
}

/// Second derivatives of the deformations, each times its force, added to the stiffness.
Matrix12 CorotatedPiece::tangent_of(const Motion& m, const Inner& inner) const {
  Matrix12 k = m.gradient.transpose() * inner.stiffness * m.gradient;
  const Eigen::Matrix3d across = Eigen::Matrix3d::Identity() - m.chord * m.chord.transpose();
  const auto add_apart = [&](const Eigen::Matrix3d& part) {
    k.block<3, 3>(0, 0) += part;
    k.block<3, 3>(6, 6) += part;
    k.block<3, 3>(0, 6) -= part;
    k.block<3, 3>(6, 0) -= part;
  };
  add_apart(inner.forces[0] / m.length * across);
  if (is_truss_) return k;
  for (std::size_t i = 0; i < 4; ++i) {
    const int row = static_cast<int>(i) + 1, at = i % 2 == 0 ? 3 : 9;
    const double force = inner.forces[row];
    if (force == 0.0) continue;
    const Slopes& slopes = m.slopes[i + 1];
    const Eigen::Vector3d t = i < 2 ? Eigen::Vector3d(-m.y[i]) : m.z[i - 2];
    const double sine = m.sines[i + 1];
    const Vector12 gradient = m.gradient.row(row).transpose();
    // The gradient holds the first derivative already.
    k += force * slopes.second / (slopes.first * slopes.first) * gradient * gradient.transpose();
    const double f = force * slopes.first;
    const Eigen::Matrix3d along = m.chord * m.chord.transpose();
    add_apart(f / (m.length * m.length) *
              (3.0 * sine * along - both(t, m.chord) - sine * Eigen::Matrix3d::Identity()));
    const Eigen::Matrix3d turn_apart = f / m.length * cross_matrix(t) * across;
    k.block<3, 3>(at, 0) -= turn_apart;
    k.block<3, 3>(at, 6) += turn_apart;
    k.block<3, 3>(0, at) -= turn_apart.transpose();
    k.block<3, 3>(6, at) += turn_apart.transpose();
    k.block<3, 3>(at, at) += f * (both(m.chord, t) / 2.0 - sine * Eigen::Matrix3d::Identity());
  }
  if (inner.forces[5] == 0.0) return k;
  const Slopes& slopes = m.slopes[5];
  const Vector12 gradient = m.gradient.row(5).transpose();
  k += inner.forces[5] * slopes.second / (slopes.first * slopes.first) * gradient *
       gradient.transpose();
  const double f = inner.forces[5] * slopes.first / 2.0;
  const auto add_product = [&](const Eigen::Vector3d& p, const Eigen::Vector3d& q, double sign) {
    const double product = p.dot(q);
    const Eigen::Matrix3d own = both(p, q) / 2.0 - product * Eigen::Matrix3d::Identity();
    const Eigen::Matrix3d mixed = product * Eigen::Matrix3d::Identity() - q * p.transpose();
    k.block<3, 3>(3, 3) += sign * f * own;
    k.block<3, 3>(9, 9) += sign * f * own;
    k.block<3, 3>(3, 9) += sign * f * mixed;
    k.block<3, 3>(9, 3) += sign * f * mixed.transpose();
  };
  add_product(m.z[0], m.y[1], 1.0);
  add_product(m.y[0], m.z[1], -1.0);
  return k;
}

std::optional<CorotatedPiece::Response> CorotatedPiece::response(const Pose& start, const Pose& end,
                                                                 const PieceLoads& loads,
                                                                 double load_factor,
                                                                 Wanted wanted) const {
  const auto motion = motion_of(start, end);
  if (!motion) return std::nullopt;
  const auto inner = inner_of(*motion, loads, load_factor);
  if (!inner) return std::nullopt;
  Response response;
  response.forces = motion->gradient.transpose() * inner->forces;
  response.axial_force = inner->forces[0];
  response.largest_moment = inner->forces.tail<5>().cwiseAbs().maxCoeff();
  response.negative_pivots = inner->negative_pivots;
  if (wanted == Wanted::tangent) response.tangent = tangent_of(*motion, *inner);
  return response;
}

}  // namespace aluframe::analysis
