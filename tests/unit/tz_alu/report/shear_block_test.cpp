// The shear and slenderness blocks, every variant typed by hand. The numbers are those of
// `DetailBlockTest`.

#include "tests/unit/tz_alu/report/detail_sample.h"

namespace {

using namespace report_test;
using testing::HasSubstr;

const std::string kTitleY = "\uC608\uC20F\uD4FB\uB611\uF91A\u70AC(Y\u8568)";
const std::string kTitleZ = "\uC608\uC20F\uD4FB\uB611\uF91A\u70AC(Z\u8568)";
const std::string kTextY =
    "   \uC560\uAF2C\u9E9F\uAE43\u6E9Dy\u83C9\uB818\u8568\uB3E8\uC20F\u58C7\uC81C";
const std::string kTextZ =
    "   \uC560\uAF2C\u9E9F\uAE43\u6E9Dz\u83C9\uB818\u8568\uB3E8\uC20F\u58C7\uC81C";

const std::string kBlockY = Banner(kTitleY) + Lines({
                                                  "   fv=   757.500",
                                                  "   Iyy= 64016.000,  Izz= 64032.000",
                                                  kTextY,
                                                  "   (LCB=42, POS=1/2)",
                                                  "   Fy=   120.000",
                                                  "   R1=Fy*Qzb/(Izz*fv)="
                                                  "     0.602<1.00 ----> OK",
                                              });
const std::string kBlockZ = Banner(kTitleZ) + Lines({
                                                  "   fv=   757.500",
                                                  "   Iyy= 64016.000,  Izz= 64032.000",
                                                  kTextZ,
                                                  "   (LCB=42, POS=1/2)",
                                                  "   Fz=   130.000",
                                                  "   R2=Fz*Qyb/(Iyy*fv)="
                                                  "     0.603<1.00 ----> OK",
                                              });

class ShearBlock : public DetailBlockTest {
 protected:
  std::string ShearY() { return Print(&CALU_GB50429_07Print::PrintShearY); }
  std::string ShearZ() { return Print(&CALU_GB50429_07Print::PrintShearZ); }
  void SetBeam() { data_.nMembType = 2; }
};

TEST_F(ShearBlock, OfAColumnInBendingAboutY) {
  SetForces(0.0, 15.0, 0.0);
  EXPECT_EQ(ShearY(), kBlockY);
  EXPECT_EQ(ShearZ(), kBlockZ);
}

TEST_F(ShearBlock, OfAColumnInBendingAboutZ) {
  SetForces(0.0, 0.0, 16.0);
  EXPECT_EQ(ShearY(), kBlockY);
  EXPECT_EQ(ShearZ(), kBlockZ);
}

TEST_F(ShearBlock, IsABannerAloneForAColumnThatIsNotInPureBending) {
  for (const auto& [N, My] :
       {std::pair(-11.0, 0.0), {11.0, 0.0}, {-11.0, 15.0}, {11.0, 15.0}, {0.0, 0.0}}) {
    SetForces(N, My, 0.0);
    EXPECT_EQ(ShearY(), Banner(kTitleY)) << N << ' ' << My;
    EXPECT_EQ(ShearZ(), Banner(kTitleZ)) << N << ' ' << My;
  }
}

TEST_F(ShearBlock, IsWholeForABeamUnderAnyForces) {
  SetBeam();
  for (const auto& [N, My] :
       {std::pair(-11.0, 0.0), {11.0, 0.0}, {-11.0, 15.0}, {11.0, 15.0}, {0.0, 0.0}, {0.0, 15.0}}) {
    SetForces(N, My, 0.0);
    EXPECT_EQ(ShearY(), kBlockY) << N << ' ' << My;
    EXPECT_EQ(ShearZ(), kBlockZ) << N << ' ' << My;
  }
}

TEST_F(ShearBlock, IsABannerAloneForOtherMembersUnderAxialForce) {
  SetForces(-11.0, 0.0, 0.0);
  for (const std::int32_t type : {0, 1, 3, 4, 5}) {
    data_.nMembType = type;
    EXPECT_EQ(ShearY(), Banner(kTitleY)) << type;
    EXPECT_EQ(ShearZ(), Banner(kTitleZ)) << type;
  }
}

TEST_F(ShearBlock, OfASeismicCheckAboutYHasTheStrengthFactor) {
  SetBeam();
  SetSeismic();
  EXPECT_EQ(ShearY(), Banner(kTitleY) + Lines({
                                            "   fv=   757.500",
                                            "   Iyy= 64016.000,  Izz= 64032.000",
                                            kTextY,
                                            "   (LCB=42, POS=1/2)",
                                            "   Fy=     0.000, \u251ARE=     0.751",
                                            "   R1=Fy*Qzb/(Izz*fv)="
                                            "     0.602<1.00 ----> OK",
                                        }));
}

TEST_F(ShearBlock, OfASeismicCheckAboutZHasTheStrengthFactor) {
  SetBeam();
  SetSeismic();
  SetForces(-11.0, 0.0, 0.0);
  force_.dForce[2] = -13.0;
  EXPECT_EQ(ShearZ(), Banner(kTitleZ) + Lines({
                                            "   fv=   757.500",
                                            "   Iyy= 64016.000,  Izz= 64032.000",
                                            kTextZ,
                                            "   (LCB=42, POS=1/2)",
                                            "   Fz=  -130.000, \u251ARE=     0.751",
                                            "   R2=Fz*Qyb/(Iyy*fv)="
                                            "     0.603<1.00 ----> OK",
                                        }));
}

// --- slenderness ---

const std::string kTitle = "\uB080\u7396\uAD90\uF91A\u70AC";
const std::string kCompressed =
    "   \u83C9\u8568\u809D\u7B95\uBB50\uC22D\uB080\u7396\uAD90\uFF08kl/i\uF91A\u70AC\uFF09";
const std::string kPulled =
    "   \u83C9\u8568\u809D\uC717\uBB50\uC22D\uB080\u7396\uAD90\uFF08kl/i\uF91A\u70AC\uFF09";

class SlendernessBlock : public DetailBlockTest {
 protected:
  std::string Slenderness(double N) {
    SetForces(N, 15.0, 16.0);
    return Print(&CALU_GB50429_07Print::PrintSlenderness);
  }
  void SetSlenderness(double y, double z) {
    SetItem(RALU_SLENDERNESS_Y, y, 161.0);
    SetItem(RALU_SLENDERNESS_Z, z, 162.0);
  }
};

TEST_F(SlendernessBlock, OfACompressedMember) {
  EXPECT_EQ(Slenderness(-11.0), Banner(kTitle) + Lines({
                                                     kCompressed,
                                                     "   kl/i=   120.121<   150.150---->OK",
                                                 }));
}

TEST_F(SlendernessBlock, OfAPulledMember) {
  EXPECT_EQ(Slenderness(11.0), Banner(kTitle) + Lines({
                                                    kPulled,
                                                    "   kl/i=   120.121<   150.150---->OK",
                                                }));
}

TEST_F(SlendernessBlock, IsABannerAloneWithoutAxialForce) {
  for (const double N : {0.0, 1e-10, -1e-10}) {
    EXPECT_EQ(Slenderness(N), Banner(kTitle)) << N;
  }
}

TEST_F(SlendernessBlock, HasNoSeismicFactor) {
  SetSeismic();
  EXPECT_EQ(Slenderness(-11.0), Banner(kTitle) + Lines({
                                                     kCompressed,
                                                     "   kl/i=   120.121<   150.150---->OK",
                                                 }));
}

TEST_F(SlendernessBlock, TheLargerOfTheTwoAxesIsPrinted) {
  SetSlenderness(80.0, 120.0);
  EXPECT_THAT(Slenderness(-11.0), HasSubstr("kl/i=   120.000<"));
  SetSlenderness(130.0, 120.0);
  EXPECT_THAT(Slenderness(-11.0), HasSubstr("kl/i=   130.000<"));
  SetSlenderness(110.0, 110.0);
  EXPECT_THAT(Slenderness(-11.0), HasSubstr("kl/i=   110.000<"));
}

TEST_F(SlendernessBlock, TheLimitItselfPasses) {
  SetSlenderness(150.15, 0.0);
  EXPECT_THAT(Slenderness(11.0), HasSubstr("   kl/i=   150.150<   150.150---->OK\n"));
}

// Against 0 the difference is the slenderness itself.
TEST_F(SlendernessBlock, AnExcessOfTheToleranceFails) {
  SetSlot(ALU_REPORT_SLENDERNESS_LIMIT, 0.0);
  SetSlenderness(9.99e-11, 0.0);
  EXPECT_THAT(Slenderness(11.0), HasSubstr("   kl/i= 9.990e-11<     0.000---->OK\n"));
  SetSlenderness(1e-10, 0.0);
  EXPECT_THAT(Slenderness(11.0), HasSubstr("   kl/i= 1.000e-10>     0.000---->Not Acceptable!\n"));
}

TEST_F(SlendernessBlock, AThousandthBeyondTheLimitFails) {
  SetSlenderness(0.0, 150.151);
  EXPECT_THAT(Slenderness(-11.0), HasSubstr("   kl/i=   150.151>   150.150---->Not Acceptable!\n"));
}

}  // namespace
