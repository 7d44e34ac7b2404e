#pragma once

#include "aluframe/model/units.h"

namespace aluframe::io {

/// N and mm (or powers of mm) in one unit of a file. Reading multiplies by these, writing divides.
struct Scales {
  explicit Scales(const model::Units& units)
      : force(model::newtons_per(units.force)),
        length(model::millimetres_per(units.length)),
        moment(force * length),
        section(model::millimetres_per(units.section)),
        section_2(section * section),
        section_4(section_2 * section_2),
        section_6(section_4 * section_2) {}

  /// Of a force component, by its place: N, Fy, Fz are forces, Mx, My, Mz are moments.
  double of_component(std::size_t component) const { return component < 3 ? force : moment; }

  double force;      ///< N
  double length;     ///< mm, coordinates
  double moment;     ///< N·mm
  double section;    ///< mm, section dimensions and heat-affected widths
  double section_2;  ///< mm², areas and Q/b
  double section_4;  ///< mm⁴, moments of inertia and torsion constants
  double section_6;  ///< mm⁶, warping constants
};

}  // namespace aluframe::io
