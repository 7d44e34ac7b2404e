#include "aluframe/io/catalogue_csv.h"

#include <gmock/gmock.h>

#include <fstream>

namespace aluframe::io {
namespace {

using model::Shape;
using testing::ElementsAre;

class CatalogueCsv : public testing::Test {
 protected:
  ~CatalogueCsv() override { std::filesystem::remove(path_); }

  /// The profiles of a file with this text, behind those that were read before.
  std::vector<catalogue::Profile> read(const std::string& text,
                                       std::vector<catalogue::Profile> own = {}) const {
    write(text);
    const auto result = read_catalogue_csv(path_, own);
    if (const auto* problem = std::get_if<Problem>(&result)) ADD_FAILURE() << problem->message();
    return own;
  }
  /// The message about a file, without its path; `own` must stay as it was.
  std::string message(const std::string& text, std::vector<catalogue::Profile> own = {}) const {
    write(text);
    const std::size_t before = own.size();
    const auto result = read_catalogue_csv(path_, own);
    const auto* problem = std::get_if<Problem>(&result);
    if (problem == nullptr) return "no problem";
    EXPECT_EQ(problem->file, path_.string());
    EXPECT_EQ(own.size(), before);
    return problem->place + (problem->place.empty() ? "" : ": ") + problem->text;
  }

  const std::filesystem::path path_ =
      std::filesystem::path(testing::TempDir()) /
      (std::string("catalogue_") + testing::UnitTest::GetInstance()->current_test_info()->name() +
       ".csv");

 private:
  void write(const std::string& text) const { std::ofstream(path_, std::ios::binary) << text; }
};

TEST_F(CatalogueCsv, NamesShapesAndDimensions) {
  const auto own = read("name,shape,H,B1,tw,tf1\nPost,H,200,100,6,10\n");
  ASSERT_EQ(own.size(), 1U);
  EXPECT_EQ(own[0].name, "Post");
  EXPECT_EQ(own[0].shape, Shape::h_section);
  EXPECT_THAT(own[0].dimensions, ElementsAre(200, 100, 6, 10, 100, 10, 0, 0));
}

TEST_F(CatalogueCsv, TakesColumnsInAnyOrderAndAnyCase) {
  const auto own = read("T,d,SHAPE,Name\n5,100,P,Rail\n");
  EXPECT_THAT(own.at(0).dimensions, ElementsAre(100, 5, 0, 0, 0, 0, 0, 0));
}

TEST_F(CatalogueCsv, FillsEmptyCellsWithTheDefaults) {
  const auto own = read("name,shape,H,B,tw,tf1,C,tf2,B1\nBox,B,150,60,3,4,,,\n");
  EXPECT_THAT(own.at(0).dimensions, ElementsAre(150, 60, 3, 4, 57, 4, 0, 0));
}

TEST_F(CatalogueCsv, ConvertsFromTheRowsUnit) {
  // 1 in is 25.4 mm, 1 cm is 10 mm; without a unit the numbers are mm.
  const auto own = read("name,shape,D,t,unit\nA,P,4,0.25,in\nB,P,10,0.5,cm\nC,P,100,5,\n");
  EXPECT_THAT(own.at(0).dimensions[0], testing::DoubleEq(101.6));
  EXPECT_THAT(own.at(0).dimensions[1], testing::DoubleEq(6.35));
  EXPECT_THAT(own.at(1).dimensions[1], testing::DoubleEq(5.0));
  EXPECT_EQ(own.at(2).dimensions[0], 100.0);
}

TEST_F(CatalogueCsv, KeepsTheSourceOrSaysWhereTheRowStands) {
  const auto own = read("name,shape,D,source\nA,SR,10,Drawing 7\nB,SR,12,\n");
  EXPECT_EQ(own.at(0).source, "Drawing 7");
  EXPECT_EQ(own.at(1).source, path_.filename().string() + ", line 3");
}

TEST_F(CatalogueCsv, AppendsToOtherCatalogues) {
  const auto own = read("name,shape,D\nB,SR,12\n", {{"A", Shape::solid_round, {10}, "a.csv", ""}});
  ASSERT_EQ(own.size(), 2U);
  EXPECT_EQ(own[1].name, "B");
}

TEST_F(CatalogueCsv, WithABadHeaderSaysSo) {
  EXPECT_EQ(message(""), "is empty, expected a header line and rows of profiles");
  EXPECT_EQ(message("name,shape,D\n"), "has no rows of profiles below the header");
  EXPECT_EQ(message("name,D\n"), "line 1: missing column \"shape\"");
  EXPECT_EQ(message("shape,D\n"), "line 1: missing column \"name\"");
  EXPECT_EQ(message("name,shape,name\n"), "line 1: column \"name\" is given twice");
  EXPECT_EQ(message("name,shapes,D\n"),
            "line 1: unknown column \"shapes\", did you mean \"shape\"?");
}

TEST_F(CatalogueCsv, WithABadRowNamesItsLine) {
  const std::string header = "name,shape,D,t,unit\nGood,P,60,3,\n";
  EXPECT_EQ(message(header + "A,P,60\n"), "line 3: found 3 cells, the header has 5");
  EXPECT_EQ(message(header + ",P,60,3,\n"), "line 3: name: must not be empty");
  EXPECT_EQ(message(header + "\"A\nB\",P,60,3,\n"),
            "line 3: name: found U+000A behind \"A\", must be one line of text without control "
            "characters");
  EXPECT_EQ(message(header + "\"A\xE2\x80\xAE\",P,60,3,\n"),
            "line 3: name: found U+202E behind \"A\", must be one line of text without control "
            "characters");
  EXPECT_EQ(message(header + std::string(61, 'A') + ",P,60,3,\n"),
            "line 3: name: found \"" + std::string(60, 'A') + "...\", must be at most 60 letters");
  EXPECT_EQ(message(header + "A,Q,60,3,\n"),
            "line 3: shape: found \"Q\", must be one of C, H, T, B, P, 2C, SR");
  EXPECT_EQ(message(header + "A,UP,,,\n"),
            "line 3: shape: found \"UP\", must be one of C, H, T, B, P, 2C, SR");
  EXPECT_EQ(message(header + "A,P,60,thin,\n"), "line 3: t: found \"thin\", must be a number");
  EXPECT_EQ(message(header + "A,P,1e31,3,\n"),
            "line 3: D: found \"1e31\", must be between -1e30 and 1e30");
  EXPECT_EQ(message(header + "A,P,60,,\n"), "line 3: t: is empty, shape P needs it");
  EXPECT_EQ(message(header + "A,SR,60,3,\n"),
            "line 3: t: found \"3\", shape SR has no such dimension");
  EXPECT_EQ(message(header + "A,P,60,3,mile\n"),
            "line 3: unit: found \"mile\", must be one of m, cm, mm, ft, in");
}

TEST_F(CatalogueCsv, WithAProfileThatCannotBeBuiltSaysWhy) {
  EXPECT_EQ(message("name,shape,D,t\nA,P,60,-3\n"),
            "line 2: \"A\" cannot be built: t is -3 mm: must be more than 0");
  EXPECT_EQ(
      message("name,shape,D,t\nA,P,60,31\n"),
      "line 2: \"A\" cannot be built: t is 31 mm: the wall is thicker than the radius (D 60 mm)");
}

TEST_F(CatalogueCsv, WithADimensionOutOfBoundsNamesIt) {
  EXPECT_EQ(message("name,shape,H,B1,tw,tf1,unit\nA,H,1e20,150,8,12,\n"),
            "line 2: \"A\" cannot be built: H is 1e+20 mm: must be between 0.001 and 100000 mm");
  EXPECT_EQ(message("name,shape,H,B1,tw,tf1,unit\nA,H,101,1,0.1,0.1,m\n"),
            "line 2: \"A\" cannot be built: H is 101000 mm: must be between 0.001 and 100000 mm");
  EXPECT_EQ(message("name,shape,D\nA,SR,1e-308\n"),
            "line 2: \"A\" cannot be built: D is 1e-308 mm: must be between 0.001 and 100000 mm");
  for (const std::string number : {"nan", "inf", "1e308"}) {
    EXPECT_EQ(message("name,shape,D\nA,SR," + number + "\n"),
              "line 2: D: found \"" + number + "\", must be between -1e30 and 1e30");
  }
}

TEST_F(CatalogueCsv, HasItsSourceOnOneLine) {
  EXPECT_EQ(message("name,shape,D,source\nA,SR,10,\"page 7\nMEMBER NO = 77\"\n"),
            "line 2: source: found U+000A behind \"page 7\", must be one line of text without "
            "control characters");
}

TEST_F(CatalogueCsv, GivesEveryNameOnce) {
  EXPECT_EQ(message("name,shape,D\nA,SR,10\nB,SR,12\nA,SR,14\n"),
            "line 4: \"A\" is given before, in line 2");
  EXPECT_EQ(message("name,shape,D\nA,SR,10\n", {{"A", Shape::solid_round, {10}, "a.csv", ""}}),
            "line 2: \"A\" is given in a.csv");
  EXPECT_EQ(message("name,shape,D\nAA I 6x4.03,SR,10\n"),
            "line 2: \"AA I 6x4.03\" names a section without a catalogue, choose another");
  EXPECT_EQ(message("name,shape,D\nSR 10,SR,12\n"),
            "line 2: \"SR 10\" names a section without a catalogue, choose another");
}

TEST_F(CatalogueCsv, ThatIsNotThereSaysSo) {
  std::vector<catalogue::Profile> own;
  const auto result = read_catalogue_csv(path_, own);
  EXPECT_NE(std::get<Problem>(result).text, "");
  EXPECT_EQ(std::get<Problem>(result).file, path_.string());
}

}  // namespace
}  // namespace aluframe::io
