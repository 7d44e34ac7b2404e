#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>

#include "aluframe/io/faults.h"
#include "aluframe/io/json_document.h"
#include "aluframe/io/named_values.h"
#include "aluframe/model/table.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

/// Numbers of a model file lie within ± this, so that no conversion of units leaves the range of
/// the forces' single precision (1e30 kip·ft is 1.4e36 N·mm).
inline constexpr double largest_number = 1e30;
inline constexpr std::string_view number_range =
    texts::translatable("must be between -1e30 and 1e30");

/// A value of a document with typed access. Every access that the value does not meet throws
/// Failure with the value's JSON path, what was found and what is allowed. Cheap to copy; the
/// document must outlive it.
///
///     const JsonObject node(value, node_fields);
///     const double x = node.required("x").number();
class JsonValue {
 public:
  using Kind = JsonDocument::Kind;
  class Iterator;
  class List;

  JsonValue(const JsonDocument& document, JsonDocument::Place place)
      : document_(&document), place_(place) {}

  Kind kind() const { return document_->kind(place_); }
  std::string path() const { return document_->path(place_); }

  double number() const;        ///< within ± largest_number
  double any_number() const;    ///< any finite number
  double positive() const;      ///< > 0
  double not_negative() const;  ///< ≥ 0
  double between(double low, double high) const;
  int whole(int low, int high) const;  ///< 3 and 3.0, not 3.5
  model::Number entity_number() const;
  bool boolean() const;
  std::string_view string() const;
  std::string_view plain_text() const;  ///< on one line, for reports (model/plain_text.h)
  void require_text(std::string_view allowed) const;  ///< exactly this text
  List list() const;
  /// The value of the name that was found.
  template <class Value>
  Value one_of(std::span<const NamedValue<Value>> values) const {
    const std::string_view name = string();
    for (const NamedValue<Value>& value : values) {
      if (value.name == name) return value.value;
    }
    fail_with(texts::translated("must be one of {}", names_of(values)));
  }
  /// The field of this name, when the value is an object that has one. The first of several.
  std::optional<JsonValue> field(std::string_view name) const;

  /// Where faults of the document are gathered; null: the first one is thrown.
  Faults* faults() const { return document_->faults(); }

  /// Throws Failure at this value.
  [[noreturn]] void fail(std::string text) const;
  /// Throws Failure "found 3, " + `allowed`.
  [[noreturn]] void fail_with(std::string_view allowed) const;

 private:
  friend class JsonObject;
  std::string description() const;
  void require(Kind kind, std::string_view allowed) const {
    if (document_->kind(place_) != kind) fail_with(allowed);
  }

  const JsonDocument* document_;
  JsonDocument::Place place_;
};

class JsonValue::Iterator {
 public:
  Iterator(const JsonDocument& document, JsonDocument::Place place)
      : document_(&document), place_(place) {}
  JsonValue operator*() const { return {*document_, place_}; }
  Iterator& operator++() {
    place_ = document_->end(place_);
    return *this;
  }
  bool operator==(const Iterator& other) const { return place_ == other.place_; }

 private:
  const JsonDocument* document_;
  JsonDocument::Place place_;
};

/// The values of a list, in order.
class JsonValue::List {
 public:
  List(const JsonDocument& document, JsonDocument::Place place)
      : document_(&document), place_(place) {}
  Iterator begin() const { return {*document_, place_ + 1}; }
  Iterator end() const { return {*document_, document_->end(place_)}; }
  /// Counts; linear in the length of the list.
  std::size_t size() const;
  bool empty() const { return begin() == end(); }

 private:
  const JsonDocument* document_;
  JsonDocument::Place place_;
};

/// An object whose fields all are in a list of allowed names, each at most once.
class JsonObject {
 public:
  /// Throws Failure when the value is no object, at an unknown field (with the name that was
  /// probably meant) and at a field that is given twice. At most 32 names.
  JsonObject(JsonValue value, std::span<const std::string_view> allowed);

  /// The field, which must be there.
  JsonValue required(std::string_view name) const;
  /// The field, or nothing.
  std::optional<JsonValue> optional(std::string_view name) const { return value_.field(name); }

  /// Reads a part of the object that does not hang on the others: a fault in it is gathered where
  /// the document gathers them. @return whether it was read to its end
  template <class Read>
  bool part(Read&& read) const {
    return gather(value_.faults(), std::forward<Read>(read));
  }
  /// Whether a field that is not there may be one whose name is not allowed.
  bool may_have_misspelt(std::string_view name) const {
    const Faults* faults = value_.faults();
    return faults != nullptr && faults->is_misspelt(value_.place_) && !optional(name);
  }
  /// Whether nothing that was read since this object was begun has a fault.
  bool is_sound() const {
    return value_.faults() == nullptr || value_.faults()->count() == faults_before_;
  }

  double number_or(std::string_view name, double standard) const;
  double positive_or(std::string_view name, double standard) const;
  double not_negative_or(std::string_view name, double standard) const;
  bool boolean_or(std::string_view name, bool standard) const;
  std::string string_or(std::string_view name, std::string_view standard) const;
  std::string plain_text_or(std::string_view name, std::string_view standard) const;

  const JsonValue& value() const { return value_; }

 private:
  void refuse_field(JsonDocument::Place key, std::string text) const;

  JsonValue value_;
  std::size_t faults_before_ = 0;
};

}  // namespace aluframe::io
