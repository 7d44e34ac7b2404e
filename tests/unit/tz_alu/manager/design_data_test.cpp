// The design input of one element, put together from the buffers.

#include <gmock/gmock.h>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::ElementsAre;

class DesignData : public ManagerTest {
 protected:
  DesignData() : ManagerTest(test_support::one_element_model()) {}

  int GetData() {
    Build({1});
    host_.log = {};
    return manager_.GetDgnData(1, data_);
  }

  ALU_DGN_DATA data_;
};

TEST_F(DesignData, SectionMaterialAndParametersAreThoseOfTheElement) {
  EXPECT_EQ(GetData(), 1);
  EXPECT_EQ(data_.nElem, 1U);
  EXPECT_EQ(data_.code.sect.nShape, ALU_SHAPE_P);
  EXPECT_EQ(data_.code.sect.dSize[0], 100.0);
  EXPECT_TRUE(data_.code.matl.strGrade == L"6061-T6");
  EXPECT_EQ(data_.code.para.dLimitTension, 300.0);
}

TEST_F(DesignData, AllChecksAreOnAndResultsAreStoredWithoutReport) {
  data_.SetCheckFlagAll(0);
  data_.bWriteResult = 0;
  data_.bReport = 1;
  GetData();
  EXPECT_THAT(data_.nCheckFlag, testing::Each(1));
  EXPECT_EQ(data_.bWriteResult, 1);
  EXPECT_EQ(data_.bReport, 0);
}

TEST_F(DesignData, TheMemberTypeIsThatOfTheFirstScheme) {
  host_.model.member_types[1] = 3;
  host_.model.member_types_of_scheme_1[1] = 4;
  GetData();
  EXPECT_EQ(data_.nMembType, ALU_MEMBER_BRACE);
}

TEST_F(DesignData, TheMemberLengthIsThatOfTheElementWithoutAMember) {
  GetData();
  EXPECT_DOUBLE_EQ(data_.dMembLength, 3000.0);
}

TEST_F(DesignData, EndConditionsAreReadByAxisAndKeptByEnd) {
  // The start is held fully about y and lets go about z; the end has no support.
  host_.model.supports[1] = {{1, 1, 1, 0, 1, 0}};
  GetData();
  EXPECT_THAT(data_.nEndCond[0], ElementsAre(ALU_END_FIXED, ALU_END_PINNED));
  EXPECT_THAT(data_.nEndCond[1], ElementsAre(ALU_END_FREE, ALU_END_FREE));
}

TEST_F(DesignData, AnUnknownElementHasNone) {
  Build({1});
  EXPECT_EQ(manager_.GetDgnData(8, data_), 0);
  EXPECT_EQ(data_.nElem, 8U);
}

TEST_F(DesignData, AnElementWithoutSectionHasNone) {
  host_.model.sections.clear();
  EXPECT_EQ(GetData(), 0);
}

TEST_F(DesignData, AnElementWithoutMaterialHasNone) {
  host_.model.materials.clear();
  EXPECT_EQ(GetData(), 0);
}

TEST_F(DesignData, AMissingMemberLeavesItsFieldsAtTheirDefaultsAndIsReported) {
  Build({1});
  manager_.MakeBuffMemb(Keys({}));
  host_.log = {};
  EXPECT_EQ(manager_.GetDgnData(1, data_), 0);
  EXPECT_EQ(data_.dMembLength, 0.0);
  EXPECT_THAT(data_.nEndCond[0], ElementsAre(0, 0));
  EXPECT_EQ(data_.code.sect.nShape, ALU_SHAPE_P);
  EXPECT_EQ(data_.code.para.dKy, 1.0);
  EXPECT_THAT(host_.log.assertions, testing::Contains(AssertionAt(836)));
  EXPECT_EQ(host_.log.assertions.back(), AssertionAt(620));
}

}  // namespace
