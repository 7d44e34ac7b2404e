#pragma once

#include <cstddef>

namespace aluframe::model {

/// Places in SectionForces: N, Fy, Fz, Mx, My, Mz.
enum ForceComponent : std::size_t { axial_force, shear_y, shear_z, torsion, about_y, about_z };

}  // namespace aluframe::model
