#include "aluframe/texts/sentence.h"

#include <algorithm>
#include <cctype>
#include <utility>

#include "aluframe/texts/catalogue.h"
#include "aluframe/texts/format_pieces.h"
#include "aluframe/texts/text.h"

namespace aluframe::texts {

namespace {

/// A text of fewer letters, such as "{} of {}", could stand in any sentence.
constexpr std::size_t fewest_letters = 3;

struct Template {
  FormatPieces english;
  std::string_view translation;
};

bool is_letter(char c) {
  return std::isalpha(static_cast<unsigned char>(c)) != 0;
}

bool has_letters(std::string_view text) {
  return std::ranges::any_of(text, is_letter);
}

/// Which characters of a text stand in quotation marks or brackets, these included.
std::vector<bool> enclosed_in(std::string_view text) {
  std::vector<bool> enclosed(text.size());
  int depth = 0;
  bool is_quoted = false;
  for (std::size_t i = 0; i < text.size(); ++i) {
    const bool is_quote = text[i] == '"';
    if (!is_quoted && text[i] == '(') ++depth;
    enclosed[i] = depth > 0 || is_quoted || is_quote;
    if (!is_quoted && text[i] == ')') --depth;
    if (is_quote) is_quoted = !is_quoted;
  }
  return enclosed;
}

/// Brackets and quotation marks that are opened are closed.
bool is_balanced(std::string_view text) {
  int depth = 0;
  bool is_quoted = false;
  for (const char c : text) {
    if (c == '"') is_quoted = !is_quoted;
    if (is_quoted) continue;
    if (c == '(') ++depth;
    if (c == ')' && --depth < 0) return false;
  }
  return depth == 0 && !is_quoted;
}

/// Where a text stands for the first time outside of quotation marks and brackets.
std::size_t find_open(std::string_view sentence, std::string_view text, std::size_t from = 0) {
  const std::vector<bool> enclosed = enclosed_in(sentence);
  std::size_t place = sentence.find(text, from);
  while (place != std::string_view::npos && enclosed[place]) place = sentence.find(text, place + 1);
  return place;
}

bool is_number(std::string_view text) {
  if (text == "inf" || text == "-inf" || text == "nan") return true;
  return !text.empty() && text.find_first_not_of("0123456789.+-e") == std::string_view::npos;
}

/// What a placeholder of a text takes.
struct Place {
  const FormatPieces& pieces;
  std::size_t index;

  std::string_view before() const { return pieces.literals[index]; }
  std::string_view after() const { return pieces.literals[index + 1]; }
  bool is_last() const { return index + 1 == pieces.arguments.size(); }
  bool is_bracketed() const { return before().ends_with('(') && after().starts_with(')'); }
  /// A name of the user's: "{:s}", or in quotation marks.
  bool is_name() const {
    return pieces.specs[index] == "s" || (before().ends_with('"') && after().starts_with('"'));
  }
  bool is_of_a_number() const { return !pieces.specs[index].empty() && pieces.specs[index] != "s"; }
  /// The rest of a sentence, which may be of several parts.
  bool is_rest() const {
    const bool is_behind =
        is_last() && after().empty() && (before().ends_with(": ") || before().ends_with("; "));
    const bool is_in_front =
        index == 0 && before().empty() && (after().starts_with(" (") || after().starts_with("; "));
    return is_bracketed() || is_behind || is_in_front;
  }
};

/// No part of another sentence: "nodes 2, 4" is an argument, "5 computed, 3 given" are two.
bool is_one_part(std::string_view argument) {
  if (find_open(argument, "; ") != std::string_view::npos) return false;
  if (find_open(argument, ": ") != std::string_view::npos) return false;
  for (std::size_t comma = find_open(argument, ", "); comma != std::string_view::npos;
       comma = find_open(argument, ", ", comma + 2)) {
    const std::string_view rest = argument.substr(comma + 2);
    const bool goes_on = is_letter(argument.front()) && !rest.empty() && !is_letter(rest.front());
    if (has_letters(argument) && !goes_on) return false;
  }
  return true;
}

bool fits(std::string_view argument, const Place& place) {
  if (place.is_name())
    return argument.find('"') == std::string_view::npos || place.pieces.specs[place.index] == "s";
  if (place.is_of_a_number()) return is_number(argument);
  return is_balanced(argument) && (place.is_rest() || argument.empty() || is_one_part(argument));
}

/// What lies between the literals of a text, each literal being the first of its kind behind the
/// one before, and the last one at the end.
std::optional<std::vector<std::string_view>> between(std::string_view sentence,
                                                     const FormatPieces& pieces) {
  const std::string& first = pieces.literals.front();
  const std::string& last = pieces.literals.back();
  if (pieces.arguments.empty()) {
    return sentence == first ? std::optional(std::vector<std::string_view>{}) : std::nullopt;
  }
  if (sentence.size() < first.size() + last.size() || !sentence.starts_with(first) ||
      !sentence.ends_with(last)) {
    return std::nullopt;
  }
  sentence.remove_prefix(first.size());
  sentence.remove_suffix(last.size());
  std::vector<std::string_view> arguments;
  for (std::size_t i = 1; i < pieces.arguments.size(); ++i) {
    const std::size_t found = sentence.find(pieces.literals[i]);
    if (found == std::string_view::npos) return std::nullopt;
    arguments.push_back(sentence.substr(0, found));
    sentence.remove_prefix(found + pieces.literals[i].size());
  }
  arguments.push_back(sentence);
  return arguments;
}

bool all_fit(const std::vector<std::string_view>& arguments, const FormatPieces& pieces) {
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    if (!fits(arguments[i], {pieces, i})) return false;
  }
  return true;
}

/// The texts of the catalogue that take arguments, those that say most first.
std::vector<Template> templates_of(const Catalogue& catalogue) {
  std::vector<Template> templates;
  for (std::uint32_t i = 0; i < catalogue.size(); ++i) {
    FormatPieces pieces = take_apart(catalogue.original(i));
    if (pieces.arguments.empty() || pieces.letters() < fewest_letters) continue;
    templates.push_back({std::move(pieces), catalogue.translation(i)});
  }
  std::ranges::stable_sort(templates, std::ranges::greater{}, [](const Template& text) {
    return std::pair(text.english.letters(), text.english.characters());
  });
  return templates;
}

const std::vector<Template>& chinese_templates() {
  static const std::vector<Template> templates = templates_of(chinese_catalogue());
  return templates;
}

std::string in_words(std::string_view sentence, Language language);

/// A text of the catalogue, and what its placeholders take of a sentence.
struct Match {
  const Template* text = nullptr;
  std::vector<std::string_view> arguments;
};

/// The text of the catalogue that says most and takes what stands in the sentence.
/// @param beginning that the text itself has
std::optional<Match> match_of(std::string_view sentence, std::string_view beginning = {}) {
  for (const Template& text : chinese_templates()) {
    if (!text.english.literals.front().starts_with(beginning)) continue;
    auto found = between(sentence, text.english);
    if (found && all_fit(*found, text.english)) return Match{&text, *std::move(found)};
  }
  return std::nullopt;
}

std::string by_template(const Match& match, Language language) {
  const FormatPieces& english = match.text->english;
  std::vector<std::string> arguments(match.arguments.size());
  for (std::size_t i = 0; i < arguments.size(); ++i) {
    const std::string_view argument = match.arguments[i];
    const bool is_name = Place{english, i}.is_name();
    arguments[english.arguments[i]] =
        is_name ? std::string(argument) : in_words(argument, language);
  }
  return reworded(arguments, match.text->translation);
}

struct Separator {
  std::string_view english, chinese;
};

/// Of a sentence that a separator joins. What joins it may be the beginning of the second part.
std::optional<std::string> joined_by(const Separator& separator, std::size_t place,
                                     std::string_view sentence, Language language) {
  if (place == std::string_view::npos) return std::nullopt;
  const std::string first = in_words(sentence.substr(0, place), language);
  if (const auto joined = match_of(sentence.substr(place), separator.english)) {
    return first + by_template(*joined, language);
  }
  return first + std::string(separator.chinese) +
         in_words(sentence.substr(place + separator.english.size()), language);
}

constexpr Separator semicolon{"; ", "；"}, colon{": ", "："}, comma{", ", "，"};

/// Where a semicolon ends a text that says more than the one that takes the whole sentence:
/// "element {}: {}" also takes "element 5 buckles: its force reaches 3 N; ...".
std::optional<std::size_t> end_of_text(std::string_view sentence,
                                       const std::optional<Match>& whole) {
  const std::size_t place = find_open(sentence, semicolon.english);
  if (place == std::string_view::npos) return std::nullopt;
  const auto has_semicolon = [](const std::string& literal) {
    return literal.find(semicolon.english) != std::string::npos;
  };
  if (whole && std::ranges::any_of(whole->text->english.literals, has_semicolon)) {
    return std::nullopt;
  }
  const auto first = match_of(sentence.substr(0, place));
  if (!first) return std::nullopt;
  const bool says_more = !whole || first->text->english.letters() > whole->text->english.letters();
  return says_more ? std::optional(place) : std::nullopt;
}

/// Of a sentence that was put together of others: "load case 2: ...; ...".
std::optional<std::string> by_parts(std::string_view sentence, Language language) {
  const std::size_t at_semicolon = find_open(sentence, semicolon.english);
  const std::size_t at_colon = find_open(sentence, colon.english);
  const bool is_colon = at_colon < at_semicolon;
  auto text =
      joined_by(is_colon ? colon : semicolon, std::min(at_colon, at_semicolon), sentence, language);
  return text ? text : joined_by(comma, find_open(sentence, comma.english), sentence, language);
}

std::string in_words(std::string_view sentence, Language language) {
  if (!has_letters(sentence)) return std::string(sentence);
  const std::string_view whole = translation_of(sentence, language);
  if (whole != sentence) return std::string(whole);
  const auto match = match_of(sentence);
  if (const auto end = end_of_text(sentence, match)) {
    return *joined_by(semicolon, *end, sentence, language);
  }
  if (match) return by_template(*match, language);
  return by_parts(sentence, language).value_or(std::string(sentence));
}

}  // namespace

std::optional<std::vector<std::string_view>> arguments_of(std::string_view sentence,
                                                          std::string_view english) {
  return between(sentence, take_apart(english));
}

std::string reworded(const std::vector<std::string>& arguments, std::string_view translation) {
  const FormatPieces pieces = take_apart(translation);
  std::string text = pieces.literals.front();
  for (std::size_t i = 0; i < pieces.arguments.size(); ++i) {
    if (pieces.arguments[i] < arguments.size()) text += arguments[pieces.arguments[i]];
    text += pieces.literals[i + 1];
  }
  return text;
}

std::string sentence_in_words(std::string_view sentence, Language language) {
  return language == Language::english ? std::string(sentence) : in_words(sentence, language);
}

std::string sentence_in_words(std::string_view sentence) {
  return sentence_in_words(sentence, language_in_use());
}

}  // namespace aluframe::texts
