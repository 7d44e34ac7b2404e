#include "aluframe/toolkit/qt/dialog_units.h"

#include <cmath>

namespace aluframe::toolkit {

namespace {

constexpr double units_of_a_character_width = 4.0;
constexpr double units_of_a_character_height = 8.0;

int rounded(double pixels) {
  return static_cast<int>(std::lround(pixels));
}

}  // namespace

int average_character_width(const QFontMetrics& font) {
  const QString letters = QStringLiteral("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz");
  return (font.horizontalAdvance(letters) / 26 + 1) / 2;
}

DialogUnits::DialogUnits(const QFontMetrics& font)
    : x_(average_character_width(font) / units_of_a_character_width),
      y_(font.height() / units_of_a_character_height) {}

void DialogUnits::stretch(double horizontal, double vertical) {
  x_ *= horizontal;
  y_ *= vertical;
}

int DialogUnits::width(int units) const {
  return rounded(units * x_);
}

int DialogUnits::height(int units) const {
  return rounded(units * y_);
}

QRect DialogUnits::rect(int x, int y, int width, int height) const {
  const QPoint start(this->width(x), this->height(y));
  return {start, QSize(this->width(x + width) - start.x(), this->height(y + height) - start.y())};
}

}  // namespace aluframe::toolkit
