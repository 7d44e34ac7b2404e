#pragma once

#include <string>

#include "aluframe/model/model.h"
#include "aluframe/run/document.h"

namespace aluframe::document {

/// Forces along a member under the combination of its worst check, one strip a force that acts, and
/// below them the largest ratio of each position in all combinations, as SVG.
/// @param id prefix of its ids
/// @param title what the drawing is of
std::string member_diagram(const model::Model& model, const run::GoverningMember& member,
                           const std::string& id, const std::string& title);

}  // namespace aluframe::document
