// Materials as the checks use them, from the host's design materials.

#include <gmock/gmock.h>

#include <cstdint>
#include <limits>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::ElementsAre;
using testing::IsEmpty;

class MaterialBuffer : public ManagerTest {
 protected:
  MaterialBuffer() : ManagerTest(test_support::three_element_model()) {}

  /// The whole number that a modulus is kept as.
  std::int32_t Modulus(double elast) {
    T_MATD_D matl;
    matl.dElast = elast;
    ALU_MATL_DATA out;
    EXPECT_EQ(manager_.GetMatd(matl, out), 1);
    return out.nElast;
  }
};

TEST_F(MaterialBuffer, EveryFieldIsTaken) {
  T_MATD_D matl;
  matl.strStandard = L"GB50429-07(A)";
  matl.strGrade = L"6063A-T5";
  matl.dElast = 70000;
  matl.dPoisson = 0.3;
  matl.dFu = 200;
  matl.dF02Thin = 160;
  matl.dF02Thick = 150;
  ALU_MATL_DATA out;
  EXPECT_EQ(manager_.GetMatd(matl, out), 1);
  EXPECT_TRUE(out.strStandard == L"GB50429-07(A)");
  EXPECT_TRUE(out.strGrade == L"6063A-T5");
  EXPECT_EQ(out.nElast, 70000);
  EXPECT_EQ(out.dPoisson, 0.3);
  EXPECT_EQ(out.dFu, 200.0);
  EXPECT_EQ(out.dF02Thin, 160.0);
  EXPECT_EQ(out.dF02Thick, 150.0);
}

TEST_F(MaterialBuffer, TheModulusLosesItsFraction) {
  EXPECT_EQ(Modulus(70000.9), 70000);
  EXPECT_EQ(Modulus(-70000.9), -70000);
}

TEST_F(MaterialBuffer, AModulusThatNoWholeNumberHoldsBecomesTheNearestOne) {
  constexpr double kInf = std::numeric_limits<double>::infinity();
  EXPECT_EQ(Modulus(7e10), 2147483647);
  EXPECT_EQ(Modulus(kInf), 2147483647);
  EXPECT_EQ(Modulus(-7e10), std::numeric_limits<std::int32_t>::min());
  EXPECT_EQ(Modulus(-kInf), std::numeric_limits<std::int32_t>::min());
}

TEST_F(MaterialBuffer, TheLargestWholeNumbersAreKept) {
  EXPECT_EQ(Modulus(2147483646.9), 2147483646);
  EXPECT_EQ(Modulus(2147483647.9), 2147483647);
  EXPECT_EQ(Modulus(-2147483647.9), -2147483647);
}

TEST_F(MaterialBuffer, AModulusThatIsNoNumberBecomesZero) {
  EXPECT_EQ(Modulus(std::numeric_limits<double>::quiet_NaN()), 0);
}

TEST_F(MaterialBuffer, ElementsOfOneMaterialHaveItConvertedOnce) {
  EXPECT_EQ(manager_.MakeBuffMatl(Keys({1, 2, 3})), 1);
  EXPECT_THAT(host_.log.events, ElementsAre("material 1 read"));
}

TEST_F(MaterialBuffer, EachElementGetsTheMaterialOfItsNumber) {
  host_.model.materials[2].strGrade = L"5083-H112";
  host_.model.elements[3].nMatl = 2;
  Build({1, 3});
  ALU_DGN_DATA first;
  ALU_DGN_DATA third;
  manager_.GetDgnData(1, first);
  manager_.GetDgnData(3, third);
  EXPECT_TRUE(first.code.matl.strGrade == L"6061-T6");
  EXPECT_TRUE(third.code.matl.strGrade == L"5083-H112");
}

TEST_F(MaterialBuffer, UnknownElementsAndMaterialsAreSkippedInSilence) {
  host_.model.elements[2].nMatl = 99;
  EXPECT_EQ(manager_.MakeBuffMatl(Keys({8, 2, 1})), 1);
  EXPECT_THAT(host_.log.events, ElementsAre("material 99 read", "material 1 read"));
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(MaterialBuffer, BuildingAgainForgetsTheMaterialsBefore) {
  Build({1});
  manager_.MakeBuffMatl(Keys({}));
  ALU_DGN_DATA data;
  EXPECT_EQ(manager_.GetDgnData(1, data), 0);
}

}  // namespace
