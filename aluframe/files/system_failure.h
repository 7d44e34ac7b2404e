#pragma once

#include <stdexcept>
#include <system_error>

namespace aluframe::files {

/// Throws the system's words for an error number.
[[noreturn]] inline void fail_with(int error) {
  throw std::runtime_error(std::generic_category().message(error));
}

}  // namespace aluframe::files
