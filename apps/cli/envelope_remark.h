#pragma once

#include <vector>

#include "aluframe/model/table.h"

namespace aluframe::cli {

/// Tells the user which combinations are checked by their extremes and what that means; nothing
/// when there are none.
void remark_on_extremes(std::vector<model::Number> combinations);

}  // namespace aluframe::cli
