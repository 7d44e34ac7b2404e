#pragma once

#include "aluframe/texts/language.h"

namespace test_support {

using UsedLanguage = aluframe::texts::LanguageInUse;

}  // namespace test_support
