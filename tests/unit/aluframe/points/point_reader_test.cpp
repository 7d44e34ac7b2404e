#include "aluframe/points/point_reader.h"

#include <gtest/gtest.h>

#include "aluframe/services/text.h"

namespace {

using namespace aluframe::points;

Point point_of(std::string_view line) {
  const auto read = read_point(line);
  const auto* error = std::get_if<PointError>(&read);
  EXPECT_EQ(error, nullptr) << error->text;
  return error == nullptr ? std::get<Point>(read) : Point{};
}

std::string error_of(std::string_view line) {
  const auto read = read_point(line);
  const auto* error = std::get_if<PointError>(&read);
  return error == nullptr ? "no error" : error->text;
}

TEST(ReadPoint, MissingFieldsHaveTheDefaultsOfTheRecords) {
  const Point point = point_of("{}");
  EXPECT_EQ(point.id, "null");
  EXPECT_EQ(point.data.nCheckFlag[7], 1);
  EXPECT_EQ(point.data.code.sect.bWelded, 1);
  EXPECT_EQ(point.data.code.para.dCoef085, 0.85);
  EXPECT_EQ(point.data.code.para.dHazWidth, 30.0);
  EXPECT_EQ(point.data.code.para.nBetaMOpt[1], 1);
  EXPECT_EQ(point.force.dForce[0], 0.0);
}

TEST(ReadPoint, TakesNumbersWholeNumbersTextsAndLists) {
  const Point point = point_of(R"({"id": "a", "data": {"nElem": 4294967295, "code": {
      "sect": {"nShape": 5, "dSize": [1, 2, 3, 4, 5, 6, 7, 8.5], "dPtZ": [1, 2, -3, -4]},
      "matl": {"strGrade": "6061-T6", "nElast": 70000},
      "para": {"nBetaMOpt2": [2, 3], "dUserPhi": [0.5, 0.75]}},
      "dMembLength": 1e3, "nEndCond": [[0, 1], [2, 0]]},
      "force": {"dForce": [-1, 2, 3, 4, 5, 6], "nSesiType": -2147483648, "end": {"dMzJ": 7}}})");
  EXPECT_EQ(point.id, "\"a\"");
  EXPECT_EQ(point.data.nElem, 4294967295U);
  EXPECT_EQ(point.data.code.sect.nShape, 5);
  EXPECT_EQ(point.data.code.sect.dSize[7], 8.5);
  EXPECT_EQ(point.data.code.sect.dPtZ[3], -4.0);
  EXPECT_EQ(aluframe::services::to_utf8(point.data.code.matl.strGrade), "6061-T6");
  EXPECT_EQ(point.data.code.matl.nElast, 70000);
  EXPECT_EQ(point.data.code.para.nBetaMOpt2[1], 3);
  EXPECT_EQ(point.data.code.para.dUserPhi[1], 0.75);
  EXPECT_EQ(point.data.dMembLength, 1000.0);
  EXPECT_EQ(point.data.nEndCond[0][1], 1);
  EXPECT_EQ(point.data.nEndCond[1][0], 2);
  EXPECT_EQ(point.force.dForce[0], -1.0);
  EXPECT_EQ(point.force.nSesiType, std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(point.force.end.dMzJ, 7.0);
}

TEST(ReadPoint, TakesEveryFiniteNumber) {
  EXPECT_EQ(point_of(R"({"data": {"dMembLength": 1.7e308}})").data.dMembLength, 1.7e308);
  EXPECT_EQ(point_of(R"({"data": {"dMembLength": -4.9e-324}})").data.dMembLength, -4.9e-324);
}

TEST(ReadPoint, TheLabelIsAnyPlainValue) {
  EXPECT_EQ(point_of(R"({"id": "a\"b"})").id, R"("a\"b")");
  EXPECT_EQ(point_of(R"({"id": 12})").id, "12");
  EXPECT_EQ(point_of(R"({"id": 9007199254740992})").id, "9007199254740992");
  EXPECT_EQ(point_of(R"({"id": true})").id, "true");
  EXPECT_EQ(point_of(R"({"id": null})").id, "null");
}

struct BadLine {
  const char* name;
  const char* line;
  const char* error;
};

void PrintTo(const BadLine& bad, std::ostream* os) {
  *os << bad.name;
}

class BadPoint : public testing::TestWithParam<BadLine> {};

TEST_P(BadPoint, IsToldWithItsPlace) {
  EXPECT_EQ(error_of(GetParam().line), GetParam().error);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, BadPoint,
    testing::Values(
        BadLine{"NoObject", "[1]", "found a list, must be an object"},
        BadLine{"UnknownField", R"({"data": {"code": {"sect": {"nShap": 1}}}})",
                R"(/data/code/sect/nShap: unknown field, did you mean "nShape"?)"},
        BadLine{"FieldTwice", R"({"data": {}, "data": {}})", "/data: this field is given twice"},
        BadLine{"ShortList", R"({"data": {"code": {"sect": {"dSize": [1, 2, 3]}}}})",
                "/data/code/sect/dSize: found 3 values, must be 8"},
        BadLine{"LongInnerList", R"({"data": {"nEndCond": [[0, 0], [0, 0, 0]]}})",
                "/data/nEndCond/1: found 3 values, must be 2"},
        BadLine{"TextForNumber", R"({"force": {"dForce": [0, 0, "x", 0, 0, 0]}})",
                R"(/force/dForce/2: found "x", must be a number)"},
        BadLine{"NumberForText", R"({"data": {"code": {"matl": {"strGrade": 6061}}}})",
                "/data/code/matl/strGrade: found 6061, must be a text"},
        BadLine{
            "BrokenWhole", R"({"data": {"nMembType": 1.5}})",
            "/data/nMembType: found 1.5, must be a whole number from -2147483648 to 2147483647"},
        BadLine{"WholeBeyondItsRange", R"({"data": {"nElem": -1}})",
                "/data/nElem: found -1, must be a whole number from 0 to 4294967295"},
        BadLine{"NotFinite", R"({"data": {"dMembLength": NaN}})",
                "column 26: found NaN, a number must be finite"},
        BadLine{"BeyondDouble", R"({"data": {"dMembLength": 1e999}})",
                "/data/dMembLength: found 1e999, too large for a number"},
        BadLine{"LabelBeyondExactness", R"({"id": 9007199254740994})",
                "/id: found 9007199254740994, must be a text, true, false, null or a number up to "
                "2^53"},
        BadLine{"LabelList", R"({"id": [1]})",
                "/id: found a list, must be a text, true, false, null or a number up to 2^53"}),
    [](const auto& bad) { return std::string(bad.param.name); });

TEST(ReadPoint, BrokenJsonIsToldWithItsColumn) {
  EXPECT_TRUE(error_of(R"({"id": )").starts_with("column 8: broken JSON"))
      << error_of(R"({"id": )");
}

TEST(ReadPoint, DeepNestingIsRefused) {
  const std::string deep = std::string(100'000, '[');
  EXPECT_NE(error_of(deep), "no error");
}

}  // namespace
