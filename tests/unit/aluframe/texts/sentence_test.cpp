#include "aluframe/texts/sentence.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "aluframe/texts/catalogue.h"
#include "aluframe/texts/format_pieces.h"

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

TEST(Sentence, PartsThatAColonOrASemicolonJoinsAreTranslatedEach) {
  EXPECT_EQ(sentence_in_words("Design settings: nobody said this; Grade:", Language::chinese),
            "设计设置：nobody said this；牌号：");
}

TEST(Sentence, AColonInATextInFrontOfASemicolonJoinsNothing) {
  EXPECT_EQ(
      sentence_in_words("combination 3: element 5 buckles between its nodes: its axial force "
                        "reaches -1e+08 N; by forces of first order the factor of these loads "
                        "is 0.00106: node 2 moves along X",
                        Language::chinese),
      "组合 3：单元 5 在两节点之间屈曲：其轴力达到 -1e+08 N；按一阶内力，该荷载的系数为 "
      "0.00106：节点 2 沿 X 移动");
}

/// What looks alike is told apart: lists from parts, names from sentences, numbers from words.
TEST(Sentence, ArgumentsAreNoPartsOfOtherSentences) {
  const auto words = [](const char* text) { return sentence_in_words(text, Language::chinese); };
  EXPECT_EQ(words("8 computed, 13 given, 2 taken as 1"), "计算 8 个，给定 13 个，取为 1 的 2 个");
  EXPECT_EQ(words("combinations 1-2, 4 buckle the frame: 0.771 times the loads of combination 2 "
                  "(nodes 2, 4 turn about (0.98, 0, -0.199))"),
            "组合 1-2, 4 下屈曲，框架失稳：组合 2 荷载的 0.771 倍（节点 2, 4 绕 (0.98, 0, -0.199) "
            "转动）");
  EXPECT_EQ(words("sway 0.005 rad along X and Y, bow L/500 about y and z"),
            "侧移 0.005 rad（沿 X 和 Y 轴），初弯曲 L/500（绕 y 和 z 轴）");
  EXPECT_EQ(words("Ky: mode of combination 1, factor 6.65, as it is inclined; Kz: it is inclined, "
                  "which charts leave out; no mode tells of it")
                .find("mode"),
            std::string::npos);
  EXPECT_EQ(words("section 1, given forces"), "截面 1，given forces");
  EXPECT_EQ(words("section 4 \"Qb (element 3, combination 2)\""),
            "截面 4 \"Qb (element 3, combination 2)\"");
}

/// Whatever text a kept sentence was formatted from, it is found again, not another one that
/// could give the same words.
TEST(Sentence, EveryTextOfTheCatalogueIsRecognisedFromItsSentence) {
  const Catalogue catalogue = chinese_catalogue();
  for (std::uint32_t i = 0; i < catalogue.size(); ++i) {
    const std::string_view english = catalogue.original(i);
    const FormatPieces pieces = take_apart(english);
    if (pieces.arguments.empty() || pieces.letters() < 3) continue;
    std::vector<std::string> arguments;
    for (std::size_t k = 0; k < pieces.arguments.size(); ++k) {
      arguments.push_back(std::to_string(11 * (k + 1)));
    }
    const std::string sentence = reworded(arguments, english);
    EXPECT_EQ(sentence_in_words(sentence, Language::chinese),
              reworded(arguments, catalogue.translation(i)))
        << sentence;
  }
}

}  // namespace
}  // namespace aluframe::texts
