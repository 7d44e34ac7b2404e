#pragma once

#include <ostream>
#include <string>

#include "aluframe/explain/explain.h"

namespace aluframe::document {

/// What stands around a derivation that is a page of its own.
struct DerivationPage {
  std::string heading;  ///< which check it is
  std::string footing;  ///< units, and where to read on
};

/// A whole page of HTML with one derivation, in the language in use; it needs no other file.
void write_derivation_page(std::ostream& out, const DerivationPage& page,
                           const explain::Explanation& explanation);

}  // namespace aluframe::document
