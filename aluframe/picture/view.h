#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "aluframe/model/model.h"
#include "aluframe/picture/point.h"

namespace aluframe::picture {

/// From where a frame is seen, in parallel projection: the directions of the paper in the model, of
/// length 1 and at right angles. One of four by name, from the front, right and above (`iso`), from
/// above (`xy`), from the front along Y (`xz`), or from the right against X (`yz`), or any other.
///
/// `iso` turns the frame by 25° and looks down by 25°, so that the nodes of regular grids do not
/// hide each other, as they do where all three axes are shortened alike.
struct View {
  Point3 right, up;

  static const View iso, xy, xz, yz;

  friend bool operator==(const View&, const View&) = default;
};

std::optional<View> parse_view(std::string_view name);
/// Empty for a view without a name.
std::string_view name_of(const View& view);
/// "iso, xy, xz, yz", for messages.
std::string_view view_names();
/// "seen along Y (XZ)", for the title; empty for a view without a name.
std::string_view heading_of(const View& view);

/// Where a point of the model stands on paper, before any scale: mm of the model.
Point2 project(const View& view, const Point3& point);
/// The direction from the frame to the eye, of length 1.
Point3 towards_eye(const View& view);

/// A direction that is shortened to less than this part of its length counts as seen end-on.
inline constexpr double end_on = 0.2;
bool is_end_on(const View& view, const Point3& unit_direction);

/// The plane that a plane frame lies in, else `iso`.
View natural_view(const model::Model& model);

}  // namespace aluframe::picture
