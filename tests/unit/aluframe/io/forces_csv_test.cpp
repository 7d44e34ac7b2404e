#include <gtest/gtest.h>

#include <filesystem>
#include <fstream>

#include "tests/unit/aluframe/io/io_texts.h"

namespace aluframe::io {
namespace {

const std::string header = "element,case,position,N,Fy,Fz,Mx,My,Mz\n";
const std::string first_row = "1,1,0,1,2,3,4,5,6\n";
const std::string last_row = "1,1,4,7,8,9,10,11,12\n";

/// What reading a CSV text into the small model gives.
struct Outcome {
  std::string message = "no problem";  ///< without the file's path
  std::size_t rows = 0;
  model::Model model;
};

class ForcesCsv : public testing::Test {
 protected:
  ~ForcesCsv() override { std::filesystem::remove(path_); }

  Outcome read(const std::string& text, const std::string& units = "N") const {
    std::ofstream(path_, std::ios::binary) << text;
    Outcome outcome;
    outcome.model =
        model_of(replaced(small_model, R"("force": "N", "length": "mm")",
                          units == "N" ? R"("force": "N", "length": "mm")" : R"("force": "kN")"));
    const Result<std::size_t> result = read_forces_csv(path_, outcome.model);
    if (const Problem* problem = std::get_if<Problem>(&result)) {
      EXPECT_EQ(problem->file, path_.string());
      outcome.message = problem->place + (problem->place.empty() ? "" : ": ") + problem->text;
    } else {
      outcome.rows = std::get<std::size_t>(result);
    }
    return outcome;
  }
  std::string message(const std::string& text) const { return read(text).message; }

  const std::filesystem::path path_ =
      std::filesystem::path(testing::TempDir()) /
      (std::string("forces_") + testing::UnitTest::GetInstance()->current_test_info()->name() +
       ".csv");
};

using Row = model::SectionForces;

TEST_F(ForcesCsv, TwoRowsAreTheEnds) {
  const Outcome outcome = read(header + first_row + last_row);
  EXPECT_EQ(outcome.rows, 2U);
  const model::CaseForces* forces = outcome.model.forces.find(0, 0);
  ASSERT_NE(forces, nullptr);
  EXPECT_FALSE(forces->inner);
  EXPECT_EQ(forces->at[0], (Row{1, 2, 3, 4, 5, 6}));
  EXPECT_EQ(forces->at[4], (Row{7, 8, 9, 10, 11, 12}));
}

TEST_F(ForcesCsv, FiveRowsInAnyOrderAreAllPositions) {
  const Outcome outcome = read(header +
                               "2,1,3,30,0,0,0,0,0\n2,1,0,0,0,0,0,0,0\n2,1,2,20,0,0,0,0,0\n"
                               "2,1,4,40,0,0,0,0,0\n2,1,1,10,0,0,0,0,0\n");
  EXPECT_EQ(outcome.rows, 5U);
  const model::CaseForces* forces = outcome.model.forces.find(1, 0);
  ASSERT_NE(forces, nullptr);
  EXPECT_TRUE(forces->inner);
  for (std::size_t i = 0; i < 5; ++i) EXPECT_EQ(forces->at[i][0], 10.0F * static_cast<float>(i));
}

TEST_F(ForcesCsv, ValuesAreInTheModelsUnits) {
  const Outcome outcome = read(header + first_row + last_row, "kN");
  const model::CaseForces* forces = outcome.model.forces.find(0, 0);
  ASSERT_NE(forces, nullptr);
  // kN to N is 10³, kN·m to N·mm is 10⁶.
  EXPECT_EQ(forces->at[0], (Row{1e3F, 2e3F, 3e3F, 4e6F, 5e6F, 6e6F}));
}

TEST_F(ForcesCsv, ColumnsAreFoundByNameInAnyOrderAndCase) {
  const Outcome outcome =
      read("mz,MY,mx,fz,fy,n,Position,CASE,Element\n6,5,4,3,2,1,0,1,1\n12,11,10,9,8,7,4,1,1\n");
  EXPECT_EQ(outcome.message, "no problem");
  const model::CaseForces* forces = outcome.model.forces.find(0, 0);
  ASSERT_NE(forces, nullptr);
  EXPECT_EQ(forces->at[0], (Row{1, 2, 3, 4, 5, 6}));
}

TEST_F(ForcesCsv, SpreadsheetDialectIsRead) {
  // Byte order mark, quotes, CRLF, blank lines, signs, exponents and blanks.
  const Outcome outcome = read(
      "\xEF\xBB\xBF\"element\",case,position,N,Fy,Fz,Mx,My,Mz\r\n\r\n"
      "\"1\", 1 ,0,+1,-2.5,3e2,.5,\"5\",6\r\n,,,,,,,,\r\n1.0,1,4,0,0,0,0,0,0\r\n");
  EXPECT_EQ(outcome.message, "no problem");
  EXPECT_EQ(outcome.rows, 2U);
  const model::CaseForces* forces = outcome.model.forces.find(0, 0);
  ASSERT_NE(forces, nullptr);
  EXPECT_EQ(forces->at[0], (Row{1, -2.5F, 300, 0.5F, 5, 6}));
}

TEST_F(ForcesCsv, RowsReplaceTheForcesThatTheModelHad) {
  const Outcome outcome = read(header + "3,2,0,1,0,0,0,0,0\n3,2,4,1,0,0,0,0,0\n");
  EXPECT_EQ(outcome.model.forces.find(0, 0), nullptr);
  EXPECT_NE(outcome.model.forces.find(2, 1), nullptr);
}

TEST_F(ForcesCsv, FileWithAFaultLeavesTheModelAsItWas) {
  const Outcome outcome = read(header + first_row);
  EXPECT_NE(outcome.message, "no problem");
  EXPECT_EQ(outcome.model.forces, model_of(small_model).forces);
}

TEST_F(ForcesCsv, MissingFileCannotBeOpened) {
  model::Model model;
  const Result<std::size_t> result = read_forces_csv(path_, model);
  ASSERT_TRUE(std::holds_alternative<Problem>(result));
  EXPECT_EQ(std::get<Problem>(result).message(),
            path_.string() + ": cannot be opened: No such file or directory");
}

TEST_F(ForcesCsv, FileWithoutRowsIsRejected) {
  EXPECT_EQ(message(""), "is empty, expected a header line and rows of forces");
  EXPECT_EQ(message(header), "has no rows of forces below the header");
}

TEST_F(ForcesCsv, ByteThatIsNotUtf8IsFound) {
  EXPECT_EQ(message(header + "1,\xFF"),
            "line 2, column 3: found byte 0xFF, the file must be UTF-8");
}

TEST_F(ForcesCsv, MissingColumnIsNamed) {
  EXPECT_EQ(message("element,case,position,N,Fy,Fz,Mx,My\n"), "line 1: missing column \"Mz\"");
}

TEST_F(ForcesCsv, UnknownColumnIsNamedWithTheOneThatWasMeant) {
  EXPECT_EQ(message("elemnt,case,position,N,Fy,Fz,Mx,My,Mz\n"),
            "line 1: unknown column \"elemnt\", did you mean \"element\"?");
  EXPECT_EQ(message("element;case;position;N;Fy;Fz;Mx;My;Mz\n"),
            "line 1: unknown column \"element;case;position;N;Fy;Fz;Mx;My;Mz\", allowed are "
            "element, case, position, N, Fy, Fz, Mx, My, Mz");
}

TEST_F(ForcesCsv, RepeatedColumnIsNamed) {
  EXPECT_EQ(message("element,case,position,N,Fy,Fz,Mx,My,Mz,n\n"),
            "line 1: column \"N\" is given twice");
}

TEST_F(ForcesCsv, RowsOfAnotherLengthAreRejected) {
  EXPECT_EQ(message(header + "1,1,0,1,2,3,4,5\n"), "line 2: found 8 cells, the header has 9");
  EXPECT_EQ(message(header + "1,1,0,1,5,2,3,4,5,6\n"), "line 2: found 10 cells, the header has 9");
}

TEST_F(ForcesCsv, UnknownElementAndCaseAreNamed) {
  EXPECT_EQ(message(header + first_row + "\n99,1,0,0,0,0,0,0,0\n"),
            "line 4: element 99 does not exist");
  EXPECT_EQ(message(header + "1,7,0,0,0,0,0,0,0\n"), "line 2: case 7 does not exist");
}

TEST_F(ForcesCsv, CellThatIsNoNumberIsQuoted) {
  EXPECT_EQ(message(header + "1,1,0,1,2,x,4,5,6\n"), "line 2: Fz: found \"x\", must be a number");
  EXPECT_EQ(message(header + "1,1,0,1,2,3kN,4,5,6\n"),
            "line 2: Fz: found \"3kN\", must be a number");
  EXPECT_EQ(message(header + "1,1,0,1,2,,4,5,6\n"), "line 2: Fz: found \"\", must be a number");
  EXPECT_EQ(message(header + "1,1,0,1,2,+,4,5,6\n"), "line 2: Fz: found \"+\", must be a number");
}

TEST_F(ForcesCsv, NumberThatIsNotFiniteOrTooLargeIsRejected) {
  for (const std::string cell : {"nan", "inf", "-inf", "1e999", "2e30"}) {
    EXPECT_EQ(message(header + "1,1,0," + cell + ",2,3,4,5,6\n"),
              "line 2: N: found \"" + cell + "\", must be between -1e30 and 1e30");
  }
}

TEST_F(ForcesCsv, PositionsAreWholeNumbersFromZeroToFour) {
  EXPECT_EQ(message(header + "1,1,5,1,2,3,4,5,6\n"),
            "line 2: position: found \"5\", must be a whole number from 0 to 4");
  EXPECT_EQ(message(header + "1,1,0.5,1,2,3,4,5,6\n"),
            "line 2: position: found \"0.5\", must be a whole number from 0 to 4");
}

TEST_F(ForcesCsv, RowThatIsGivenTwiceIsRejectedWithTheLineOfTheFirst) {
  EXPECT_EQ(message(header + first_row + last_row + first_row),
            "line 4: element 1, case 1, position 0 is given before, in line 2");
}

TEST_F(ForcesCsv, MissingPositionsAreNamed) {
  EXPECT_EQ(message(header + first_row),
            "line 2: element 1, case 1: position 4 is missing, needed are 0 and 4, or 0 to 4");
  EXPECT_EQ(message(header + last_row),
            "line 2: element 1, case 1: position 0 is missing, needed are 0 and 4, or 0 to 4");
  EXPECT_EQ(message(header + first_row + last_row + "1,1,2,0,0,0,0,0,0\n"),
            "line 2: element 1, case 1: position 1 is missing, needed are 0 and 4, or 0 to 4");
}

}  // namespace
}  // namespace aluframe::io
