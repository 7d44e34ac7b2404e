#pragma once

#include <filesystem>
#include <vector>

#include "aluframe/store/element_row.h"
#include "bench/store_records.h"

namespace store_bench {

/// Writes packed rows and governing rows into a result file with nothing but SQLite's own
/// functions: the layout, the settings and the transactions of the store, no queue, no thread, no
/// packing.
void write_packed_rows(const std::filesystem::path& path,
                       const std::vector<aluframe::store::ElementRow>& rows);

/// One record, packed alone, and its key.
struct PackedRecord {
  std::uint32_t element = 0;
  aluframe::store::RecordKey key;
  std::vector<std::byte> data;
};

/// Writes the same records the usual way: one row each under a key of element, combination and
/// side, write-ahead log, SQLite's default page size, transactions as large as the store's, the
/// same care about power failure, and the same governing rows.
void write_single_rows(const std::filesystem::path& path, const std::vector<PackedRecord>& records,
                       const std::vector<aluframe::store::ElementRow>& rows);

}  // namespace store_bench
