#pragma once

#include <string>
#include <string_view>

#include "aluframe/model/loads.h"

namespace aluframe::model {

/// A load case behind its factor in the name of a sum: "1.3G", "0.7·1.5S", "1.5 2nd floor", "G"
/// without a factor, "1.3 case 7" for a case without a name. A blank stands where a digit would run
/// into the factor.
std::string factored_case(std::string_view factor, const LoadCase& load_case);

}  // namespace aluframe::model
