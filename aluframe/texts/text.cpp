#include "aluframe/texts/text.h"

#include "aluframe/texts/catalogue.h"

namespace aluframe::texts {

std::string_view translation_of(std::string_view english, Language language) {
  static const Catalogue chinese = chinese_catalogue();
  if (language == Language::english || english.empty()) return english;
  return chinese.find(english).value_or(english);
}

std::string_view translation_of(std::string_view english) {
  return translation_of(english, language_in_use());
}

}  // namespace aluframe::texts
