#pragma once

#include <string>

namespace aluframe::services {

/// Tells builds of the program apart that could give other numbers: 16 hexadecimal digits of the
/// build ids that the linker has given to the program, the design module and the host library, and
/// of the system's mathematical functions. What has no build id does not count.
std::string program_build();

}  // namespace aluframe::services
