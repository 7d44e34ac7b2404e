#pragma once

#include <string>

#include "tools/resources/script.h"

namespace resources {

/// C++ source that defines `kModuleResources` with all that the script describes. Texts are written
/// with escapes, so that the source is ASCII and means the same to any compiler.
std::string cpp_source(const Script& script);

}  // namespace resources
