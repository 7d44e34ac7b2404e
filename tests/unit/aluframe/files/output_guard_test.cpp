#include "aluframe/files/output_guard.h"

#include <gtest/gtest.h>

#include "tests/unit/aluframe/files/test_folder.h"

namespace aluframe::files {
namespace {

namespace fs = std::filesystem;

constexpr const char* model_text = R"({"format": "aluframe-model"})";

class OutputGuard : public testing::Test {
 protected:
  fs::path in_folder(const char* name) const { return folder_.path() / name; }
  std::string message(const char* file, const std::string& text) const {
    return in_folder(file).string() + ": " + text;
  }

  const TestFolder folder_;
};

TEST_F(OutputGuard, LetsANewFileAndAnOrdinaryOneBeWritten) {
  folder_.write("old.txt", "an older table");
  EXPECT_EQ(find_overwriting({{"the table", in_folder("new.txt")}}, {}), std::nullopt);
  EXPECT_EQ(find_overwriting({{"the table", in_folder("old.txt")}}, {}), std::nullopt);
}

TEST_F(OutputGuard, KeepsWhatIsNoKindOfItsOwnWhenItIsAnInput) {
  const fs::path forces = folder_.write("forces.csv", "element,case");
  EXPECT_EQ(find_overwriting({{"the report", forces}}, {{"the table of forces", forces}}),
            message("forces.csv",
                    "is the table of forces, which the report would overwrite; choose another "
                    "file"));
}

TEST_F(OutputGuard, KeepsAnInputBehindALink) {
  const fs::path model = folder_.write("frame.json", model_text);
  fs::create_hard_link(model, in_folder("hard"));
  fs::create_symlink(model, in_folder("soft"));
  for (const char* link : {"hard", "soft"}) {
    EXPECT_EQ(find_overwriting({{"the table", in_folder(link)}}, {{"the model", model}}),
              message(link, "is the model, which the table would overwrite; choose another file"));
  }
}

TEST_F(OutputGuard, KeepsOutputsApart) {
  EXPECT_EQ(find_overwriting({{"the report", in_folder("a")}, {"the copy", in_folder("a")}}, {}),
            message("a", "is the report, which the copy would overwrite; choose another file"));
}

TEST_F(OutputGuard, KeepsModelsAndCataloguesThatAreNoInputs) {
  const fs::path model = folder_.write("other.json", model_text);
  const fs::path catalogue = folder_.write("mine.csv", "name,shape,D\n");
  EXPECT_EQ(find_overwriting({{"the drawing", model}}, {}),
            message("other.json",
                    "holds a model, which the drawing would overwrite; choose another file"));
  EXPECT_EQ(find_overwriting({{"the result file", catalogue, FileKind::results}}, {}),
            message("mine.csv",
                    "holds a catalogue of profiles, which the result file would overwrite; choose "
                    "another file"));
}

TEST_F(OutputGuard, LetsAnOutputTakeThePlaceOfItsOwnKind) {
  std::string results("SQLite format 3\0", 16);
  results += std::string(52, '\1') + "AluR";
  const fs::path file = folder_.write("a.aluresult", results);
  EXPECT_EQ(find_overwriting({{"the result file", file, FileKind::results}}, {}), std::nullopt);
  EXPECT_EQ(find_overwriting({{"the table", file}}, {}),
            message("a.aluresult",
                    "holds the results of a check, which the table would overwrite; choose another "
                    "file"));
}

TEST_F(OutputGuard, LetsAnOutputTakeThePlaceOfOneThatWasMadeFromTheSameInput) {
  std::string results("SQLite format 3\0", 16);
  results += std::string(52, '\1') + "AluR";
  const fs::path file = folder_.write("a.aluresult", results);
  const fs::path model = folder_.write("frame.json", model_text);
  const OutputFile output{"the result file", file, FileKind::results, model};
  EXPECT_EQ(find_overwriting({output}, {{"the model", model}}), std::nullopt);
  fs::create_symlink(model, in_folder("link.json"));
  EXPECT_EQ(find_overwriting({output}, {{"the model", in_folder("link.json")}}), std::nullopt);
  const auto refused = find_overwriting({output}, {{"the model", in_folder("other.json")}});
  EXPECT_EQ(refused, message("a.aluresult", "holds the results of a check of " +
                                                fs::proximate(model).string() +
                                                ", which the result file would overwrite; choose "
                                                "another file, or delete this one"));
}

TEST_F(OutputGuard, PassesOverFilesThatARunDoesNotHave) {
  const fs::path model = folder_.write("frame.json", model_text);
  EXPECT_EQ(find_overwriting({{"the table", std::nullopt}},
                             {{"the model", model}, {"the table of forces", std::nullopt}}),
            std::nullopt);
}

TEST_F(OutputGuard, TellsInOneLineOfAModelWhoseNameHasTwo) {
  std::string results("SQLite format 3\0", 16);
  results += std::string(52, '\1') + "AluR";
  const fs::path file = folder_.write("a.aluresult", results);
  const auto problem = find_overwriting(
      {{"the result file", file, FileKind::results, in_folder("b.json\nc.json: written\x1B[2K")}},
      {{"the model", in_folder("frame.json")}});
  ASSERT_TRUE(problem.has_value());
  EXPECT_EQ(problem->find_first_of("\n\x1B"), std::string::npos) << *problem;
  EXPECT_NE(problem->find("b.json c.json: written [2K, which "), std::string::npos) << *problem;
}

}  // namespace
}  // namespace aluframe::files
