#pragma once

#include <SQLiteCpp/SQLiteCpp.h>

#include <cstdint>
#include <optional>
#include <vector>

#include "aluframe/store/element_row.h"

namespace aluframe::store {

/// Looks up packed rows by element.
class RowQuery {
 public:
  /// `database` must outlive the query.
  explicit RowQuery(SQLite::Database& database);

  std::optional<T_RALU_D> find(std::uint32_t element, const RecordKey& key);
  /// All records of an element in the order packed; none when there is no such element.
  std::vector<StoredRecord> all(std::uint32_t element);

 private:
  /// What `action` gives for the element's row, or its default value when there is none.
  template <class Action>
  auto with_row(std::uint32_t element, Action action);

  SQLite::Statement select_;
};

}  // namespace aluframe::store
