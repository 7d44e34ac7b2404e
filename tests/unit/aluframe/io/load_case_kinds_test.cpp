// Kinds of load cases and the code of moving loads in model files.

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <fstream>
#include <sstream>

#include "tests/unit/aluframe/io/bad_model.h"

namespace aluframe::io {
namespace {

using model::LoadCaseKind;
using testing::HasSubstr;
using testing::Not;

constexpr const char* second_case = R"({"number": 2, "name": "WIND"})";

std::string with_kind(const std::string& kind) {
  return replaced(small_model, second_case,
                  R"({"number": 2, "name": "WIND", "kind": ")" + kind + "\"}");
}

std::string with_code(const std::string& code) {
  return replaced(small_model, R"("load_cases")",
                  "\"moving_load_code\": " + code + ",\n\"load_cases\"");
}

struct NamedKind {
  const char* name;
  LoadCaseKind kind;
};

constexpr NamedKind kinds[] = {{"static", LoadCaseKind::static_load},
                               {"seismic_static", LoadCaseKind::seismic_static},
                               {"response_spectrum", LoadCaseKind::response_spectrum},
                               {"eccentric_spectrum", LoadCaseKind::eccentric_spectrum},
                               {"time_history", LoadCaseKind::time_history},
                               {"moving", LoadCaseKind::moving},
                               {"settlement", LoadCaseKind::settlement},
                               {"crane", LoadCaseKind::crane}};

class KindOfALoadCase : public testing::TestWithParam<NamedKind> {
 protected:
  const std::string text_ = with_kind(GetParam().name);
};

TEST_P(KindOfALoadCase, IsReadByName) {
  const model::Model model = model_of(text_);
  ASSERT_EQ(model.load_cases.size(), 2U);
  EXPECT_EQ(model.load_cases[1].kind, GetParam().kind);
  EXPECT_EQ(model.load_cases[0].kind, LoadCaseKind::static_load);
}

TEST_P(KindOfALoadCase, IsWrittenAndReadBack) {
  const model::Model model = model_of(text_);
  const model::Model back = model_of(write_model(model));
  ASSERT_EQ(back.load_cases.size(), 2U);
  EXPECT_EQ(back.load_cases[0], model.load_cases[0]);
  EXPECT_EQ(back.load_cases[1], model.load_cases[1]);
}

TEST_P(KindOfALoadCase, IsWrittenByNameUnlessItIsTheDefault) {
  const std::string expected =
      GetParam().kind == LoadCaseKind::static_load
          ? R"({"number": 2, "name": "WIND"})"
          : R"({"number": 2, "name": "WIND", "kind": ")" + std::string(GetParam().name) + "\"}";
  EXPECT_THAT(write_model(model_of(text_)), HasSubstr(expected));
}

INSTANTIATE_TEST_SUITE_P(OfEveryName, KindOfALoadCase, testing::ValuesIn(kinds),
                         [](const auto& item) { return std::string(item.param.name); });

TEST(KindsOfLoadCases, AreThoseOfTheSchema) {
  const std::ifstream file(ALUFRAME_SOURCE_DIR "/schema/aluframe-model.schema.json");
  std::stringstream schema;
  schema << file.rdbuf();
  std::string list;
  for (const NamedKind& kind : kinds) {
    list += (list.empty() ? "\"" : ", \"") + std::string(kind.name) + "\"";
  }
  EXPECT_THAT(schema.str(), HasSubstr("\"kind\": { \"enum\": [" + list +
                                      "], \"default\": "
                                      "\"static\" }"));
}

TEST(KindsOfLoadCases, AnUnknownOneIsAnErrorThatListsThem) {
  EXPECT_EQ(message_about(with_kind("dead")),
            "post.json: /load_cases/1/kind: found \"dead\", must be one of static, "
            "seismic_static, response_spectrum, eccentric_spectrum, time_history, moving, "
            "settlement, crane");
}

TEST(KindsOfLoadCases, AreWrittenInSmallLettersOnly) {
  EXPECT_THAT(message_about(with_kind("Moving")),
              HasSubstr("/load_cases/1/kind: found \"Moving\""));
}

// --- the code of moving loads ---

class MovingLoadCode : public testing::TestWithParam<int> {};

TEST_P(MovingLoadCode, IsRead) {
  EXPECT_EQ(model_of(with_code(std::to_string(GetParam()))).moving_load_code, GetParam());
}

TEST_P(MovingLoadCode, IsWrittenAndReadBack) {
  const model::Model model = model_of(with_code(std::to_string(GetParam())));
  EXPECT_EQ(model_of(write_model(model)).moving_load_code, GetParam());
}

INSTANTIATE_TEST_SUITE_P(OfEveryValue, MovingLoadCode,
                         testing::Values(0, 1, 2, 3, 4, 5, 6, 7, 8, 9, 10, 11, 12, 13, 14, 15, 16,
                                         18, 100));

TEST(MovingLoadCodeTest, IsZeroWhenTheFileHasNone) {
  EXPECT_EQ(model_of(small_model).moving_load_code, 0);
}

TEST(MovingLoadCodeTest, IsNotWrittenWhenThereIsNone) {
  EXPECT_THAT(write_model(model_of(small_model)), Not(HasSubstr("moving_load_code")));
}

struct BadCode {
  const char* name;
  const char* code;
  const char* message;
};

class BadMovingLoadCode : public testing::TestWithParam<BadCode> {};

TEST_P(BadMovingLoadCode, IsAnErrorWithItsPlace) {
  EXPECT_EQ(message_about(with_code(GetParam().code)),
            std::string("post.json: /moving_load_code: ") + GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    OfEveryKind, BadMovingLoadCode,
    testing::Values(BadCode{"Between", "17", "found 17, must be 0 to 16, 18 or 100"},
                    BadCode{"BetweenTheLast", "99", "found 99, must be 0 to 16, 18 or 100"},
                    BadCode{"TooLarge", "101", "found 101, must be a whole number from 0 to 100"},
                    BadCode{"Negative", "-1", "found -1, must be a whole number from 0 to 100"},
                    BadCode{"Huge", "4294967299",
                            "found 4294967299, must be a whole number from 0 to 100"},
                    BadCode{"Fraction", "1.5", "found 1.5, must be a whole number from 0 to 100"},
                    BadCode{"Text", "\"3\"", "found \"3\", must be a whole number from 0 to 100"},
                    BadCode{"Null", "null", "found null, must be a whole number from 0 to 100"},
                    BadCode{"List", "[3]", "found a list, must be a whole number from 0 to 100"}),
    [](const auto& item) { return std::string(item.param.name); });

}  // namespace
}  // namespace aluframe::io
