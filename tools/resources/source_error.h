#pragma once

#include <stdexcept>
#include <string>

namespace resources {

/// What is wrong with a script or a header, where. Its message is one line,
/// "file:line: found ..., allowed ...".
class SourceError : public std::runtime_error {
 public:
  /// @param file as the user named it
  /// @param line counts from 1
  SourceError(const std::string& file, int line, const std::string& found,
              const std::string& allowed);
};

}  // namespace resources
