#pragma once

#include <functional>
#include <optional>
#include <vector>

#include "aluframe/viewport/camera.h"
#include "aluframe/viewport/element_lines.h"

// Which elements the user points at.

namespace aluframe::viewport {

/// Whether an element can be picked: hidden ones cannot.
using IsShown = std::function<bool(model::Number)>;

/// What the user sees, and by which it is picked.
struct Sight {
  const Camera& camera;
  Size size;
  const std::vector<ElementLine>& lines;
  IsShown is_shown;
};

/// The element whose axis is nearest to a pixel, at most `reach` pixels from it; of several at the
/// same distance within half a pixel the one nearest to the eye.
std::optional<model::Number> pick(const Sight& sight, const Pixel& at, double reach);

/// A rubber band between two of its corners.
struct Band {
  Pixel from, to;
};
enum class BandKind {
  window,   ///< picks what lies in it whole
  crossing  ///< picks what lies in it, be it in part
};
std::vector<model::Number> pick_in(const Sight& sight, const Band& band, BandKind kind);

}  // namespace aluframe::viewport
