#include "tools/resources/source_error.h"

namespace resources {

SourceError::SourceError(const std::string& file, int line, const std::string& found,
                         const std::string& allowed)
    : std::runtime_error(file + ":" + std::to_string(line) + ": found " + found + ", allowed " +
                         allowed) {}

}  // namespace resources
