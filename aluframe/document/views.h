#pragma once

#include <string>
#include <vector>

#include "aluframe/model/model.h"
#include "aluframe/picture/view.h"

namespace aluframe::document {

/// The views that show something of the frame: that from the corner, and those along the axes in
/// which it is more than a line.
std::vector<picture::View> views_of(const model::Model& model);

}  // namespace aluframe::document
