#pragma once

#include <fmt/format.h>

#include <cstddef>
#include <string>
#include <string_view>

#include "aluframe/texts/language.h"

// Every text that a person reads is written in English where it is needed, and comes out in the
// user's language by the catalogue `zh_CN.po`, in which the English text is the key.

namespace aluframe::texts {

/// Marks a text that is kept in a table and translated where it is shown; returns it as it is.
consteval const char* translatable(const char* english) {
  return english;
}

/// A marked text in the language in use; the text itself where the catalogue has none for it.
std::string_view translation_of(std::string_view english);
std::string_view translation_of(std::string_view english, Language language);

/// The text in a language, with its arguments put in. A translation may take the arguments in
/// another order, "{1} {0}".
template <class... Arguments>
std::string translated_to(Language language, fmt::format_string<Arguments...> english,
                          const Arguments&... arguments) {
  const fmt::string_view format = english;
  return fmt::vformat(translation_of({format.data(), format.size()}, language),
                      fmt::make_format_args(arguments...));
}

/// The text in the language in use, with its arguments put in.
template <class... Arguments>
std::string translated(fmt::format_string<Arguments...> english, const Arguments&... arguments) {
  return translated_to<Arguments...>(language_in_use(), english, arguments...);
}

/// "1 node", "12 nodes": the text for one or that for another number, both marked.
inline std::string counted(std::size_t count, std::string_view one, std::string_view many) {
  return fmt::format(fmt::runtime(translation_of(count == 1 ? one : many)), count);
}

}  // namespace aluframe::texts
