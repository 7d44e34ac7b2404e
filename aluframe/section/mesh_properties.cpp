#include "aluframe/section/mesh_properties.h"

#include <Eigen/LU>
#include <Eigen/SparseCholesky>
#include <Eigen/SparseCore>
#include <cmath>
#include <stdexcept>

namespace aluframe::section {

namespace {

constexpr int shapes = 9;
using Values = Eigen::Matrix<double, shapes, 1>;
using Gradients = Eigen::Matrix<double, shapes, 2>;

/// Quadratic polynomials over −1, 0, 1 and their slopes.
struct Line {
  double value[3];
  double slope[3];
};

Line line_at(double x) {
  return {{x * (x - 1.0) / 2.0, 1.0 - x * x, x * (x + 1.0) / 2.0}, {x - 0.5, -2.0 * x, x + 0.5}};
}

/// One point of the integration: shape functions, their gradients along y and z, place and weight.
struct Sample {
  Values value;
  Gradients gradient;
  double y, z, weight;
};

/// Coordinates of the cell's points, a row each.
Gradients points_of(const SectionMesh& mesh, const SectionMesh::Cell& cell) {
  Gradients points;
  for (int k = 0; k < shapes; ++k) {
    const SectionMesh::Point& point = mesh.points[cell[static_cast<std::size_t>(k)]];
    points.row(k) << point.y, point.z;
  }
  return points;
}

Sample sample_at(const Gradients& points, double xi, double eta, double weight) {
  const Line across = line_at(xi);
  const Line up = line_at(eta);
  Gradients local;
  Sample sample;
  for (int k = 0; k < shapes; ++k) {
    sample.value(k) = across.value[k % 3] * up.value[k / 3];
    local.row(k) << across.slope[k % 3] * up.value[k / 3], across.value[k % 3] * up.slope[k / 3];
  }
  const Eigen::Matrix2d jacobian = local.transpose() * points;
  sample.gradient = local * jacobian.inverse().transpose();
  sample.y = sample.value.dot(points.col(0));
  sample.z = sample.value.dot(points.col(1));
  sample.weight = weight * std::abs(jacobian.determinant());
  return sample;
}

/// Calls `visit` at the nine Gauss points of every cell.
template <class Visit>
void integrate(const SectionMesh& mesh, Visit visit) {
  static const double places[] = {-std::sqrt(0.6), 0.0, std::sqrt(0.6)};
  constexpr double weights[] = {5.0 / 9.0, 8.0 / 9.0, 5.0 / 9.0};
  for (const SectionMesh::Cell& cell : mesh.cells) {
    const Gradients points = points_of(mesh, cell);
    for (int i = 0; i < 3; ++i) {
      for (int j = 0; j < 3; ++j) {
        visit(cell, sample_at(points, places[i], places[j], weights[i] * weights[j]));
      }
    }
  }
}

/// Area, centroid and second moments.
MeshProperties elementary_properties(const SectionMesh& mesh) {
  MeshProperties out;
  double sum_y = 0.0;
  double sum_z = 0.0;
  integrate(mesh, [&](const SectionMesh::Cell&, const Sample& s) {
    out.area += s.weight;
    sum_y += s.weight * s.y;
    sum_z += s.weight * s.z;
  });
  out.centroid_y = sum_y / out.area;
  out.centroid_z = sum_z / out.area;
  integrate(mesh, [&](const SectionMesh::Cell&, const Sample& s) {
    const double y = s.y - out.centroid_y;
    const double z = s.z - out.centroid_z;
    out.iyy += s.weight * z * z;
    out.izz += s.weight * y * y;
    out.iyz += s.weight * y * z;
  });
  return out;
}

/// The warping function about the centroid, up to a constant: 0 at the mesh's first point.
Eigen::VectorXd warping_function(const SectionMesh& mesh, const MeshProperties& about) {
  const auto size = static_cast<Eigen::Index>(mesh.points.size());
  std::vector<Eigen::Triplet<double>> entries;
  entries.reserve(mesh.cells.size() * shapes * shapes);
  Eigen::VectorXd load = Eigen::VectorXd::Zero(size);
  Eigen::Matrix<double, shapes, shapes> stiffness = Eigen::Matrix<double, shapes, shapes>::Zero();
  int sample_of_cell = 0;
  integrate(mesh, [&](const SectionMesh::Cell& cell, const Sample& s) {
    stiffness += s.weight * s.gradient * s.gradient.transpose();
    const Values edge = s.weight * ((s.z - about.centroid_z) * s.gradient.col(0) -
                                    (s.y - about.centroid_y) * s.gradient.col(1));
    for (int k = 0; k < shapes; ++k) load(static_cast<Eigen::Index>(cell[k])) += edge(k);
    if (++sample_of_cell < shapes) return;
    for (int a = 0; a < shapes; ++a) {
      for (int b = 0; b < shapes; ++b) {
        const auto row = static_cast<int>(cell[a]);
        const auto column = static_cast<int>(cell[b]);
        if (row > 0 && column > 0) entries.emplace_back(row, column, stiffness(a, b));
      }
    }
    stiffness.setZero();
    sample_of_cell = 0;
  });
  entries.emplace_back(0, 0, 1.0);
  load(0) = 0.0;
  Eigen::SparseMatrix<double> matrix(size, size);
  matrix.setFromTriplets(entries.begin(), entries.end());
  const Eigen::SimplicialLDLT<Eigen::SparseMatrix<double>> factor(matrix);
  if (factor.info() != Eigen::Success)
    throw std::logic_error("the section's mesh is not in one piece");
  return factor.solve(load);
}

/// Integrals of ω, made to have no mean, against y, z and itself, and of its gradient.
struct WarpingIntegrals {
  double wy = 0.0, wz = 0.0, ww = 0.0, gradient = 0.0;
};

WarpingIntegrals integrals_of(const SectionMesh& mesh, const MeshProperties& about,
                              const Eigen::VectorXd& warping) {
  double mean = 0.0;
  const auto values_at = [&](const SectionMesh::Cell& cell) {
    Values values;
    for (int k = 0; k < shapes; ++k) values(k) = warping(static_cast<Eigen::Index>(cell[k]));
    return values;
  };
  integrate(mesh, [&](const SectionMesh::Cell& cell, const Sample& s) {
    mean += s.weight * s.value.dot(values_at(cell)) / about.area;
  });
  WarpingIntegrals out;
  integrate(mesh, [&](const SectionMesh::Cell& cell, const Sample& s) {
    const Values values = values_at(cell);
    const double w = s.value.dot(values) - mean;
    out.wy += s.weight * w * (s.y - about.centroid_y);
    out.wz += s.weight * w * (s.z - about.centroid_z);
    out.ww += s.weight * w * w;
    out.gradient += s.weight * (s.gradient.transpose() * values).squaredNorm();
  });
  return out;
}

}  // namespace

MeshProperties properties_of(const SectionMesh& mesh) {
  MeshProperties out = elementary_properties(mesh);
  const WarpingIntegrals w = integrals_of(mesh, out, warping_function(mesh, out));
  out.it = out.iyy + out.izz - w.gradient;
  // About the pole P, ω − z_P·y + y_P·z is orthogonal to y and z.
  const double determinant = out.izz * out.iyy - out.iyz * out.iyz;
  out.shear_centre_z = (w.wy * out.iyy - w.wz * out.iyz) / determinant;
  out.shear_centre_y = (w.wy * out.iyz - w.wz * out.izz) / determinant;
  out.iw = w.ww - out.shear_centre_z * w.wy + out.shear_centre_y * w.wz;
  return out;
}

}  // namespace aluframe::section
