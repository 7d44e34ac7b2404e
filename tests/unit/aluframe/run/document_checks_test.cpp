// Which checks a document derives, and which elements share a derivation.

#include "aluframe/run/document_checks.h"

#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <memory>

#include "aluframe/run/check.h"
#include "aluframe/run/results.h"
#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::run {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

/// Three cantilever columns of one section with 10 kN on top; 1 kN along X on the first two, 2 kN
/// on the third. Columns 7 and 9 are alike in all; 8 has the larger force.
constexpr const char* columns = R"({
  "format": "aluframe-model", "version": 1,
  "materials": [{"number": 1, "alloy": "6061-T6"}],
  "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 8}}],
  "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": 0.5},
            {"number": 3, "x": 4, "y": 0, "z": 0}, {"number": 4, "x": 4, "y": 0, "z": 0.5},
            {"number": 5, "x": 8, "y": 0, "z": 0}, {"number": 6, "x": 8, "y": 0, "z": 0.5}],
  "supports": [{"node": 1, "restrained": "all"}, {"node": 3, "restrained": "all"},
               {"node": 5, "restrained": "all"}],
  "elements": [{"number": 9, "nodes": [1, 2], "section": 1, "material": 1},
               {"number": 8, "nodes": [3, 4], "section": 1, "material": 1},
               {"number": 7, "nodes": [5, 6], "section": 1, "material": 1}],
  "load_cases": [{"number": 1, "nodal": [{"nodes": [2, 6], "Fx": 10, "Fz": -10},
                                         {"nodes": [4], "Fx": 20, "Fz": -10}]}],
  "combinations": [{"number": 3, "terms": [{"case": 1}]}]
})";

class DocumentChecks : public testing::Test {
 protected:
  void check_model(const std::string& text) {
    std::ofstream(model_) << text;
    auto prepared = prepare({.model = model_});
    ASSERT_EQ(std::get_if<Problem>(&prepared), nullptr) << std::get<Problem>(prepared).text;
    CheckOptions options;
    options.results = results_;
    check(std::get<Input>(prepared), options);
    reader_ = store::ResultReader::open(results_);
    auto input = prepare_like(results_, {.model = model_}, {});
    input_ = std::make_unique<Input>(std::get<Input>(std::move(input)));
  }

  std::vector<ExplainedCheck> derived(DerivationDetail detail) {
    const CheckExplainer explainer(*input_, reader_->info(), results_, reader_->elements());
    std::vector<ExplainedCheck> found;
    const auto problem =
        for_each_derivation(explainer, *reader_, reader_->elements(), detail,
                            [&](const ExplainedCheck& check) { found.push_back(check); });
    EXPECT_FALSE(problem) << problem->text;
    return found;
  }

  static std::string why_of(const ExplainedCheck& check, const std::string& symbol) {
    for (const explain::StepPointer& step : explain::steps_of(check.explanation.ratio)) {
      if (step->info.symbol == symbol) return step->info.why;
    }
    return "no such step";
  }

  services::TemporaryFolder folder_;
  std::filesystem::path model_ = folder_.path() / "frame.json";
  std::filesystem::path results_ = folder_.path() / "frame.aluresult";
  std::unique_ptr<store::ResultReader> reader_;
  std::unique_ptr<Input> input_;
};

TEST_F(DocumentChecks, ElementsAlikeInAllButTheirNumbersShareADerivation) {
  check_model(columns);
  const auto found = derived(DerivationDetail::governing);
  ASSERT_EQ(found.size(), 2U);
  EXPECT_THAT(found[0].elements, ElementsAre(7, 9));
  EXPECT_THAT(found[1].elements, ElementsAre(8));
}

TEST_F(DocumentChecks, ASharedDerivationNamesAllItsElements) {
  check_model(columns);
  const auto found = derived(DerivationDetail::full);
  std::map<int, std::string> forces, lengths;
  for (const ExplainedCheck& check : found) {
    if (check.elements.size() != 2) continue;
    forces[check.place.item] = why_of(check, "N");
    lengths[check.place.item] = why_of(check, "L");
  }
  EXPECT_EQ(forces[RALU_STABILITY], "combination 3 at I of elements 7, 9, forces: linear");
  EXPECT_EQ(lengths[RALU_STABILITY], "elements 7, 9, which belong to no member");
}

TEST_F(DocumentChecks, TheGoverningOneIsTheWorstOfTheElement) {
  check_model(columns);
  for (const ExplainedCheck& check : derived(DerivationDetail::governing)) {
    for (const model::Number element : check.elements) {
      EXPECT_EQ(governing_check(*reader_, element)->item, check.place.item);
      for (const CheckPlace& other : worst_checks(*reader_, element)) {
        EXPECT_LE(RaluRatio(other.stored->dDemand, other.stored->dCapacity),
                  check.explanation.ratio->value);
      }
    }
  }
}

TEST_F(DocumentChecks, FullHasEveryItemWithAResultOfEveryElementOnce) {
  check_model(columns);
  std::map<model::Number, std::vector<int>> items;
  for (const ExplainedCheck& check : derived(DerivationDetail::full)) {
    for (const model::Number element : check.elements) items[element].push_back(check.place.item);
  }
  // Compression with bending: no shear.
  for (auto& [element, found] : items) {
    std::ranges::sort(found);
    EXPECT_THAT(found, ElementsAre(RALU_STRENGTH, RALU_STABILITY, RALU_COMBINED_STABILITY,
                                   RALU_SLENDERNESS_Y, RALU_SLENDERNESS_Z))
        << element;
  }
  EXPECT_EQ(items.size(), 3U);
}

TEST_F(DocumentChecks, ALastBitOfAForceKeepsDerivationsApart) {
  std::string text = columns;
  const std::string same = R"("nodes": [2, 6], "Fx": 10,)";
  text.replace(text.find(same), same.size(),
               R"("nodes": [6], "Fx": 10, "Fz": -10}, {"nodes": [2], "Fx": 10.000002,)");
  check_model(text);
  EXPECT_EQ(derived(DerivationDetail::governing).size(), 3U);
}

TEST_F(DocumentChecks, ElementsOfMembersDoNotShareWithLoneOnes) {
  std::string text = columns;
  text.insert(text.rfind('}'), R"(, "members": [{"number": 20, "elements": [9]}])");
  check_model(text);
  const auto found = derived(DerivationDetail::governing);
  ASSERT_EQ(found.size(), 3U);
  for (const ExplainedCheck& check : found) EXPECT_EQ(check.elements.size(), 1U);
}

TEST_F(DocumentChecks, ElementsWithoutAResultHaveNone) {
  check_model(columns);
  EXPECT_EQ(governing_check(*reader_, 1), std::nullopt);
  EXPECT_THAT(worst_checks(*reader_, 1), IsEmpty());
}

}  // namespace
}  // namespace aluframe::run
