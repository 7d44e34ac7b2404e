#pragma once

#include <string>

namespace aluframe::services {

/// Tells builds of the program apart that could give other numbers: 16 hexadecimal digits
/// (platform/build_digest.h).
std::string program_build();

}  // namespace aluframe::services
