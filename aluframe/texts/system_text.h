#pragma once

#include <string>
#include <system_error>

namespace aluframe::texts {

/// What the system says of an error, in the language in use as far as the catalogue has it.
std::string system_text(const std::error_code& error);
/// @param error an error number, such as `errno`
std::string system_text(int error);

}  // namespace aluframe::texts
