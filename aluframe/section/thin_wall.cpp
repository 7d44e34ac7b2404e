#include "aluframe/section/thin_wall.h"

namespace aluframe::section {

namespace {

double cube(double x) {
  return x * x * x;
}

/// Second moment of a flange about the z axis through its middle.
double flange_inertia(Flange flange) {
  return flange.thickness * cube(flange.length) / 12.0;
}

/// Integrals over the middle line of a channel about its centroid. Names say what is integrated: ω
/// is the sectorial coordinate about the middle of the web.
struct ChannelIntegrals {
  double yy, zz, yz, wy, wz, ww;
};

ChannelIntegrals channel_integrals(Flange top, Flange bottom, double h, double web_thickness) {
  // ω is 0 along the web and −z·y along the flanges, at z = ±h/2.
  const double z = h / 2.0;
  const double area_1 = top.length * top.thickness;
  const double area_2 = bottom.length * bottom.thickness;
  const double first_1 = area_1 * top.length / 2.0;
  const double first_2 = area_2 * bottom.length / 2.0;
  const double second_1 = first_1 * top.length * 2.0 / 3.0;
  const double second_2 = first_2 * bottom.length * 2.0 / 3.0;

  const double area = area_1 + area_2 + h * web_thickness;
  const double s_y = first_1 + first_2;
  const double s_z = z * (area_1 - area_2);
  const double s_w = -z * (first_1 - first_2);
  return {.yy = second_1 + second_2 - s_y * s_y / area,
          .zz = web_thickness * cube(h) / 12.0 + z * z * (area_1 + area_2) - s_z * s_z / area,
          .yz = z * (first_1 - first_2) - s_y * s_z / area,
          .wy = -z * (second_1 - second_2) - s_w * s_y / area,
          .wz = -z * z * (first_1 + first_2) - s_w * s_z / area,
          .ww = z * z * (second_1 + second_2) - s_w * s_w / area};
}

/// Shear flows in a box for a shear force Vy with Vy/Izz = 1; those of the flanges along +y.
struct BoxFlows {
  double top_force;
  double bottom_force;
  double web_force;  ///< downwards in the right web, upwards in the left one
};

/// Force in a flange: parabolic flow from free tips, on top of `at_web` just inside the webs.
double flange_force(Flange flange, double c, double at_web) {
  const double outstand = (flange.length - c) / 2.0;
  const double tips = flange.thickness * outstand * outstand * (flange.length + c / 2.0) / 3.0;
  return flange.thickness * cube(c) / 12.0 + at_web * c + tips;
}

BoxFlows box_flows(const BoxWalls& walls) {
  const double c = walls.c;
  // Flow at the webs from what stands out, and the part of the web that a symmetric box would have.
  const auto from_outstand = [c](Flange flange) {
    return flange.thickness * (flange.length - c) * (flange.length + c) / 8.0;
  };
  const double symmetric = walls.web_thickness * c * walls.h / 4.0;
  const double top = from_outstand(walls.top) + symmetric;
  const double bottom = from_outstand(walls.bottom) + symmetric;
  const double turning =
      c * (bottom / walls.bottom.thickness - top / walls.top.thickness) /
      (c / walls.top.thickness + c / walls.bottom.thickness + 2.0 * walls.h / walls.web_thickness);
  return {.top_force = flange_force(walls.top, c, top + turning),
          .bottom_force = flange_force(walls.bottom, c, bottom - turning),
          .web_force = turning * walls.h};
}

}  // namespace

Warping i_section_warping(Flange top, Flange bottom, double h) {
  const double i1 = flange_inertia(top);
  const double i2 = flange_inertia(bottom);
  return {.constant = i1 * i2 / (i1 + i2) * h * h,
          .shear_centre_y = 0.0,
          .shear_centre_z = h / 2.0 * (i1 - i2) / (i1 + i2)};
}

Warping channel_warping(Flange top, Flange bottom, double h, double web_thickness) {
  const ChannelIntegrals i = channel_integrals(top, bottom, h, web_thickness);
  const double determinant = i.zz * i.yy - i.yz * i.yz;
  const double y = (i.wz * i.yy - i.yz * i.wy) / determinant;
  const double z = (i.yz * i.wz - i.zz * i.wy) / determinant;
  return {.constant = i.ww - y * i.wz + z * i.wy, .shear_centre_y = y, .shear_centre_z = z};
}

double double_channel_warping(Flange flange, double h, double web_thickness, double web_distance) {
  const Warping one = channel_warping(flange, flange, h, web_thickness);
  const double strong_inertia =
      web_thickness * cube(h) / 12.0 + flange.length * flange.thickness * h * h / 2.0;
  const double a = web_distance / 2.0 + one.shear_centre_y;
  return 2.0 * (one.constant + strong_inertia * a * a);
}

double bredt_torsion_constant(const BoxWalls& walls) {
  const double area = walls.c * walls.h;
  const double around = walls.c / walls.top.thickness + walls.c / walls.bottom.thickness +
                        2.0 * walls.h / walls.web_thickness;
  return 4.0 * area * area / around;
}

double box_shear_centre(const BoxWalls& walls) {
  const BoxFlows flows = box_flows(walls);
  const double shear = flows.top_force + flows.bottom_force;
  return (walls.h / 2.0 * (flows.top_force - flows.bottom_force) + walls.c * flows.web_force) /
         shear;
}

}  // namespace aluframe::section
