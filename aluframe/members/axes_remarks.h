#pragma once

#include <string>
#include <vector>

#include "aluframe/model/model.h"

namespace aluframe::members {

/// What an engineer should know about the axes of one element.
struct AxesRemark {
  model::Number element = 0;
  std::string text;
};

/// Elements that count as vertical without being exactly so, in the order of the file: their y axis
/// lies along global Y, where just beyond the limit it would be square to their lean. Elements
/// whose orientation is given do not depend on the limit, and trusses do not bend: they have no
/// remark.
///
///     for (const auto& [element, text] : axes_remarks(model))
///       show(element, text);  // 1, "its axis leaves the vertical by 0.003 mm in 3000 mm ..."
///
/// The model must be consistent, as its reader leaves it.
std::vector<AxesRemark> axes_remarks(const model::Model& model);

/// Angle, degrees, by which an element's own y and z stand turned about x from where they are
/// without `beta` and orientation: `beta` itself for an element without orientation, from −180 to
/// 180 for others. Rules that ask how a section stands in the frame read it.
double turned_by(const model::Model& model, const model::Element& element);

}  // namespace aluframe::members
