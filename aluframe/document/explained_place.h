#pragma once

#include <string>

#include "aluframe/run/check_explainer.h"

namespace aluframe::document {

/// "Element 12 (column), stability, combination 3 "wind", at J", in the language in use; of several
/// elements with the same check "Elements 3, 5, 7-9 (column), ...".
std::string place_of(const run::ExplainedCheck& check);

}  // namespace aluframe::document
