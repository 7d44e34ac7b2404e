#pragma once

#include <cstdint>

namespace aluframe::platform {

/// A number that tells builds of the program apart: of the program itself, the design module, the
/// host library, and the system's mathematical functions where results come of these.
std::uint64_t build_digest();

}  // namespace aluframe::platform
