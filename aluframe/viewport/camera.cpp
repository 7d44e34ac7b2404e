#include "aluframe/viewport/camera.h"

#include <algorithm>
#include <cmath>
#include <limits>
#include <numbers>

namespace aluframe::viewport {

namespace {

constexpr double degree = std::numbers::pi / 180.0;
/// Angle of sight from the lower to the upper edge of the window.
constexpr double sight = 30.0 * degree;
/// What fills the window leaves a tenth of it at the edges, for symbols and numbers.
constexpr double filled_share = 0.8;
/// Nearer to the eye than this part of its distance from the middle nothing is shown.
constexpr double near_share = 0.02;
/// Heights of the window, mm of the model, beyond which zooming stops.
constexpr double least_height = 1e-2, most_height = 1e9;

double sine(double degrees) {
  return std::sin(degrees * degree);
}
double cosine(double degrees) {
  return std::cos(degrees * degree);
}

struct Extent {
  double low = std::numeric_limits<double>::infinity(), high = -low;

  void take(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
  double middle() const { return 0.5 * (low + high); }
  double length() const { return high - low; }
};

}  // namespace

Bounds bounds_of(const std::vector<Point3>& points) {
  Extent x, y, z;
  for (const Point3& point : points) {
    x.take(point.x);
    y.take(point.y);
    z.take(point.z);
  }
  if (points.empty()) return {};
  const Point3 diagonal{x.length(), y.length(), z.length()};
  return {{x.middle(), y.middle(), z.middle()}, std::max(1.0, 0.5 * length_of(diagonal))};
}

View Camera::view() const {
  const double s = sine(around_), c = cosine(around_);
  return {{c, s, 0}, {-s * sine(over_), c * sine(over_), cosine(over_)}};
}

void Camera::look(const View& view) {
  around_ = std::atan2(view.right.y, view.right.x) / degree;
  const Point3 ahead{-sine(around_), cosine(around_), 0};
  over_ = std::atan2(dot(view.up, ahead), view.up.z) / degree;
}

void Camera::fit(const std::vector<Point3>& points, const Size& size) {
  if (points.empty()) return;
  const View from = view();
  const Point3 eye = picture::towards_eye(from);
  Extent x, y, z;
  for (const Point3& point : points) {
    x.take(dot(from.right, point));
    y.take(dot(from.up, point));
    z.take(dot(eye, point));
  }
  middle_ = x.middle() * from.right + y.middle() * from.up + z.middle() * eye;
  const double needed = std::max(y.length(), x.length() * size.height / size.width) / filled_share;
  height_ = std::clamp(needed, 1.0, most_height);
  if (projection_ == Projection::parallel) return;
  // What is nearer than the middle is seen larger.
  double largest = 0.0;
  for (const Point3& point : points) {
    const auto pixel = pixel_of(point, size);
    if (!pixel) {
      largest = 2.0;
      break;
    }
    largest = std::max({largest, std::abs(pixel->x / size.width - 0.5) * 2.0,
                        std::abs(pixel->y / size.height - 0.5) * 2.0});
  }
  height_ *= std::max(1.0, largest / filled_share);
}

void Camera::orbit(double around, double over) {
  around_ = std::remainder(around_ + around, 360.0);
  over_ = std::clamp(over_ + over, -90.0, 90.0);
}

void Camera::pan(double right, double down, const Size& size) {
  const double mm = height_ / size.height;
  const View from = view();
  middle_ = middle_ + -right * mm * from.right + down * mm * from.up;
}

void Camera::zoom(double factor, const Pixel& at, const Size& size) {
  const double height = std::clamp(height_ / factor, least_height, most_height);
  const double share = 1.0 - height / height_;
  const double mm = height_ / size.height;
  const View from = view();
  middle_ = middle_ + share * mm * (at.x - 0.5 * size.width) * from.right +
            share * mm * (0.5 * size.height - at.y) * from.up;
  height_ = height;
}

Point3 Camera::seen(const Point3& point) const {
  const View from = view();
  const Point3 out = point - middle_;
  return {dot(from.right, out), dot(from.up, out), dot(picture::towards_eye(from), out)};
}

double Camera::eye_distance() const {
  return 0.5 * height_ / std::tan(0.5 * sight);
}

double Camera::enlargement(double towards_eye) const {
  if (projection_ == Projection::parallel) return 1.0;
  return eye_distance() / (eye_distance() - towards_eye);
}

std::optional<Pixel> Camera::pixel_of(const Point3& point, const Size& size) const {
  const Point3 at = seen(point);
  const double distance = eye_distance() - at.z;
  if (projection_ == Projection::perspective && distance < near_share * eye_distance()) {
    return std::nullopt;
  }
  const double scale = size.height / height_ * enlargement(at.z);
  return Pixel{0.5 * size.width + scale * at.x, 0.5 * size.height - scale * at.y, distance};
}

std::optional<std::array<Pixel, 2>> Camera::pixels_of(Point3 start, Point3 end,
                                                      const Size& size) const {
  if (projection_ == Projection::perspective) {
    // Just before the plane that `pixel_of` ends at.
    const double nearest = 1.001 * near_share * eye_distance();
    const double from = eye_distance() - seen(start).z, to = eye_distance() - seen(end).z;
    if (from < nearest && to < nearest) return std::nullopt;
    if (from < nearest) start = between(start, end, (nearest - from) / (to - from));
    if (to < nearest) end = between(end, start, (nearest - to) / (from - to));
  }
  const auto first = pixel_of(start, size), last = pixel_of(end, size);
  if (!first || !last) return std::nullopt;
  return std::array{*first, *last};
}

double Camera::pixels_per_mm(const Point3& at, const Size& size) const {
  return size.height / height_ * enlargement(std::min(seen(at).z, 0.9 * eye_distance()));
}

std::array<float, 16> Camera::matrix(const Size& size, const Bounds& bounds) const {
  const View from = view();
  const std::array<Point3, 3> axes{from.right, from.up, picture::towards_eye(from)};
  const Point3 centre = seen(bounds.centre);
  const double tall = 2.0 / height_, wide = tall * size.height / size.width;
  // Rows of clip x, y, z and w by what is seen: along right, up, towards the eye, and constant.
  std::array<std::array<double, 4>, 4> clip{};
  if (projection_ == Projection::parallel) {
    clip[0][0] = wide;
    clip[1][1] = tall;
    clip[2][2] = -1.0 / (1.01 * bounds.radius);
    clip[2][3] = centre.z / (1.01 * bounds.radius);
    clip[3][3] = 1.0;
  } else {
    const double eye = eye_distance();
    const double farthest = std::max(eye - centre.z + 1.01 * bounds.radius, 2.0 * near_share * eye);
    const double nearest = std::max(eye - centre.z - 1.01 * bounds.radius, near_share * eye);
    const double depth = farthest - nearest;
    clip[0][0] = wide * eye;
    clip[1][1] = tall * eye;
    clip[2][2] = -(farthest + nearest) / depth;
    clip[2][3] = eye * (farthest + nearest) / depth - 2.0 * farthest * nearest / depth;
    clip[3][2] = -1.0;
    clip[3][3] = eye;
  }
  std::array<float, 16> out{};
  for (std::size_t row = 0; row < 4; ++row) {
    const auto& c = clip[row];
    const Point3 factors = c[0] * axes[0] + c[1] * axes[1] + c[2] * axes[2];
    const double constant = c[0] * centre.x + c[1] * centre.y + c[2] * centre.z + c[3];
    out[row] = static_cast<float>(factors.x);
    out[4 + row] = static_cast<float>(factors.y);
    out[8 + row] = static_cast<float>(factors.z);
    out[12 + row] = static_cast<float>(constant);
  }
  return out;
}

}  // namespace aluframe::viewport
