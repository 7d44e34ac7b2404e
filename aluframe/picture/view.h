#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "aluframe/model/model.h"
#include "aluframe/picture/point.h"

namespace aluframe::picture {

/// From where a frame is seen, in parallel projection: from the front, right and above (`iso`),
/// from above (`xy`), from the front along Y (`xz`), or from the right against X (`yz`).
///
/// `iso` turns the frame by 25° and looks down by 25°, so that the nodes of regular grids do not
/// hide each other, as they do where all three axes are shortened alike.
enum class View { iso, xy, xz, yz };

std::optional<View> parse_view(std::string_view name);
std::string_view name_of(View view);
/// "iso, xy, xz, yz", for messages.
std::string_view view_names();
/// "seen along Y (XZ)", for the title.
std::string_view heading_of(View view);

/// Where a point of the model stands on paper, before any scale: mm of the model.
Point2 project(View view, const Point3& point);
/// The direction from the frame to the eye, of length 1.
Point3 towards_eye(View view);

/// A direction that is shortened to less than this part of its length counts as seen end-on.
inline constexpr double end_on = 0.2;
bool is_end_on(View view, const Point3& unit_direction);

/// The plane that a plane frame lies in, else `iso`.
View natural_view(const model::Model& model);

}  // namespace aluframe::picture
