#pragma once

namespace aluframe::analysis {

/// Work of an element's axial force in a mode, by the axis of the section that it bends about, or
/// would if the element did not tilt straight. Positive where it takes stiffness away.
struct AxialWork {
  double about_y = 0.0, about_z = 0.0;
  double sum() const { return about_y + about_z; }
};

}  // namespace aluframe::analysis
