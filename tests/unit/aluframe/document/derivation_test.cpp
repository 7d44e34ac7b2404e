#include "aluframe/document/derivation.h"

#include <gmock/gmock.h>

#include <sstream>

#include "aluframe/document/derivation_page.h"
#include "aluframe/explain/trace.h"
#include "aluframe/texts/language.h"

namespace aluframe::document {
namespace {

using explain::Term;
using testing::ContainsRegex;
using testing::HasSubstr;
using testing::Not;

class Derivation : public testing::Test {
 protected:
  ~Derivation() override { texts::use_language(texts::Language::english); }

  /// Axial compression of 50 kN on 2500 mm², against a design strength.
  explain::Explanation against(double strength) {
    explain::Trace trace;
    const Term N =
        trace.given({"N", "axial force, tension positive", "N", "", "<wind> & snow"}, -50000.0);
    const Term A = trace.given({"A", "gross area", "mm²"}, 2500.0);
    const Term f =
        trace.given({"f", "design strength of normal stresses", "N/mm²", "4.3"}, strength);
    const Term stress = trace.part(
        {"σ", "stress of axial compression", "N/mm²", "7.2", "gross section"}, magnitude(N) / A);
    const double ratio = RaluRatio(20.0, strength);
    if (strength == 0.0) {
      trace.given({"ratio", "utilisation"}, ratio, {"σ", "f"});
    } else {
      trace.define({"ratio", "utilisation"}, ratio, stress / f);
    }
    return {"axial compression", {20.0, strength}, trace.step("ratio")};
  }

  static std::string written(const explain::Explanation& explanation) {
    std::ostringstream out;
    HtmlWriter html(out);
    write_derivation(html, explanation);
    return out.str();
  }
};

TEST_F(Derivation, HasARowForEveryStepWithItsResultForPrograms) {
  const std::string html = written(against(200.0));
  EXPECT_THAT(html, HasSubstr("<tr class=\"derived\" data-symbol=\"σ\" data-result=\"20\" "
                              "data-unit=\"N/mm²\">"));
  EXPECT_THAT(html, HasSubstr("alttext=\"|-50000| / 2500\""));
  EXPECT_THAT(html, HasSubstr("<tr class=\"given\" data-symbol=\"A\" data-result=\"2500\""));
  EXPECT_THAT(html, HasSubstr("<td class=\"clause\">7.2</td>"));
}

TEST_F(Derivation, ShowsNamesOfTheModelAsText) {
  EXPECT_THAT(written(against(200.0)),
              HasSubstr("axial force, tension positive; &lt;wind&gt; &amp; snow"));
}

TEST_F(Derivation, EndsInAVerdict) {
  EXPECT_THAT(written(against(200.0)),
              HasSubstr("<p class=\"verdict passes\">Ratio 0.1 ≤ 1: passes.</p>"));
  EXPECT_THAT(written(against(16.0)),
              HasSubstr("<p class=\"verdict fails\">Ratio 1.25 &gt; 1: fails.</p>"));
  EXPECT_THAT(written(against(0.0)), HasSubstr("Without a limit nothing is judged."));
}

TEST_F(Derivation, ShowsEnoughDigitsToTellARatioFromOne) {
  EXPECT_THAT(written(against(20.0 * (1.0 - 1e-9))),
              ContainsRegex("Ratio 1\\.00000000[0-9]+ &gt; 1: fails\\."));
  EXPECT_THAT(written(against(20.0)), HasSubstr("Ratio 1 ≤ 1: passes."));
}

TEST_F(Derivation, IsInTheLanguageInUse) {
  texts::use_language(texts::Language::chinese);
  const std::string html = written(against(200.0));
  EXPECT_THAT(html, HasSubstr("轴心受压稳定应力；毛截面"));
  EXPECT_THAT(html, HasSubstr("应力比 0.1 ≤ 1：满足。"));
  EXPECT_THAT(html, Not(HasSubstr("axial")));
}

TEST_F(Derivation, IsAPageOfItsOwn) {
  std::ostringstream out;
  write_derivation_page(out, {"Element 1 <a>", "N, mm"}, against(200.0));
  EXPECT_THAT(out.str(), testing::StartsWith("<!DOCTYPE html>\n<html lang=\"en\">"));
  EXPECT_THAT(out.str(), HasSubstr("<h1>Element 1 &lt;a&gt;</h1>"));
  EXPECT_THAT(out.str(), Not(HasSubstr("<script")));
}

}  // namespace
}  // namespace aluframe::document
