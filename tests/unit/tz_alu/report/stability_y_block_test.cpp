// The stability block: axial compression, bending, and the y check of both together, every variant
// typed by hand. The numbers are those of `DetailBlockTest`.

#include "tests/unit/tz_alu/report/detail_sample.h"

namespace {

using namespace report_test;
using testing::HasSubstr;

const std::string kTitle = "\u83C9\u8568\u6D38\uB54D\uF91A\u70AC";
const std::string kTitleY = "\u83C9\u8568\u6D38\uB54D\uF91A\u70AC(Y\u8568)";
const std::string kInPlane = "   \u7428\uC564\u9C57\u75F0\uD2F1\uCDA9\uCF54\u6D38\uB54D:";

class StabilityBlock : public DetailBlockTest {
 protected:
  std::string Stability(double N, double My, double Mz) {
    SetForces(N, My, Mz);
    return Print(&CALU_GB50429_07Print::PrintStability);
  }
  void SetChannel() { data_.code.sect.nShape = 0; }
};

// --- one force alone ---

TEST_F(StabilityBlock, OfCompression) {
  EXPECT_EQ(Stability(-11.0, 0.0, 0.0),
            Banner(kTitle) + Lines({
                                 "   Phi=     6.006",
                                 "   (LCB=42, POS=1/2)",
                                 "   N=  -110.000",
                                 "   Rmax2=N/(Phi*f*A)=     0.604<1.00 ----> OK",
                             }));
}

TEST_F(StabilityBlock, OfSeismicCompression) {
  SetSeismic();
  EXPECT_EQ(Stability(-11.0, 0.0, 0.0),
            Banner(kTitle) + Lines({
                                 "   Phi=     6.006",
                                 "   (LCB=42, POS=1/2)",
                                 "   N=  -110.000, \u251ARE=     0.802",
                                 "   Rmax2=N/(Phi*f*A)=     0.604<1.00 ----> OK",
                             }));
}

TEST_F(StabilityBlock, OfBending) {
  EXPECT_EQ(Stability(0.0, 15.0, 16.0),
            Banner(kTitle) + Lines({
                                 "   Phi_b=     9.009",
                                 "   (LCB=42, POS=1/2)",
                                 "   My=   300.000",
                                 "   Rmax2=My/(Phi_b*f*Wey)=     0.604<1.00 ----> OK",
                             }));
}

TEST_F(StabilityBlock, OfSeismicBending) {
  SetSeismic();
  EXPECT_EQ(Stability(0.0, -15.0, 16.0),
            Banner(kTitle) + Lines({
                                 "   Phi_b=     9.009",
                                 "   (LCB=42, POS=1/2)",
                                 "   My=  -300.000, \u251ARE=     0.802",
                                 "   Rmax2=My/(Phi_b*f*Wey)=     0.604<1.00 ----> OK",
                             }));
}

TEST_F(StabilityBlock, IsEmptyForTensionAndForNoForce) {
  EXPECT_EQ(Stability(11.0, 0.0, 0.0), "");
  EXPECT_EQ(Stability(11.0, 15.0, 16.0), "");
  EXPECT_EQ(Stability(0.0, 0.0, 0.0), "");
}

// --- compression with bending ---

TEST_F(StabilityBlock, OfASymmetricSection) {
  EXPECT_EQ(
      Stability(-11.0, 15.0, 16.0),
      Banner(kTitleY) + Lines({
                            "   Phi_y=     7.007, Phi_z=     8.008",
                            "   Phi_by=    10.010, Phi_bz=    11.011",
                            "   Beta_my=    12.012, Beta_mz=    13.013",
                            "   Eta=    14.014, Eta1=    15.015",
                            "   N_Ey'= 17017.000",
                            "   (LCB=42, POS=1/2)",
                            "   N=  -110.000,  My=   300.000,  Mz=   320.000",
                            "   Rmax21=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*Wey*[1-Eta1*(N/N_Ey')]}"
                            "+Eta*Mz/(Phi_bz*f*Wez)=     0.604<1.00 ----> OK",
                        }));
}

TEST_F(StabilityBlock, OfASymmetricSectionUnderEarthquake) {
  SetSeismic();
  EXPECT_EQ(
      Stability(-11.0, -15.0, -16.0),
      Banner(kTitleY) + Lines({
                            "   Phi_y=     7.007, Phi_z=     8.008",
                            "   Phi_by=    10.010, Phi_bz=    11.011",
                            "   Beta_my=    12.012, Beta_mz=    13.013",
                            "   Eta=    14.014, Eta1=    15.015",
                            "   N_Ey'= 17017.000",
                            "   (LCB=42, POS=1/2)",
                            "   N=  -110.000,  My=  -300.000,  Mz=  -320.000, \u251ARE=     0.802",
                            "   Rmax21=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*Wey*[1-Eta1*(N/N_Ey')]}"
                            "+Eta*Mz/(Phi_bz*f*Wez)=     0.604<1.00 ----> OK",
                        }));
}

TEST_F(StabilityBlock, OfAChannelWhoseTopIsCompressed) {
  SetChannel();
  EXPECT_EQ(
      Stability(-11.0, 15.0, 16.0),
      Banner(kTitleY) + Lines({
                            kInPlane,
                            "   Ae=      8004",
                            "   Phi_y=     7.007,  Beta_my=    12.012",
                            "   Eta1=    15.015,  Eta2=    16.016",
                            "   N_Ey'= 17017.000",
                            "   (LCB=42, POS=1/2)",
                            "   N=  -110.000,  My=   300.000",
                            "   Rmax211=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*W1ey*[1-Eta1*(N/N_Ey')}="
                            "     0.719",
                            "   Rmax212=|N/(f*Ae)-Beta_my*My/{Gammay*f*W2ey*[1-Eta2*(N/N_Ey')}="
                            "     0.820",
                            "   Rmax21=MAX[Rmax211, Rmax212]=     0.820<1.00 ----> OK",
                        }));
}

TEST_F(StabilityBlock, OfAChannelWhoseTopIsCompressedUnderEarthquake) {
  SetChannel();
  SetSeismic();
  EXPECT_EQ(
      Stability(-11.0, 15.0, 16.0),
      Banner(kTitleY) + Lines({
                            kInPlane,
                            "   Ae=      8004",
                            "   Phi_y=     7.007,  Beta_my=    12.012",
                            "   Eta1=    15.015,  Eta2=    16.016",
                            "   N_Ey'= 17017.000",
                            "   (LCB=42, POS=1/2)",
                            "   N=  -110.000,  My=   300.000, \u251ARE=     0.802",
                            "   Rmax211=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*W1ey*[1-Eta1*(N/N_Ey')}="
                            "     0.719",
                            "   Rmax212=|N/(f*Ae)-Beta_my*My/{Gammay*f*W2ey*[1-Eta2*(N/N_Ey')}="
                            "     0.820",
                            "   Rmax21=MAX[Rmax211, Rmax212]=     0.820<1.00 ----> OK",
                        }));
}

TEST_F(StabilityBlock, OfAChannelWhoseTopIsPulled) {
  SetChannel();
  EXPECT_EQ(
      Stability(-11.0, -15.0, 16.0),
      Banner(kTitleY) + Lines({
                            kInPlane,
                            "   Phi_y=     7.007,  Beta_my=    12.012",
                            "   Eta1=    15.015",
                            "   N_Ey'= 17017.000",
                            "   (LCB=42, POS=1/2)",
                            "   N=  -110.000,  My=  -300.000,  Mz=   320.000",
                            "   Rmax21=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*Wey*[1-Eta1*(N/N_Ey')]}="
                            "     0.604<1.00 ----> OK",
                        }));
}

TEST_F(StabilityBlock, OfAChannelWhoseTopIsPulledUnderEarthquake) {
  SetChannel();
  SetSeismic();
  EXPECT_EQ(
      Stability(-11.0, 0.0, 16.0),
      Banner(kTitleY) + Lines({
                            kInPlane,
                            "   Phi_y=     7.007,  Beta_my=    12.012",
                            "   Eta1=    15.015",
                            "   N_Ey'= 17017.000",
                            "   (LCB=42, POS=1/2)",
                            "   N=  -110.000,  My=     0.000,  Mz=   320.000, \u251ARE=     0.802",
                            "   Rmax21=N/(Phi_y*f*A)+Beta_my*My/{Gammay*f*Wey*[1-Eta1*(N/N_Ey')]}="
                            "     0.604<1.00 ----> OK",
                        }));
}

// --- the two sides of a mono-symmetric section ---

TEST_F(StabilityBlock, AMomentOfExactlyTheToleranceCompressesNoTop) {
  SetChannel();
  EXPECT_THAT(Stability(-11.0, 1e-10, 16.0), testing::Not(HasSubstr("Rmax211=")));
  EXPECT_THAT(Stability(-11.0, 1.0001e-10, 16.0), HasSubstr("Rmax211="));
}

TEST_F(StabilityBlock, TheLargerSideGoverns) {
  SetChannel();
  SetSlot(ALU_REPORT_RMAX211, 3600.0);  // 0.9 of 4000
  EXPECT_THAT(Stability(-11.0, 15.0, 0.0), HasSubstr("Rmax212]=     0.900<1.00 ----> OK\n"));
  SetSlot(ALU_REPORT_RMAX212, 4800.0);  // 1.2
  EXPECT_THAT(Stability(-11.0, 15.0, 0.0),
              HasSubstr("Rmax212]=     1.200>1.00 ----> Not Acceptable!\n"));
}

TEST_F(StabilityBlock, TheSidesCompareWithTheirSigns) {
  SetChannel();
  SetSlot(ALU_REPORT_RMAX211, -3600.0);
  SetSlot(ALU_REPORT_RMAX212, 400.0);
  EXPECT_THAT(Stability(-11.0, 15.0, 0.0), HasSubstr("Rmax212]=     0.100<1.00 ----> OK\n"));
}

TEST_F(StabilityBlock, EqualSidesGovernTogether) {
  SetChannel();
  SetSlot(ALU_REPORT_RMAX211, 2000.0);
  SetSlot(ALU_REPORT_RMAX212, 2000.0);
  EXPECT_THAT(Stability(-11.0, 15.0, 0.0), HasSubstr("Rmax212]=     0.500<1.00 ----> OK\n"));
}

// Printed without decimals: cut, with an exponent below 1 and from 1e10 on. Areas have the
// factor 4.
TEST_F(StabilityBlock, TheAreaIsAWholeNumber) {
  SetChannel();
  const auto area = [this](double dA) {
    buffer_.sectpara.dA = dA;
    const std::string text = Stability(-11.0, 15.0, 0.0);
    const std::size_t begin = text.find("   Ae=");
    return text.substr(begin, text.find('\n', begin) - begin);
  };
  EXPECT_EQ(area(500.2), "   Ae=      2000");  // 2000.8
  EXPECT_EQ(area(0.25), "   Ae=         1");
  EXPECT_EQ(area(0.2), "   Ae=     8e-01");
  EXPECT_EQ(area(0.0), "   Ae=         0");
  EXPECT_EQ(area(2.5e9), "   Ae=     1e+10");
}

TEST_F(StabilityBlock, WithoutCapacityTheSidesAreNotFinite) {
  SetChannel();
  SetItem(RALU_STABILITY, 1.0, 0.0);
  SetSlot(ALU_REPORT_RMAX212, 0.0);
  EXPECT_THAT(Stability(-11.0, 15.0, 0.0),
              testing::ContainsRegex("W1ey.*=       inf\n.*W2ey.*=  ?    ?-?nan\n"));
}

}  // namespace
