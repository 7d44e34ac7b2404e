#pragma once

#include <cstddef>
#include <optional>
#include <string>

namespace aluframe::platform {

/// Character sets by their numbers: 936 is GBK, 949 the Korean one.
using CodePage = int;

/// A text of another character set in UTF-8. @return nothing when it holds bytes that are no
/// characters there, or the system does not know the character set
std::optional<std::string> utf8_of(const std::string& text, CodePage page);
/// A text in UTF-8 by another character set. @return nothing when that lacks one of its characters,
/// or the system does not know it
std::optional<std::string> in_code_page(const std::string& utf8, CodePage page);

/// Character set of the user's files, such as "UTF-8" or "CP936"; nothing when the environment
/// names a locale that the machine does not have.
std::optional<std::string> user_charset();
/// How many characters of a text the user's files have a question mark for, because the system has
/// no bytes for them: none where a stream ends at such a character instead.
std::size_t replaced_characters(const std::string& utf8);
/// From now on the user's files are in UTF-8, where a program decides on that for itself.
void use_utf8();

}  // namespace aluframe::platform
