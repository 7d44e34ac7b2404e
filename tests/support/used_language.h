#pragma once

#include "aluframe/texts/language.h"

namespace test_support {

/// A language that the program's texts are in while it lives.
class UsedLanguage {
 public:
  explicit UsedLanguage(aluframe::texts::Language language) {
    aluframe::texts::use_language(language);
  }
  ~UsedLanguage() { aluframe::texts::use_language(earlier_); }
  UsedLanguage(const UsedLanguage&) = delete;
  UsedLanguage& operator=(const UsedLanguage&) = delete;

 private:
  aluframe::texts::Language earlier_ = aluframe::texts::language_in_use();
};

}  // namespace test_support
