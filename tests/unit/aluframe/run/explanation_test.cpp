// Which check is explained, and that it is the stored one.

#include "aluframe/run/explanation.h"

#include <gmock/gmock.h>

#include <fstream>
#include <map>
#include <memory>

#include "aluframe/run/check.h"
#include "aluframe/store/element_notes.h"
#include "tests/unit/aluframe/services/temporary_folder.h"

namespace aluframe::run {
namespace {

using testing::HasSubstr;

/// A cantilever column; 10 kN on its top, 1 or 2 kN along X, so that 2 or 4 kNm act at its foot.
constexpr const char* column = R"({
  "format": "aluframe-model", "version": 1,
  "materials": [{"number": 1, "alloy": "6061-T6"}],
  "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 8}}],
  "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 0, "y": 0, "z": 2}],
  "supports": [{"node": 1, "restrained": "all"}],
  "elements": [{"number": 5, "nodes": [1, 2], "section": 1, "material": 1}],
  "load_cases": [{"number": 1, "nodal": [{"nodes": [2], "Fx": 1, "Fz": -10}]},
                 {"number": 2, "nodal": [{"nodes": [2], "Fx": 2, "Fz": -10}]}],
  "combinations": [{"number": 3, "terms": [{"case": 1}]}, {"number": 4, "terms": [{"case": 2}]}]
})";

class ExplainCheck : public testing::Test {
 protected:
  ExplainCheck() {
    std::ofstream(model_) << column;
    auto prepared = prepare({.model = model_});
    CheckOptions options;
    options.results = results_;
    check(std::get<Input>(prepared), options);
  }

  std::unique_ptr<store::ResultReader> reader() const {
    return store::ResultReader::open(results_);
  }
  CheckPlace found(const WantedCheck& wanted) const {
    return std::get<CheckPlace>(find_check(*reader(), wanted));
  }
  std::string problem(const WantedCheck& wanted) const {
    const auto explained =
        explain_check({.input = {.model = model_}, .results = results_, .wanted = wanted});
    const auto* problem = std::get_if<Problem>(&explained);
    return problem == nullptr ? "no problem" : problem->text;
  }

  /// Stores the results anew with another demand of strength.
  void change_stored_strength(double factor) {
    const store::RunInfo info = reader()->info();
    auto records = reader()->read_all(5);
    const auto writer = store::ResultWriter::create(results_, info);
    for (store::StoredRecord& row : records) {
      for (T_RALU_SECT& position : row.record.aSect) {
        position.aItem[RALU_STRENGTH].dDemand *= factor;
      }
      if (row.combination != 0) row.record.MakeCompItem();
      writer->write(5, row.record, row.combination, row.min_side);
    }
    writer->end_element({.element = 5});
    writer->finish(store::RunState::complete);
  }

  services::TemporaryFolder folder_;
  std::filesystem::path model_ = folder_.path() / "frame.json";
  std::filesystem::path results_ = folder_.path() / "frame.aluresult";
};

TEST_F(ExplainCheck, IsTheWorstOfWhatIsLeftOpen) {
  const CheckPlace strength = found({.element = 5, .item = RALU_STRENGTH});
  EXPECT_EQ(strength.combination, 4U) << "the larger moment";
  EXPECT_EQ(strength.position, 0) << "at the foot";
  EXPECT_EQ(found({.element = 5, .item = RALU_STRENGTH, .combination = 3}).combination, 3U);
  const CheckPlace top = found({.element = 5, .item = RALU_STRENGTH, .position = 4});
  EXPECT_EQ(top.position, 4);
  EXPECT_EQ(top.combination, 3U) << "both are alike, the first stays";
}

TEST_F(ExplainCheck, OfAllItemsIsTheOneWithTheLargestRatio) {
  const CheckPlace worst = found({.element = 5});
  for (int item = 0; item < kResultItems; ++item) {
    const CheckPlace of_item = found({.element = 5, .item = item});
    if (!of_item.stored || of_item.stored->dCapacity == 0.0) continue;
    EXPECT_LE(of_item.stored->dDemand / of_item.stored->dCapacity,
              worst.stored->dDemand / worst.stored->dCapacity);
  }
}

TEST_F(ExplainCheck, HasNoStoredValueWhereNoCheckWasMade) {
  EXPECT_EQ(found({.element = 5, .item = RALU_SHEAR_Z}).stored, std::nullopt);
  EXPECT_THAT(problem({.element = 5, .item = RALU_SHEAR_Z}),
              HasSubstr("element 5 has no shear-z result at I in combination 3: compression with"));
}

TEST_F(ExplainCheck, NamesWhatThereIsNot) {
  EXPECT_THAT(problem({.element = 6}), HasSubstr("there is no result of element 6"));
  EXPECT_THAT(problem({.element = 5, .combination = 1}),
              HasSubstr("no result of element 5 in combination 1, covered are 3-4"));
  EXPECT_THAT(problem({.element = 5, .min_side = 1}), HasSubstr("there is no minimum side"));
}

TEST_F(ExplainCheck, TellsWhereTheInputIsFrom) {
  const auto explained = explain_check({.input = {.model = model_},
                                        .results = results_,
                                        .wanted = {.element = 5, .item = RALU_STABILITY}});
  std::map<std::string, std::string> why;
  for (const auto& step :
       explain::steps_of(std::get<ExplainedCheck>(explained).explanation.ratio)) {
    why[step->info.symbol] = step->info.why;
  }
  EXPECT_EQ(why["N"], "combination 4 at I of element 5, forces: linear");
  EXPECT_EQ(why["A"], "section 1, P");
  EXPECT_EQ(why["E"], "material 1, 6061-T6");
  EXPECT_EQ(why["L"], "element 5, which belongs to no member");
  EXPECT_EQ(why["Ky"], "cantilever");
}

TEST_F(ExplainCheck, RefusesAStoredRatioThatTheChecksDoNotGive) {
  change_stored_strength(1.0);
  EXPECT_EQ(problem({.element = 5, .item = RALU_STRENGTH}), "no problem");
  change_stored_strength(1.0 + 1e-15);
  const auto explained = explain_check({.input = {.model = model_},
                                        .results = results_,
                                        .wanted = {.element = 5, .item = RALU_STRENGTH}});
  const auto* problem = std::get_if<Problem>(&explained);
  ASSERT_NE(problem, nullptr);
  EXPECT_EQ(problem->kind, Problem::Kind::failure);
  EXPECT_THAT(problem->text, HasSubstr("element 5 is stored with "));
  EXPECT_THAT(problem->text, HasSubstr("check the model again"));
}

}  // namespace
}  // namespace aluframe::run
