#pragma once

#include <stdexcept>
#include <system_error>

#include "aluframe/texts/system_text.h"

namespace aluframe::files {

/// Throws the system's words for an error number.
[[noreturn]] inline void fail_with(int error) {
  throw std::runtime_error(texts::system_text(error));
}

}  // namespace aluframe::files
