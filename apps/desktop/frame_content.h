#pragma once

#include <QColor>
#include <QString>
#include <optional>
#include <vector>

#include "aluframe/picture/content.h"
#include "aluframe/viewport/element_lines.h"
#include "aluframe/viewport/solid_mesh.h"

namespace aluframe::desktop {

/// How an element is drawn.
struct ElementLook {
  QColor colour;
  float width = 1.5F;  ///< of its line, pixels at 100 %
  bool is_hatched = false;
};

/// What of the open model is drawn: by element in the order of the model.
struct FrameContent {
  std::vector<viewport::ElementLine> lines;
  viewport::Bounds bounds;
  std::vector<ElementLook> looks;
  ElementLook behind;  ///< of elements beside their displaced shape, which has their looks then
  std::vector<bool> is_shown, is_selected;
  viewport::SolidMesh solid;  ///< empty until sections are drawn in their shape
  std::optional<picture::Deformed> deformed;
  double deformed_scale = 1.0;  ///< that displacements are multiplied by
};

}  // namespace aluframe::desktop
