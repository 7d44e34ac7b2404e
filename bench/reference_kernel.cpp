#include "bench/reference_kernel.h"

#include <algorithm>
#include <cmath>

namespace {

constexpr double pi = 3.14159265358979323846;

struct SECTION {
  double area, iyy, izz, it, iw, wy, wz, wpl_y, wpl_z, sy, sz, iy, iz;
};

SECTION section_of(const REFERENCE_MEMBER& m) {
  const double hw = m.h - 2.0 * m.tf;
  const double arm = m.h - m.tf;
  const double flange = m.b * m.tf;
  SECTION s;
  s.area = 2.0 * flange + hw * m.tw;
  s.iyy = m.b * m.h * m.h * m.h / 12.0 - (m.b - m.tw) * hw * hw * hw / 12.0;
  s.izz = m.tf * m.b * m.b * m.b / 6.0 + hw * m.tw * m.tw * m.tw / 12.0;
  s.it = (2.0 * m.b * m.tf * m.tf * m.tf + hw * m.tw * m.tw * m.tw) / 3.0;
  s.iw = s.izz * arm * arm / 4.0;
  s.wy = s.iyy / (0.5 * m.h);
  s.wz = s.izz / (0.5 * m.b);
  s.sy = 0.5 * flange * arm + hw * hw * m.tw / 8.0;
  s.sz = m.tf * m.b * m.b / 8.0;
  s.wpl_y = 2.0 * s.sy;
  s.wpl_z = 4.0 * s.sz + hw * m.tw * m.tw / 4.0;
  s.iy = std::sqrt(s.iyy / s.area);
  s.iz = std::sqrt(s.izz / s.area);
  return s;
}

// Perry formula.
double column_factor(double relative, double alpha, double plateau) {
  const double square = relative * relative;
  const double eta = 1.0 + alpha * (relative - plateau) + square;
  const double factor = (eta - std::sqrt(eta * eta - 4.0 * square)) / (2.0 * square);
  return std::min(factor, 1.0);
}

// Effective share of a plate of a width-to-thickness ratio.
double plate_factor(double ratio, double k, const REFERENCE_MEMBER& m) {
  const double critical = k * pi * pi * m.E / (12.0 * (1.0 - 0.09) * ratio * ratio);
  const double relative = std::sqrt(m.fy / critical);
  return std::min(1.0, 0.9 / relative - 0.198 / (relative * relative));
}

double von_mises(double sigma, double tau) {
  return std::sqrt(sigma * sigma + 3.0 * tau * tau);
}

double critical_moment(const REFERENCE_MEMBER& m, const SECTION& s) {
  const double kl = m.kz * m.length;
  const double euler = pi * pi * m.E * s.izz / (kl * kl);
  const double c1 = 1.75 - 1.05 * m.ratio + 0.3 * m.ratio * m.ratio;
  const double warp = s.iw / s.izz + m.G * s.it / euler;
  const double load = 0.459 * 0.5 * m.h;
  return c1 * euler * (std::sqrt(load * load + warp) - load);
}

double largest_corner_stress(const REFERENCE_MEMBER& m, const SECTION& s) {
  const double axial = m.N / s.area;
  const double y = m.My / s.wy;
  const double z = m.Mz / s.wz;
  const double twist = m.T * m.tf / s.it;
  const double shear = m.Vy / (2.0 * m.b * m.tf) + twist;
  const double top = std::max(von_mises(axial + y + z, shear), von_mises(axial + y - z, shear));
  const double bottom = std::max(von_mises(axial - y + z, shear), von_mises(axial - y - z, shear));
  return std::max(top, bottom);
}

double largest_web_stress(const REFERENCE_MEMBER& m, const SECTION& s) {
  const double axial = m.N / s.area;
  const double twist = m.T * m.tw / s.it;
  const double at_centre = m.Vz * s.sy / (s.iyy * m.tw) + twist;
  const double flange = 0.5 * m.b * m.tf * (m.h - m.tf);
  const double at_joint = m.Vz * flange / (s.iyy * m.tw) + twist;
  const double bending = m.My / s.wy * (m.h - 2.0 * m.tf) / m.h;
  const double side = m.Vy * s.sz / (s.izz * m.tf);
  const double centre = von_mises(axial, at_centre);
  const double joint = std::max(von_mises(axial + bending, at_joint + side),
                                von_mises(axial - bending, at_joint - side));
  return std::max(centre, joint);
}

// Largest combined moment of a span under the end moments and a parabola between them, by its
// quarters, as a share of the moment that the other checks take.
double moment_envelope(const REFERENCE_MEMBER& m) {
  double largest = 0.0;
  for (const double x : {0.0, 0.25, 0.5, 0.75, 1.0}) {
    const double parabola = 4.0 * x * (1.0 - x);
    const double my = m.My * (1.0 - x + m.ratio * x) + 0.1 * m.Vz * m.length * parabola;
    const double mz = m.Mz * (1.0 - x + m.ratio * x) + 0.1 * m.Vy * m.length * parabola;
    const double second_order = 1e-6 * m.N * parabola * m.length;
    const double y = my + second_order;
    const double z = mz + 0.5 * second_order;
    largest = std::max(largest, y * y + 0.25 * z * z + 0.1 * y * z);
  }
  return largest;
}

}  // namespace

std::array<double, 13> reference_checks(const REFERENCE_MEMBER& m) {
  const SECTION s = section_of(m);
  const double epsilon = std::sqrt(240.0 / m.fy);
  const double flange = (m.b - m.tw) / (2.0 * m.tf);
  const double web = (m.h - 2.0 * m.tf) / m.tw;
  const double rho = std::min(plate_factor(flange, 0.431, m), plate_factor(web, 4.0, m));
  const double effective = rho * s.area;

  const double lambda_y = m.ky * m.length / s.iy;
  const double lambda_z = m.kz * m.length / s.iz;
  const double scale = std::sqrt(rho * m.fy / m.E) / pi;
  const double phi_y = column_factor(lambda_y * scale, 0.2, 0.15);
  const double phi_z = column_factor(lambda_z * scale, 0.2, 0.15);
  const double lambda_b = std::sqrt(s.wy * m.fy / critical_moment(m, s));
  const double phi_b = column_factor(lambda_b, 0.2, 0.36);

  const double euler_y = pi * pi * m.E * s.area / (1.2 * lambda_y * lambda_y);
  const double euler_z = pi * pi * m.E * s.area / (1.2 * lambda_z * lambda_z);
  const double beta = 0.6 + 0.4 * m.ratio;
  const double amplified_y = 1.0 - 0.75 * m.N / euler_y;
  const double amplified_z = 1.0 - 0.75 * m.N / euler_z;
  const double in_plane =
      m.N / (phi_y * effective) + beta * m.My / (s.wy * amplified_y) + m.Mz / s.wz;
  const double out_of_plane =
      m.N / (phi_z * effective) + m.My / (phi_b * s.wy) + beta * m.Mz / (s.wz * amplified_z);
  const double plastic = m.My / s.wpl_y + m.Mz / s.wpl_z;
  const double sag = 5.0 * m.My * m.length * m.length / (48.0 * m.E * s.iyy);

  return {largest_corner_stress(m, s) / m.f,
          largest_web_stress(m, s) / m.f,
          m.Vz * s.sy / (s.iyy * m.tw) / m.fv,
          m.Vy * s.sz / (s.izz * m.tf) / m.fv,
          m.N / (effective * m.f),
          plastic / m.f,
          in_plane / m.f,
          out_of_plane / m.f,
          lambda_y / 150.0,
          lambda_z / 150.0,
          std::max(flange / (6.0 * epsilon), web / (21.5 * epsilon)),
          250.0 * sag / m.length,
          moment_envelope(m)};
}
