#pragma once

#include <cstddef>

#include "aluframe/model/units.h"

namespace aluframe::io {

/// N and mm (or powers of mm) in one unit of a file. Reading multiplies by these, writing divides.
struct Scales {
  explicit Scales(const model::Units& units)
      : force(model::newtons_per(units.force)),
        length(model::millimetres_per(units.length)),
        moment(force * length),
        per_length(force / length),
        per_area(per_length / length),
        section(model::millimetres_per(units.section)),
        section_2(section * section),
        section_4(section_2 * section_2),
        section_6(section_4 * section_2) {}

  /// Of a component of a force, by its place: three forces, then three moments.
  double of_component(std::size_t component) const { return component < 3 ? force : moment; }
  /// Of a displacement in a direction, by its place: three lengths, then three angles in rad.
  double of_displacement(std::size_t direction) const { return direction < 3 ? length : 1.0; }
  /// Of a spring in a direction: three forces per length, then three moments per rad.
  double of_stiffness(std::size_t direction) const { return direction < 3 ? per_length : moment; }

  double force;       ///< N
  double length;      ///< mm, coordinates
  double moment;      ///< N·mm
  double per_length;  ///< N/mm
  double per_area;    ///< N/mm², loads per area
  double section;     ///< mm, section dimensions and heat-affected widths
  double section_2;   ///< mm², areas and Q/b
  double section_4;   ///< mm⁴, moments of inertia and torsion constants
  double section_6;   ///< mm⁶, warping constants
};

}  // namespace aluframe::io
