#pragma once

#include <fstream>
#include <string>

#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::files {

/// A folder of a test's own, with the files that it writes there.
class TestFolder : public services::TemporaryFolder {
 public:
  /// @return the path of a file with this content
  std::filesystem::path write(const char* name, const std::string& content) const {
    std::ofstream(path() / name, std::ios::binary) << content;
    return path() / name;
  }
};

}  // namespace aluframe::files
