#include "aluframe/files/error_text.h"

#include <new>
#include <stdexcept>
#include <system_error>

namespace aluframe::files {

std::string error_text(const std::exception& error) {
  if (dynamic_cast<const std::bad_alloc*>(&error) != nullptr) {
    return "the memory does not suffice; check fewer elements or combinations at a time "
           "(--elements, --combinations), or end other programs";
  }
  if (dynamic_cast<const std::logic_error*>(&error) != nullptr) {
    return "internal error (" + std::string(error.what()) + "); please report it with the model";
  }
  if (const auto* system = dynamic_cast<const std::system_error*>(&error)) {
    return system->code().message();
  }
  return error.what();
}

}  // namespace aluframe::files
