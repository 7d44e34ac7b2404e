#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/texts/language.h"

// Texts that are kept, in result files and in derivations, are English, so that what is kept does
// not depend on who ran the program. They are translated where they are shown: a kept sentence is
// a text of the catalogue with its arguments already put in.

namespace aluframe::texts {

/// The arguments that a text of the catalogue was formatted with to give a sentence, as they stand
/// in it; nothing when it is not from that text.
std::optional<std::vector<std::string_view>> arguments_of(std::string_view sentence,
                                                          std::string_view english);

/// A sentence that `english` was formatted to, put in the words of `translation`; its arguments
/// keep the form that they have.
std::string reworded(const std::vector<std::string>& arguments, std::string_view translation);

/// A kept sentence in the language in use. Arguments that are sentences themselves are translated
/// as well, and so are the parts of one that was joined by a semicolon, a colon or a comma; what is
/// from no text of the catalogue comes back as it is.
std::string sentence_in_words(std::string_view sentence);
std::string sentence_in_words(std::string_view sentence, Language language);

}  // namespace aluframe::texts
