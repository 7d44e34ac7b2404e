// The member block and the section properties. Values are worked out by hand: a mm counts 2 length
// units, so areas have the factor 4 and second moments of area 16.

#include "tests/unit/tz_alu/report/report_fixture.h"

namespace {

using namespace report_test;
using testing::HasSubstr;

/// Area 3, Iyy = 3·11², Izz = 3·7²; dimensions 101, 102, ..., 108.
ALU_DGN_DATA SampleData() {
  ALU_DGN_DATA data;
  data.nElem = 12;
  data.nMembType = 2;
  ALU_SECT_DATA& sect = data.code.sect;
  sect.nShape = 1;
  for (int i = 0; i < 8; ++i) sect.dSize[i] = 101.0 + i;
  sect.dArea = 3.0;
  sect.dIyy = 363.0;
  sect.dIzz = 147.0;
  return data;
}

class MemberBlock : public ReportTest {
 protected:
  MemberBlock() {
    host_.model.elements[12] = {{1, 2}, 34, 56, 0.0};  // section 34, material 56
  }
  std::string Member(const ALU_DGN_DATA& data) {
    print_.ResetReport();
    print_.PrintMember(data);
    return Text();
  }
};

TEST_F(MemberBlock, ShowsNumbersUnitsAndSectionInThisOrder) {
  EXPECT_EQ(Member(SampleData()),
            Lines({
                Rule(),
                "  MEMBER NO = 12,   ELEMENT TYPE = Beam",
                "  MATERIAL NO = 56,   SECTION NO = 34",
                Rule(),
                "   UNIT SYSTEM : m, kN",
                "   Section Properties: ",
                "   Shape = H\uCB6FSection ",
                "   H=2.02000e+02, tw=2.04000e+02, B1=2.06000e+02, tf1=2.08000e+02, "
                "B2=2.10000e+02, tf2=2.12000e+02",
                "   Area=1.20000e+01, Iyy= 5.80800e+03, Izz=2.35200e+03, "
                "iy=4.40000e+01, iz=2.80000e+01",
            }));
}

TEST_F(MemberBlock, NamesTheElementTypes) {
  ALU_DGN_DATA data = SampleData();
  for (const auto& [type, name] :
       {std::pair(1, "Column"), {2, "Beam"}, {3, "Brace"}, {5, "Truss"}}) {
    data.nMembType = type;
    EXPECT_THAT(Member(data), HasSubstr(",   ELEMENT TYPE = " + std::string(name) + "\n"));
  }
}

TEST_F(MemberBlock, AnyOtherElementTypeIsADash) {
  ALU_DGN_DATA data = SampleData();
  for (const int type : {0, 4, 6, -1}) {
    data.nMembType = type;
    EXPECT_THAT(Member(data), HasSubstr(",   ELEMENT TYPE = --\n")) << type;
  }
}

TEST_F(MemberBlock, LargeNumbersHavePlainDigits) {
  ALU_DGN_DATA data = SampleData();
  data.nElem = 4294967295;
  host_.model.elements[4294967295] = {{1, 2}, 1234567, 7654321, 0.0};
  EXPECT_THAT(Member(data), HasSubstr("\n  MEMBER NO = 4294967295,   ELEMENT TYPE = Beam\n"
                                      "  MATERIAL NO = 7654321,   SECTION NO = 1234567\n"));
}

TEST_F(MemberBlock, AnElementThatTheHostLacksHasTheNumbersOfAnEmptyRecord) {
  host_.model.elements.clear();
  EXPECT_THAT(Member(SampleData()), HasSubstr("\n  MEMBER NO = 12,   ELEMENT TYPE = Beam\n"
                                              "  MATERIAL NO = 0,   SECTION NO = 0\n"));
}

TEST_F(MemberBlock, UnitNamesMayBeEmptyOrBeyondAscii) {
  host_.model.length_unit = L"";
  host_.model.force_unit = L"\u725B";
  print_.SetUnit();
  EXPECT_THAT(Member(SampleData()), HasSubstr("\n   UNIT SYSTEM : , \u725B\n"));
}

/// A code with a section block of its own.
struct OTHER_PRINT : CALU_GB50429_07Print {
  void PrintSection(const ALU_DGN_DATA& data) override { nShape = data.code.sect.nShape; }
  std::int32_t nShape = -1;
};

TEST_F(MemberBlock, EndsWithTheSectionBlockOfTheCodeInUse) {
  OTHER_PRINT other;
  other.SetReportPath(path_.wstring());
  other.SetUnit();
  other.PrintMember(SampleData());
  EXPECT_EQ(other.nShape, 1);
  EXPECT_TRUE(Text().ends_with("   UNIT SYSTEM : m, kN\n"));
}

// --- the section block ---

class SectionBlock : public ReportTest {
 protected:
  std::string Section(const ALU_DGN_DATA& data) {
    print_.ResetReport();
    print_.PrintSection(data);
    return Text();
  }
  /// The lines of shape and dimensions.
  std::string Shape(std::int32_t nShape) {
    ALU_DGN_DATA data = SampleData();
    data.code.sect.nShape = nShape;
    const std::string text = Section(data);
    const std::size_t begin = text.find("   Shape");
    return text.substr(begin, text.find("   Area") - begin);
  }
};

TEST_F(SectionBlock, AChannelHasTwoFlanges) {
  EXPECT_EQ(Shape(0),
            "   Shape = C\uCB6FSection \n"
            "   H=2.02000e+02, tw=2.04000e+02, B1=2.06000e+02, tf1=2.08000e+02, "
            "B2=2.10000e+02, tf2=2.12000e+02\n");
}

TEST_F(SectionBlock, AnHHasTwoFlanges) {
  EXPECT_EQ(Shape(1),
            "   Shape = H\uCB6FSection \n"
            "   H=2.02000e+02, tw=2.04000e+02, B1=2.06000e+02, tf1=2.08000e+02, "
            "B2=2.10000e+02, tf2=2.12000e+02\n");
}

TEST_F(SectionBlock, ATeeHasOneFlange) {
  EXPECT_EQ(Shape(2),
            "   Shape = T\uCB6FSection \n"
            "   H=2.02000e+02, tw=2.04000e+02, B=2.06000e+02, tf=2.08000e+02\n");
}

TEST_F(SectionBlock, ABoxHasADistanceOfItsWebs) {
  EXPECT_EQ(Shape(3),
            "   Shape = B\uCB6FSection \n"
            "   H=2.02000e+02, tw=2.04000e+02, B=2.06000e+02, tf1=2.08000e+02, "
            "C=2.10000e+02, tf2=2.12000e+02\n");
}

TEST_F(SectionBlock, APipeHasDiameterAndWall) {
  EXPECT_EQ(Shape(4), "   Shape = P\uCB6FSection \n   D=2.02000e+02, tw=2.04000e+02\n");
}

TEST_F(SectionBlock, ADoubleChannelHasAGap) {
  EXPECT_EQ(Shape(5),
            "   Shape = 2C\uCB6FSection \n"
            "   H=2.02000e+02, tw=2.04000e+02, B=2.06000e+02, tf=2.08000e+02, C=2.10000e+02\n");
}

TEST_F(SectionBlock, ASolidRoundHasADiameter) {
  EXPECT_EQ(Shape(6), "   Shape = SR\uCB6FSection \n   D=2.02000e+02\n");
}

TEST_F(SectionBlock, AnUnknownShapeIsShownAsASolidRound) {
  for (const std::int32_t nShape : {7, 100, -1}) {
    EXPECT_EQ(Shape(nShape), "   Shape = SR\uCB6FSection \n   D=2.02000e+02\n") << nShape;
  }
}

// √(363/3) = 11 mm and √(147/3) = 7 mm, times 0.001² instead of 0.001.
TEST_F(SectionBlock, RadiiAreScaledAsAreas) {
  SetUnits(1e-3, 1e-3);
  EXPECT_TRUE(Section(SampleData())
                  .ends_with("\n   Area=3.00000e-06, Iyy= 3.63000e-10, Izz=1.47000e-10, "
                             "iy=1.10000e-05, iz=7.00000e-06\n"));
}

TEST_F(SectionBlock, AZeroIsFixed) {
  ALU_DGN_DATA data = SampleData();
  data.code.sect.nShape = 6;
  data.code.sect.dSize[0] = 0.0;
  data.code.sect.dIzz = 0.0;
  EXPECT_THAT(Section(data), HasSubstr("\n   D=0.00000\n"));
  EXPECT_THAT(Section(data), HasSubstr(", Izz=0.00000, iy=4.40000e+01, iz=0.00000\n"));
}

TEST_F(SectionBlock, WithoutAreaTheRadiiAreNotFinite) {
  ALU_DGN_DATA data = SampleData();
  data.code.sect.dArea = 0.0;
  data.code.sect.dIzz = 0.0;
  EXPECT_THAT(Section(data),
              testing::ContainsRegex("   Area=0\\.00000, Iyy= 5\\.80800e\\+03, Izz=0\\.00000, "
                                     "iy=inf, iz=-?nan\n"));
}

TEST_F(SectionBlock, IsWrittenAloneToo) {
  EXPECT_TRUE(Section(SampleData()).starts_with("   Section Properties: \n   Shape = H"));
}

}  // namespace
