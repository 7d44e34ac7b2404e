#include "aluframe/texts/sentence.h"

#include <algorithm>

#include "aluframe/texts/catalogue.h"
#include "aluframe/texts/format_pieces.h"
#include "aluframe/texts/text.h"

namespace aluframe::texts {

namespace {

struct Template {
  FormatPieces english;
  std::string_view translation;
};

/// What lies between the literals of a text, each literal being the first of its kind behind the
/// one before, and the last one at the end.
std::optional<std::vector<std::string_view>> between(std::string_view sentence,
                                                     const FormatPieces& pieces) {
  const std::string& first = pieces.literals.front();
  const std::string& last = pieces.literals.back();
  if (!sentence.starts_with(first)) return std::nullopt;
  if (pieces.literals.size() == 1) {
    if (sentence != first) return std::nullopt;
    return std::vector<std::string_view>{};
  }
  sentence.remove_prefix(first.size());
  if (!sentence.ends_with(last)) return std::nullopt;
  sentence.remove_suffix(last.size());
  std::vector<std::string_view> arguments(pieces.arguments.size());
  const auto set = [&](std::size_t placeholder, std::string_view text) {
    const std::size_t argument = pieces.arguments[placeholder];
    if (argument < arguments.size()) arguments[argument] = text;
  };
  for (std::size_t i = 1; i + 1 < pieces.literals.size(); ++i) {
    const std::size_t found = sentence.find(pieces.literals[i]);
    if (found == std::string_view::npos) return std::nullopt;
    set(i - 1, sentence.substr(0, found));
    sentence.remove_prefix(found + pieces.literals[i].size());
  }
  set(pieces.arguments.size() - 1, sentence);
  return arguments;
}

/// The texts of the catalogue that take arguments, those that say most first.
std::vector<Template> templates_of(const Catalogue& catalogue) {
  std::vector<Template> templates;
  for (std::uint32_t i = 0; i < catalogue.size(); ++i) {
    FormatPieces pieces = take_apart(catalogue.original(i));
    if (!pieces.arguments.empty())
      templates.push_back({std::move(pieces), catalogue.translation(i)});
  }
  std::ranges::stable_sort(templates, std::ranges::greater{},
                           [](const Template& text) { return text.english.literal_characters(); });
  return templates;
}

const std::vector<Template>& chinese_templates() {
  static const std::vector<Template> templates = templates_of(chinese_catalogue());
  return templates;
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
  if (language == Language::english || sentence.empty()) return std::string(sentence);
  const std::string_view whole = translation_of(sentence, language);
  if (whole != sentence) return std::string(whole);
  for (const Template& text : chinese_templates()) {
    const auto found = between(sentence, text.english);
    if (!found) continue;
    std::vector<std::string> arguments;
    for (const std::string_view argument : *found) {
      arguments.push_back(sentence_in_words(argument, language));
    }
    return reworded(arguments, text.translation);
  }
  return std::string(sentence);
}

std::string sentence_in_words(std::string_view sentence) {
  return sentence_in_words(sentence, language_in_use());
}

}  // namespace aluframe::texts
