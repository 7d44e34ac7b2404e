#include "aluframe/texts/text.h"

#include <gtest/gtest.h>

#include "tests/support/used_language.h"

namespace aluframe::texts {
namespace {

using test_support::UsedLanguage;

constexpr const char* marked = translatable("Design settings");

TEST(Text, EnglishIsTheTextItself) {
  EXPECT_EQ(translation_of(marked), "Design settings");
  EXPECT_EQ(translated("{} of {:.2f}", 3, 1.5), "3 of 1.50");
}

TEST(Text, ChineseComesFromTheCatalogue) {
  const UsedLanguage used(Language::chinese);
  EXPECT_EQ(translation_of(marked), "设计设置");
  EXPECT_EQ(translated("Design settings"), "设计设置");
}

TEST(Text, ALanguageCanBeAskedFor) {
  EXPECT_EQ(translated_to(Language::chinese, "Design settings"), "设计设置");
  const UsedLanguage used(Language::chinese);
  EXPECT_EQ(translated_to(Language::english, "Design settings"), "Design settings");
}

TEST(Text, WhatTheCatalogueLacksStays) {
  const UsedLanguage used(Language::chinese);
  EXPECT_EQ(translation_of("no such text"), "no such text");
  EXPECT_EQ(translation_of(""), "") << "the catalogue's header is no text";
  EXPECT_EQ(translated("no such text {}", 1), "no such text 1");
}

}  // namespace
}  // namespace aluframe::texts
