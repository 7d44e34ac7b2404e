// The z check of compression with bending, every variant typed by hand. The numbers are those of
// `DetailBlockTest`.

#include <cmath>

#include "tests/unit/tz_alu/report/detail_sample.h"

namespace {

using namespace report_test;
using testing::HasSubstr;

const std::string kTitleZ = "\u83C9\u8568\u6D38\uB54D\uF91A\u70AC(Z\u8568)";
const std::string kOutOfPlane = "   \u7428\uC564\u9C57\u75F0\uD2F1\uCDA9\u68CD\u6D38\uB54D:";

class CombinedStabilityBlock : public DetailBlockTest {
 protected:
  std::string Combined(double N, double My, double Mz) {
    SetForces(N, My, Mz);
    return Print(&CALU_GB50429_07Print::PrintCombinedStability);
  }
  void SetTee() { data_.code.sect.nShape = 2; }
};

TEST_F(CombinedStabilityBlock, IsABannerAloneUnlessCompressionAndBendingActTogether) {
  EXPECT_EQ(Combined(-11.0, 0.0, 0.0), Banner(kTitleZ));
  EXPECT_EQ(Combined(11.0, 0.0, 0.0), Banner(kTitleZ));
  EXPECT_EQ(Combined(0.0, 15.0, 16.0), Banner(kTitleZ));
  EXPECT_EQ(Combined(11.0, 15.0, 16.0), Banner(kTitleZ));
  EXPECT_EQ(Combined(0.0, 0.0, 0.0), Banner(kTitleZ));
}

TEST_F(CombinedStabilityBlock, OfASymmetricSection) {
  EXPECT_EQ(Combined(-11.0, 15.0, 16.0),
            Banner(kTitleZ) +
                Lines({
                    "   Phi_y=     7.007, Phi_z=     8.008",
                    "   Phi_by=    10.010, Phi_bz=    11.011",
                    "   Beta_my=    12.012, Beta_mz=    13.013",
                    "   Eta=    14.014, Eta1=    15.015",
                    "   N_Ez'= 18018.000",
                    "   (LCB=42, POS=1/2)",
                    "   N=  -110.000,  My=   300.000,  Mz=   320.000",
                    "   Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_by*f*Wey)"
                    "+Beta_mz*Mz/{Gammaz*f*Wez*[1-Eta1*(N/N_Ez')]}=     0.605<1.00 ----> OK",
                }));
}

TEST_F(CombinedStabilityBlock, OfASymmetricSectionUnderEarthquake) {
  SetSeismic();
  EXPECT_EQ(Combined(-11.0, -15.0, -16.0),
            Banner(kTitleZ) +
                Lines({
                    "   Phi_y=     7.007, Phi_z=     8.008",
                    "   Phi_by=    10.010, Phi_bz=    11.011",
                    "   Beta_my=    12.012, Beta_mz=    13.013",
                    "   Eta=    14.014, Eta1=    15.015",
                    "   N_Ez'= 18018.000",
                    "   (LCB=42, POS=1/2)",
                    "   N=  -110.000,  My=  -300.000,  Mz=  -320.000, \u251ARE=     0.802",
                    "   Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_by*f*Wey)"
                    "+Beta_mz*Mz/{Gammaz*f*Wez*[1-Eta1*(N/N_Ez')]}=     0.605<1.00 ----> OK",
                }));
}

TEST_F(CombinedStabilityBlock, OfATeeWhoseTopIsCompressed) {
  SetTee();
  EXPECT_EQ(Combined(-11.0, 15.0, 16.0),
            Banner(kTitleZ) + Lines({
                                  kOutOfPlane,
                                  "   Phi_z=     8.008,  Phi_b=    10.010",
                                  "   Eta=    14.014",
                                  "   (LCB=42, POS=1/2)",
                                  "   N=  -110.000,  My=   300.000",
                                  "   Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_b*f*W1ey)="
                                  "     0.605<1.00 ----> OK",
                              }));
}

TEST_F(CombinedStabilityBlock, OfATeeWhoseTopIsCompressedUnderEarthquake) {
  SetTee();
  SetSeismic();
  EXPECT_EQ(Combined(-11.0, 15.0, 16.0),
            Banner(kTitleZ) + Lines({
                                  kOutOfPlane,
                                  "   Phi_z=     8.008,  Phi_b=    10.010",
                                  "   Eta=    14.014",
                                  "   (LCB=42, POS=1/2)",
                                  "   N=  -110.000,  My=   300.000, \u251ARE=     0.802",
                                  "   Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_b*f*W1ey)="
                                  "     0.605<1.00 ----> OK",
                              }));
}

TEST_F(CombinedStabilityBlock, OfATeeWhoseTopIsPulled) {
  SetTee();
  EXPECT_EQ(Combined(-11.0, -15.0, 16.0),
            Banner(kTitleZ) + Lines({
                                  kOutOfPlane,
                                  "   Phi_z=     8.008,  Phi_b=    10.010",
                                  "   Eta=    14.014",
                                  "   (LCB=42, POS=1/2)",
                                  "   N=  -110.000,  My=  -300.000,  Mz=   320.000",
                                  "   Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_b*f*Wey)="
                                  "     0.605<1.00 ----> OK",
                              }));
}

TEST_F(CombinedStabilityBlock, OfATeeWhoseTopIsPulledUnderEarthquake) {
  SetTee();
  SetSeismic();
  EXPECT_EQ(
      Combined(-11.0, 0.0, 16.0),
      Banner(kTitleZ) + Lines({
                            kOutOfPlane,
                            "   Phi_z=     8.008,  Phi_b=    10.010",
                            "   Eta=    14.014",
                            "   (LCB=42, POS=1/2)",
                            "   N=  -110.000,  My=     0.000,  Mz=   320.000, \u251ARE=     0.802",
                            "   Rmax22=N/(Phi_z*f*A)+Eta*My/(Phi_b*f*Wey)="
                            "     0.605<1.00 ----> OK",
                        }));
}

TEST_F(CombinedStabilityBlock, AMomentOfExactlyTheToleranceCompressesNoTop) {
  SetTee();
  EXPECT_THAT(Combined(-11.0, 1e-10, 16.0), HasSubstr("f*Wey)="));
  EXPECT_THAT(Combined(-11.0, 1.0001e-10, 16.0), HasSubstr("f*W1ey)="));
}

// --- which sections are mono-symmetric ---

class MonoSymmetry : public testing::Test {
 protected:
  static ALU_SECT_DATA Section(std::int32_t nShape) {
    ALU_SECT_DATA sect;
    sect.nShape = nShape;
    return sect;
  }
  // The H's flange dimensions: B1, tf1, B2, tf2.
  static bool OfH(double B1, double tf1, double B2, double tf2) {
    ALU_SECT_DATA sect = Section(1);
    const double size[] = {300.0, 8.0, B1, tf1, B2, tf2, 1.0, 2.0};
    std::copy(std::begin(size), std::end(size), std::begin(sect.dSize));
    return CALU_GB50429_07Print::IsMonoSymmetric(sect);
  }
};

TEST_F(MonoSymmetry, ChannelsAndTeesAlwaysAre) {
  EXPECT_TRUE(CALU_GB50429_07Print::IsMonoSymmetric(Section(0)));
  EXPECT_TRUE(CALU_GB50429_07Print::IsMonoSymmetric(Section(2)));
}

TEST_F(MonoSymmetry, OtherShapesThanCTAndHNeverAre) {
  for (const std::int32_t nShape : {3, 4, 5, 6, 7, -1}) {
    ALU_SECT_DATA sect = Section(nShape);
    for (int i = 0; i < 8; ++i) sect.dSize[i] = 10.0 * i;
    EXPECT_FALSE(CALU_GB50429_07Print::IsMonoSymmetric(sect)) << nShape;
  }
}

TEST_F(MonoSymmetry, AnHIsWhenItsFlangesDifferInWidthOrThickness) {
  EXPECT_FALSE(OfH(150.0, 12.0, 150.0, 12.0));
  EXPECT_TRUE(OfH(150.0, 12.0, 149.0, 12.0));
  EXPECT_TRUE(OfH(150.0, 12.0, 151.0, 12.0));
  EXPECT_TRUE(OfH(150.0, 12.0, 150.0, 11.0));
  EXPECT_TRUE(OfH(150.0, 12.0, 150.0, 13.0));
}

TEST_F(MonoSymmetry, AWidthIsNotComparedWithAThickness) {
  EXPECT_FALSE(OfH(12.0, 150.0, 12.0, 150.0));
  EXPECT_TRUE(OfH(12.0, 150.0, 150.0, 12.0));
}

// Against 0 the difference is the value itself, without rounding.
TEST_F(MonoSymmetry, ADifferenceOfExactlyTheToleranceCounts) {
  EXPECT_TRUE(OfH(1e-10, 12.0, 0.0, 12.0));
  EXPECT_TRUE(OfH(0.0, 12.0, 1e-10, 12.0));
  EXPECT_TRUE(OfH(150.0, 1e-10, 150.0, 0.0));
  EXPECT_TRUE(OfH(150.0, 0.0, 150.0, 1e-10));
}

TEST_F(MonoSymmetry, ADifferenceJustBelowTheToleranceDoesNotCount) {
  const double below = std::nextafter(1e-10, 0.0);
  EXPECT_FALSE(OfH(below, 12.0, 0.0, 12.0));
  EXPECT_FALSE(OfH(0.0, 12.0, below, 12.0));
  EXPECT_FALSE(OfH(150.0, below, 150.0, 0.0));
  EXPECT_FALSE(OfH(150.0, 0.0, 150.0, below));
}

TEST_F(CombinedStabilityBlock, AnHWithUnequalFlangesIsMonoSymmetric) {
  data_.code.sect.dSize[4] = 149.0;
  EXPECT_THAT(Combined(-11.0, 15.0, 16.0), HasSubstr(kOutOfPlane));
  EXPECT_THAT(Print(&CALU_GB50429_07Print::PrintStability), HasSubstr("Rmax211="));
}

}  // namespace
