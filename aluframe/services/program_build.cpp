#include "aluframe/services/program_build.h"

#include <fmt/format.h>

#include "aluframe/platform/build_digest.h"

namespace aluframe::services {

std::string program_build() {
  return fmt::format("{:016x}", platform::build_digest());
}

}  // namespace aluframe::services
