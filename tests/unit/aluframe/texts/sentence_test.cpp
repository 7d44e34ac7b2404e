#include "aluframe/texts/sentence.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace aluframe::texts {
namespace {

using testing::ElementsAre;
using testing::Optional;

TEST(Sentence, ArgumentsStandBetweenTheWordsOfTheText) {
  EXPECT_THAT(arguments_of("element 7 fails at 1.25", "element {} fails at {:.2f}"),
              Optional(ElementsAre("7", "1.25")));
  EXPECT_THAT(arguments_of("7: no member", "{}: no member"), Optional(ElementsAre("7")));
  EXPECT_THAT(arguments_of("as it is", "as it is"), Optional(ElementsAre()));
  EXPECT_THAT(arguments_of("{x} of 3", "{{x}} of {}"), Optional(ElementsAre("3")));
}

TEST(Sentence, OtherSentencesAreTold) {
  for (const char* text : {"elements {} fail", "element {} passes", "element {} fails at {} again",
                           "element 7 fails at", "{} at 7"}) {
    EXPECT_EQ(arguments_of("element 7 fails at 1.25", text), std::nullopt) << text;
  }
}

TEST(Sentence, ATranslationTakesArgumentsInItsOwnOrder) {
  EXPECT_EQ(reworded({"7", "1.25"}, "{1:.2f} / {0}!"), "1.25 / 7!");
  EXPECT_EQ(reworded({"7", "1.25"}, "{} and {}"), "7 and 1.25");
  EXPECT_EQ(reworded({}, "{{}}"), "{}");
}

TEST(Sentence, KeptSentencesAreTranslated) {
  EXPECT_EQ(sentence_in_words("Design settings", Language::chinese), "设计设置");
  EXPECT_EQ(sentence_in_words("Design settings", Language::english), "Design settings");
  EXPECT_EQ(sentence_in_words("nobody said this", Language::chinese), "nobody said this");
}

}  // namespace
}  // namespace aluframe::texts
