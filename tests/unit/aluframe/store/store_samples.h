#pragma once

#include <gmock/gmock.h>

#include <cstdint>
#include <filesystem>
#include <functional>
#include <string>
#include <vector>

#include "aluframe/store/result_file.h"
#include "host/tz_db/ralu.h"

namespace store_test {

/// An empty folder, removed at the end of the test.
class Folder {
 public:
  Folder();
  ~Folder();
  Folder(const Folder&) = delete;
  Folder& operator=(const Folder&) = delete;

  const std::filesystem::path& path() const { return path_; }
  std::filesystem::path file() const { return path_ / "frame.aluresult"; }
  std::filesystem::path partial() const { return path_ / "frame.aluresult.partial"; }
  std::vector<std::string> names() const;

 private:
  std::filesystem::path path_;
};

/// A run of two combinations: 1, and the envelope 7.
aluframe::store::RunInfo sample_info(const std::string& title = "Mullion");

/// A combination's record as the module leaves it. Its strength demand is
/// 100·element + combination + 10·min_side at the start and 1 more at each position.
T_RALU_D sample_record(std::uint32_t element, std::uint32_t combination, int min_side);

/// The governing record of the sample's three records.
T_RALU_D sample_governing(std::uint32_t element);

/// Writes the sample's three records of an element and the governing one.
void write_element(aluframe::store::ResultWriter& writer, std::uint32_t element);

/// Writes elements 1 to `last` and finishes.
void write_run(const std::filesystem::path& path, std::uint32_t last,
               const std::string& title = "Mullion");

/// All fields, numbers by bit pattern.
bool same_bits(const T_RALU_ITEM& a, const T_RALU_ITEM& b);
bool same_bits(const T_RALU_D& a, const T_RALU_D& b);

MATCHER_P(SameBits, expected, "holds the same bits") {
  return same_bits(arg, expected);
}

/// Every row of every table as SQL text.
std::string all_tables(const std::filesystem::path& path);

std::string bytes_of(const std::filesystem::path& path);

/// What `action` throws, or nothing.
std::string error_of(const std::function<void()>& action);

/// Runs `action` in a child process. @return its exit status, 99 when it threw
int in_child(const std::function<int()>& action);

}  // namespace store_test
