#pragma once

#include <optional>
#include <string_view>

#include "host/framework/cstring.h"

namespace aluframe::services {

enum class Language { english, chinese };

/// Text of a message key in the user's language; the key itself when the host has no text for it.
CString message_text(const CString& key, Language language);

/// "en" or "zh".
std::optional<Language> parse_language(std::string_view name);

}  // namespace aluframe::services
