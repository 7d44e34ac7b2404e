#pragma once

#include <optional>
#include <string_view>

namespace aluframe::texts {

enum class Language { english, chinese };

/// "en" or "zh".
std::optional<Language> parse_language(std::string_view name);

/// What the environment asks for: LC_ALL, else LC_MESSAGES, else LANG; Chinese only where the
/// locale's characters are UTF-8, in which this program writes. English when it names neither.
Language language_of_environment();

/// The language of all texts from now on; English until it is chosen.
void use_language(Language language);
Language language_in_use();

/// A language that is in use while it lives.
class LanguageInUse {
 public:
  explicit LanguageInUse(Language language) { use_language(language); }
  ~LanguageInUse() { use_language(earlier_); }
  LanguageInUse(const LanguageInUse&) = delete;
  LanguageInUse& operator=(const LanguageInUse&) = delete;

 private:
  Language earlier_ = language_in_use();
};

}  // namespace aluframe::texts
