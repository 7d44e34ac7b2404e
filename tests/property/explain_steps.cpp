// Whatever is checked can be followed step by step: every formula gives the value of the checks,
// and the steps end in what the checks store.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>
#include <set>
#include <string>
#include <vector>

#include "aluframe/explain/explain.h"
#include "aluframe/explain/number_text.h"
#include "aluframe/explain/trace.h"
#include "aluframe/texts/sentence.h"
#include "tests/property/engine_generators.h"

namespace {

using namespace engine_generators;
namespace explain = aluframe::explain;
namespace texts = aluframe::texts;

constexpr int kItems[] = {
    RALU_STRENGTH,           RALU_SHEAR_Y,       RALU_SHEAR_Z,      RALU_STABILITY,
    RALU_COMBINED_STABILITY, RALU_SLENDERNESS_Y, RALU_SLENDERNESS_Z};

bool IsSame(double a, double b) {
  return a == b || (std::isnan(a) && std::isnan(b));
}

// The line's numbers are worked out in Python elsewhere; here it is the rule that they follow.
void AssertLineHolds(const explain::Term& formula) {
  const explain::NumberLine line = explain::number_line(formula);
  for (int digits = 5; digits <= 17; ++digits) {
    if (explain::numbers(formula, digits) != line.numbers) continue;
    const double recomputed = explain::value_of_numbers(formula, digits);
    RC_ASSERT(explain::number_text(recomputed, explain::result_digits) == line.result);
    return;
  }
  RC_FAIL("no number of digits gives the line");
}

void AssertStepsHold(const explain::Explanation& explanation) {
  for (const explain::StepPointer& step : explain::steps_of(explanation.ratio)) {
    RC_ASSERT(!step->info.symbol.empty());
    RC_ASSERT(!step->info.quantity.empty());
    if (!step->formula) continue;
    RC_ASSERT(explain::agree(explain::value(*step->formula), step->value));
    AssertLineHolds(*step->formula);
  }
}

void AssertExplained(const ALU_DGN_DATA& data, const AluDgnSectForce& force, int item) {
  const OUTCOME checks = Check(data, force);
  const T_RALU_RLT& stored = checks.result.aItem.at(static_cast<std::size_t>(item));
  const explain::Outcome outcome = explain::explain_item(data, force, item, {});
  if (const auto* none = std::get_if<explain::NotChecked>(&outcome)) {
    RC_ASSERT(!none->why.empty());
    RC_ASSERT(stored.dDemand == 0.0 && stored.dCapacity == 0.0);
    return;
  }
  const auto& explanation = std::get<explain::Explanation>(outcome);
  RC_ASSERT(IsSame(explanation.result.dDemand, stored.dDemand));
  RC_ASSERT(IsSame(explanation.result.dCapacity, stored.dCapacity));
  RC_ASSERT(IsSame(explanation.ratio->value, RaluRatio(stored.dDemand, stored.dCapacity)));
  AssertStepsHold(explanation);
}

void ExplainEveryItem(std::int32_t shape) {
  ALU_DGN_DATA data = AnyData(shape);
  data.code.para.bUserLimit = *rc::gen::element(0, 1);
  data.code.para.dLimitTension = *rc::gen::element(-1.0, 0.0, 300.0, 350.0);
  const AluDgnSectForce force = AnyForces();
  for (const int item : kItems) AssertExplained(data, force, item);
}

RC_GTEST_PROP(Explain, EveryStepGivesTheValueOfTheChecks, ()) {
  ForEveryShape(ExplainEveryItem);
}

void ExplainSwitchedOff(std::int32_t shape) {
  ALU_DGN_DATA data = AnyData(shape);
  for (auto& flag : data.nCheckFlag) flag = *rc::gen::element(0, 1);
  const AluDgnSectForce force = AnyForces();
  for (const int item : kItems) AssertExplained(data, force, item);
}

RC_GTEST_PROP(Explain, WhatIsSwitchedOffHasNoSteps, ()) {
  ForEveryShape(ExplainSwitchedOff);
}

// What is said of a step is recognised as a text of the catalogue, whatever it was put together
// from: in Chinese no word of it is left in English.

/// Latin words that a Chinese text may have: symbols, and units.
bool IsSymbol(const std::string& word) {
  static const std::set<std::string> symbols{"An",  "Dx", "Dy",  "Dz",  "Iyy", "Mcr",  "My", "MyI",
                                             "MyJ", "Mz", "MzI", "MzJ", "RE",  "Rmax", "mm", "tw"};
  return word.size() < 2 || symbols.contains(word);
}

std::vector<std::string> LatinWordsOf(const std::string& text) {
  std::vector<std::string> words{""};
  for (const char c : text) {
    const bool isLetter = (c >= 'a' && c <= 'z') || (c >= 'A' && c <= 'Z');
    if (isLetter) words.back() += c;
    if (!isLetter && !words.back().empty()) words.emplace_back();
  }
  return words;
}

void AssertIsChinese(const std::string& text) {
  const std::string chinese = texts::sentence_in_words(text, texts::Language::chinese);
  for (const std::string& word : LatinWordsOf(chinese)) {
    if (!IsSymbol(word)) RC_FAIL(text + " -> " + chinese);
  }
}

/// The grade of a material is a name, and stays as it is.
std::string WithoutGrade(std::string text, const ALU_DGN_DATA& data) {
  std::string grade;
  const CString& of = data.code.matl.strGrade;
  for (int i = 0; i < of.GetLength(); ++i) grade += static_cast<char>(of[i]);
  const std::size_t place = grade.empty() ? std::string::npos : text.find(grade);
  return place == std::string::npos ? text : text.replace(place, grade.size(), "6061");
}

void AssertEveryTextIsChinese(std::int32_t shape) {
  const ALU_DGN_DATA data = AnyData(shape);
  const AluDgnSectForce force = AnyForces();
  for (const int item : kItems) {
    const explain::Outcome outcome = explain::explain_item(data, force, item, {});
    if (const auto* none = std::get_if<explain::NotChecked>(&outcome)) {
      AssertIsChinese(none->why);
      continue;
    }
    const auto& explanation = std::get<explain::Explanation>(outcome);
    AssertIsChinese(explanation.check);
    for (const explain::StepPointer& step : explain::steps_of(explanation.ratio)) {
      AssertIsChinese(step->info.quantity);
      AssertIsChinese(WithoutGrade(step->info.why, data));
      AssertIsChinese(step->info.clause);
    }
  }
}

RC_GTEST_PROP(Explain, EveryTextHasAChineseOne, ()) {
  ForEveryShape(AssertEveryTextIsChinese);
}

}  // namespace
