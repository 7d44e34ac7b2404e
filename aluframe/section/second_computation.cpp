#include "aluframe/section/second_computation.h"

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

bool warps(model::Shape shape) {
  return shape == model::Shape::channel || shape == model::Shape::h_section ||
         shape == model::Shape::double_channel;
}

}  // namespace aluframe::section
