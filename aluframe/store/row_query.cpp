#include "aluframe/store/row_query.h"

#include <span>

namespace aluframe::store {

namespace {

/// Ends the statement's read lock on leaving, also by an exception.
class ResetOnExit {
 public:
  explicit ResetOnExit(SQLite::Statement& statement) : statement_(statement) {}
  ~ResetOnExit() { statement_.tryReset(); }
  ResetOnExit(const ResetOnExit&) = delete;
  ResetOnExit& operator=(const ResetOnExit&) = delete;

 private:
  SQLite::Statement& statement_;
};

}  // namespace

RowQuery::RowQuery(SQLite::Database& database)
    : select_(database, "SELECT data FROM record WHERE element = ?") {}

template <class Action>
auto RowQuery::with_row(std::uint32_t element, Action action) {
  using Result = decltype(action(std::declval<const ElementRowView&>()));
  const ResetOnExit reset(select_);
  select_.bind(1, element);
  if (!select_.executeStep()) return Result();
  const SQLite::Column data = select_.getColumn(0);
  const auto* bytes = static_cast<const std::byte*>(data.getBlob());
  return action(ElementRowView({bytes, static_cast<std::size_t>(data.getBytes())}));
}

std::optional<T_RALU_D> RowQuery::find(std::uint32_t element, const RecordKey& key) {
  return with_row(element, [&](const ElementRowView& row) { return row.find(key); });
}

std::vector<StoredRecord> RowQuery::all(std::uint32_t element) {
  return with_row(element, [](const ElementRowView& row) { return row.all(); });
}

}  // namespace aluframe::store
