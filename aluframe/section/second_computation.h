#pragma once

#include <optional>
#include <string>

#include "aluframe/model/section.h"

namespace aluframe::section {

/// Torsion and warping of a section, worked out on its mesh (mesh_properties.h), to set beside the
/// formulas' values. The mesh has sharp corners: radii are left out.
struct SecondComputation {
  double it = 0.0;              ///< mm⁴
  double iw = 0.0;              ///< mm⁶, about the shear centre
  double shear_centre_y = 0.0;  ///< mm, from the centroid
  double shear_centre_z = 0.0;
};

/// Of two channels each twists for itself (2·It) about their common axis: Iw = 2·(Iw1 + Iyy1·a²),
/// a from the axis to the shear centre of one of them.
///
/// It is a difference of two numbers of the size of Iyy + Izz. Where that leaves less than about
/// 0.3 % of accuracy (It below 1e-6 of the sum: open sections with walls thinner than 1/1000 of the
/// depth) there is no result.
///
/// @param across cells across the thinnest plate: 1 or more; time grows with its square
/// The section must have no dimension problem and not be of shape `other`.
std::optional<SecondComputation> compute_on_mesh(const model::Section& section, int across = 4);

/// What an engineer should know about a torsion constant by formula that is more than a tenth above
/// the mesh's: it makes the critical moment of bending too large. Nothing for one within, for round
/// and closed shapes (whose formulas are exact or below), for a given `it`, and without a mesh.
/// Only flanges or webs shorter than thick make it so; the mesh is worked out for these alone.
///
/// The section must have no dimension problem.
std::optional<std::string> torsion_remark(const model::Section& section);

/// Whether thin-wall theory gives the shape a warping constant. Else properties_of has a negligible
/// one in its place.
bool warps(model::Shape shape);

}  // namespace aluframe::section
