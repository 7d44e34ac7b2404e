#include "aluframe/section/second_computation.h"

#include <fmt/format.h>

#include <algorithm>

#include "aluframe/section/mesh_properties.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/section/shapes.h"

namespace aluframe::section {

namespace {

/// Share of Iyy + Izz below which rounding shows in It.
constexpr double smallest_it = 1e-6;

/// Rounding can make the mesh's It out of nothing, so the formula's counts too.
bool is_accurate(const MeshProperties& mesh, const model::Section& section) {
  model::Section by_formula;
  by_formula.shape = section.shape;
  by_formula.dimensions = section.dimensions;
  const double it = std::min(mesh.it, properties_of(by_formula).it);
  return it >= smallest_it * (mesh.iyy + mesh.izz);
}

/// By how much It by formula may be above the mesh's without a remark.
constexpr double allowed_excess = 0.10;

/// How far the shortest piece of a plate between junctions and ends reaches.
double shortest_piece(const Dimensions& d, bool web_at_the_edge) {
  const double narrower = d.b2 > 0.0 ? std::min(d.b1, d.b2) : d.b1;
  const double outstand = (narrower - d.tw) / (web_at_the_edge ? 1.0 : 2.0);
  return std::min(outstand, d.h - d.tf1 - d.tf2);
}

/// Whether a piece of an open section is shorter than one of its plates is thick.
bool is_compact(const model::Section& section) {
  using model::Shape;
  const Dimensions d = dimensions_of(section);
  const double thickest = std::max({d.tw, d.tf1, d.tf2});
  switch (section.shape) {
    case Shape::h_section:
    case Shape::tee:
      return shortest_piece(d, false) < thickest;
    case Shape::channel:
    case Shape::double_channel:
      return shortest_piece(d, true) < thickest;
    default:
      return false;
  }
}

}  // namespace

std::optional<SecondComputation> compute_on_mesh(const model::Section& section, int across) {
  const MeshProperties mesh = properties_of(mesh_of(section, across));
  if (!is_accurate(mesh, section)) return std::nullopt;
  if (section.shape != model::Shape::double_channel) {
    return SecondComputation{mesh.it, mesh.iw, mesh.shear_centre_y, mesh.shear_centre_z};
  }
  const double back = dimensions_of(section).c / 2.0;
  const double arm = back + mesh.centroid_y + mesh.shear_centre_y;
  return SecondComputation{2.0 * mesh.it, 2.0 * (mesh.iw + mesh.iyy * arm * arm), 0.0, 0.0};
}

std::optional<std::string> torsion_remark(const model::Section& section) {
  if (section.given.it || !is_compact(section)) return std::nullopt;
  const auto mesh = compute_on_mesh(section);
  const double formula = properties_of(section).it;
  if (!mesh || formula <= (1.0 + allowed_excess) * mesh->it) return std::nullopt;
  return fmt::format(
      "its torsion constant by formula, {:.6g} mm4, is {:.0f} % above the {:.6g} mm4 of finite "
      "elements, which makes the critical moment of bending too large: give it in \"properties\"",
      formula, 100.0 * (formula / mesh->it - 1.0), mesh->it);
}

bool warps(model::Shape shape) {
  return shape == model::Shape::channel || shape == model::Shape::h_section ||
         shape == model::Shape::double_channel;
}

}  // namespace aluframe::section
