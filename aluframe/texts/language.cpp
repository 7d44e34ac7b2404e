#include "aluframe/texts/language.h"

#include <algorithm>
#include <atomic>
#include <string>

#include "aluframe/platform/environment.h"

namespace aluframe::texts {

namespace {

std::atomic<Language> in_use = Language::english;

/// "zh_CN.UTF-8" and the like, however the character set is spelt.
bool is_chinese_in_utf8(const std::string& locale) {
  if (!locale.starts_with("zh")) return false;
  std::string charset = locale.substr(std::min(locale.find('.'), locale.size()));
  std::erase(charset, '-');
  std::ranges::transform(charset, charset.begin(),
                         [](char c) { return c >= 'A' && c <= 'Z' ? char(c - 'A' + 'a') : c; });
  return charset.starts_with(".utf8");
}

}  // namespace

std::optional<Language> parse_language(std::string_view name) {
  if (name == "en") return Language::english;
  if (name == "zh") return Language::chinese;
  return std::nullopt;
}

Language language_of_environment() {
  return is_chinese_in_utf8(platform::locale_of_messages()) ? Language::chinese : Language::english;
}

void use_language(Language language) {
  in_use = language;
}

Language language_in_use() {
  return in_use;
}

}  // namespace aluframe::texts
