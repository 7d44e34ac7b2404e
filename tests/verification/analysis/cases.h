#pragma once

#include <filesystem>
#include <ostream>
#include <string>
#include <vector>

#include "aluframe/analysis/imperfections.h"
#include "aluframe/analysis/load_case.h"

namespace aluframe::analysis::verification {

/// One published or closed-form number: where it stands in the results, and how close is right.
struct Expected {
  std::size_t load_case = 0;
  std::string what;  ///< "displacement", "reaction" or "force"
  std::size_t place = 0, position = 0, component = 0;
  double value = 0.0;
  double tolerance = 0.0;  ///< absolute

  std::string text() const;
};

/// A frame with the numbers that it must give.
struct Case {
  std::string name, title, source, units, reason;
  bool second_order = false;
  Imperfections imperfections;
  Frame frame;
  std::vector<LoadCase> load_cases;
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

}  // namespace aluframe::analysis::verification
