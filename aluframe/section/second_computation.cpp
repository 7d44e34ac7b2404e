#include "aluframe/section/second_computation.h"

#include "aluframe/section/mesh_properties.h"
#include "aluframe/section/shapes.h"

namespace aluframe::section {

namespace {

/// Share of Iyy + Izz below which rounding shows in It.
constexpr double smallest_it = 1e-6;

}  // namespace

std::optional<SecondComputation> compute_on_mesh(const model::Section& section, int across) {
  const MeshProperties mesh = properties_of(mesh_of(section, across));
  const bool is_accurate = mesh.it >= smallest_it * (mesh.iyy + mesh.izz);
  if (!is_accurate) return std::nullopt;
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
