#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <utility>
#include <vector>

#include "aluframe/section/thin_wall.h"
#include "section_generators.h"

namespace aluframe::section {
namespace {

// The shear centre is found here from the shear flow: the flow of a force that bends the section
// without twist must have no moment about it. Middle lines are cut into short pieces; nothing is
// shared with the sectorial coordinates and closed forms of the library.

/// A short piece of a middle line, from one end to the other.
struct Piece {
  double y, z;    ///< middle
  double dy, dz;  ///< from its beginning to its end
  double thickness;
  double area() const { return thickness * std::hypot(dy, dz); }
};

constexpr int pieces_per_plate = 500;

void add_plate(std::vector<Piece>& line, double y1, double z1, double y2, double z2, double t) {
  const double dy = (y2 - y1) / pieces_per_plate, dz = (z2 - z1) / pieces_per_plate;
  for (int i = 0; i < pieces_per_plate; ++i) {
    line.push_back({y1 + (i + 0.5) * dy, z1 + (i + 0.5) * dz, dy, dz, t});
  }
}

/// Moves the origin to the centroid. @return where that was
std::array<double, 2> move_to_centroid(std::vector<Piece>& line) {
  double area = 0, y = 0, z = 0;
  for (const Piece& piece : line) {
    area += piece.area();
    y += piece.area() * piece.y;
    z += piece.area() * piece.z;
  }
  for (Piece& piece : line) {
    piece.y -= y / area;
    piece.z -= z / area;
  }
  return {y / area, z / area};
}

struct Inertia {
  double yy = 0, zz = 0, yz = 0;  ///< ∫y², ∫z², ∫yz
};

Inertia inertia_of(const std::vector<Piece>& line) {
  Inertia i;
  for (const Piece& piece : line) {
    i.yy += piece.area() * piece.y * piece.y;
    i.zz += piece.area() * piece.z * piece.z;
    i.yz += piece.area() * piece.y * piece.z;
  }
  return i;
}

/// Moment about the centroid of the flow in an open line from one free end to the other, when the
/// stress grows by a·y + b·z along the member.
double moment_of_flow(const std::vector<Piece>& line, double a, double b) {
  double flow = 0, moment = 0;
  for (const Piece& piece : line) {
    const double growth = (a * piece.y + b * piece.z) * piece.area();
    const double mean = flow - growth / 2;
    moment += mean * (piece.y * piece.dz - piece.z * piece.dy);
    flow -= growth;
  }
  return moment;
}

/// Shear centre of an open line, from its centroid.
std::array<double, 2> open_shear_centre(const std::vector<Piece>& line) {
  const Inertia i = inertia_of(line);
  const double determinant = i.yy * i.zz - i.yz * i.yz;
  // Unit force along z: moment y of the centre. Along y: minus z of it.
  const double y = moment_of_flow(line, -i.yz / determinant, i.yy / determinant);
  const double z = -moment_of_flow(line, i.zz / determinant, -i.yz / determinant);
  return {y, z};
}

RC_GTEST_PROP(ShearCentres, OfAChannelHaveNoMomentOfTheShearFlow, ()) {
  const Flange top{length_between(20, 100), length_between(2, 8)};
  const Flange bottom{length_between(20, 100), length_between(2, 8)};
  const double h = length_between(50, 200), tw = length_between(2, 8);
  std::vector<Piece> line;
  add_plate(line, top.length, h / 2, 0, h / 2, top.thickness);
  add_plate(line, 0, h / 2, 0, -h / 2, tw);
  add_plate(line, 0, -h / 2, bottom.length, -h / 2, bottom.thickness);
  const std::array<double, 2> centroid = move_to_centroid(line);
  const std::array<double, 2> centre = open_shear_centre(line);
  const Warping found = channel_warping(top, bottom, h, tw);
  assert_close("y", found.shear_centre_y, centroid[0] + centre[0], h, 1e-4);
  assert_close("z", found.shear_centre_z, centroid[1] + centre[1], h, 1e-4);
}

RC_GTEST_PROP(ShearCentres, OfAChannelAreWhereTheSectionWarpsLeast, ()) {
  // Among all poles, ∫ω² is least about the shear centre, and there it is the warping constant.
  const Flange top{length_between(20, 100), length_between(2, 8)};
  const Flange bottom{length_between(20, 100), length_between(2, 8)};
  const double h = length_between(50, 200), tw = length_between(2, 8);
  std::vector<Piece> line;
  add_plate(line, top.length, h / 2, 0, h / 2, top.thickness);
  add_plate(line, 0, h / 2, 0, -h / 2, tw);
  add_plate(line, 0, -h / 2, bottom.length, -h / 2, bottom.thickness);
  const Warping found = channel_warping(top, bottom, h, tw);
  const auto warping_about = [&line](double y, double z) {
    double omega = 0, area = 0, first = 0, second = 0;
    for (const Piece& piece : line) {
      const double step = (piece.y - y) * piece.dz - (piece.z - z) * piece.dy;
      const double middle = omega + step / 2;
      area += piece.area();
      first += piece.area() * middle;
      second += piece.area() * middle * middle;
      omega += step;
    }
    return second - first * first / area;
  };
  const double y = found.shear_centre_y, z = found.shear_centre_z;
  const double least = warping_about(y, z);
  assert_close("iw", found.constant, least, least, 1e-4);
  for (const double step : {-1.0, 1.0}) {
    RC_ASSERT(warping_about(y + step, z) > least);
    RC_ASSERT(warping_about(y, z + step) > least);
  }
}

/// Follows the flow of a unit force along y through the plates of a box.
struct BoxFlow {
  double inertia;
  double flow = 0, moment = 0;
  double twist = 0, flexibility = 0;  ///< ∫q/t ds and ∫ds/t, of the cell's walls only

  void along_wall(const std::vector<Piece>& wall) {
    for (const Piece& piece : wall) {
      const double length = std::hypot(piece.dy, piece.dz);
      twist += (flow - piece.y / inertia * piece.area() / 2) * length / piece.thickness;
      flexibility += length / piece.thickness;
      along(piece);
    }
  }
  /// From a free tip to the cell, where it joins what flows there.
  void join(const std::vector<Piece>& outstand) {
    const double in_wall = std::exchange(flow, 0.0);
    for (const Piece& piece : outstand) along(piece);
    flow += in_wall;
  }

 private:
  void along(const Piece& piece) {
    const double growth = piece.y / inertia * piece.area();
    moment += (flow - growth / 2) * (piece.y * piece.dz - piece.z * piece.dy);
    flow -= growth;
  }
};

std::vector<Piece> plate(double y1, double z1, double y2, double z2, double t) {
  std::vector<Piece> pieces;
  add_plate(pieces, y1, z1, y2, z2, t);
  return pieces;
}

RC_GTEST_PROP(ShearCentres, OfABoxHaveNoMomentOfTheShearFlow, ()) {
  // The cell is slit at the middle of its bottom wall: the flow of the slit section, plus the
  // circulating flow that takes its twist away.
  const double c = length_between(30, 150), z = length_between(20, 100);
  const double t1 = length_between(2, 12), t2 = length_between(2, 12), tw = length_between(2, 8);
  const double tip = c / 2 + length_between(1, 60);
  const std::vector<std::vector<Piece>> walls{
      plate(0, -z, c / 2, -z, t2), plate(c / 2, -z, c / 2, z, tw), plate(c / 2, z, -c / 2, z, t1),
      plate(-c / 2, z, -c / 2, -z, tw), plate(-c / 2, -z, 0, -z, t2)};
  const std::vector<std::vector<Piece>> outstands{
      plate(tip, -z, c / 2, -z, t2), plate(tip, z, c / 2, z, t1), plate(-tip, z, -c / 2, z, t1),
      plate(-tip, -z, -c / 2, -z, t2)};
  BoxFlow flow{.inertia = 0};
  for (const auto& part : walls) flow.inertia += inertia_of(part).yy;
  for (const auto& part : outstands) flow.inertia += inertia_of(part).yy;
  for (std::size_t i = 0; i < walls.size(); ++i) {
    flow.along_wall(walls[i]);
    if (i < outstands.size()) flow.join(outstands[i]);
  }
  const double moment = flow.moment - flow.twist / flow.flexibility * 2 * c * 2 * z;
  const double found = box_shear_centre(
      {.top = {2 * tip, t1}, .bottom = {2 * tip, t2}, .c = c, .h = 2 * z, .web_thickness = tw});
  assert_close("z", found, -moment, 2 * z, 1e-4);
}

}  // namespace
}  // namespace aluframe::section
