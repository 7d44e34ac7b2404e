#pragma once

#include <optional>
#include <string>

namespace aluframe::services {

/// Character set of the environment's locale, such as "UTF-8"; nothing when the machine does not
/// have the locale.
std::optional<std::string> charset_of_environment();

}  // namespace aluframe::services
