#pragma once

#include <stdexcept>
#include <system_error>

#include "aluframe/texts/system_text.h"

namespace aluframe::files {

/// Throws the system's words for an error, when it is one.
inline void require_no(const std::error_code& error) {
  if (error) throw std::runtime_error(texts::system_text(error));
}

}  // namespace aluframe::files
