// A model's file written to another one with changes.
#include <gmock/gmock.h>

#include <fstream>
#include <iterator>

#include "aluframe/io/model_edit.h"
#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

namespace fs = std::filesystem;
using testing::StartsWith;

constexpr std::string_view given_settings = R"({"safety_class": 2})";
constexpr std::string_view class_one_text = R"({"safety_class": 1})";

ModelChanges class_one() {
  model::DesignSettings settings;
  settings.safety_class = 1;
  return {.settings = settings};
}

class CopyOfAModel : public testing::Test {
 protected:
  CopyOfAModel() {
    std::string name = (fs::temp_directory_path() / "aluframe-copy-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    folder_ = name;
    fs::create_directory(folder_ / "other");
    write("post.json", small_model);
  }
  ~CopyOfAModel() override { fs::remove_all(folder_); }

  void write(const std::string& name, std::string_view text) const {
    std::ofstream(folder_ / name, std::ios::binary) << text;
  }
  std::string content(const std::string& name) const {
    std::ifstream stream(folder_ / name, std::ios::binary);
    return {std::istreambuf_iterator<char>(stream), {}};
  }
  /// The message when the copy fails; "no problem" when it is made.
  std::string copy_to(const std::string& name, const ModelChanges& changes) const {
    const auto problem = save_changed_copy(folder_ / "post.json", folder_ / name, changes);
    return problem ? message_by_paths(*problem) : "no problem";
  }
  /// Gives the model a section of a catalogue beside it.
  std::string use_catalogue() const {
    write("mine.csv", "name,shape,D\nRod,SR,50\n");
    const std::string text =
        replaced(replaced(small_model,
                          R"("shape": "B", "dimensions": {"H": 150, "B": 60, "tw": 3, "tf1": 3})",
                          R"("profile": "Rod")"),
                 "\"materials\"", "\"catalogues\": [\"mine.csv\"],\n\"materials\"");
    write("post.json", text);
    return text;
  }

  fs::path folder_;
};

TEST_F(CopyOfAModel, HasTheChangesAndLeavesTheFileAsItIs) {
  EXPECT_EQ(copy_to("other/new.json", class_one()), "no problem");
  EXPECT_EQ(content("other/new.json"), replaced(small_model, given_settings, class_one_text));
  EXPECT_EQ(content("post.json"), small_model);
}

TEST_F(CopyOfAModel, WithoutChangesHasTheSameBytes) {
  const std::string text = "\xEF\xBB\xBF" + std::string(small_model) + "\r\n\t";
  write("post.json", text);
  EXPECT_EQ(copy_to("new.json", {}), "no problem");
  EXPECT_EQ(content("new.json"), text);
}

TEST_F(CopyOfAModel, TakesThePlaceOfAFile) {
  write("other/new.json", "what it held");
  EXPECT_EQ(copy_to("other/new.json", class_one()), "no problem");
  EXPECT_EQ(content("other/new.json"), replaced(small_model, given_settings, class_one_text));
}

TEST_F(CopyOfAModel, ToTheFileItselfChangesIt) {
  fs::create_symlink(folder_ / "post.json", folder_ / "link.json");
  EXPECT_EQ(copy_to("link.json", class_one()), "no problem");
  EXPECT_EQ(content("post.json"), replaced(small_model, given_settings, class_one_text));
  EXPECT_TRUE(fs::is_symlink(folder_ / "link.json"));
}

TEST_F(CopyOfAModel, WithChangesThatAreRefusedIsNotMade) {
  write("new.json", "what it held");
  EXPECT_EQ(copy_to("new.json", {.members = {{7, std::nullopt}}}),
            (folder_ / "post.json").string() + ": /members: member 7 does not exist");
  EXPECT_EQ(content("new.json"), "what it held");
}

TEST_F(CopyOfAModel, OfAFileThatIsGoneNamesThatFile) {
  fs::remove(folder_ / "post.json");
  EXPECT_THAT(copy_to("new.json", {}),
              StartsWith((folder_ / "post.json").string() + ": cannot be opened: "));
  EXPECT_FALSE(fs::exists(folder_ / "new.json"));
}

TEST_F(CopyOfAModel, InAFolderThatIsNotThereNamesTheCopy) {
  EXPECT_THAT(copy_to("none/new.json", {}),
              StartsWith((folder_ / "none/new.json").string() + ": cannot be saved: "));
}

TEST_F(CopyOfAModel, InItsFolderFindsItsCatalogues) {
  const std::string text = use_catalogue();
  EXPECT_EQ(copy_to("new.json", {}), "no problem");
  EXPECT_EQ(content("new.json"), text);
}

TEST_F(CopyOfAModel, IsNotMadeWhereItsCataloguesAreNotFound) {
  use_catalogue();
  write("other/new.json", "what it held");
  const std::string message = copy_to("other/new.json", class_one());
  EXPECT_THAT(message, StartsWith((folder_ / "other/new.json").string() + ": /catalogues/0: " +
                                  (folder_ / "other/mine.csv").string() + ": cannot be opened"));
  EXPECT_THAT(message, testing::EndsWith("; a copy keeps the paths of the catalogues: save it in "
                                         "the folder of " +
                                         (folder_ / "post.json").string() +
                                         " or copy the catalogues first"));
  EXPECT_EQ(content("other/new.json"), "what it held");
}

TEST_F(CopyOfAModel, FindsCataloguesThatWereCopiedBefore) {
  const std::string text = use_catalogue();
  fs::copy_file(folder_ / "mine.csv", folder_ / "other/mine.csv");
  EXPECT_EQ(copy_to("other/new.json", {}), "no problem");
  EXPECT_EQ(content("other/new.json"), text);
}

TEST_F(CopyOfAModel, IsNotMadeWhereACatalogueHasAnotherProfileOfTheName) {
  use_catalogue();
  write("other/mine.csv", "name,shape,D\nRod,SR,60\n");
  EXPECT_EQ(copy_to("other/new.json", {}),
            (folder_ / "other/new.json").string() +
                ": /sections/0: the catalogues that a copy in this folder names make it another "
                "section; save the copy in the folder of " +
                (folder_ / "post.json").string());
  EXPECT_FALSE(fs::exists(folder_ / "other/new.json"));
}

}  // namespace
}  // namespace aluframe::io
