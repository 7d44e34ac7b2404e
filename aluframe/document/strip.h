#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace aluframe::document {

/// A value at a place along a member, mm from its start.
struct CurvePoint {
  double at = 0.0;
  double value = 0.0;
};
using Curve = std::vector<CurvePoint>;

/// What all strips of a drawing share: mm on paper, headings on the left.
struct StripFrame {
  double length = 1.0;  ///< of the member, mm
  double width = 180.0, left = 2.0, start = 38.0, end = 176.0;

  double x(double at) const { return start + (end - start) * at / length; }
};

struct StripOptions {
  std::string heading;
  bool grows_down = false;          ///< positive values downwards
  std::optional<double> threshold;  ///< drawn as a line; what is above it in another colour
};

/// How high a strip is, mm on paper.
inline constexpr double strip_height = 24.0;

/// Curves over the length of a member as parts of an SVG, with the largest and the smallest value.
/// @param top where the strip begins
std::string strip(const StripFrame& frame, double top, const std::vector<Curve>& curves,
                  const StripOptions& options);

/// Letters of a strip.
std::string strip_text(double x, double y, std::string_view anchor, const std::string& text);

}  // namespace aluframe::document
