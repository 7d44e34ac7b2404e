#include "aluframe/io/json_value.h"

#include <fmt/format.h>

#include <cmath>
#include <utility>

#include "aluframe/io/failure.h"
#include "aluframe/io/suggestion.h"
#include "aluframe/io/text_file.h"
#include "aluframe/model/plain_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

double JsonValue::any_number() const {
  require(Kind::number, texts::translated("must be a number"));
  return document_->number(place_);
}

double JsonValue::number() const {
  const double number = any_number();
  if (!(std::abs(number) <= largest_number)) fail_with(texts::translation_of(number_range));
  return number;
}

double JsonValue::positive() const {
  const double value = number();
  if (!(value > 0.0)) fail_with(texts::translated("must be positive"));
  return value;
}

double JsonValue::not_negative() const {
  const double value = number();
  if (!(value >= 0.0)) fail_with(texts::translated("must not be negative"));
  return value;
}

double JsonValue::between(double low, double high) const {
  const double value = number();
  if (!(value >= low && value <= high)) {
    fail_with(texts::translated("must be between {} and {}", low, high));
  }
  return value;
}

int JsonValue::whole(int low, int high) const {
  const auto allowed = [&] {
    return texts::translated("must be a whole number from {} to {}", low, high);
  };
  if (kind() != Kind::number) fail_with(allowed());
  const double value = document_->number(place_);
  if (!(value >= low && value <= high) || value != std::floor(value)) fail_with(allowed());
  return static_cast<int>(value);
}

model::Number JsonValue::entity_number() const {
  return static_cast<model::Number>(whole(1, static_cast<int>(model::max_number)));
}

bool JsonValue::boolean() const {
  require(Kind::boolean, texts::translated("must be true or false"));
  return document_->boolean(place_);
}

std::string_view JsonValue::string() const {
  require(Kind::string, texts::translated("must be a text"));
  return document_->string(place_);
}

std::string_view JsonValue::plain_text() const {
  const std::string_view text = string();
  if (const auto found = model::find_control_character(text)) {
    fail(texts::translated("found {}, {}", *found, texts::translation_of(model::plain_text_rule)));
  }
  return text;
}

void JsonValue::require_text(std::string_view allowed) const {
  if (kind() != Kind::string || string() != allowed)
    fail_with(texts::translated("must be {}", in_quotes(allowed)));
}

JsonValue::List JsonValue::list() const {
  require(Kind::list, texts::translated("must be a list"));
  return {*document_, place_};
}

std::size_t JsonValue::List::size() const {
  std::size_t count = 0;
  for (auto item = begin(); !(item == end()); ++item) ++count;
  return count;
}

std::optional<JsonValue> JsonValue::field(std::string_view name) const {
  if (kind() != Kind::object) return std::nullopt;
  const JsonDocument::Place end = document_->end(place_);
  for (JsonDocument::Place key = place_ + 1; key < end; key = document_->end(key + 1)) {
    if (document_->string(key) == name) return JsonValue(*document_, key + 1);
  }
  return std::nullopt;
}

void JsonValue::fail(std::string text) const {
  if (faults() != nullptr && faults()->is_misspelt(place_)) throw FollowsFromFault{};
  throw Failure{path(), std::move(text), place_};
}

void JsonValue::fail_with(std::string_view allowed) const {
  fail(texts::translated("found {}, {}", description(), allowed));
}

std::string JsonValue::description() const {
  switch (kind()) {
    case Kind::null:
      return "null";
    case Kind::boolean:
      return document_->boolean(place_) ? "true" : "false";
    case Kind::number:
      return fmt::format("{}", document_->number(place_));
    case Kind::string:
      return in_quotes(document_->string(place_));
    case Kind::list:
      return document_->end(place_) == place_ + 1 ? texts::translated("an empty list")
                                                  : texts::translated("a list");
    case Kind::object:
      return texts::translated("an object");
  }
  return {};
}

namespace {

/// Place of a name in the list; its size when it is not there.
std::size_t place_of(std::string_view name, std::span<const std::string_view> allowed) {
  std::size_t i = 0;
  while (i < allowed.size() && allowed[i] != name) ++i;
  return i;
}

}  // namespace

/// Goes on with the other fields where faults are gathered.
void JsonObject::refuse_field(JsonDocument::Place key, std::string text) const {
  static_cast<void>(
      part([&] { throw Failure{value_.document_->path(key), std::move(text), key}; }));
}

JsonObject::JsonObject(JsonValue value, std::span<const std::string_view> allowed) : value_(value) {
  if (value_.faults() != nullptr) faults_before_ = value_.faults()->count();
  value_.require(JsonValue::Kind::object, texts::translated("must be an object"));
  const JsonDocument& document = *value_.document_;
  std::uint32_t met = 0;
  const JsonDocument::Place end = document.end(value_.place_);
  for (JsonDocument::Place key = value_.place_ + 1; key < end; key = document.end(key + 1)) {
    const std::string_view name = document.string(key);
    const std::size_t place = place_of(name, allowed);
    if (place == allowed.size()) {
      refuse_field(key, unknown_name_text(texts::translated("field"), name, allowed));
      value_.faults()->misspell(value_.place_);
      if (allowed.empty()) break;  // each would be told the same
      continue;
    }
    const std::uint32_t bit = 1U << place;
    if ((met & bit) != 0) refuse_field(key, texts::translated("this field is given twice"));
    met |= bit;
  }
}

JsonValue JsonObject::required(std::string_view name) const {
  const std::optional<JsonValue> found = value_.field(name);
  if (!found) value_.fail(texts::translated("missing field \"{}\"", name));
  return *found;
}

double JsonObject::number_or(std::string_view name, double standard) const {
  const std::optional<JsonValue> found = optional(name);
  return found ? found->number() : standard;
}

double JsonObject::positive_or(std::string_view name, double standard) const {
  const std::optional<JsonValue> found = optional(name);
  return found ? found->positive() : standard;
}

double JsonObject::not_negative_or(std::string_view name, double standard) const {
  const std::optional<JsonValue> found = optional(name);
  return found ? found->not_negative() : standard;
}

bool JsonObject::boolean_or(std::string_view name, bool standard) const {
  const std::optional<JsonValue> found = optional(name);
  return found ? found->boolean() : standard;
}

std::string JsonObject::string_or(std::string_view name, std::string_view standard) const {
  const std::optional<JsonValue> found = optional(name);
  return std::string(found ? found->string() : standard);
}

std::string JsonObject::plain_text_or(std::string_view name, std::string_view standard) const {
  const std::optional<JsonValue> found = optional(name);
  return std::string(found ? found->plain_text() : standard);
}

}  // namespace aluframe::io
