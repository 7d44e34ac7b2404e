// Design parameters of one element: settings of the model, then its own attributes.

#include <gmock/gmock.h>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::ElementsAre;

class Parameters : public ManagerTest {
 protected:
  Parameters() : ManagerTest(test_support::one_element_model()) {}

  /// Parameters of element 1.
  ALU_PARA_DATA Para() {
    Build({1});
    ALU_PARA_DATA para;
    EXPECT_EQ(manager_.GetPara(1, para), 1);
    return para;
  }
  ALU_PARA_DATA ParaWith(const T_DALU_D& settings) {
    host_.model.settings = settings;
    return Para();
  }
};

TEST_F(Parameters, WithoutSettingsTheHostsDefaultsHold) {
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.dGamma0, 1.0);
  EXPECT_EQ(para.dCoef085, 0.85);
  EXPECT_EQ(para.bRib, 1);
  EXPECT_EQ(para.dRibRatio, 1.2);
  EXPECT_EQ(para.bSeismicGammaRE, 0);
  EXPECT_EQ(para.dGammaREStrength, 0.75);
  EXPECT_EQ(para.dGammaREStability, 0.8);
}

TEST_F(Parameters, SettingsOfTheModelAreTaken) {
  T_DALU_D settings;
  settings.bRib = 0;
  settings.dRibRatio = 1.5;
  settings.dStrengthRatio = 0.9;
  settings.bSeismic = 1;
  settings.dGammaREStrength = 0.7;
  settings.dGammaREStability = 0.65;
  const ALU_PARA_DATA para = ParaWith(settings);
  EXPECT_EQ(para.bRib, 0);
  EXPECT_EQ(para.dRibRatio, 1.5);
  EXPECT_EQ(para.dCoef085, 0.9);
  EXPECT_EQ(para.bSeismicGammaRE, 1);
  EXPECT_EQ(para.dGammaREStrength, 0.7);
  EXPECT_EQ(para.dGammaREStability, 0.65);
}

TEST_F(Parameters, TheSafetyClassGivesTheImportanceFactor) {
  T_DALU_D settings;
  for (const auto& [safetyClass, gamma0] :
       {std::pair{0, 1.1}, {1, 1.0}, {2, 0.9}, {3, 1.0}, {-1, 1.0}}) {
    settings.nSafetyClass = safetyClass;
    EXPECT_EQ(ParaWith(settings).dGamma0, gamma0) << safetyClass;
  }
}

TEST_F(Parameters, WithoutAttributesTheElementHasTheDefaults) {
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.bUserPhi, 0);
  EXPECT_THAT(para.dUserPhi, ElementsAre(1.0, 1.0));
  EXPECT_EQ(para.dHazWidth, 30.0);
  EXPECT_EQ(para.dWeldCoef, 0.5);
  EXPECT_EQ(para.bUserBetaM, 0);
  EXPECT_THAT(para.nBetaMOpt, ElementsAre(1, 1));
  EXPECT_THAT(para.dBetaM, ElementsAre(1.0, 1.0));
  EXPECT_THAT(para.nBetaMOpt2, ElementsAre(0, 0));
}

TEST_F(Parameters, StabilityCoefficientsOfTheUserAreTaken) {
  host_.model.stability_coefficients[1] = {0.7, 0.6};
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.bUserPhi, 1);
  EXPECT_THAT(para.dUserPhi, ElementsAre(0.7, 0.6));
}

TEST_F(Parameters, ARibAttributeWithOptionZeroSwitchesTheRibsOn) {
  T_DALU_D settings;
  settings.bRib = 0;
  host_.model.ribs[1] = {0, 1.4};
  const ALU_PARA_DATA para = ParaWith(settings);
  EXPECT_EQ(para.bRib, 1);
  EXPECT_EQ(para.dRibRatio, 1.4);
}

TEST_F(Parameters, ARibAttributeWithAnyOtherOptionSwitchesTheRibsOff) {
  for (const int option : {1, 2, -1}) {
    host_.model.ribs[1] = {option, 1.4};
    EXPECT_EQ(Para().bRib, 0) << option;
    EXPECT_EQ(Para().dRibRatio, 1.4) << option;
  }
}

TEST_F(Parameters, WeldCoefficientAndHeatZoneOfTheElementAreTaken) {
  host_.model.welds[1] = {0.8};
  host_.model.heat_zones[1] = {25.0};
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.dWeldCoef, 0.8);
  EXPECT_EQ(para.dHazWidth, 25.0);
}

TEST_F(Parameters, AttributesOfAnotherElementDoNotCount) {
  host_.model.welds[2] = {0.8};
  EXPECT_EQ(Para().dWeldCoef, 0.5);
}

TEST_F(Parameters, MomentFactorsOfTheElementAreTakenByAxis) {
  host_.model.moment_factors[1] = {{0, 1}, {0.65, 0.85}, {2, 3}};
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.bUserBetaM, 1);
  EXPECT_THAT(para.nBetaMOpt, ElementsAre(0, 1));
  EXPECT_THAT(para.dBetaM, ElementsAre(0.65, 0.85));
  EXPECT_THAT(para.nBetaMOpt2, ElementsAre(2, 3));
}

TEST_F(Parameters, SwayFlagsAreThereWithoutMomentFactorsToo) {
  host_.model.control = T_DCTL_D{0, 1, 0, 0, 0};
  EXPECT_THAT(Para().bSway, ElementsAre(1, 0));
}

TEST_F(Parameters, LengthFactorsAreThoseOfTheMember) {
  host_.model.length_factors[1] = {0.7, 2.1};
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.dKy, 0.7);
  EXPECT_EQ(para.dKz, 2.1);
}

TEST_F(Parameters, LengthFactorsOfTheElementGoBeforeThoseOfTheMember) {
  host_.model.length_factors[1] = {0.7, 2.1};
  host_.model.own_length_factors[1] = {0.9, 1.3};
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.dKy, 0.9);
  EXPECT_EQ(para.dKz, 1.3);
}

TEST_F(Parameters, ALengthFactorOfTheMemberThatWasNotComputedBecomesOne) {
  host_.model.length_factors[1] = {0.0, 0.9e-12};
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.dKy, 1.0);
  EXPECT_EQ(para.dKz, 1.0);
}

TEST_F(Parameters, ATinyLengthFactorOfTheMemberIsKept) {
  host_.model.length_factors[1] = {1e-12, 2.0};
  EXPECT_EQ(Para().dKy, 1e-12);
}

TEST_F(Parameters, ALengthFactorOfTheElementIsTakenEvenWhenItIsZero) {
  host_.model.own_length_factors[1] = {0.0, 0.0};
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.dKy, 0.0);
  EXPECT_EQ(para.dKz, 0.0);
}

TEST_F(Parameters, WithoutAMemberTheLengthFactorsAreOne) {
  double ky = 0.0;
  double kz = 0.0;
  EXPECT_EQ(manager_.GetKFator(1, &ky, &kz), 1);
  EXPECT_EQ(ky, 1.0);
  EXPECT_EQ(kz, 1.0);
}

TEST_F(Parameters, WithoutLimitsSlendernessIsLimitedTo200And300) {
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.dLimitCompr, 200.0);
  EXPECT_EQ(para.dLimitTension, 300.0);
  EXPECT_EQ(para.bUserLimit, 0);
}

TEST_F(Parameters, SlendernessLimitsOfTheElementAreTaken) {
  host_.model.slenderness_limits[1] = {0, 150.0, 250.0};
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.dLimitCompr, 150.0);
  EXPECT_EQ(para.dLimitTension, 250.0);
  EXPECT_EQ(para.bUserLimit, 1);
}

TEST_F(Parameters, SlendernessThatIsNotToBeCheckedHasNegativeLimits) {
  host_.model.slenderness_limits[1] = {2, 150.0, 250.0};
  const ALU_PARA_DATA para = Para();
  EXPECT_EQ(para.dLimitCompr, -1.0);
  EXPECT_EQ(para.dLimitTension, -1.0);
  EXPECT_EQ(para.bUserLimit, 1);
}

TEST_F(Parameters, TheSupportBetweenTheEndsIsTheMembers) {
  host_.model = test_support::three_element_model();
  host_.model.add_node(9, 1000.0, 500.0, 0.0);
  host_.model.add_element(4, 2, 9);
  host_.model.member_types_of_scheme_1[4] = 4;
  EXPECT_EQ(Para().bMidSupport, 1);
  host_.model.elements.erase(4);
  EXPECT_EQ(Para().bMidSupport, 0);
}

TEST_F(Parameters, AMissingMemberIsReportedAndGivesZero) {
  host_.model.welds[1] = {0.8};
  ALU_PARA_DATA para;
  para.dGamma0 = 7.0;
  EXPECT_EQ(manager_.GetPara(1, para), 0);
  EXPECT_EQ(host_.log.assertions.back(), AssertionAt(620));
  EXPECT_EQ(para.dGamma0, 1.0);
  EXPECT_EQ(para.dWeldCoef, 0.8);
}

}  // namespace
