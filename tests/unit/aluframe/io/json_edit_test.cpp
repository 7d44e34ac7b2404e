#include "aluframe/io/json_edit.h"

#include <gtest/gtest.h>

#include <string>

namespace aluframe::io {
namespace {

/// The text, which is one object, with other values of some fields.
std::string with_fields(std::string_view text, const std::vector<JsonField>& fields) {
  JsonEdit edit(text);
  edit.set_fields(json_value_at(text, 0), fields);
  return edit.result();
}

/// The text without some of its fields.
std::string without(std::string_view text, const std::vector<std::string_view>& names) {
  std::vector<JsonField> fields;
  fields.reserve(names.size());
  for (const std::string_view name : names) fields.push_back({name});
  return with_fields(text, fields);
}

constexpr std::string_view one_line = R"({"a": 1, "b": [2, {"c": 0}], "c" :3})";

TEST(JsonEdit, WithoutChangesGivesTheText) {
  EXPECT_EQ(JsonEdit(one_line).result(), one_line);
  EXPECT_EQ(with_fields(one_line, {}), one_line);
}

TEST(JsonEdit, ReplacesTheValueAlone) {
  EXPECT_EQ(with_fields(one_line, {{"b", "\"x\""}}), R"({"a": 1, "b": "x", "c" :3})");
  EXPECT_EQ(with_fields(one_line, {{"c", "4"}, {"a", "{}"}}),
            R"({"a": {}, "b": [2, {"c": 0}], "c" :4})");
}

TEST(JsonEdit, RemovesAFieldWithOneComma) {
  EXPECT_EQ(without(one_line, {"a"}), R"({"b": [2, {"c": 0}], "c" :3})");
  EXPECT_EQ(without(one_line, {"b"}), R"({"a": 1, "c" :3})");
  EXPECT_EQ(without(one_line, {"c"}), R"({"a": 1, "b": [2, {"c": 0}]})");
}

TEST(JsonEdit, RemovesNeighboursWithTheirCommas) {
  EXPECT_EQ(without(one_line, {"a", "b"}), R"({"c" :3})");
  EXPECT_EQ(without(one_line, {"b", "c"}), R"({"a": 1})");
  EXPECT_EQ(without(one_line, {"c", "a"}), R"({"b": [2, {"c": 0}]})");
}

TEST(JsonEdit, LeavesOutWhatIsNotThere) {
  EXPECT_EQ(without(one_line, {"d"}), one_line);
}

TEST(JsonEdit, AddsAFieldOnTheLineOfTheOthers) {
  EXPECT_EQ(with_fields(one_line, {{"d", "4"}}), R"({"a": 1, "b": [2, {"c": 0}], "c" :3, "d": 4})");
  EXPECT_EQ(with_fields(R"({"a":1,"b":2})", {{"d", "4"}}), R"({"a":1,"b":2,"d": 4})");
}

TEST(JsonEdit, AddsFieldsInTheOrderInWhichTheyAreGiven) {
  EXPECT_EQ(with_fields(R"({ "a":1, "b":2 })", {{"z", "3"}, {"a", "0"}, {"y", "4"}}),
            R"({ "a":0, "b":2, "z": 3, "y": 4 })");
}

TEST(JsonEdit, AddsAFieldBehindALoneOneAsThatStandsInItsObject) {
  EXPECT_EQ(with_fields(R"({"a": 1})", {{"d", "4"}}), R"({"a": 1, "d": 4})");
  EXPECT_EQ(with_fields("{\n  \"a\": 1\n}", {{"d", "4"}}), "{\n  \"a\": 1,\n  \"d\": 4\n}");
}

constexpr std::string_view many_lines = "{\r\n\t\"a\": 1,\r\n\t\"b\": {\r\n\t}\r\n\t,\"c\": 3\r\n}";

TEST(JsonEdit, RemovesALineWithItsField) {
  EXPECT_EQ(without(many_lines, {"a"}), "{\r\n\t\"b\": {\r\n\t}\r\n\t,\"c\": 3\r\n}");
  EXPECT_EQ(without(many_lines, {"b"}), "{\r\n\t\"a\": 1\r\n\t,\"c\": 3\r\n}");
  EXPECT_EQ(without(many_lines, {"c"}), "{\r\n\t\"a\": 1,\r\n\t\"b\": {\r\n\t}\r\n}");
}

TEST(JsonEdit, AddsAFieldOnALineOfItsOwnWhereTheOthersHaveTheirs) {
  EXPECT_EQ(with_fields("{\r\n\t\"a\": 1,\r\n\t\"b\": 2\r\n}", {{"d", "4"}}),
            "{\r\n\t\"a\": 1,\r\n\t\"b\": 2,\r\n\t\"d\": 4\r\n}");
  EXPECT_EQ(with_fields(many_lines, {{"d", "4"}}),
            "{\r\n\t\"a\": 1,\r\n\t\"b\": {\r\n\t}\r\n\t,\"c\": 3\r\n\t,\"d\": 4\r\n}");
}

TEST(JsonEdit, AddsAFieldInThePlaceOfTheLastThatGoes) {
  EXPECT_EQ(with_fields(one_line, {{"c"}, {"d", "4"}}), R"({"a": 1, "b": [2, {"c": 0}], "d": 4})");
}

TEST(JsonEdit, FindsNamesThatAreWrittenWithEscapes) {
  const std::string_view text = R"({"\u0061": 1, "b\\": 2, "b": 3})";
  EXPECT_EQ(with_fields(text, {{"a", "7"}}), R"({"\u0061": 7, "b\\": 2, "b": 3})");
  EXPECT_EQ(without(text, {"b"}), R"({"\u0061": 1, "b\\": 2})");
  EXPECT_EQ(without(text, {"b\\"}), R"({"\u0061": 1, "b": 3})");
}

TEST(JsonEdit, MakesChangesInWhateverOrderTheyCome) {
  const std::string_view text = "[ {\"a\": 1, \"b\": 2} ,2,\t[3] ] ";
  const auto items = json_items(text, json_value_at(text, 0));
  JsonEdit edit(text);
  edit.replace(items[2], "30");
  edit.set_fields(items[0], std::vector<JsonField>{{"b"}});
  edit.replace(items[1], "{}");
  EXPECT_EQ(edit.result(), "[ {\"a\": 1} ,{},\t30 ] ");
}

}  // namespace
}  // namespace aluframe::io
