#include "aluframe/io/model_edit.h"

#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "aluframe/catalogue/alloys.h"
#include "tests/unit/aluframe/io/edited_text.h"
#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

namespace fs = std::filesystem;
using testing::HasSubstr;

ModelChanges class_one() {
  model::DesignSettings settings;
  settings.safety_class = 1;
  return {.settings = settings};
}

ModelChanges material_of(std::string_view grade, model::Number number = 1) {
  model::Material material = catalogue::material_of(*catalogue::find_alloy(grade));
  material.number = number;
  return {.materials = {material}};
}

/// Of settings that come new into a file, and of those that are in it.
constexpr std::string_view class_one_text = R"({"code": "GB50429-2007", "safety_class": 1})";
constexpr std::string_view class_one_alone = R"({"safety_class": 1})";

TEST(ModelEdit, OnlyTheChangedSettingIsReplaced) {
  EXPECT_EQ(edited(small_model, class_one()),
            replaced(small_model, R"({"safety_class": 2})", class_one_alone));
}

TEST(ModelEdit, ASettingThatSaysItsDefaultStays) {
  const std::string text =
      replaced(small_model, R"({"safety_class": 2})", "{\n \"rib\" :true,\n \"safety_class\": 2}");
  EXPECT_EQ(edited(text, class_one()),
            replaced(text, "\"safety_class\": 2", "\"safety_class\": 1"));
}

TEST(ModelEdit, ASettingThatIsTakenBackToItsDefaultLeavesTheTextAsItWas) {
  const std::string text =
      replaced(small_model, R"({"safety_class": 2})", R"({ "safety_class":2 , "rib": true })");
  EXPECT_EQ(edited(edited(text, class_one()), {.settings = model::DesignSettings()}), text);
}

TEST(ModelEdit, ASettingThatTheFileLacksComesBehindTheOthers) {
  ModelChanges changes = class_one();
  changes.settings->seismic = true;
  EXPECT_EQ(edited(small_model, changes), replaced(small_model, R"({"safety_class": 2})",
                                                   R"({"safety_class": 1, "seismic": true})"));
}

TEST(ModelEdit, EmptySettingsAreWrittenAnew) {
  const std::string text = replaced(small_model, R"({"safety_class": 2})", "{}");
  EXPECT_EQ(edited(text, class_one()), replaced(text, "{}", class_one_text));
}

TEST(ModelEdit, OnlyTheObjectOfTheChangedMaterialIsReplaced) {
  const std::string two = replaced(
      small_model, R"([{"number": 1, "alloy": "6063-T5"}])",
      "[ { \"alloy\":\"6063-T5\",\n\"number\":1 } ,{\"number\" : 7, \"alloy\": \"6061-T4\"} ]");
  EXPECT_EQ(edited(two, material_of("6061-T6", 7)),
            replaced(two, R"({"number" : 7, "alloy": "6061-T4"})",
                     R"({"number": 7, "alloy": "6061-T6"})"));
  EXPECT_EQ(edited(two, material_of("6061-T6", 1)),
            replaced(two, "{ \"alloy\":\"6063-T5\",\n\"number\":1 }",
                     R"({"number": 1, "alloy": "6061-T6"})"));
}

TEST(ModelEdit, SettingsAndMaterialsMayStandInAnyOrderInTheFile) {
  const std::string last =
      replaced(replaced(small_model, "\"settings\": {\"safety_class\": 2},\n", ""), "6]]}]\n}",
               "6]]}],\n\"settings\": {\"safety_class\": 2}\n}");
  ModelChanges changes = class_one();
  changes.materials = material_of("6061-T6").materials;
  EXPECT_EQ(
      edited(last, changes),
      replaced(replaced(last, R"({"safety_class": 2})", class_one_alone), "6063-T5", "6061-T6"));
}

TEST(ModelEdit, LineEndsAndAByteOrderMarkStay) {
  std::string text = "\xEF\xBB\xBF";
  for (const char c : small_model) text += c == '\n' ? std::string("\r\n\t") : std::string(1, c);
  EXPECT_EQ(edited(text, class_one()), replaced(text, R"({"safety_class": 2})", class_one_alone));
}

TEST(ModelEdit, ANameWrittenWithEscapesIsFound) {
  const std::string text = replaced(small_model, "\"settings\"", R"("s\u0065ttings")");
  EXPECT_EQ(edited(text, class_one()), replaced(text, R"({"safety_class": 2})", class_one_alone));
}

TEST(ModelEdit, TextsThatLookLikeSettingsAreLeftAlone) {
  const std::string text = replaced(small_model, "\"Post\"", R"("\"settings\": {}, [")");
  EXPECT_EQ(edited(text, class_one()), replaced(text, R"({"safety_class": 2})", class_one_alone));
}

TEST(ModelEdit, NewSettingsComeBehindTheUnitsOrTheLastFieldOfTheHead) {
  const std::string without = replaced(small_model, "\"settings\": {\"safety_class\": 2},\n", "");
  const std::string field = "\"settings\": " + std::string(class_one_text);
  EXPECT_EQ(edited(without, class_one()),
            replaced(without, "\"section\": \"mm\"},", "\"section\": \"mm\"},\n" + field + ","));
  // Without units the model is in kN and m; its end node 9 km up is no fault.
  const std::string no_units = replaced(
      without, "\"units\": {\"force\": \"N\", \"length\": \"mm\", \"section\": \"mm\"},\n", "");
  EXPECT_EQ(edited(no_units, class_one()),
            replaced(no_units, "\"Post\",", "\"Post\",\n" + field + ","));
  const std::string no_title = replaced(no_units, "\"title\": \"Post\",\n", "");
  EXPECT_EQ(edited(no_title, class_one()),
            replaced(no_title, "\"version\": 1,", "\"version\": 1,\n" + field + ","));
}

TEST(ModelEdit, NewSettingsKeepTheFilesIndentation) {
  std::string text = replaced(small_model, "\"settings\": {\"safety_class\": 2},\n", "");
  text = replaced(text, "\n\"units\"", "\r\n    \"units\"");
  EXPECT_THAT(edited(text, class_one()),
              HasSubstr("\"section\": \"mm\"},\r\n    \"settings\": {\"code\""));
  const std::string dense = replaced(text, ",\r\n    \"units\"", ",\"units\"");
  EXPECT_THAT(edited(dense, class_one()), HasSubstr("\"section\": \"mm\"},\"settings\": {"));
}

TEST(ModelEdit, NewSettingsBehindTheVeryLastFieldAreSeparated) {
  std::string text = replaced(small_model, "\"settings\": {\"safety_class\": 2},\n", "");
  const std::string units = R"("units": {"force": "N", "length": "mm", "section": "mm"})";
  text = replaced(text, units + ",\n", "");
  text = replaced(text, "6]]}]\n}", "6]]}],\n" + units + "\n}");
  EXPECT_EQ(edited(text, class_one()),
            replaced(text, units, units + ",\n\"settings\": " + std::string(class_one_text)));
}

TEST(ModelEdit, ReadingBackGivesTheChangedValues) {
  ModelChanges changes = class_one();
  changes.settings->rib = false;
  changes.settings->rib_ratio = 1.0 / 3.0;
  changes.settings->seismic = true;
  changes.settings->gamma_re_strength = 1e-6;
  model::Material own;
  own.number = 1;
  own.name = "\"Mullion\" \\ \u94DD";
  own.standard = "user";
  own.fu = 265.00000000000006;
  own.f02_thin = 0.1 + 0.2;
  own.f02_thick = 1e30;
  own.poisson = 0.5;
  own.density = 0.0;
  changes.materials = {own};
  const model::Model model = model_of(edited(small_model, changes));
  EXPECT_EQ(model.design, changes.settings);
  EXPECT_EQ(*model.materials.find(1), own);
}

TEST(ModelEdit, AMaterialMayBeWithoutGrade) {
  ModelChanges changes = material_of("6061-T6");
  changes.materials[0].standard = "user";
  changes.materials[0].grade = "";
  EXPECT_THAT(edited(small_model, changes),
              HasSubstr(R"({"number": 1, "grade": "", "f02_thin": 240, "fu": 265})"));
}

TEST(ModelEdit, WithoutChangesTheTextStays) {
  EXPECT_EQ(edited(small_model, {}), small_model);
}

TEST(ModelEdit, AnUnknownMaterialIsAProblem) {
  EXPECT_EQ(problem_of(small_model, material_of("6061-T6", 9)),
            "post.json: /materials: material 9 does not exist");
}

TEST(ModelEdit, ATextThatIsNoModelIsAProblem) {
  EXPECT_EQ(problem_of("{}", class_one()), "post.json: missing field \"format\"");
  EXPECT_THAT(problem_of("{\"settings\": ", class_one()), HasSubstr("broken JSON"));
}

TEST(ModelEdit, WhatTheReaderRefusesIsAProblemWithItsPlace) {
  ModelChanges changes = material_of("6061-T6");
  changes.materials[0].poisson = 0.0;
  EXPECT_EQ(problem_of(small_model, changes),
            "post.json: /materials/0/poisson: found 0, must be positive");
}

TEST(ModelEdit, WhatAFileHasNoWordsForIsAProblem) {
  ModelChanges changes = class_one();
  changes.settings->code = "GB50068-2018";
  EXPECT_EQ(problem_of(small_model, changes),
            "post.json: /settings: a model file cannot hold these settings");
  changes = material_of("6061-T6");
  changes.materials[0].name = "\xFF";
  EXPECT_EQ(problem_of(small_model, changes),
            "post.json: /materials/0: a model file cannot hold this material");
}

TEST(ModelEdit, ChangesAreWhatDiffers) {
  model::Model now = model_of(small_model);
  const Editable before = editable_of(now);
  EXPECT_TRUE(changes_since(before, now).empty());
  now.design->rib = false;
  EXPECT_EQ(changes_since(before, now).settings, now.design);
  model::Material material = *now.materials.find(1);
  material.name = "Post";
  now.materials.replace(material);
  EXPECT_THAT(changes_since(before, now).materials, testing::ElementsAre(material));
  now.design = before.settings;
  EXPECT_FALSE(changes_since(before, now).settings.has_value());
}

/// A model file in a folder of its own.
class SavedModel : public testing::Test {
 protected:
  SavedModel() {
    std::string name = (fs::temp_directory_path() / "aluframe-io-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = name;
    file_ = folder_ / "post.json";
    std::ofstream(file_, std::ios::binary) << small_model;
  }
  ~SavedModel() override { fs::remove_all(folder_); }
  std::string content() const {
    std::ifstream stream(file_, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }

  fs::path folder_;
  fs::path file_;
};

TEST_F(SavedModel, TakesTheChangesAndKeepsTheRest) {
  EXPECT_EQ(save_changes(file_, class_one()), std::nullopt);
  EXPECT_EQ(content(), replaced(small_model, R"({"safety_class": 2})", class_one_alone));
}

TEST_F(SavedModel, IsNotTouchedWithoutChanges) {
  const auto before = fs::last_write_time(file_) - std::chrono::hours(1);
  fs::last_write_time(file_, before);
  EXPECT_EQ(save_changes(file_, {}), std::nullopt);
  EXPECT_EQ(fs::last_write_time(file_), before);
}

TEST_F(SavedModel, StaysAsItWasWhenTheChangesCannotBeHeld) {
  const auto problem = save_changes(file_, material_of("6061-T6", 9));
  ASSERT_TRUE(problem.has_value());
  EXPECT_EQ(message_by_paths(*problem), file_.string() + ": /materials: material 9 does not exist");
  EXPECT_EQ(content(), small_model);
}

TEST_F(SavedModel, ThatAnotherProgramSavesMeanwhileKeepsWhatThatHasSaved) {
  const std::string saved = replaced(small_model, R"({"safety_class": 2})", class_one_alone) + "\n";
  int asked = 0;
  const auto choose = [&](const model::Model&) -> Result<ModelChanges> {
    if (++asked == 2) std::ofstream(file_, std::ios::binary) << saved;  // with the file locked
    return class_one();
  };
  const auto problem = change_model_file(file_, choose);
  ASSERT_TRUE(problem.has_value());
  EXPECT_THAT(message_by_paths(*problem),
              HasSubstr("another program has changed it meanwhile; try again"));
  EXPECT_EQ(problem->kind, Problem::Kind::failure);
  EXPECT_EQ(content(), saved);
}

TEST_F(SavedModel, ThatIsGoneIsAProblem) {
  fs::remove(file_);
  EXPECT_THAT(save_changes(file_, class_one())->message(),
              HasSubstr("post.json: cannot be opened: No such file"));
  EXPECT_FALSE(fs::exists(file_));
}

}  // namespace
}  // namespace aluframe::io
