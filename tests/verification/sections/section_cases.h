#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "aluframe/model/section.h"

namespace aluframe::section::verification {

/// One number of a section that must come out, in the units of its case.
struct Expected {
  std::string what;  ///< a constant, see `found_value`
  std::string by;    ///< "formula" or "mesh"
  double value = 0.0;
  double tolerance = 0.0;  ///< absolute
  double datum = 0.0;      ///< where a published distance begins, from the section's edge inwards
  int cells_across = 4;    ///< of the mesh
};

/// A section with the numbers that were published of it.
struct Case {
  std::string name, title, source, units, reason;
  double millimetres = 1.0;  ///< in one unit of length
  model::Section section;
  std::vector<Expected> expected;
};

/// What a failing test calls the case.
inline void PrintTo(const Case& one, std::ostream* stream) {
  *stream << one.name;
}

/// Reads a case. Throws std::runtime_error or nlohmann::json::exception on what it cannot mean.
Case read_case(const std::filesystem::path& file);

/// All cases of a folder, by name.
std::vector<Case> read_cases(const std::filesystem::path& folder);

/// The constant that the library gives, in the units of the case. Throws std::runtime_error for an
/// unknown constant.
double found_value(const Case& one, const Expected& expected);

}  // namespace aluframe::section::verification
