#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace aluframe::io {

class Faults;

/// Lists and objects may stand inside one another this many levels deep.
inline constexpr std::size_t max_json_depth = 64;

/// A JSON text as one flat array of values in the order of the text: each list or object is
/// followed by its content and knows where that ends. Nothing is recursive, so no nesting exhausts
/// the stack, and a file of 100,000 elements is one allocation to make and to free. The place of a
/// value is enough to name it for the user, so reading keeps no paths.
///
///     const JsonDocument document(text);
///     const JsonValue root(document, JsonDocument::root);   // typed access: json_value.h
class JsonDocument {
 public:
  using Place = std::uint32_t;
  enum class Kind : std::uint8_t { null, boolean, number, string, list, object };

  static constexpr Place root = 0;

  /// Parses a UTF-8 text. Throws Failure with line and column of broken JSON or of too deep
  /// nesting, or the JSON path of a number beyond the range of double.
  /// @param faults where faults of the values are gathered, which must outlive the document; null:
  ///   the first one is thrown
  explicit JsonDocument(std::string_view text, Faults* faults = nullptr);

  Faults* faults() const { return faults_; }

  Kind kind(Place place) const { return values_[place].kind; }
  /// Whole numbers beyond 2^53 are rounded to a double.
  double number(Place place) const { return values_[place].number; }
  bool boolean(Place place) const { return values_[place].number != 0.0; }
  std::string_view string(Place place) const {
    return std::string_view(strings_).substr(values_[place].text.begin, values_[place].text.size);
  }
  /// The first place behind a value and all that it contains. Content of a list or an object lies
  /// between `place + 1` and `end(place)`; an object's is key, value, key, value.
  Place end(Place place) const { return values_[place].end; }

  /// JSON path of a value, such as "/elements/3/nodes/1", with ~ and / in names written ~0 and ~1
  /// (RFC 6901) and names as messages show them. The key of a field has the path of the field.
  std::string path(Place place) const;
  /// The value of a path as messages have it, or the last that there is on the way to it. The
  /// first, where a shortened name stands for several.
  Place place_of(std::string_view path) const;

 private:
  struct Text {
    std::uint32_t begin, size;  ///< in `strings_`
  };
  struct Value {
    Kind kind;
    Place end;
    union {
      double number;
      Text text;
    };
  };
  class Builder;

  std::vector<Value> values_;
  Faults* faults_;
  std::string strings_;  ///< keys and strings, one behind the other
};

}  // namespace aluframe::io
