#include "aluframe/io/json_spans.h"

#include <algorithm>

namespace aluframe::io {

namespace {

/// The first byte at or behind a place that is no blank.
std::size_t behind_blanks(std::string_view text, std::size_t place) {
  return std::min(text.find_first_not_of(json_blanks, place), text.size());
}

/// Behind the closing quote of the string that begins at a place.
std::size_t end_of_string(std::string_view text, std::size_t begin) {
  std::size_t place = begin + 1;
  while (place < text.size() && text[place] != '"') place += text[place] == '\\' ? 2 : 1;
  return std::min(place + 1, text.size());
}

/// Behind the bracket that closes the list or object that begins at a place.
std::size_t end_of_brackets(std::string_view text, std::size_t begin) {
  std::size_t depth = 0;
  std::size_t place = begin;
  while (place < text.size()) {
    const char c = text[place];
    if (c == '"') {
      place = end_of_string(text, place);
      continue;
    }
    ++place;
    if (c == '[' || c == '{') ++depth;
    if ((c == ']' || c == '}') && --depth == 0) break;
  }
  return place;
}

std::size_t end_of_value(std::string_view text, std::size_t begin) {
  if (begin >= text.size()) return text.size();
  if (text[begin] == '"') return end_of_string(text, begin);
  if (text[begin] == '[' || text[begin] == '{') return end_of_brackets(text, begin);
  return std::min(text.find_first_of(",]} \t\r\n", begin), text.size());
}

/// Calls `take` with the place of every part of a list or object: it returns where the part ends.
template <class Take>
void for_each_part(std::string_view text, JsonSpan container, Take take) {
  const std::size_t closing = container.end - 1;
  std::size_t place = behind_blanks(text, container.begin + 1);
  while (place < closing) {
    place = behind_blanks(text, take(place));
    if (place < closing) place = behind_blanks(text, place + 1);  // behind the comma
  }
}

}  // namespace

JsonSpan json_value_at(std::string_view text, std::size_t place) {
  const std::size_t begin = behind_blanks(text, place);
  return {begin, end_of_value(text, begin)};
}

std::vector<JsonMember> json_members(std::string_view text, JsonSpan object) {
  std::vector<JsonMember> members;
  for_each_part(text, object, [&](std::size_t place) {
    const JsonSpan name{place, end_of_string(text, place)};
    const std::size_t colon = behind_blanks(text, name.end);
    members.push_back({name, json_value_at(text, colon + 1)});
    return members.back().value.end;
  });
  return members;
}

std::vector<JsonSpan> json_items(std::string_view text, JsonSpan list) {
  std::vector<JsonSpan> items;
  for_each_part(text, list, [&](std::size_t place) {
    items.push_back(json_value_at(text, place));
    return items.back().end;
  });
  return items;
}

}  // namespace aluframe::io
