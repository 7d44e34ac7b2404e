#pragma once

#include <string>

namespace aluframe::tables {

/// How much of a long list of numbers is shown.
enum class Lists {
  shortened,  ///< as a line of the screen can be read
  whole       ///< for files, which are searched
};

/// "1-3, 7, 9" as it is; of a list over 60 characters its beginning "and 1204 more".
std::string shown_list(const std::string& ranges, Lists lists = Lists::shortened);

}  // namespace aluframe::tables
