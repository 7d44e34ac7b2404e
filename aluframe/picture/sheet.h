#pragma once

#include <vector>

#include "aluframe/picture/scene.h"

namespace aluframe::picture {

/// Where things stand on paper: mm, from the upper left corner, y downwards.
struct Box {
  double left = 0.0, top = 0.0, right = 0.0, bottom = 0.0;
};

/// Size of the letters of labels, mm.
inline constexpr double label_size = 2.6;
/// Width of a sheet, mm: that of A4 across, within margins.
inline constexpr double sheet_width = 270.0;

/// The part of a sheet that the frame is drawn on: as large as fits its width and 170 mm of height.
class Sheet {
 public:
  /// @param top where the part begins
  Sheet(const Scene& scene, double top);

  Point2 on_paper(const Place& place) const;
  /// mm of paper for a mm of the model.
  double scale() const { return scale_; }
  double bottom() const { return bottom_; }

 private:
  View view_;
  double scale_ = 1.0, bottom_ = 0.0;
  Point2 origin_;
};

/// Where a label is shown.
struct PlacedLabel {
  const Label* label = nullptr;
  Box box;
};

/// Labels beside their places, clear of each other and, as far as there is room, of the lines of
/// the frame. What finds no room is left out unless it is always shown.
std::vector<PlacedLabel> place_labels(const Scene& scene, const Sheet& sheet);

}  // namespace aluframe::picture
