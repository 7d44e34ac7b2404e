#include "aluframe/files/error_text.h"

#include <new>
#include <stdexcept>
#include <system_error>

#include "aluframe/texts/system_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::files {

std::string error_text(const std::exception& error) {
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) {
    return texts::translated(
        "the memory does not suffice; check fewer elements or combinations at a time "
        "(--elements, --combinations), or end other programs");
  }
  if (dynamic_cast<const std::logic_error*>(&error) != nullptr) {
    return texts::translated("internal error ({}); please report it with the model", error.what());
  }
  if (const auto* system = dynamic_cast<const std::system_error*>(&error)) {
    return texts::system_text(system->code());
  }
  return error.what();
}

}  // namespace aluframe::files
