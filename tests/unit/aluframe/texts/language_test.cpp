#include "aluframe/texts/language.h"

#include <gtest/gtest.h>

#include <cstdlib>
#include <map>
#include <optional>
#include <string>

namespace aluframe::texts {
namespace {

/// The environment's variables of the language, put back at the end.
class LanguageTest : public testing::Test {
 protected:
  LanguageTest() {
    for (const char* name : {"LC_ALL", "LC_MESSAGES", "LANG"}) {
      const char* value = std::getenv(name);
      earlier_[name] = value == nullptr ? std::nullopt : std::optional<std::string>(value);
      unsetenv(name);
    }
  }
  ~LanguageTest() override {
    for (const auto& [name, value] : earlier_) {
      if (value) {
        setenv(name.c_str(), value->c_str(), 1);
      } else {
        unsetenv(name.c_str());
      }
    }
  }

 private:
  std::map<std::string, std::optional<std::string>> earlier_;
};

TEST_F(LanguageTest, LanguagesAreNamedByTheirCodes) {
  EXPECT_EQ(parse_language("en"), Language::english);
  EXPECT_EQ(parse_language("zh"), Language::chinese);
  for (const char* other : {"de", "EN", "english", ""}) {
    EXPECT_EQ(parse_language(other), std::nullopt) << other;
  }
}

TEST_F(LanguageTest, ItIsEnglishWhenTheEnvironmentSaysNothing) {
  EXPECT_EQ(language_of_environment(), Language::english);
}

TEST_F(LanguageTest, ChineseLocalesInUtf8AreChinese) {
  for (const char* locale : {"zh_CN.UTF-8", "zh_CN.utf8", "zh_TW.UTF-8", "zh.UTF-8@pinyin"}) {
    setenv("LANG", locale, 1);
    EXPECT_EQ(language_of_environment(), Language::chinese) << locale;
  }
  for (const char* locale : {"zh_CN", "zh_CN.GB18030", "C.UTF-8", "de_DE.UTF-8", "en_US.UTF-8"}) {
    setenv("LANG", locale, 1);
    EXPECT_EQ(language_of_environment(), Language::english) << locale;
  }
}

TEST_F(LanguageTest, TheStrongerVariableWins) {
  setenv("LANG", "zh_CN.UTF-8", 1);
  setenv("LC_MESSAGES", "en_US.UTF-8", 1);
  EXPECT_EQ(language_of_environment(), Language::english);
  setenv("LC_ALL", "zh_CN.UTF-8", 1);
  EXPECT_EQ(language_of_environment(), Language::chinese);
  setenv("LC_ALL", "", 1);
  EXPECT_EQ(language_of_environment(), Language::english) << "empty is as if it were not there";
}

}  // namespace
}  // namespace aluframe::texts
