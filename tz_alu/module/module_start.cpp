// What happens when the module is loaded and unloaded by a loader that runs constructors.

#include <exception>
#include <iostream>

#include "tz_alu/module/registration.h"

namespace {

// Registers the module while it is loaded. A module that the framework does not start must not be
// used; such a loader has no way to refuse it, so the program ends with a message.
class MODULE_START {
 public:
  MODULE_START() noexcept {
    if (alu_module::Start()) return;
    std::cerr << "tz_alu: the framework did not start the extension module\n" << std::flush;
    std::terminate();
  }
  MODULE_START(const MODULE_START&) = delete;
  MODULE_START& operator=(const MODULE_START&) = delete;
  ~MODULE_START() { alu_module::End(); }
};

const MODULE_START start;

}  // namespace
