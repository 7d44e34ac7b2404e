#pragma once

#include <stdlib.h>

#include <cstdint>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

#include "aluframe/services/report_run.h"
#include "tests/unit/aluframe/services/columns_run.h"

namespace aluframe::services {

inline std::string bytes_of(const std::filesystem::path& path) {
  std::ifstream file(path, std::ios::binary);
  return {std::istreambuf_iterator<char>(file), {}};
}

/// Whole reports over columns 1 and 2 that the checks cover, 3 of a shape that they do not cover,
/// and 4 without forces.
class ReportedColumns : public ColumnsRun {
 protected:
  ReportedColumns() { setenv("LC_ALL", "C.UTF-8", 1); }

  ReportSummary report() { return run_report(model_, options(), path_); }
  ReportSummary report(std::vector<model::Number> selected) {
    SessionOptions limited = options();
    limited.selected = std::move(selected);
    return run_report(model_, limited, path_);
  }
  std::string text() const { return bytes_of(path_); }
  std::string results() const { return bytes_of(result_path_); }
  /// All records of an element in the result file, packed as they are stored.
  std::vector<store::StoredRecord> records(std::uint32_t element) const {
    return store::ResultReader::open(result_path_)->read_all(element);
  }

  const std::filesystem::path path_ = folder_.path() / "columns.alu";
  const std::filesystem::path result_path_ = folder_.path() / "columns.aluresult";
};

}  // namespace aluframe::services
