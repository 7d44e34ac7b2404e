// Files that are no JSON, no text or no file at all.
#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

std::string nested(std::size_t levels, const std::string& open, const std::string& close) {
  std::string text;
  for (std::size_t i = 0; i < levels; ++i) text += open;
  for (std::size_t i = 0; i < levels; ++i) text += close;
  return text;
}

std::string message_about_file(const std::filesystem::path& path) {
  const Result<model::Model> result = read_model(path);
  const Problem* problem = std::get_if<Problem>(&result);
  return problem != nullptr ? message_by_paths(*problem) : "no problem";
}

TEST(BrokenJson, EmptyTextIsSaidToBeEmpty) {
  EXPECT_EQ(message_about(""), "post.json: is empty, expected a model");
  EXPECT_EQ(message_about(" \r\n\t\n"), "post.json: is empty, expected a model");
  EXPECT_EQ(message_about("\xEF\xBB\xBF"), "post.json: is empty, expected a model");
}

TEST(BrokenJson, MissingCommaIsFoundByLineAndColumn) {
  EXPECT_EQ(message_about("{\n  \"format\": \"aluframe-model\"\n  \"version\": 1\n}"),
            "post.json: line 3, column 11: broken JSON: unexpected string literal; expected '}'");
}

TEST(BrokenJson, ColumnsCountCharactersNotBytes) {
  // Two characters of three bytes each before the fault: { " x x " ] is column 6.
  EXPECT_EQ(message_about("{\"\xE6\xA2\x81\xE6\x9F\xB1\"]"),
            "post.json: line 1, column 6: broken JSON: unexpected ']'; expected ':'");
}

TEST(BrokenJson, UnfinishedTextIsFoundAtItsEnd) {
  EXPECT_EQ(message_about("{\"format\": \"aluframe-model\","),
            "post.json: line 1, column 29: broken JSON: unexpected end of input; expected string "
            "literal");
}

TEST(BrokenJson, TextBehindTheModelIsRejected) {
  EXPECT_EQ(message_about("{}\n{}"),
            "post.json: line 2, column 1: broken JSON: unexpected '{'; expected end of input");
}

TEST(BrokenJson, CommentIsRejected) {
  EXPECT_EQ(message_about("// model\n{}"),
            "post.json: line 1, column 1: broken JSON: invalid literal; last read: '/'");
}

TEST(BrokenJson, NumbersThatAreNotFiniteAreSaidToBeSo) {
  for (const std::string word : {"NaN", "nan", "Infinity", "-Infinity", "inf", "-inf"}) {
    const std::string message =
        message_about(replaced(small_model, R"("z": 3000)", R"("z": )" + word));
    EXPECT_TRUE(message.starts_with("post.json: line 10, column ")) << message;
    EXPECT_TRUE(message.ends_with(": found " + word + ", a number must be finite")) << message;
  }
}

TEST(BrokenJson, LongTextAroundTheFaultIsCut) {
  // A string of a million letters with an escape that JSON does not have.
  EXPECT_LT(message_about("\"" + std::string(1'000'000, 'x') + "\\q\"").size(), 300U);
}

TEST(BrokenJson, NestingAtTheLimitIsJudgedByItsContent) {
  EXPECT_EQ(message_about(nested(64, "[", "]")), "post.json: found a list, must be an object");
}

TEST(BrokenJson, NestingBeyondTheLimitIsRejectedAtTheBracketThatExceedsIt) {
  EXPECT_EQ(message_about(nested(65, "[", "]")),
            "post.json: line 1, column 65: nested deeper than 64 levels");
  // Brackets in strings do not count: 1 list, the string of 7 characters and a comma before it.
  EXPECT_EQ(message_about("[\"[\\\"[[\"," + nested(64, "[", "]") + "]"),
            "post.json: line 1, column 73: nested deeper than 64 levels");
}

TEST(BrokenJson, TenThousandLevelsAreRejectedLikeAnyOtherDepth) {
  EXPECT_EQ(message_about(nested(10'000, "[", "]")),
            "post.json: line 1, column 65: nested deeper than 64 levels");
  // 64 objects of 5 characters each, then the one too many.
  EXPECT_EQ(message_about(nested(10'000, "{\"a\":", "}")),
            "post.json: line 1, column 321: nested deeper than 64 levels");
}

TEST(BrokenJson, MillionOpenBracketsAreRejected) {
  EXPECT_EQ(message_about(std::string(1'000'000, '[')),
            "post.json: line 1, column 65: nested deeper than 64 levels");
}

TEST(NotUtf8, ByteThatStartsNoCharacterIsFound) {
  EXPECT_EQ(message_about("{\n\"title\": \"M\xFCller\"}"),
            "post.json: line 2, column 12: found byte 0xFC, the file must be UTF-8");
}

TEST(NotUtf8, OverlongSurrogateTooLargeAndCutCharactersAreRejected) {
  EXPECT_EQ(message_about("\"\xC0\xAF\""),
            "post.json: line 1, column 2: found byte 0xC0, the file must be UTF-8");
  EXPECT_EQ(message_about("\"\xED\xA0\x80\""),
            "post.json: line 1, column 2: found byte 0xED, the file must be UTF-8");
  EXPECT_EQ(message_about("\"\xF4\x90\x80\x80\""),
            "post.json: line 1, column 2: found byte 0xF4, the file must be UTF-8");
  EXPECT_EQ(message_about("\"\xE6\xA2"),
            "post.json: line 1, column 2: found byte 0xE6, the file must be UTF-8");
}

TEST(NotUtf8, CharacterWhoseLastByteIsALetterIsRejected) {
  EXPECT_EQ(message_about("\"\xE6\xA2"
                          "A\""),
            "post.json: line 1, column 2: found byte 0xE6, the file must be UTF-8");
  EXPECT_EQ(message_about("\"\xF0\x9F\x98"
                          "A\""),
            "post.json: line 1, column 2: found byte 0xF0, the file must be UTF-8");
}

TEST(NotUtf8, Utf16FileIsRejectedAtItsFirstByte) {
  EXPECT_EQ(message_about(std::string_view("\xFF\xFE{\0}\0", 6)),
            "post.json: line 1, column 1: found byte 0xFF, the file must be UTF-8");
}

TEST(Utf8, ByteOrderMarkAndCharactersOfEveryLengthAreRead) {
  const std::string text =
      "\xEF\xBB\xBF" + replaced(small_model, "Post", "P\xC3\xB6\xE6\x9F\xB1\xF0\x9F\x8F\x97");
  EXPECT_EQ(model_of(text).title, "P\xC3\xB6\xE6\x9F\xB1\xF0\x9F\x8F\x97");
}

TEST(ModelFile, MissingFileCannotBeOpened) {
  const auto path = std::filesystem::path(testing::TempDir()) / "no_such_model.json";
  EXPECT_EQ(message_about_file(path),
            path.string() + ": cannot be opened: No such file or directory");
}

TEST(ModelFile, DirectoryIsNotAFile) {
  const std::filesystem::path path = testing::TempDir();
  EXPECT_EQ(message_about_file(path), path.string() + ": is a directory, not a file");
}

TEST(ModelFile, FileIsReadAsItsTextWouldBe) {
  const auto path = std::filesystem::path(testing::TempDir()) / "io_post.json";
  std::ofstream(path, std::ios::binary) << small_model;
  const Result<model::Model> result = read_model(path);
  std::filesystem::remove(path);
  ASSERT_TRUE(std::holds_alternative<model::Model>(result));
  EXPECT_EQ(std::get<model::Model>(result).title, "Post");
}

}  // namespace
}  // namespace aluframe::io
