#include "aluframe/io/problem_of_faults.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <optional>
#include <utility>

#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

using Place = JsonDocument::Place;

/// A list of entities at the top of a file, and how one of them is named.
struct EntityList {
  std::string_view list;
  std::string_view number_field;
  const char* name;
};

constexpr std::array<EntityList, 8> entity_lists{{
    {"materials", "number", texts::translatable("material {}")},
    {"sections", "number", texts::translatable("section {}")},
    {"nodes", "number", texts::translatable("node {}")},
    {"supports", "node", texts::translatable("support of node {}")},
    {"elements", "number", texts::translatable("element {}")},
    {"members", "number", texts::translatable("member {}")},
    {"load_cases", "number", texts::translatable("load case {}")},
    {"combinations", "number", texts::translatable("combination {}")},
}};

/// The item of a list, or the value and the name of a field of an object, in which a place lies.
std::optional<std::pair<Place, std::string_view>> child_around(const JsonDocument& document,
                                                               Place parent, Place place) {
  const bool in_object = document.kind(parent) == JsonDocument::Kind::object;
  if (!in_object && document.kind(parent) != JsonDocument::Kind::list) return std::nullopt;
  for (Place child = parent + 1; child < document.end(parent);) {
    const Place value = in_object ? child + 1 : child;
    if (place < document.end(value)) {
      if (place < child) return std::nullopt;
      return std::pair(value, in_object ? document.string(child) : std::string_view());
    }
    child = document.end(value);
  }
  return std::nullopt;
}

/// A whole number in a field of an object.
std::optional<model::Number> number_in(const JsonDocument& document, Place object,
                                       std::string_view field) {
  if (document.kind(object) != JsonDocument::Kind::object) return std::nullopt;
  for (Place key = object + 1; key < document.end(object); key = document.end(key + 1)) {
    if (document.string(key) != field) continue;
    if (document.kind(key + 1) != JsonDocument::Kind::number) return std::nullopt;
    const double number = document.number(key + 1);
    if (number != std::floor(number) || number < 1.0 || number > double{model::max_number}) {
      return std::nullopt;
    }
    return static_cast<model::Number>(number);
  }
  return std::nullopt;
}

std::string forces_at(const JsonDocument& document, Place item) {
  const auto element = number_in(document, item, "element");
  const auto load_case = number_in(document, item, "case");
  if (!element || !load_case) return "";
  return texts::translated("element {}, load case {}", *element, *load_case);
}

std::string name_of(const JsonDocument& document, std::string_view list, Place item) {
  if (list == "forces") return forces_at(document, item);
  for (const EntityList& row : entity_lists) {
    if (row.list != list) continue;
    const auto number = number_in(document, item, row.number_field);
    return number ? texts::counted(*number, row.name, row.name) : "";
  }
  return "";
}

/// The value where a fault lies, also of one that has its path alone.
Place place_of(const Failure& failure, const JsonDocument& document) {
  return failure.at.value_or(document.place_of(failure.place));
}

/// Behind the string, number or word that begins at a place of the text.
std::size_t end_of_scalar(std::string_view text, std::size_t begin) {
  if (text[begin] != '"') return std::min(text.find_first_of(",:]} \t\r\n", begin), text.size());
  std::size_t end = begin + 1;
  while (end < text.size() && text[end] != '"') end += text[end] == '\\' ? 2 : 1;
  return std::min(end + 1, text.size());
}

}  // namespace

std::string entity_at(const JsonDocument& document, Place place) {
  if (place == JsonDocument::root) return "";
  const auto field = child_around(document, JsonDocument::root, place);
  if (!field) return "";
  auto [list, name] = *field;
  if (document.kind(list) == JsonDocument::Kind::object) {
    // A rule of combinations has those that are written by hand beside it.
    const auto also = child_around(document, list, place);
    if (!also || also->second != "also") return "";
    list = also->first;
  }
  const auto item = child_around(document, list, place);
  return item ? name_of(document, name, item->first) : "";
}

std::vector<std::size_t> lines_of(std::string_view text, const std::vector<Place>& places) {
  std::vector<std::size_t> lines;
  std::size_t line = 1;
  Place next = 0;
  for (std::size_t at = 0; at < text.size() && lines.size() < places.size();) {
    const char c = text[at];
    if (c == '\n') ++line;
    const bool is_between = c == ',' || c == ':' || c == ']' || c == '}' || c == ' ' || c == '\t' ||
                            c == '\r' || c == '\n';
    if (!is_between) {
      while (lines.size() < places.size() && places[lines.size()] == next) lines.push_back(line);
      ++next;
    }
    at = is_between || c == '[' || c == '{' ? at + 1 : end_of_scalar(text, at);
  }
  return lines;
}

Problem problem_of(const Faults& faults, const JsonDocument& document, std::string_view text,
                   const std::string& file) {
  std::vector<std::pair<Place, const Failure*>> found;
  for (const Failure& failure : faults.told()) {
    found.emplace_back(place_of(failure, document), &failure);
  }
  std::ranges::stable_sort(found, {}, [](const auto& fault) { return fault.first; });
  const bool has_more = faults.is_full() || found.size() > most_faults_told;
  found.resize(std::min(found.size(), most_faults_told));
  std::vector<Place> places;
  for (const auto& fault : found) places.push_back(fault.first);
  const std::vector<std::size_t> lines = lines_of(text, places);
  Problem problem;
  for (std::size_t i = 0; i < found.size(); ++i) {
    const auto& [place, failure] = found[i];
    const std::size_t line = failure->place.empty() ? 0 : lines[i];  // 0: the file as a whole
    problem.others.push_back({failure->place, failure->text, line, entity_at(document, place)});
  }
  Fault first = std::move(problem.others.front());
  problem.others.erase(problem.others.begin());
  problem.file = file;
  problem.place = std::move(first.place);
  problem.text = std::move(first.text);
  problem.line = first.line;
  problem.entity = std::move(first.entity);
  problem.has_more = has_more;
  return problem;
}

}  // namespace aluframe::io
