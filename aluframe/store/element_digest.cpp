#include "aluframe/store/element_digest.h"

#include <bit>
#include <cmath>
#include <limits>
#include <optional>

#include "aluframe/store/digest.h"

namespace aluframe::store {

namespace {

/// SQLite keeps no NaN apart from another, nor -0.0 from 0 everywhere.
void add(Digest& digest, double value) {
  if (std::isnan(value)) value = std::numeric_limits<double>::quiet_NaN();
  digest.add(value + 0.0);
}

template <class Value>
void add(Digest& digest, const std::optional<Value>& value) {
  digest.add(value.has_value());
  if (!value) return;
  if constexpr (std::is_same_v<Value, double>) {
    add(digest, *value);
  } else {
    digest.add(*value);
  }
}

void add(Digest& digest, const NotChecked& item) {
  digest.add(item.element);
  add(digest, item.combination);
  digest.add_text(item.reason);
  digest.add(item.largest.has_value());
  if (!item.largest) return;
  digest.add_text(item.largest->component);
  add(digest, item.largest->magnitude);
  digest.add(item.largest->position);
  digest.add(item.largest->combination);
  digest.add(item.largest->min_side);
}

void add(Digest& digest, const SafeRow& row) {
  digest.add(row.element);
  // A row without a safe ratio has none of the checks either.
  const bool is_number = !std::isnan(row.safe);
  add(digest, is_number ? row.code : std::nullopt);
  add(digest, row.safe);
  digest.add(row.item);
  digest.add_text(row.rules);
  digest.add(row.combination);
  digest.add(row.min_side);
  add(digest, row.fraction);
  add(digest, row.from_start);
}

void add(Digest& digest, const UncheckedRow::At& at) {
  digest.add(at.combination);
  digest.add(at.min_side);
  add(digest, at.fraction);
}

void add(Digest& digest, const UncheckedRow& row) {
  digest.add_text(row.kind);
  add(digest, row.magnitude);
  add(digest, row.at);
  add(digest, row.ratio);
  if (row.ratio) add(digest, row.ratio_at);
}

}  // namespace

std::int64_t element_digest(const ElementRow* row, const ElementNotes& notes) {
  Digest digest;
  digest.add(notes.element);
  digest.add(row != nullptr);
  if (row != nullptr) {
    digest.add(row->member_type);
    digest.add(row->records);
    digest.add(row->data.size());
    digest.add(row->data.data(), row->data.size());
  }
  digest.add(notes.checked_positions);
  digest.add(notes.not_checked.size());
  for (const NotChecked& item : notes.not_checked) add(digest, item);
  digest.add(notes.safe.has_value());
  if (notes.safe) add(digest, *notes.safe);
  digest.add(notes.unchecked.size());
  for (const UncheckedRow& item : notes.unchecked) add(digest, item);
  digest.add(notes.assertions.size());
  for (const AssertionRow& item : notes.assertions) {
    digest.add_text(item.place);
    digest.add(item.count);
  }
  return std::bit_cast<std::int64_t>(digest.number());
}

}  // namespace aluframe::store
