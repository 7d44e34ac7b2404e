#pragma once

#include <QFontMetrics>
#include <QRect>

namespace aluframe::toolkit {

/// Size of dialog units in device-independent pixels. A unit is a quarter of the dialog font's
/// average character width wide and an eighth of its height high; both may be stretched, so that a
/// template drawn for another font still holds its texts.
///
///     const DialogUnits units(dialog.fontMetrics());
///     widget.setGeometry(units.rect(control.x, control.y, control.width, control.height));
class DialogUnits {
 public:
  explicit DialogUnits(const QFontMetrics& font);

  /// Stretches both directions, by factors of 1 or more.
  void stretch(double horizontal, double vertical);

  int width(int units) const;
  int height(int units) const;
  /// Edges are rounded one by one, so what meets in units meets in pixels.
  QRect rect(int x, int y, int width, int height) const;

 private:
  double x_;  ///< pixels of a unit
  double y_;
};

/// Mean width of the Latin letters in pixels, rounded.
int average_character_width(const QFontMetrics& font);

}  // namespace aluframe::toolkit
