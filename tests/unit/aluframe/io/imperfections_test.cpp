// What a frame is out of true by, read, written and refused.
#include "tests/unit/aluframe/io/bad_model.h"

namespace aluframe::io {
namespace {

/// The small model, in N and mm, its nodes 9 m apart, with this as its analysis.
std::string with_analysis(const std::string& json) {
  return replaced(small_model, R"("frame": {"braced_a": true},)",
                  R"("frame": {"braced_a": true}, "analysis": )" + json + ",");
}

std::string imperfect(const std::string& json) {
  return with_analysis(R"({"second_order": true, "imperfections": )" + json + "}");
}

model::Imperfections read(const std::string& json) {
  return model_of(imperfect(json)).analysis.imperfections;
}

TEST(Imperfections, OfAFileHaveAllTheirSizes) {
  EXPECT_EQ(read(R"({"sway": {"x": 0.005, "y": 0.004}, "bow": {"y": 0.003, "z": 0.002},
                     "mode": {"amplitude": 25}})"),
            (model::Imperfections{0.005, 0.004, 0.003, 0.002, 25.0}));
}

TEST(Imperfections, OfOneNumberCountBothWays) {
  EXPECT_EQ(read(R"({"sway": 0.005, "bow": 0.1})"),
            (model::Imperfections{0.005, 0.005, 0.1, 0.1, 0.0}));
}

TEST(Imperfections, OfOneDirectionLeaveTheOtherTrue) {
  EXPECT_EQ(read(R"({"sway": {"y": 0.005}})"), (model::Imperfections{0.0, 0.005, 0.0, 0.0, 0.0}));
  EXPECT_EQ(read(R"({"bow": {"z": 0.005}})"), (model::Imperfections{0.0, 0.0, 0.0, 0.005, 0.0}));
}

TEST(Imperfections, OfAModeAreInTheUnitOfLength) {
  const std::string text = replaced(imperfect(R"({"mode": {"amplitude": 0.5}})"),
                                    R"("length": "mm")", R"("length": "in")");
  EXPECT_DOUBLE_EQ(model_of(text).analysis.imperfections.mode, 12.7);
}

TEST(Imperfections, ComeBackFromWhatIsWritten) {
  const model::Model model =
      model_of(imperfect(R"({"sway": {"x": 0.005}, "bow": 0.004, "mode": {"amplitude": 12.5}})"));
  const std::string text = write_model(model);
  EXPECT_NE(text.find(R"("imperfections": {"sway": {"x": 0.005}, "bow": {"y": 0.004, "z": 0.004}, )"
                      R"("mode": {"amplitude": 12.5}})"),
            std::string::npos)
      << text;
  EXPECT_EQ(model_of(text).analysis, model.analysis);
}

TEST(Imperfections, ChangeTheDigestOfTheModel) {
  const auto digest = [](const char* json) { return model_digest(model_of(imperfect(json))); };
  EXPECT_NE(digest(R"({"sway": 0.005})"), digest(R"({"sway": 0.004})"));
  EXPECT_NE(digest(R"({"bow": 0.005})"), digest(R"({"sway": 0.005})"));
  EXPECT_NE(digest(R"({"mode": {"amplitude": 5}})"), digest(R"({"mode": {"amplitude": 6}})"));
}

TEST(LimitOfBuckling, IsOneWithImperfectionsAndTenWithout) {
  const auto limit = [](const std::string& text) {
    return model::usual_limit(model_of(text).analysis);
  };
  EXPECT_EQ(limit(imperfect(R"({"sway": 0.005})")), 1.0);
  EXPECT_EQ(limit(with_analysis(R"({"second_order": true})")), 10.0);
  EXPECT_EQ(limit(std::string(small_model)), 10.0);
}

TEST(LimitOfBuckling, IsWrittenWhereTheModelGivesIt) {
  const model::Model model = model_of(
      replaced(small_model, R"("braced_a": true)", R"("braced_a": true, "buckling_limit": 10)"));
  EXPECT_EQ(model_of(write_model(model)).frame, model.frame);
}

struct BadImperfection {
  const char* name;
  const char* json;     ///< of the imperfections
  const char* message;  ///< behind their path
};

void PrintTo(const BadImperfection& bad, std::ostream* out) {
  *out << bad.json;
}

class BadImperfections : public testing::TestWithParam<BadImperfection> {};

TEST_P(BadImperfections, AreRefusedByTheirPath) {
  EXPECT_EQ(message_about(imperfect(GetParam().json)),
            std::string("post.json: /analysis/imperfections") + GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    All, BadImperfections,
    testing::Values(
        BadImperfection{"None", "{}", R"(: needs "sway", "bow" or "mode")"},
        BadImperfection{"ANumber", "0.005", ": found 0.005, must be an object"},
        BadImperfection{"AnUnknownKind", R"({"swai": 0.005})",
                        R"(/swai: unknown field, did you mean "sway"?)"},
        BadImperfection{"SwayOfNothing", R"({"sway": 0})",
                        "/sway: found 0, must be above 0 and at most 0.1"},
        BadImperfection{"SwayTheOtherWay", R"({"sway": {"x": -0.005}})",
                        "/sway/x: found -0.005, must be above 0 and at most 0.1"},
        BadImperfection{"SwayInMillimetres", R"({"sway": {"y": 20}})",
                        "/sway/y: found 20, must be above 0 and at most 0.1"},
        BadImperfection{"SwayAlongZ", R"({"sway": {"z": 0.005}})",
                        "/sway/z: unknown field, allowed are x, y"},
        BadImperfection{"SwayWithoutADirection", R"({"sway": {}})",
                        R"(/sway: needs "x", "y" or both)"},
        BadImperfection{"SwayAsText", R"({"sway": "1/200"})",
                        R"(/sway: found "1/200", must be a number or an object)"},
        BadImperfection{"BowAsADenominator", R"({"bow": 300})",
                        "/bow: found 300, must be above 0 and at most 0.1"},
        BadImperfection{"BowAboutX", R"({"bow": {"x": 0.003}})",
                        "/bow/x: unknown field, allowed are y, z"},
        BadImperfection{"BowWithoutAnAxis", R"({"bow": {}})", R"(/bow: needs "y", "z" or both)"},
        BadImperfection{"ModeWithoutASize", R"({"mode": {}})",
                        R"(/mode: missing field "amplitude")"},
        BadImperfection{"ModeAsANumber", R"({"mode": 20})", "/mode: found 20, must be an object"},
        BadImperfection{"ModeOfNothing", R"({"mode": {"amplitude": 0}})",
                        "/mode/amplitude: found 0, must be positive"},
        BadImperfection{
            "ModeLargerThanATenthOfTheFrame", R"({"mode": {"amplitude": 901}})",
            "/mode/amplitude: found 901, must be at most a tenth of the frame's extent, "
            "900"}),
    [](const auto& test) { return std::string(test.param.name); });

TEST(Imperfections, WithoutSecondOrderAreRefused) {
  for (const char* json : {R"({"imperfections": {"sway": 0.005}})",
                           R"({"second_order": false, "imperfections": {"sway": 0.005}})"}) {
    EXPECT_EQ(message_about(with_analysis(json)),
              "post.json: /analysis/imperfections: imperfections act in second order only: set "
              "\"second_order\" to true, or leave them out");
  }
}

}  // namespace
}  // namespace aluframe::io
