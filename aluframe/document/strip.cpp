#include "aluframe/document/strip.h"

#include <fmt/format.h>

#include <algorithm>

#include "aluframe/document/names.h"
#include "aluframe/model/xml_text.h"
#include "aluframe/picture/colours.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

constexpr double drawn_height = 19.0;

struct Range {
  double low = 0.0, high = 0.0;  ///< with 0 among them
  double smallest = 0.0, largest = 0.0;
};

Range range_of(const std::vector<Curve>& curves) {
  Range range;
  bool is_first = true;
  for (const Curve& curve : curves) {
    for (const CurvePoint& point : curve) {
      range.smallest = is_first ? point.value : std::min(range.smallest, point.value);
      range.largest = is_first ? point.value : std::max(range.largest, point.value);
      is_first = false;
    }
  }
  range.low = std::min(0.0, range.smallest);
  range.high = std::max(0.0, range.largest);
  return range;
}

/// Where values stand on paper.
class Ordinates {
 public:
  Ordinates(double top, const Range& range, bool grows_down)
      : top_(top), low_(range.low), high_(range.high), grows_down_(grows_down) {
    if (high_ <= low_) high_ = low_ + 1.0;
  }

  double y(double value) const {
    const double share = (value - low_) / (high_ - low_);
    return top_ + drawn_height * (grows_down_ ? share : 1.0 - share);
  }

 private:
  double top_, low_, high_;
  bool grows_down_;
};

std::string line(double x1, double y1, double x2, double y2, std::string_view style) {
  return fmt::format("<line x1=\"{:.2f}\" y1=\"{:.2f}\" x2=\"{:.2f}\" y2=\"{:.2f}\" {}/>\n", x1, y1,
                     x2, y2, style);
}

std::string curve_text(const StripFrame& frame, const Ordinates& ordinates, const Curve& curve) {
  if (curve.empty()) return {};
  const double zero = ordinates.y(0.0);
  std::string points = fmt::format("{:.2f},{:.2f}", frame.x(curve.front().at), zero);
  for (const CurvePoint& point : curve) {
    points += fmt::format(" {:.2f},{:.2f}", frame.x(point.at), ordinates.y(point.value));
  }
  points += fmt::format(" {:.2f},{:.2f}", frame.x(curve.back().at), zero);
  return fmt::format(
      "<polygon points=\"{}\" fill=\"{}\" fill-opacity=\"0.18\" stroke=\"{}\" "
      "stroke-width=\"0.3\" stroke-linejoin=\"round\"/>\n",
      points, picture::blue, picture::blue);
}

/// What exceeds the threshold, as dots of its colour.
std::string points_over(const StripFrame& frame, const Ordinates& ordinates, const Curve& curve,
                        double threshold) {
  std::string out;
  for (const CurvePoint& point : curve) {
    if (point.value <= threshold) continue;
    out += fmt::format("<circle cx=\"{:.2f}\" cy=\"{:.2f}\" r=\"0.9\" fill=\"{}\"/>\n",
                       frame.x(point.at), ordinates.y(point.value), picture::over_one.colour);
  }
  return out;
}

std::string threshold_text(const StripFrame& frame, const Ordinates& ordinates,
                           const std::vector<Curve>& curves, double threshold) {
  const double y = ordinates.y(threshold);
  std::string out = line(frame.start, y, frame.end, y,
                         fmt::format("stroke=\"{}\" stroke-width=\"0.4\" stroke-dasharray=\"2 1\"",
                                     picture::over_one.colour)) +
                    strip_text(frame.end + 0.6, y + 1.0, "start", short_value(threshold));
  for (const Curve& curve : curves) out += points_over(frame, ordinates, curve, threshold);
  return out;
}

}  // namespace

std::string strip_text(double x, double y, std::string_view anchor, const std::string& text) {
  return fmt::format(
      "<text x=\"{:.2f}\" y=\"{:.2f}\" font-size=\"2.9\" text-anchor=\"{}\">{}</text>\n", x, y,
      anchor, model::for_xml(text));
}

std::string strip(const StripFrame& frame, double top, const std::vector<Curve>& curves,
                  const StripOptions& options) {
  Range range = range_of(curves);
  if (options.threshold) range.high = std::max(range.high, 1.05 * *options.threshold);
  const Ordinates ordinates(top, range, options.grows_down);
  std::string out = line(frame.start, ordinates.y(0.0), frame.end, ordinates.y(0.0),
                         fmt::format("stroke=\"{}\" stroke-width=\"0.4\"", picture::ink));
  for (const Curve& curve : curves) out += curve_text(frame, ordinates, curve);
  if (options.threshold) out += threshold_text(frame, ordinates, curves, *options.threshold);
  const double first = top + 6.0, step = 4.2;
  return out + strip_text(frame.left, first, "start", options.heading) +
         strip_text(frame.left, first + step, "start",
                    texts::translated("max") + " " + fixed(range.largest, 3)) +
         strip_text(frame.left, first + 2.0 * step, "start",
                    texts::translated("min") + " " + fixed(range.smallest, 3));
}

}  // namespace aluframe::document
