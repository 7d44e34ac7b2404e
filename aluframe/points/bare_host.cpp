#include "aluframe/points/bare_host.h"

#include <fmt/format.h>

#include "aluframe/services/text.h"

namespace aluframe::points {

void BareHost::ReleaseAssertion(const wchar_t* source, int line) {
  ++assertions_[fmt::format("{}:{}", services::to_utf8(source), line)];
}

}  // namespace aluframe::points
