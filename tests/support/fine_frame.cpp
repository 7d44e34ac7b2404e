#include "tests/support/fine_frame.h"

#include <Eigen/Dense>
#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>

namespace aluframe::analysis::verification {

namespace {

using Matrix3 = Eigen::Matrix3d;
using Matrix12d = Eigen::Matrix<double, 12, 12>;
using Vector3d = Eigen::Vector3d;

/// Rows x, y, z of a member whose z lies in the vertical plane, turned by beta; a vertical one has
/// y along Y.
Matrix3 axes_of(const Vector3d& along, double beta) {
  Matrix3 axes;
  const Vector3d x = along.normalized();
  Vector3d y = Vector3d::UnitZ().cross(x);
  y = y.norm() < 1e-3 ? Vector3d(Vector3d::UnitY() - x.y() * x) : y;
  y.normalize();
  const Vector3d z = x.cross(y);
  const double angle = beta * std::numbers::pi / 180, c = std::cos(angle), s = std::sin(angle);
  axes.row(0) = x;
  axes.row(1) = c * y + s * z;
  axes.row(2) = c * z - s * y;
  return axes;
}

/// The slope at a share of the length under unit displacements and rotations of both ends, with
/// shear by phi = 12·EI/(GAs·L²).
Eigen::Vector4d slopes_at(double s, double length, double phi) {
  const double f = 1.0 / (1.0 + phi);
  return {f * (6 * s * s - 6 * s - phi) / length, f * (1 - 4 * s + 3 * s * s + phi * (0.5 - s)),
          -f * (6 * s * s - 6 * s - phi) / length, f * (3 * s * s - 2 * s + phi * (s - 0.5))};
}

/// A bending plane: displacement along `w`, rotation about `r`, whose sign turns x towards w.
void add_bending(int w, int r, double sign, double ei, double phi, double length, Matrix12d& k,
                 Matrix12d& g) {
  const std::array<int, 4> at{w, r, 6 + w, 6 + r};
  const std::array<double, 4> signs{1, sign, 1, sign};
  const double a = ei / (1 + phi) / length, l = length;
  Eigen::Matrix4d elastic, geometric = Eigen::Matrix4d::Zero();
  elastic << 12 / l / l, 6 / l, -12 / l / l, 6 / l,  //
      6 / l, 4 + phi, -6 / l, 2 - phi,               //
      -12 / l / l, -6 / l, 12 / l / l, -6 / l,       //
      6 / l, 2 - phi, -6 / l, 4 + phi;
  // Gauss with three places: exact for the squares of parabolas.
  const double gauss[]{0.5 - std::sqrt(0.15), 0.5, 0.5 + std::sqrt(0.15)};
  const double weights[]{5.0 / 18, 8.0 / 18, 5.0 / 18};
  for (int p = 0; p < 3; ++p) {
    const Eigen::Vector4d slope = slopes_at(gauss[p], l, phi);
    geometric += weights[p] * l * slope * slope.transpose();
  }
  for (int i = 0; i < 4; ++i) {
    for (int j = 0; j < 4; ++j) {
      const auto m = static_cast<std::size_t>(i), n = static_cast<std::size_t>(j);
      k(at[m], at[n]) += a * signs[m] * signs[n] * elastic(i, j);
      g(at[m], at[n]) += signs[m] * signs[n] * geometric(i, j);
    }
  }
}

void add_axial(int at, double value, Matrix12d& k) {
  k(at, at) += value;
  k(6 + at, 6 + at) += value;
  k(at, 6 + at) -= value;
  k(6 + at, at) -= value;
}

double shear_share(double ei, double g, double area, double length) {
  return area > 0 ? 12 * ei / (g * area * length * length) : 0.0;
}

}  // namespace

FineFrame::FineFrame(const Frame& frame, const LoadCase& loads, int parts) {
  number_nodes(frame);
  for (const Element& element : frame.elements) {
    Vector3 load{};
    for (const DistributedLoad& one : loads.distributed) {
      if (&frame.elements[one.element] == &element) load = one.from_value;
    }
    add_member(frame, element, load, parts);
  }
  add_springs(frame);
  loads_.resize(static_cast<std::size_t>(count_), 0.0);
  for (const NodalLoad& load : loads.nodal) {
    for (std::size_t i = 0; i < 6; ++i) {
      const int dof = of_node_[load.node][i];
      if (dof >= 0) loads_[static_cast<std::size_t>(dof)] += load.value[i];
    }
  }
  find_axial_forces();
}

void FineFrame::number_nodes(const Frame& frame) {
  of_node_.resize(frame.nodes.size());
  for (auto& node : of_node_) node.fill(0);
  for (const Support& s : frame.supports) {
    for (std::size_t i = 0; i < 6; ++i) {
      if (s.fixed[i]) of_node_[s.node][i] = -1;
    }
  }
  // Rotations that only trusses meet, whose hinges stand there.
  std::vector<bool> turns(frame.nodes.size(), false);
  for (const Element& e : frame.elements) {
    if (e.kind == ElementKind::beam) turns[e.start] = turns[e.end] = true;
  }
  for (std::size_t node = 0; node < of_node_.size(); ++node) {
    for (std::size_t i = 0; i < 6; ++i) {
      if (i >= 3 && !turns[node]) of_node_[node][i] = -1;
      if (of_node_[node][i] == 0) of_node_[node][i] = count_++;
    }
  }
}

void FineFrame::add_member(const Frame& frame, const Element& element, const Vector3& load,
                           int parts) {
  const Node &a = frame.nodes[element.start], &b = frame.nodes[element.end];
  const Vector3d along(b.x - a.x, b.y - a.y, b.z - a.z);
  const double length = along.norm() / parts;
  const Matrix3 axes = axes_of(along, element.beta);
  std::array<bool, 12> released = element.released;
  if (element.kind == ElementKind::truss) {
    released = {false, false, false, true, true, true, false, false, false, false, true, true};
  }
  const Stiffness& s = element.stiffness;
  Piece plain;
  plain.elastic.setZero();
  plain.geometric.setZero();
  const double g = s.g;
  add_axial(0, s.e * s.area / length, plain.elastic);
  add_axial(3, g * s.it / length, plain.elastic);
  add_bending(1, 5, 1.0, s.e * s.izz, shear_share(s.e * s.izz, g, s.ay, length), length,
              plain.elastic, plain.geometric);
  add_bending(2, 4, -1.0, s.e * s.iyy, shear_share(s.e * s.iyy, g, s.az, length), length,
              plain.elastic, plain.geometric);
  // An end of a piece: its local displacements from dofs, by a node of the frame or its own.
  struct End {
    std::vector<int> dofs;
    Eigen::MatrixXd to_local;
  };
  const auto own_end = [&] {
    End end{{}, Eigen::MatrixXd::Identity(6, 6)};
    for (int i = 0; i < 6; ++i) end.dofs.push_back(count_++);
    return end;
  };
  const auto frame_end = [&](std::size_t node, std::size_t first) {
    Eigen::Matrix<double, 6, 6> turn = Eigen::Matrix<double, 6, 6>::Zero();
    turn.topLeftCorner<3, 3>() = axes;
    turn.bottomRightCorner<3, 3>() = axes;
    End end{{of_node_[node].begin(), of_node_[node].end()}, turn};
    for (int i = 0; i < 6; ++i) {
      if (!released[first + static_cast<std::size_t>(i)]) continue;
      end.to_local.row(i).setZero();
      end.to_local.conservativeResize(6, end.to_local.cols() + 1);
      end.to_local.rightCols<1>().setZero();
      end.to_local(i, end.to_local.cols() - 1) = 1.0;
      end.dofs.push_back(count_++);
    }
    return end;
  };
  End start = frame_end(element.start, 0);
  for (int i = 0; i < parts; ++i) {
    End end = i + 1 < parts ? own_end() : frame_end(element.end, 6);
    Piece piece = plain;
    piece.element = static_cast<std::size_t>(&element - frame.elements.data());
    piece.dofs = start.dofs;
    piece.dofs.insert(piece.dofs.end(), end.dofs.begin(), end.dofs.end());
    piece.to_local = Eigen::MatrixXd::Zero(12, start.to_local.cols() + end.to_local.cols());
    piece.to_local.topLeftCorner(6, start.to_local.cols()) = start.to_local;
    piece.to_local.bottomRightCorner(6, end.to_local.cols()) = end.to_local;
    // Half of the load at each end, with the moments of a clamped piece.
    const Vector3d half = axes * Vector3d(load[0], load[1], load[2]) * length / 2;
    Vector forces = Vector::Zero();
    forces.segment<3>(0) = forces.segment<3>(6) = half;
    forces[5] = half.y() * length / 6;
    forces[11] = -forces[5];
    forces[4] = -half.z() * length / 6;
    forces[10] = -forces[4];
    const Eigen::VectorXd at = piece.to_local.transpose() * forces;
    loads_.resize(static_cast<std::size_t>(count_), 0.0);
    for (std::size_t j = 0; j < piece.dofs.size(); ++j) {
      if (piece.dofs[j] < 0) continue;
      loads_[static_cast<std::size_t>(piece.dofs[j])] += at[static_cast<Eigen::Index>(j)];
    }
    pieces_.push_back(piece);
    start = std::move(end);
  }
}

void FineFrame::add_springs(const Frame& frame) {
  for (const Spring& spring : frame.springs) {
    for (std::size_t i = 0; i < 6; ++i) {
      const int dof = of_node_[spring.node][i];
      if (dof >= 0) springs_.emplace_back(dof, spring.stiffness[i]);
    }
  }
}

Eigen::SparseMatrix<double> FineFrame::stiffness(double factor) const {
  std::vector<Eigen::Triplet<double>> entries;
  for (const Piece& piece : pieces_) {
    const Matrix local = piece.elastic + factor * piece.axial_force * piece.geometric;
    const Eigen::MatrixXd k = piece.to_local.transpose() * local * piece.to_local;
    for (std::size_t i = 0; i < piece.dofs.size(); ++i) {
      for (std::size_t j = 0; j < piece.dofs.size(); ++j) {
        if (piece.dofs[i] < 0 || piece.dofs[j] < 0) continue;
        entries.emplace_back(piece.dofs[i], piece.dofs[j],
                             k(static_cast<Eigen::Index>(i), static_cast<Eigen::Index>(j)));
      }
    }
  }
  for (const auto& [dof, value] : springs_) entries.emplace_back(dof, dof, value);
  Eigen::SparseMatrix<double> k(count_, count_);
  k.setFromTriplets(entries.begin(), entries.end());
  return k;
}

/// The mean of each piece, which a load along it changes by little.
void FineFrame::find_axial_forces() {
  const Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> solver(stiffness(0.0));
  if (solver.info() != Eigen::Success || !(solver.vectorD().minCoeff() > 0.0)) {
    throw std::runtime_error("the fine frame is not held");
  }
  const Eigen::VectorXd u = solver.solve(Eigen::Map<const Eigen::VectorXd>(loads_.data(), count_));
  for (Piece& piece : pieces_) {
    const Vector local = local_displacements(piece, u);
    piece.axial_force = piece.elastic(0, 0) * (local[6] - local[0]);
  }
}

FineFrame::Vector FineFrame::local_displacements(const Piece& piece,
                                                 const Eigen::VectorXd& u) const {
  Eigen::VectorXd own(static_cast<Eigen::Index>(piece.dofs.size()));
  for (std::size_t i = 0; i < piece.dofs.size(); ++i) {
    own[static_cast<Eigen::Index>(i)] = piece.dofs[i] < 0 ? 0.0 : u[piece.dofs[i]];
  }
  return piece.to_local * own;
}

/// Inverse iteration.
Eigen::VectorXd FineFrame::shape_near(double factor) const {
  const Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> solver(stiffness(factor));
  if (solver.info() != Eigen::Success) throw std::runtime_error("the fine frame is singular");
  const Eigen::SparseMatrix<double> taken = stiffness(0.0) - stiffness(1.0);
  Eigen::VectorXd shape(count_);
  for (int i = 0; i < count_; ++i) shape[i] = std::sin(1.0 + 7.0 * i);
  for (int step = 0; step < 8; ++step) {
    shape = solver.solve(taken * shape);
    shape.normalize();
  }
  return shape;
}

std::optional<FineFrame::Mode> FineFrame::first_mode() const {
  constexpr double largest = 1e6;
  double low = 0.0, high = 1e-3;
  for (; factors_below(high) == 0; high *= 2.0) {
    if (high > largest) return std::nullopt;
    low = high;
  }
  while (high - low > 1e-4 * high) {
    const double middle = (low + high) / 2.0;
    (factors_below(middle) > 0 ? high : low) = middle;
  }
  Mode mode{.factor = high, .work = {}, .compression = {}};
  const Eigen::VectorXd shape = shape_near(low);
  for (const Piece& piece : pieces_) {
    mode.work.resize(piece.element + 1);
    mode.compression.resize(piece.element + 1, 0.0);
    Vector about_y = local_displacements(piece, shape), about_z = about_y;
    for (const int place : {1, 5, 7, 11}) about_y[place] = 0.0;
    for (const int place : {2, 4, 8, 10}) about_z[place] = 0.0;
    const auto work = [&](const Vector& u) -> double {
      return -piece.axial_force * u.dot(piece.geometric * u);
    };
    mode.work[piece.element][0] += work(about_y);
    mode.work[piece.element][1] += work(about_z);
    double& compression = mode.compression[piece.element];
    compression = std::max(compression, -piece.axial_force);
  }
  return mode;
}

int FineFrame::factors_below(double factor) const {
  const Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> solver(stiffness(factor));
  if (solver.info() != Eigen::Success) throw std::runtime_error("the fine frame is singular");
  return static_cast<int>((solver.vectorD().array() < 0.0).count());
}

}  // namespace aluframe::analysis::verification
