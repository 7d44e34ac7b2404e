// The strength block, every variant typed by hand. The numbers are those of `DetailBlockTest`.

#include "tests/unit/tz_alu/report/detail_sample.h"

namespace {

using namespace report_test;

// U+D4FB, U+B611, U+F91A, U+70AC.
const std::string kTitle = "\uD4FB\uB611\uF91A\u70AC";

class StrengthBlock : public DetailBlockTest {
 protected:
  std::string Strength(double N, double My, double Mz) {
    SetForces(N, My, Mz);
    return Print(&CALU_GB50429_07Print::PrintStrength);
  }
};

TEST_F(StrengthBlock, WithoutAxialForceAndMomentIsABannerAlone) {
  EXPECT_EQ(Strength(0.0, 0.0, 0.0), Banner(kTitle));
}

TEST_F(StrengthBlock, OfCompression) {
  EXPECT_EQ(Strength(-11.0, 0.0, 0.0), Banner(kTitle) + Lines({
                                                            "   Aen =   4004.000",
                                                            "   f =    505.000",
                                                            "   (LCB=42, POS=1/2)",
                                                            "   N=  -110.000",
                                                            "   Rmax1=N/(f*Aen)="
                                                            "     0.601<1.00 ----> OK",
                                                        }));
}

TEST_F(StrengthBlock, OfTension) {
  EXPECT_EQ(Strength(11.0, 0.0, 0.0), Banner(kTitle) + Lines({
                                                           "   Aen =   4004.000",
                                                           "   f =    505.000",
                                                           "   (LCB=42, POS=1/2)",
                                                           "   N=   110.000",
                                                           "   Rmax1=N/(f*Aen)="
                                                           "     0.601<1.00 ----> OK",
                                                       }));
}

TEST_F(StrengthBlock, OfSeismicCompression) {
  SetSeismic();
  EXPECT_EQ(Strength(-11.0, 0.0, 0.0), Banner(kTitle) + Lines({
                                                            "   Aen =   4004.000",
                                                            "   f =    505.000",
                                                            "   (LCB=42, POS=1/2)",
                                                            "   N=  -110.000, \u251ARE=     0.751",
                                                            "   Rmax1=N/(f*Aen)="
                                                            "     0.601<1.00 ----> OK",
                                                        }));
}

TEST_F(StrengthBlock, OfSeismicTension) {
  SetSeismic();
  EXPECT_EQ(Strength(11.0, 0.0, 0.0), Banner(kTitle) + Lines({
                                                           "   Aen =   4004.000",
                                                           "   f =    505.000",
                                                           "   (LCB=42, POS=1/2)",
                                                           "   N=   110.000, \u251ARE=     0.751",
                                                           "   Rmax1=N/(f*Aen)="
                                                           "     0.601<1.00 ----> OK",
                                                       }));
}

TEST_F(StrengthBlock, OfBending) {
  EXPECT_EQ(Strength(0.0, 15.0, 16.0),
            Banner(kTitle) + Lines({
                                 "   Weny= 24008.000,  Wenz= 24024.000",
                                 "   f =    505.000",
                                 "   Gammay=     4.004,  Gammaz=     5.005",
                                 "   (LCB=42, POS=1/2)",
                                 "   My=   300.000, Mz=   320.000",
                                 "   Rmax1=My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)="
                                 "     0.601<1.00 ----> OK",
                             }));
}

TEST_F(StrengthBlock, OfSeismicBendingHasAStraySign) {
  SetSeismic();
  EXPECT_EQ(Strength(0.0, 15.0, 16.0),
            Banner(kTitle) + Lines({
                                 "   Weny= 24008.000,  Wenz= 24024.000",
                                 "   f =    505.000",
                                 "   Gammay=     4.004,  Gammaz=     5.005",
                                 "   (LCB=42, POS=1/2)",
                                 "   <My=   300.000, Mz=   320.000, \u251ARE=     0.751",
                                 "   Rmax1=My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)="
                                 "     0.601<1.00 ----> OK",
                             }));
}

TEST_F(StrengthBlock, OfCompressionWithBending) {
  EXPECT_EQ(Strength(-11.0, 15.0, -16.0),
            Banner(kTitle) + Lines({
                                 "   Aen =   4004.000,  Weny= 24008.000,  Wenz= 24024.000",
                                 "   f =    505.000",
                                 "   Gammay=     4.004,  Gammaz=     5.005",
                                 "   (LCB=42, POS=1/2)",
                                 "   N=  -110.000,  My=   300.000,  Mz=  -320.000",
                                 "   Rmax1=N/(f*Aen)+My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)="
                                 "     0.601<1.00 ----> OK",
                             }));
}

TEST_F(StrengthBlock, OfTensionWithBending) {
  EXPECT_EQ(Strength(11.0, -15.0, 16.0),
            Banner(kTitle) + Lines({
                                 "   Aen =   4004.000,  Weny= 24008.000,  Wenz= 24024.000",
                                 "   f =    505.000",
                                 "   Gammay=     4.004,  Gammaz=     5.005",
                                 "   (LCB=42, POS=1/2)",
                                 "   N=   110.000,  My=  -300.000,  Mz=   320.000",
                                 "   Rmax1=N/(f*Aen)+My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)="
                                 "     0.601<1.00 ----> OK",
                             }));
}

TEST_F(StrengthBlock, OfSeismicCompressionWithBending) {
  SetSeismic();
  EXPECT_EQ(
      Strength(-11.0, 15.0, 16.0),
      Banner(kTitle) + Lines({
                           "   Aen =   4004.000,  Weny= 24008.000,  Wenz= 24024.000",
                           "   f =    505.000",
                           "   Gammay=     4.004,  Gammaz=     5.005",
                           "   (LCB=42, POS=1/2)",
                           "   N=  -110.000,  My=   300.000,  Mz=   320.000, \u251ARE=     0.751",
                           "   Rmax1=N/(f*Aen)+My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)="
                           "     0.601<1.00 ----> OK",
                       }));
}

TEST_F(StrengthBlock, OfSeismicTensionWithBending) {
  SetSeismic();
  EXPECT_EQ(
      Strength(11.0, 0.0, 16.0),
      Banner(kTitle) + Lines({
                           "   Aen =   4004.000,  Weny= 24008.000,  Wenz= 24024.000",
                           "   f =    505.000",
                           "   Gammay=     4.004,  Gammaz=     5.005",
                           "   (LCB=42, POS=1/2)",
                           "   N=   110.000,  My=     0.000,  Mz=   320.000, \u251ARE=     0.751",
                           "   Rmax1=N/(f*Aen)+My/(Gammay*f*Weny)+Mz/(Gammaz*f*Wenz)="
                           "     0.601<1.00 ----> OK",
                       }));
}

// --- which variant ---

TEST_F(StrengthBlock, AMomentAboutEitherAxisIsBending) {
  EXPECT_THAT(Strength(0.0, 0.0, 16.0), testing::HasSubstr("   My=     0.000, Mz=   320.000\n"));
  EXPECT_THAT(Strength(0.0, -15.0, 0.0), testing::HasSubstr("   My=  -300.000, Mz=     0.000\n"));
}

TEST_F(StrengthBlock, AnAxialForceOfTheToleranceIsNone) {
  EXPECT_EQ(Strength(1e-10, 0.0, 0.0), Banner(kTitle));
  EXPECT_EQ(Strength(-1e-10, 9.9e-11, -9.9e-11), Banner(kTitle));
}

TEST_F(StrengthBlock, TheSeismicFactorShowsWhenTheSwitchIsExactlyOne) {
  for (const std::int32_t other : {0, 2, -1}) {
    data_.code.para.bSeismicGammaRE = other;
    EXPECT_THAT(Strength(0.0, 15.0, 16.0),
                testing::HasSubstr("\n   My=   300.000, Mz=   320.000\n"))
        << other;
  }
}

// The switch alone decides, whatever the combination.
TEST_F(StrengthBlock, TheSeismicFactorDoesNotDependOnTheCombination) {
  force_.nSesiType = 1;
  EXPECT_THAT(Strength(11.0, 0.0, 0.0), testing::HasSubstr("\n   N=   110.000\n"));
  SetSeismic();
  force_.nSesiType = 0;
  EXPECT_THAT(Strength(11.0, 0.0, 0.0), testing::HasSubstr("110.000, \u251ARE=     0.751\n"));
}

}  // namespace
