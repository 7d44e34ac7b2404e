#include "aluframe/points/point_reader.h"

#include <fmt/format.h>

#include <cmath>
#include <cstdint>
#include <limits>
#include <type_traits>
#include <vector>

#include "aluframe/io/failure.h"
#include "aluframe/io/json_value.h"
#include "aluframe/io/json_writer.h"
#include "aluframe/points/point_fields.h"
#include "aluframe/services/text.h"

namespace aluframe::points {

namespace {

using io::JsonObject;
using io::JsonValue;

constexpr double largest_exact_whole = 9007199254740992.0;  // 2^53

template <class Record>
void read_record(const JsonValue& value, Record& record);

void read(const JsonValue& value, double& field) {
  field = value.any_number();
}

template <class Whole>
  requires std::is_integral_v<Whole>
void read(const JsonValue& value, Whole& field) {
  using Limits = std::numeric_limits<Whole>;
  const double number = value.any_number();
  if (number != std::floor(number) || number < Limits::min() || number > Limits::max()) {
    value.fail_with(
        fmt::format("must be a whole number from {} to {}", Limits::min(), Limits::max()));
  }
  field = static_cast<Whole>(number);
}

void read(const JsonValue& value, CString& field) {
  field = services::to_wide(value.string());
}

template <class Item, std::size_t size>
void read(const JsonValue& value, Item (&field)[size]) {
  const JsonValue::List list = value.list();
  if (list.size() != size) {
    value.fail(fmt::format("found {} values, must be {}", list.size(), size));
  }
  std::size_t i = 0;
  for (const JsonValue item : list) read(item, field[i++]);
}

template <class Record>
  requires std::is_class_v<Record>
void read(const JsonValue& value, Record& record) {
  read_record(value, record);
}

/// Gathers the names of a record's fields.
struct NamesOfFields {
  std::vector<std::string_view> names;

  template <class Field>
  void operator()(std::string_view name, Field& /*field*/) {
    names.push_back(name);
  }
};

/// Reads the fields that an object has.
struct FieldReader {
  const JsonObject& object;

  template <class Field>
  void operator()(std::string_view name, Field& field) {
    if (const auto value = object.optional(name)) read(*value, field);
  }
};

template <class Record>
const std::vector<std::string_view>& names_of(Record& record) {
  static const std::vector<std::string_view> names = [&record] {
    NamesOfFields gather;
    visit_fields(record, gather);
    return gather.names;
  }();
  return names;
}

template <class Record>
void read_record(const JsonValue& value, Record& record) {
  const JsonObject object(value, names_of(record));
  FieldReader reader{object};
  visit_fields(record, reader);
}

/// The label as JSON again.
std::string id_text(const JsonValue& value) {
  switch (value.kind()) {
    case JsonValue::Kind::null:
      return "null";
    case JsonValue::Kind::boolean:
      return value.boolean() ? "true" : "false";
    case JsonValue::Kind::string:
      return io::json_string(value.string());
    case JsonValue::Kind::number:
      if (std::abs(value.any_number()) <= largest_exact_whole) {
        return io::number_text(value.any_number());
      }
      break;
    default:
      break;
  }
  value.fail_with("must be a text, true, false, null or a number up to 2^53");
}

Point read_line(std::string_view line) {
  constexpr std::string_view fields[] = {"id", "data", "force"};
  const io::JsonDocument document(line);
  const JsonObject object(JsonValue(document, io::JsonDocument::root), fields);
  Point point;
  if (const auto id = object.optional("id")) point.id = id_text(*id);
  if (const auto data = object.optional("data")) read_record(*data, point.data);
  if (const auto force = object.optional("force")) read_record(*force, point.force);
  return point;
}

/// "column 7" of "line 1, column 7": the line's own number is told beside it.
std::string_view place_on_line(std::string_view place) {
  constexpr std::string_view only_line = "line 1, ";
  if (place.starts_with(only_line)) place.remove_prefix(only_line.size());
  return place;
}

}  // namespace

std::variant<Point, PointError> read_point(std::string_view line) {
  try {
    return read_line(line);
  } catch (const io::Failure& failure) {
    const std::string_view place = place_on_line(failure.place);
    return PointError{fmt::format("{}{}{}", place, place.empty() ? "" : ": ", failure.text)};
  }
}

}  // namespace aluframe::points
