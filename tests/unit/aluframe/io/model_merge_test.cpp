// Changes of a model whose file another program has changed meanwhile.
#include "aluframe/io/model_merge.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "aluframe/catalogue/alloys.h"
#include "tests/unit/aluframe/io/edited_text.h"
#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

namespace fs = std::filesystem;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

/// A model as it was read, as the user has it and as the file has it.
class ModelMerge : public testing::Test {
 protected:
  ModelMerge() : opened_(model_of(text)), mine_(opened_), theirs_(opened_) {}

  static model::DesignSettings& settings(model::Model& model) { return *model.design; }
  static void change(model::Model& model, const std::function<void(model::Material&)>& change) {
    model::Material material = model.materials[0];
    change(material);
    model.materials.replace(material);
  }
  static void change(model::Model& model, const std::function<void(model::Section&)>& change) {
    model::Section section = model.sections[0];
    change(section);
    model.sections.replace(section);
  }
  static void change(model::Model& model, const std::function<void(model::Element&)>& change) {
    model::Element element = model.elements[0];
    change(element);
    model.elements.replace(element);
  }

  Merge merge(Keep keep = Keep::theirs) const {
    return merge_changes(editable_of(opened_), mine_, theirs_, keep);
  }
  /// What the file has after the merge.
  model::Model merged(Keep keep = Keep::theirs) const {
    model::Model model = theirs_;
    apply_changes(merge(keep).changes, model);
    return model;
  }

  const std::string text =
      replaced(small_model, R"({"safety_class": 2})", R"({"safety_class": 2, "rib_ratio": 1.3})");
  model::Model opened_, mine_, theirs_;
};

TEST_F(ModelMerge, ChangesOfOneSideAreTaken) {
  settings(mine_).safety_class = 1;
  EXPECT_EQ(merged().design, mine_.design);
  EXPECT_THAT(merge().conflicts, IsEmpty());
  mine_ = opened_;
  settings(theirs_).safety_class = 1;
  EXPECT_TRUE(merge().changes.empty());
}

TEST_F(ModelMerge, ChangesOfDifferentSettingsBothStay) {
  settings(mine_).safety_class = 1;
  settings(theirs_).rib_ratio = 1.5;
  const model::DesignSettings both = *merged().design;
  EXPECT_EQ(both.safety_class, 1);
  EXPECT_EQ(both.rib_ratio, 1.5);
  EXPECT_THAT(merge().conflicts, IsEmpty());
}

TEST_F(ModelMerge, TheSameChangeOfBothIsNoConflict) {
  settings(mine_).safety_class = settings(theirs_).safety_class = 3;
  EXPECT_THAT(merge().conflicts, IsEmpty());
  EXPECT_TRUE(merge().changes.empty());
}

TEST_F(ModelMerge, DifferentChangesOfOneValueAreAConflictWithAllThree) {
  settings(mine_).safety_class = 1;
  settings(theirs_).safety_class = 3;
  settings(mine_).rib = false;
  const Conflict expected{"/settings/safety_class", "2", "1", "3"};
  EXPECT_THAT(merge().conflicts, ElementsAre(expected));
  EXPECT_EQ(merged(Keep::mine).design->safety_class, 1);
  EXPECT_EQ(merged(Keep::theirs).design->safety_class, 3);
  EXPECT_FALSE(merged(Keep::theirs).design->rib) << "no conflict";
  EXPECT_EQ(conflicts_text(merge().conflicts),
            "/settings/safety_class: 2 when it was opened, 1 here, 3 in the file");
}

TEST_F(ModelMerge, SettingsThatAModelIsWithoutAreTheDefaults) {
  opened_.design.reset();
  mine_.design = theirs_.design = model::DesignSettings();
  settings(mine_).safety_class = 1;
  settings(theirs_).seismic = true;
  const model::DesignSettings both = *merged().design;
  EXPECT_EQ(both.safety_class, 1);
  EXPECT_TRUE(both.seismic);
}

TEST_F(ModelMerge, ValuesOfAMaterialAreMergedOneByOne) {
  change(mine_, [](model::Material& m) { m.fu = 300; });
  change(theirs_, [](model::Material& m) { m.density = 2.8e-6; });
  EXPECT_THAT(merge().conflicts, IsEmpty());
  EXPECT_EQ(merged().materials[0].fu, 300);
  EXPECT_EQ(merged().materials[0].density, 2.8e-6);
}

// Else the one alloy's name would stand beside strengths of the other.
TEST_F(ModelMerge, AnAlloyComesWithAllOfItsStrengths) {
  const auto take = [](const char* grade) {
    return [grade](model::Material& material) {
      const model::Number number = material.number;
      material = catalogue::material_of(*catalogue::find_alloy(grade));
      material.number = number;
    };
  };
  // Of 6063-T5 and 6061-T4 f0.2 is 110 N/mm²; fu is not the same.
  change(opened_, take("6061-T4"));
  mine_ = theirs_ = opened_;
  change(mine_, take("6063-T5"));
  change(theirs_, take("6061-T6"));
  EXPECT_THAT(merge().conflicts, testing::Not(IsEmpty()));
  EXPECT_EQ(merged(Keep::mine).materials[0], mine_.materials[0]);
  EXPECT_EQ(merged(Keep::theirs).materials[0], theirs_.materials[0]);
}

TEST_F(ModelMerge, DimensionsOfAShapeAreMergedOneByOne) {
  change(mine_, [](model::Section& s) { s.dimensions[0] *= 2; });
  change(theirs_, [](model::Section& s) { s.dimensions[1] *= 3; });
  EXPECT_THAT(merge().conflicts, IsEmpty());
  EXPECT_EQ(merged().sections[0].dimensions[0], mine_.sections[0].dimensions[0]);
  EXPECT_EQ(merged().sections[0].dimensions[1], theirs_.sections[0].dimensions[1]);
}

TEST_F(ModelMerge, AnotherShapeIsAConflictWithOtherDimensionsOfTheFirst) {
  change(mine_, [](model::Section& s) { s.dimensions[0] *= 2; });
  change(theirs_, [](model::Section& s) {
    s.shape = model::Shape::solid_round;
    s.dimensions = {50.0};
  });
  ASSERT_EQ(merge().conflicts.size(), 1);
  EXPECT_EQ(merge().conflicts[0].path, "/sections/0");
  EXPECT_THAT(merge().conflicts[0].theirs, HasSubstr(R"("dimensions": {"D": 50})"));
  EXPECT_EQ(merged(Keep::mine).sections[0], mine_.sections[0]);
  EXPECT_EQ(merged(Keep::theirs).sections[0], theirs_.sections[0]);
}

TEST_F(ModelMerge, DesignAttributesAreMergedOneByOne) {
  change(mine_, [](model::Element& e) { e.design.length_factors = {{2.0, 1.0}}; });
  change(theirs_, [](model::Element& e) {
    e.design.weld_coefficient = 0.9;
    e.member_type = model::MemberType::brace;
    e.beta = 45;
  });
  EXPECT_THAT(merge().conflicts, IsEmpty());
  model::Element expected = theirs_.elements[0];
  expected.design.length_factors = {{2.0, 1.0}};
  EXPECT_EQ(merged().elements[0], expected);
}

TEST_F(ModelMerge, PartsOfAnAttributeThatEverySideHasAreMergedOneByOne) {
  change(opened_, [](model::Element& e) { e.design.length_factors = {{1.0, 1.0}}; });
  mine_ = theirs_ = opened_;
  change(mine_, [](model::Element& e) { e.design.length_factors->y = 2.0; });
  change(theirs_, [](model::Element& e) { e.design.length_factors->z = 0.5; });
  const model::ElementDesign::AxisPair both{2.0, 0.5};
  EXPECT_EQ(merged().elements[0].design.length_factors, both);
}

TEST_F(ModelMerge, AnAttributeThatIsTakenAwayAndChangedIsAConflict) {
  change(opened_, [](model::Element& e) { e.design.length_factors = {{1.0, 1.0}}; });
  mine_ = theirs_ = opened_;
  change(mine_, [](model::Element& e) { e.design.length_factors.reset(); });
  change(theirs_, [](model::Element& e) { e.design.length_factors->z = 0.5; });
  const Conflict expected{"/elements/0/design/length_factors", R"({"y": 1, "z": 1})", "",
                          R"({"y": 1, "z": 0.5})"};
  EXPECT_THAT(merge().conflicts, ElementsAre(expected));
  EXPECT_EQ(merged(Keep::mine).elements[0].design.length_factors, std::nullopt);
}

TEST_F(ModelMerge, AnEntityThatTheFileLacksIsAConflict) {
  change(mine_, [](model::Material& m) { m.fu = 300; });
  theirs_.materials = {};
  EXPECT_THAT(merge().conflicts,
              ElementsAre(Conflict{"/materials", R"({"number": 1})", R"({"number": 1})", ""}));
  EXPECT_TRUE(merge(Keep::theirs).changes.empty());
  EXPECT_EQ(merge(Keep::mine).changes.materials.size(), 1);
}

TEST_F(ModelMerge, ConflictsOfManyValuesAreCounted) {
  const std::vector<Conflict> many(14, {"/settings/rib", "true", "", "false"});
  EXPECT_THAT(conflicts_text(many), HasSubstr("\n/settings/rib: true when it was opened, – here"));
  EXPECT_THAT(conflicts_text(many), testing::EndsWith("\nand 2 more"));
}

/// The same in a file.
class MergedFile : public ModelMerge {
 protected:
  MergedFile() {
    char name[] = "/tmp/model_merge_test-XXXXXX";
    folder_ = mkdtemp(name);
    file_ = folder_ / "post.json";
    write(text);
  }
  ~MergedFile() override { fs::remove_all(folder_); }

  void write(const std::string& content) const { std::ofstream(file_) << content; }
  std::string content() const {
    std::ifstream stream(file_);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  Saved save(const AskKeep& ask = {}) const {
    return save_merged(file_, editable_of(opened_), mine_, ask);
  }

  fs::path folder_, file_;
};

TEST_F(MergedFile, WhatAnotherProgramWroteKeepsEveryOtherByte) {
  const std::string theirs = replaced(replaced(text, "\"Post\"", "\"Their post\""),
                                      R"("safety_class": 2, "rib_ratio": 1.3)",
                                      "\n  \"safety_class\" : 2,\n\t\"rib_ratio\":1.4");
  write(theirs);
  settings(mine_).safety_class = 1;
  EXPECT_EQ(save().problem, std::nullopt);
  EXPECT_EQ(content(), replaced(theirs, "\"safety_class\" : 2", "\"safety_class\" : 1"));
}

TEST_F(MergedFile, WithoutChangesOfTheUserTheFileStays) {
  const std::string theirs = replaced(text, "1.3", "1.4");
  write(theirs);
  EXPECT_EQ(save().problem, std::nullopt);
  EXPECT_EQ(content(), theirs);
}

TEST_F(MergedFile, WithNobodyToAskAConflictIsAProblemAndTheFileStays) {
  const std::string theirs = replaced(text, "1.3", "1.4");
  write(theirs);
  settings(mine_).rib_ratio = 1.5;
  const Saved saved = save();
  ASSERT_TRUE(saved.problem.has_value());
  EXPECT_EQ(saved.problem->message(),
            file_.string() +
                ": another program has changed the same values; nothing was saved\n"
                "/settings/rib_ratio: 1.3 when it was opened, 1.5 here, 1.4 in the file");
  EXPECT_EQ(saved.problem->kind, Problem::Kind::failure);
  EXPECT_EQ(content(), theirs);
}

TEST_F(MergedFile, TheAnswerDecides) {
  for (const auto& [keep, expected] :
       {std::pair(Keep::mine, "1.5"), std::pair(Keep::theirs, "1.4")}) {
    write(replaced(text, "1.3", "1.4"));
    settings(mine_).rib_ratio = 1.5;
    settings(mine_).safety_class = 1;
    EXPECT_EQ(save([answer = keep](const auto&) { return answer; }).problem, std::nullopt);
    EXPECT_EQ(content(), replaced(replaced(text, "1.3", expected), "\"safety_class\": 2",
                                  "\"safety_class\": 1"));
  }
}

TEST_F(MergedFile, AUserWhoWantsNeitherSavesNothing) {
  const std::string theirs = replaced(text, "1.3", "1.4");
  write(theirs);
  settings(mine_).rib_ratio = 1.5;
  const Saved saved = save([](const auto&) { return std::nullopt; });
  EXPECT_TRUE(saved.is_cancelled);
  EXPECT_EQ(saved.problem, std::nullopt);
  EXPECT_EQ(content(), theirs);
}

TEST_F(MergedFile, WhatChangesWhileTheUserAnswersIsAskedAboutAgain) {
  write(replaced(text, "1.3", "1.4"));
  settings(mine_).rib_ratio = 1.5;
  std::vector<std::string> asked;
  const auto ask = [&](const std::vector<Conflict>& conflicts) {
    asked.push_back(conflicts[0].theirs);
    if (asked.size() == 1) write(replaced(text, "1.3", "1.45"));
    return std::optional(Keep::mine);
  };
  EXPECT_EQ(save(ask).problem, std::nullopt);
  EXPECT_THAT(asked, ElementsAre("1.4", "1.45"));
  EXPECT_EQ(content(), replaced(text, "1.3", "1.5"));
}

TEST_F(MergedFile, AFileThatIsNoModelAnyMoreIsAProblemAndStays) {
  write("{");
  settings(mine_).rib_ratio = 1.5;
  EXPECT_THAT(save().problem->message(), HasSubstr("post.json: line 1"));
  EXPECT_EQ(content(), "{");
}

}  // namespace
}  // namespace aluframe::io
