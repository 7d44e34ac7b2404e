#include "aluframe/io/json_spans.h"

#include <gmock/gmock.h>

#include <string>

namespace aluframe::io {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

std::vector<std::string> items(std::string_view text) {
  std::vector<std::string> found;
  for (const JsonSpan item : json_items(text, json_value_at(text, 0))) {
    found.emplace_back(item.of(text));
  }
  return found;
}

std::vector<std::string> names_and_values(std::string_view text) {
  std::vector<std::string> found;
  for (const JsonMember& member : json_members(text, json_value_at(text, 0))) {
    found.emplace_back(member.name.of(text));
    found.emplace_back(member.value.of(text));
  }
  return found;
}

TEST(JsonSpans, ValuesOfEveryKindAreFoundAsTheyStand) {
  EXPECT_THAT(items(R"([1, -2.5e3,true , null,"a b", [ ] ,{"x":[1,{}]}])"),
              ElementsAre("1", "-2.5e3", "true", "null", "\"a b\"", "[ ]", R"({"x":[1,{}]})"));
}

TEST(JsonSpans, FieldsAreFoundWithTheirNames) {
  EXPECT_THAT(names_and_values("{ \"a\" :1 ,\r\n\t\"b\": { \"a\": 2 } }"),
              ElementsAre("\"a\"", "1", "\"b\"", "{ \"a\": 2 }"));
}

TEST(JsonSpans, BracketsQuotesAndCommasInTextsEndNothing) {
  EXPECT_THAT(items(R"(["]", "\"],", "\\", "{", 7])"),
              ElementsAre(R"("]")", R"("\"],")", R"("\\")", R"("{")", "7"));
}

TEST(JsonSpans, EmptyListsAndObjectsHaveNoParts) {
  EXPECT_THAT(items("[]"), IsEmpty());
  EXPECT_THAT(items("[ \n ]"), IsEmpty());
  EXPECT_THAT(names_and_values("{}"), IsEmpty());
  EXPECT_THAT(names_and_values("{ \t}"), IsEmpty());
}

TEST(JsonSpans, AValueIsFoundBehindBlanksAndEndsBeforeThem) {
  EXPECT_EQ(json_value_at("  \n 12 ", 0), (JsonSpan{4, 6}));
  EXPECT_EQ(json_value_at("12", 0), (JsonSpan{0, 2}));
  EXPECT_EQ(json_value_at("{\"a\": true}", 5), (JsonSpan{6, 10}));
}

// What is no JSON never comes here; it must not lead outside of the text all the same.
TEST(JsonSpans, ACutTextEndsEverythingAtItsEnd) {
  for (const std::string_view text : {"[1, [2", "[\"a", "[\"a\\", "{\"a\": ", "[", "{\"a\"", ""}) {
    const JsonSpan value = json_value_at(text, 0);
    EXPECT_LE(value.end, text.size()) << text;
    EXPECT_LE(value.begin, value.end) << text;
  }
}

}  // namespace
}  // namespace aluframe::io
