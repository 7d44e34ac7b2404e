#include "aluframe/io/json_document.h"

#include <algorithm>
#include <array>
#include <cctype>
#include <limits>
#include <nlohmann/json.hpp>

#include "aluframe/io/failure.h"
#include "aluframe/io/text_file.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

using nlohmann::json;

/// End of a list or an object that is still open.
constexpr JsonDocument::Place still_open = std::numeric_limits<JsonDocument::Place>::max();
/// The parser's code for a number that no double can hold.
constexpr int number_overflow = 406;
/// The parser quotes what it read last, which may be a whole file.
constexpr std::size_t longest_detail = 200;
/// Characters of text to a value, at least; measured 6 to 9 on files full of forces. Memory that is
/// reserved and not used is never touched.
constexpr std::size_t characters_per_value = 5;

/// Place of the bracket that opens level `depth` + 1. The text has one.
std::size_t offset_of_depth(std::string_view text, std::size_t depth) {
  std::size_t level = 0;
  bool in_string = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const char c = text[i];
    if (in_string) {
      if (c == '\\') ++i;
      if (c == '"') in_string = false;
      continue;
    }
    if (c == '"') in_string = true;
    if ((c == '[' || c == '{') && ++level > depth) return i;
    if (c == ']' || c == '}') --level;
  }
  return text.size();
}

/// The word around a character: letters with signs before them.
std::string_view word_at(std::string_view text, std::size_t offset) {
  const auto is_part = [](char c) {
    return std::isalpha(static_cast<unsigned char>(c)) != 0 || c == '-' || c == '+';
  };
  std::size_t begin = std::min(offset, text.size());
  std::size_t end = begin;
  while (begin > 0 && is_part(text[begin - 1])) --begin;
  while (end < text.size() && is_part(text[end])) ++end;
  return text.substr(begin, end - begin);
}

/// Other programs write results that are not finite in these ways, which JSON does not have.
bool is_non_finite_word(std::string_view word) {
  constexpr std::array<std::string_view, 3> words{"nan", "inf", "infinity"};
  if (word.starts_with('-') || word.starts_with('+')) word.remove_prefix(1);
  std::string lower(word);
  std::transform(lower.begin(), lower.end(), lower.begin(),
                 [](unsigned char c) { return static_cast<char>(std::tolower(c)); });
  return std::find(words.begin(), words.end(), lower) != words.end();
}

/// What the parser expected and found, without its own prefix: "unexpected ']'; expected '}'".
std::string detail_of(std::string_view what) {
  const std::size_t start = what.find(" - ");
  return shown(start == std::string_view::npos ? what : what.substr(start + 3), longest_detail);
}

std::string escaped(std::string_view key) {
  std::string text;
  for (const char c : shown(key)) {
    if (c == '~') {
      text += "~0";
    } else if (c == '/') {
      text += "~1";
    } else {
      text += c;
    }
  }
  return text;
}

}  // namespace

/// Receives the parser's events and appends values.
class JsonDocument::Builder {
 public:
  Builder(JsonDocument& document, std::string_view text) : document_(document), text_(text) {
    document_.values_.reserve(text.size() / characters_per_value + 1);
  }

  bool null() { return add_number(Kind::null, 0.0); }
  bool boolean(bool value) { return add_number(Kind::boolean, value ? 1.0 : 0.0); }
  bool number_integer(json::number_integer_t value) {
    return add_number(Kind::number, static_cast<double>(value));
  }
  bool number_unsigned(json::number_unsigned_t value) {
    return add_number(Kind::number, static_cast<double>(value));
  }
  bool number_float(double value, const std::string& /*token*/) {
    return add_number(Kind::number, value);
  }
  bool string(std::string& value) { return add_string(value); }
  bool key(std::string& value) { return add_string(value); }
  bool binary(json::binary_t& /*value*/) { return false; }  // never met in text
  bool start_object(std::size_t /*size*/) { return open(Kind::object); }
  bool start_array(std::size_t /*size*/) { return open(Kind::list); }
  bool end_object() { return close(); }
  bool end_array() { return close(); }

  bool parse_error(std::size_t read, const std::string& token, const json::exception& error) {
    if (error.id == number_overflow) {
      add_number(Kind::number, 0.0);
      throw Failure{document_.path(next_place() - 1),
                    texts::translated("found {}, too large for a number", shown(token))};
    }
    const std::size_t offset = read == 0 ? 0 : read - 1;
    const std::string_view word = word_at(text_, offset);
    throw Failure{position_in(text_, offset),
                  is_non_finite_word(word)
                      ? texts::translated("found {}, a number must be finite", word)
                      : texts::translated("broken JSON: {}", detail_of(error.what()))};
  }

 private:
  Place next_place() const { return static_cast<Place>(document_.values_.size()); }

  bool add_number(Kind kind, double number) {
    document_.values_.push_back({kind, next_place() + 1, {number}});
    return true;
  }
  bool add_string(const std::string& value) {
    add_number(Kind::string, 0.0);
    document_.values_.back().text = {static_cast<std::uint32_t>(document_.strings_.size()),
                                     static_cast<std::uint32_t>(value.size())};
    document_.strings_ += value;
    return true;
  }
  bool open(Kind kind) {
    if (open_.size() == max_json_depth) {
      throw Failure{position_in(text_, offset_of_depth(text_, max_json_depth)),
                    texts::translated("nested deeper than {} levels", max_json_depth)};
    }
    open_.push_back(next_place());
    document_.values_.push_back({kind, still_open, {0.0}});
    return true;
  }
  bool close() {
    document_.values_[open_.back()].end = next_place();
    open_.pop_back();
    return true;
  }

  JsonDocument& document_;
  std::string_view text_;
  std::vector<Place> open_;  ///< lists and objects that enclose the next value
};

JsonDocument::JsonDocument(std::string_view text, Faults* faults) : faults_(faults) {
  if (text.size() > max_file_size) throw Failure{"", texts::translated("is larger than 2 GB")};
  Builder builder(*this, text);
  json::sax_parse(text.begin(), text.end(), &builder);
}

std::string JsonDocument::path(Place target) const {
  std::string path;
  Place place = root;
  while (place != target) {
    const bool in_object = kind(place) == Kind::object;
    std::size_t index = 0;
    Place child = place + 1;
    // Skips the children before the one that is, or contains, the target.
    while ((in_object ? end(child + 1) : end(child)) <= target) {
      child = in_object ? end(child + 1) : end(child);
      ++index;
    }
    path += '/' + (in_object ? escaped(string(child)) : std::to_string(index));
    if (child == target) break;
    place = in_object ? child + 1 : child;
  }
  return path;
}

JsonDocument::Place JsonDocument::place_of(std::string_view path) const {
  Place place = root;
  while (!path.empty()) {
    path.remove_prefix(1);
    const std::string_view step = path.substr(0, path.find('/'));
    path.remove_prefix(step.size());
    const bool in_object = kind(place) == Kind::object;
    if (!in_object && kind(place) != Kind::list) break;
    Place child = place + 1;
    std::size_t index = 0;
    const auto is_meant = [&] {
      return step == (in_object ? escaped(string(child)) : std::to_string(index));
    };
    while (child < end(place) && !is_meant()) {
      child = in_object ? end(child + 1) : end(child);
      ++index;
    }
    if (child == end(place)) break;
    place = in_object ? child + 1 : child;
  }
  return place;
}

}  // namespace aluframe::io
