#pragma once

#include <array>
#include <optional>
#include <vector>

#include "aluframe/picture/point.h"
#include "aluframe/picture/view.h"

/// A frame seen in space: Z stays upright, the eye goes around a point.
namespace aluframe::viewport {

using picture::Point2;
using picture::Point3;
using picture::View;

enum class Projection { parallel, perspective };

/// Of the window, pixels; both positive.
struct Size {
  double width = 1.0, height = 1.0;
};

/// A place in the window, pixels from the upper left corner, y downwards.
struct Pixel {
  double x = 0.0, y = 0.0;
  double distance = 0.0;  ///< from the plane of the eye, mm; the smaller the nearer
};

/// A sphere around everything that is to be seen, mm.
struct Bounds {
  Point3 centre;
  double radius = 1.0;
};
/// Around points; of radius 1 mm where there is only one.
Bounds bounds_of(const std::vector<Point3>& points);

/// From where and how large a frame is seen.
///
///     Camera camera;
///     camera.look(View::iso);
///     camera.fit(points, {1280, 800});
///     const auto pixel = camera.pixel_of(node, {1280, 800});
class Camera {
 public:
  /// The directions of the window in the model.
  View view() const;
  Projection projection() const { return projection_; }
  void set_projection(Projection projection) { projection_ = projection; }

  /// Looks from a direction whose `right` is level; what stands in the middle stays there.
  void look(const View& view);
  /// Moves and zooms so that the points fill the window but for a margin. Without points nothing
  /// changes.
  void fit(const std::vector<Point3>& points, const Size& size);
  /// Turns by degrees: around Z, and over the frame, from straight below to straight above.
  void orbit(double around, double over);
  /// Moves what is seen by pixels.
  void pan(double right, double down, const Size& size);
  /// Makes what is seen larger by a factor; what stands at a pixel stays there.
  void zoom(double factor, const Pixel& at, const Size& size);

  /// Nothing behind the eye.
  std::optional<Pixel> pixel_of(const Point3& point, const Size& size) const;
  /// The part of a line before the eye; nothing when it lies behind it.
  std::optional<std::array<Pixel, 2>> pixels_of(Point3 start, Point3 end, const Size& size) const;
  /// Pixels for a mm at a place, across the line of sight.
  double pixels_per_mm(const Point3& at, const Size& size) const;

  /// For a graphics library: from points less `bounds.centre` to its clip space, column after
  /// column. Everything within the bounds is between the near and the far plane, unless the eye
  /// stands within them.
  std::array<float, 16> matrix(const Size& size, const Bounds& bounds) const;

 private:
  /// Along right, up and towards the eye, from the middle of what is seen.
  Point3 seen(const Point3& point) const;
  double eye_distance() const;
  /// How much larger a place is seen than the middle, by its `seen` towards the eye.
  double enlargement(double towards_eye) const;

  Projection projection_ = Projection::parallel;
  double around_ = 25.0, over_ = 25.0;  ///< degrees
  Point3 middle_;
  double height_ = 1000.0;  ///< of the window at the middle, mm
};

}  // namespace aluframe::viewport
