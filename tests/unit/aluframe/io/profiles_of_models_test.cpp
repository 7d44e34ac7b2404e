// Sections that name a profile, and the catalogues that a model names.
#include <gmock/gmock.h>

#include <fstream>

#include "aluframe/io/model_edit.h"
#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

using testing::ElementsAre;
using testing::EndsWith;
using testing::HasSubstr;

constexpr const char* box = R"("shape": "B", "dimensions": {"H": 150, "B": 60, "tw": 3, "tf1": 3})";

/// The small model, its section given by this text in place of a box's dimensions.
std::string with_section(std::string_view text) {
  return replaced(small_model, box, text);
}

TEST(ProfileOfASection, GivesShapeDimensionsAndName) {
  const model::Model model = model_of(with_section(R"("profile": "H 300x150x8x12")"));
  const model::Section& section = model.sections[0];
  EXPECT_EQ(section.shape, model::Shape::h_section);
  EXPECT_EQ(section.name, "H 300x150x8x12");
  EXPECT_THAT(section.dimensions, ElementsAre(300, 150, 8, 12, 150, 12, 0, 0));
}

TEST(ProfileOfASection, LeavesTheSectionItsOwnName) {
  const model::Model model =
      model_of(with_section(R"("name": "Column", "profile": "NPS 2 SCH 40")"));
  EXPECT_EQ(model.sections[0].name, "Column");
  // Outside diameter of nominal size 2: 2.375 in.
  EXPECT_THAT(model.sections[0].dimensions[0], testing::DoubleEq(60.325));
}

TEST(ProfileOfASection, IsInMillimetresWhateverTheModelsUnits) {
  const std::string text =
      replaced(with_section(R"("profile": "SR 20")"), R"("section": "mm")", R"("section": "in")");
  EXPECT_EQ(model_of(text).sections[0].dimensions[0], 20.0);
}

TEST(ProfileOfASection, GoesWithWeldsAndPropertiesOfOnesOwn) {
  const model::Model model =
      model_of(with_section(R"("profile": "SR 20", "welded": true, "properties": {"area": 300})"));
  EXPECT_TRUE(model.sections[0].welded);
  EXPECT_EQ(model.sections[0].given.area, 300.0);
}

TEST(ProfileOfASection, IsWrittenAsItsDimensionsAndReadBackEqual) {
  const model::Model model = model_of(with_section(R"("profile": "AA CS 6x2.83")"));
  const model::Model again = model_of(write_model(model));
  EXPECT_EQ(again.sections[0], model.sections[0]);
}

TEST(ProfileOfASection, ThatIsUnknownIsNamedByItsPath) {
  EXPECT_THAT(message_about(with_section(R"("profile": "AA I 6x4")")),
              testing::AllOf(HasSubstr("post.json: /sections/0/profile: found 'AA I 6x4', must be"),
                             EndsWith("; did you mean \"AA I 6x4.03\" or \"AA I 6x4.69\"?")));
}

TEST(ProfileOfASection, ThatCannotBeBuiltIsNamedByItsPath) {
  EXPECT_EQ(
      message_about(with_section(R"("profile": "P 60x-3")")),
      "post.json: /sections/0/profile: found 'P 60x-3', which cannot be built: t is -3 mm: must "
      "be more than 0");
}

TEST(ProfileOfASection, ExcludesShapeAndDimensions) {
  EXPECT_EQ(message_about(with_section(R"("profile": "SR 20", "shape": "SR")")),
            "post.json: /sections/0/shape: the profile has its own");
  EXPECT_EQ(message_about(with_section(R"("profile": "SR 20", "dimensions": {"D": 20})")),
            "post.json: /sections/0/dimensions: the profile has its own");
}

TEST(ProfileOfASection, OrAShapeMustBeGiven) {
  EXPECT_EQ(message_about(with_section(R"("name": "none")")),
            "post.json: /sections/0: missing field \"shape\" or \"profile\"");
}

/// A model in a folder of its own, with a catalogue beside it.
class CataloguesOfAModel : public testing::Test {
 protected:
  CataloguesOfAModel() {
    std::filesystem::create_directories(folder_);
    write("mine.csv", "name,shape,H,B,tw,tf1\nMullion 60,B,150,60,3,4\n");
  }
  ~CataloguesOfAModel() override { std::filesystem::remove_all(folder_); }

  void write(const std::string& name, std::string_view text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }
  std::filesystem::path write_model_with(std::string_view catalogues,
                                         std::string_view profile) const {
    const std::string text =
        replaced(with_section("\"profile\": \"" + std::string(profile) + '"'), R"("materials")",
                 R"("catalogues": )" + std::string(catalogues) + R"(, "materials")");
    write("frame.json", text);
    return folder_ / "frame.json";
  }
  std::string message(std::string_view catalogues) const {
    const auto read = read_model(write_model_with(catalogues, "Mullion 60"));
    const auto* problem = std::get_if<Problem>(&read);
    return problem != nullptr ? problem->place + ": " + problem->text : "no problem";
  }

  const std::filesystem::path folder_ =
      std::filesystem::path(testing::TempDir()) /
      (std::string("catalogues_") + testing::UnitTest::GetInstance()->current_test_info()->name());
};

TEST_F(CataloguesOfAModel, LieBesideIt) {
  const auto read = read_model(write_model_with(R"(["mine.csv"])", "Mullion 60"));
  ASSERT_TRUE(std::holds_alternative<model::Model>(read)) << std::get<Problem>(read).message();
  EXPECT_THAT(std::get<model::Model>(read).sections[0].dimensions,
              ElementsAre(150, 60, 3, 4, 57, 4, 0, 0));
}

TEST_F(CataloguesOfAModel, ThatAreMissingAreNamedByPathAndFile) {
  EXPECT_THAT(message(R"(["mine.csv", "other.csv"])"),
              testing::StartsWith("/catalogues/1: " + (folder_ / "other.csv").string() + ": "));
}

TEST_F(CataloguesOfAModel, WithAFaultAreNamedByPathFileAndLine) {
  write("bad.csv", "name,shape,D\nRod,SR,-5\n");
  EXPECT_EQ(message(R"(["bad.csv"])"), "/catalogues/0: " + (folder_ / "bad.csv").string() +
                                           ": line 2: \"Rod\" cannot be built: D is -5 mm: must be "
                                           "more than 0");
}

TEST_F(CataloguesOfAModel, ThatLieOutsideOfTheFolderAreReadWhenThatIsAllowed) {
  const std::filesystem::path outside = folder_.string() + "_outside.csv";
  std::filesystem::rename(folder_ / "mine.csv", outside);
  std::filesystem::create_symlink(outside, folder_ / "mine.csv");
  const std::vector<std::string> ways{"mine.csv", "../" + outside.filename().string(),
                                      outside.string()};
  for (const std::string& name : ways) {
    const auto model = write_model_with("[\"" + name + "\"]", "Mullion 60");
    const auto refused = read_model(model);
    ASSERT_TRUE(std::holds_alternative<Problem>(refused)) << name;
    EXPECT_THAT(std::get<Problem>(refused).text,
                testing::HasSubstr("which lies outside of the model's folder"));
    EXPECT_TRUE(std::holds_alternative<model::Model>(read_model(model, nullptr, true))) << name;
  }
  std::filesystem::remove(outside);
}

TEST_F(CataloguesOfAModel, MustNotNameAProfileTwice) {
  write("again.csv", "name,shape,D\nMullion 60,SR,50\n");
  EXPECT_EQ(message(R"(["mine.csv", "again.csv"])"),
            "/catalogues/1: " + (folder_ / "again.csv").string() +
                ": line 2: \"Mullion 60\" is given in mine.csv");
}

TEST_F(CataloguesOfAModel, MustBePaths) {
  EXPECT_EQ(message(R"([""])"), "/catalogues/0: found \"\", must be the path of a file");
  EXPECT_EQ(message("[3]"), "/catalogues/0: found 3, must be a text");
  EXPECT_EQ(message(R"("mine.csv")"), "/catalogues: found \"mine.csv\", must be a list");
}

TEST_F(CataloguesOfAModel, CannotBeFoundForATextInMemory) {
  EXPECT_EQ(message_about(replaced(small_model, R"("materials")",
                                   R"("catalogues": ["mine.csv"], "materials")")),
            "post.json: /catalogues/0: a model that is in no file can name no catalogue");
}

TEST_F(CataloguesOfAModel, StayInTheTextWhenItIsEdited) {
  const auto file = write_model_with(R"(["mine.csv"])", "Mullion 60");
  ModelChanges changes;
  changes.settings = model::DesignSettings{};
  changes.settings->safety_class = 1;
  const auto problem = save_changes(file, changes);
  ASSERT_FALSE(problem.has_value()) << message_by_paths(*problem);
  std::ifstream stream(file);
  const std::string text((std::istreambuf_iterator<char>(stream)), {});
  EXPECT_THAT(text, HasSubstr(R"("catalogues": ["mine.csv"])"));
  EXPECT_THAT(text, HasSubstr(R"("profile": "Mullion 60")"));
  EXPECT_THAT(text, HasSubstr(R"("safety_class": 1)"));
}

}  // namespace
}  // namespace aluframe::io
