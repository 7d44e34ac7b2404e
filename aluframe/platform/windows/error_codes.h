#pragma once

#include <system_error>

namespace aluframe::platform {

/// The system's last error as the error number that other systems have for it, so that it is told
/// in the same words; one that they do not have as the system's own.
std::error_code last_error();
std::error_code code_of(unsigned long windows_error);

}  // namespace aluframe::platform
