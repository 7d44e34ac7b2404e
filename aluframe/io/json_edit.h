#pragma once

#include <cstddef>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/io/json_spans.h"

namespace aluframe::io {

/// The field of this name, which the text may write with escapes, or null.
const JsonMember* find_member(std::string_view text, const std::vector<JsonMember>& members,
                              std::string_view name);

/// A field of an object as it is to be.
struct JsonField {
  std::string_view name;
  std::optional<std::string> json =
      std::nullopt;  ///< its value; nothing: the object is to be without the field
};

/// Changes of a JSON text, which must be valid. They are collected and made in one pass; every byte
/// that none of them is about stays. No two may be about the same value.
///
///     JsonEdit edit(text);
///     edit.replace(items[2], R"({"number": 3})");
///     edit.set_fields(items[3], std::array{JsonField{"name", "\"C3\""}, JsonField{"beta"}});
///     const std::string edited = edit.result();
class JsonEdit {
 public:
  /// The text must outlive this.
  explicit JsonEdit(std::string_view text) : text_(text) {}

  void replace(JsonSpan value, std::string json);
  /// Adds a field behind one of an object's, set off from it as that is from the one before it: on
  /// the same line or on a line of its own.
  void insert_behind(const std::vector<JsonMember>& members, const JsonMember& before,
                     std::string_view name, std::string_view json);
  /// Gives some fields of an object other values. One that the object lacks comes behind its last;
  /// one that goes takes its comma with it. At least one field of the object must stay.
  void set_fields(JsonSpan object, std::span<const JsonField> fields);

  std::string result() const;

 private:
  /// Text that takes the place of a part of the other.
  struct Replacement {
    JsonSpan span;
    std::string text;
  };
  void remove(const std::vector<JsonMember>& members, std::size_t place, bool is_behind_another);

  std::string_view text_;
  std::vector<Replacement> replacements_;
};

}  // namespace aluframe::io
