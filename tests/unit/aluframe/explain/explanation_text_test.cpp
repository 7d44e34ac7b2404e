#include "aluframe/explain/explanation_text.h"

#include <gtest/gtest.h>

#include <nlohmann/json.hpp>

#include "aluframe/explain/trace.h"
#include "aluframe/texts/language.h"

namespace aluframe::explain {
namespace {

class ExplanationText : public testing::Test {
 protected:
  Trace trace_;
  Term N_ = trace_.given({"N", "axial force", "N", "", "combination 1"}, -50000.0);
  Term A_ = trace_.given({"A", "gross area", "mm²"}, 2500.0);
};

TEST_F(ExplanationText, ShowsEveryStepUnderTheOneThatItLeadsTo) {
  const Term stress =
      trace_.part({"σ", "stress", "N/mm²", "7.1", "compression alone"}, magnitude(N_) / A_);
  trace_.part({"ratio", "utilisation"}, stress / 200.0);
  EXPECT_EQ(to_text(trace_.step("ratio")),
            "ratio = σ / 200 = 20 / 200 = 0.1\n"
            "    utilisation\n"
            "  σ = |N| / A = |-50000| / 2500 = 20 N/mm²\n"
            "      stress; compression alone (GB 50429-2007, 7.1)\n"
            "    N = -50000 N: axial force; combination 1\n"
            "    A = 2500 mm²: gross area\n");
}

TEST_F(ExplanationText, ShowsAStepOnceWhereItIsFirstNeeded) {
  const Term half = trace_.part({"h", "half the area", "mm²"}, A_ / 2.0);
  trace_.part({"r", "ratio"}, half / A_);
  EXPECT_EQ(to_text(trace_.step("r")),
            "r = h / A = 1250 / 2500 = 0.5\n"
            "    ratio\n"
            "  h = A / 2 = 2500 / 2 = 1250 mm²\n"
            "      half the area\n"
            "    A = 2500 mm²: gross area\n");
}

TEST_F(ExplanationText, ShowsAnotherNameOfAQuantityWithoutNumbers) {
  trace_.part({"X", "a new name", "N"}, N_);
  EXPECT_EQ(to_text(trace_.step("X")).substr(0, 18), "X = N = -50000 N\n ");
}

TEST_F(ExplanationText, BreaksALongLineBeforeItsEqualsSigns) {
  Term sum = N_;
  for (int i = 0; i < 12; ++i) sum = sum + A_;
  trace_.part({"S", "sum", "N"}, sum);
  const std::string text = to_text(trace_.step("S"));
  EXPECT_NE(text.find("S = N + A + A"), std::string::npos);
  EXPECT_NE(text.find("\n    = -50000 + 2500 + 2500"), std::string::npos);
  EXPECT_NE(text.find("\n    = -20000 N\n    sum\n"), std::string::npos);
}

TEST_F(ExplanationText, SaysWhatAStepIsInTheLanguageInUseButNotInJson) {
  trace_.part({"φ", "axial stability coefficient", "", "appendix B", "the smaller one, about y"},
              A_ / N_);
  texts::use_language(texts::Language::chinese);
  const std::string text = to_text(trace_.step("φ"));
  const auto json = to_json(trace_.step("φ"));
  texts::use_language(texts::Language::english);
  EXPECT_EQ(text,
            "φ = A / N = 2500 / (-50000) = -0.05\n"
            "    轴心受压构件的稳定系数；取较小值，绕 y 轴（GB 50429-2007，附录B）\n"
            "  A = 2500 mm²：毛截面面积\n"
            "  N = -50000 N：axial force；组合 1\n");
  EXPECT_EQ(json[0]["quantity"], "axial stability coefficient");
  EXPECT_EQ(json[0]["clause"], "appendix B");
}

TEST_F(ExplanationText, HasTheStepsAsJsonWithTheirFormulasAsTrees) {
  trace_.part({"σ", "stress", "N/mm²", "7.1"}, magnitude(N_) / A_);
  const auto json = to_json(trace_.step("σ"));
  ASSERT_EQ(json.size(), 3U);
  EXPECT_EQ(json[0]["symbol"], "σ");
  EXPECT_EQ(json[0]["formula"], "|N| / A");
  EXPECT_EQ(json[0]["numbers"], "|-50000| / 2500");
  EXPECT_EQ(json[0]["from"], (nlohmann::json{"N", "A"}));
  EXPECT_EQ(json[0]["term"].dump(),
            R"({"operation":"quotient","operands":[{"operation":"magnitude","operands":[)"
            R"({"operation":"symbol","name":"N","value":-50000.0}]},)"
            R"({"operation":"symbol","name":"A","value":2500.0}]})");
  EXPECT_TRUE(json[1]["formula"].is_null());
  EXPECT_EQ(json[1]["why"], "combination 1");
}

}  // namespace
}  // namespace aluframe::explain
