// A whole run: what is checked, in which order the host sees it, and what comes back.

#include <gmock/gmock.h>

#include <type_traits>

#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;

std::vector<UINT> GoverningElements(const FakeHost& host) {
  std::vector<UINT> elems;
  for (const auto& written : host.log.written) {
    if (written.lcomb == 0) elems.push_back(written.elem);
  }
  return elems;
}

class RunOfOneElement : public ManagerTest {
 protected:
  RunOfOneElement() : ManagerTest(test_support::one_element_model()) {}
};

class RunOfThreeElements : public ManagerTest {
 protected:
  RunOfThreeElements() : ManagerTest(test_support::three_element_model()) {}
};

TEST_F(RunOfOneElement, TheHostSeesItsStepsInAFixedOrder) {
  manager_.CheckCode(nullptr);
  EXPECT_THAT(
      host_.log.events,
      ElementsAre("result file created", "units 0,2", "length factors computed", "section 1 read",
                  "material 1 read", "seismic type of 1 read", "progress opened", "written 1/1/0",
                  "written 1/0/0", "progress 1/1", "progress closed", "result file checked",
                  "design flag 1", "units 1,0", "status line written"));
}

TEST_F(RunOfOneElement, AConsistentFrameRaisesNoAssertion) {
  manager_.CheckCode(nullptr);
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(RunOfOneElement, TheStatusLineJoinsEndAndNameOfTheDesign) {
  manager_.CheckCode(nullptr);
  EXPECT_THAT(host_.log.status_lines,
              ElementsAre(L"[IDS_DGN_COM_END_DGN][IDS_MAIN_RIBBON_MENU_ALU_DGN]"));
}

TEST_F(RunOfOneElement, TheProgressDialogNamesTheDesignAndMayBeCancelled) {
  manager_.CheckCode(nullptr);
  EXPECT_EQ(host_.log.progress_title, L"[IDS_MAIN_RIBBON_MENU_ALU_DGN]");
  EXPECT_EQ(host_.log.progress_text, L"[IDS_DGN_TEXT_READ_CHK_ALU]");
  EXPECT_EQ(host_.log.progress_cancellable, 1);
}

TEST_F(RunOfOneElement, NothingCreatedForTheRunOutlivesIt) {
  manager_.CheckCode(nullptr);
  EXPECT_EQ(host_.log.objects_alive, 0);
  EXPECT_FALSE(host_.log.is_progress_open);
}

TEST_F(RunOfOneElement, TheDesignFlagOfTheHostIsReturnedAndSet) {
  host_.model.design_file_check = 7;
  EXPECT_EQ(manager_.CheckCode(nullptr), 7);
  EXPECT_THAT(host_.log.design_flags, ElementsAre(7));
}

TEST_F(RunOfOneElement, AnInconsistentResultFileClearsTheDesignFlag) {
  host_.model.design_file_check = 0;
  EXPECT_EQ(manager_.CheckCode(nullptr), 0);
  EXPECT_THAT(host_.log.design_flags, ElementsAre(0));
  EXPECT_EQ(host_.log.status_lines.size(), 1U);
}

TEST_F(RunOfOneElement, TheUsersUnitsAreBackAfterTheRun) {
  host_.units = {5, 4};
  manager_.CheckCode(nullptr);
  EXPECT_EQ(host_.units, (T_UNIT_INDEX{5, 4}));
}

TEST_F(RunOfOneElement, NothingHappensWhenAluminiumDesignIsNotInUse) {
  host_.model.is_use_alu = 0;
  EXPECT_EQ(manager_.CheckCode(nullptr), 0);
  EXPECT_THAT(host_.log.events, IsEmpty());
}

TEST_F(RunOfOneElement, NothingIsShownWhenTheResultFileCannotBeCreated) {
  host_.model.can_create_result_file = false;
  EXPECT_EQ(manager_.CheckCode(nullptr), 0);
  EXPECT_THAT(host_.log.events, IsEmpty());
  EXPECT_EQ(host_.units, (T_UNIT_INDEX{1, 0}));
}

TEST_F(RunOfThreeElements, GivenElementsAreCheckedInTheirOrder) {
  const auto keys = Keys({3, 1});
  manager_.CheckCode(&keys);
  EXPECT_THAT(GoverningElements(host_), ElementsAre(3U, 1U));
  EXPECT_THAT(host_.log.events, Contains("progress 1/2"));
  EXPECT_THAT(host_.log.events, Contains("progress 2/2"));
}

TEST_F(RunOfThreeElements, GivenElementsThatAreNotOfAluminiumAreLeftOut) {
  host_.model.other_metals = {3};
  const auto keys = Keys({3, 1});
  manager_.CheckCode(&keys);
  EXPECT_THAT(GoverningElements(host_), ElementsAre(1U));
}

TEST_F(RunOfThreeElements, GivenElementsGoBeforeTheSelection) {
  host_.model.selection = {2};
  const auto keys = Keys({1});
  manager_.CheckCode(&keys);
  EXPECT_THAT(GoverningElements(host_), ElementsAre(1U));
}

TEST_F(RunOfThreeElements, WithoutKeysTheSelectionIsChecked) {
  host_.model.selection = {3, 2};
  manager_.CheckCode(nullptr);
  EXPECT_THAT(GoverningElements(host_), ElementsAre(3U, 2U));
}

TEST_F(RunOfThreeElements, SelectedElementsThatAreNotOfAluminiumAreLeftOut) {
  host_.model.selection = {3, 2};
  host_.model.other_metals = {3};
  manager_.CheckCode(nullptr);
  EXPECT_THAT(GoverningElements(host_), ElementsAre(2U));
}

TEST_F(RunOfThreeElements, WithoutKeysAndSelectionTheWholeModelIsCheckedInTheHostsOrder) {
  host_.model.element_order = {2, 3, 1};
  manager_.CheckCode(nullptr);
  EXPECT_THAT(GoverningElements(host_), ElementsAre(2U, 3U, 1U));
}

TEST_F(RunOfThreeElements, OfTheWholeModelOnlyAluminiumIsChecked) {
  host_.model.other_metals = {1, 3};
  manager_.CheckCode(nullptr);
  EXPECT_THAT(GoverningElements(host_), ElementsAre(2U));
}

TEST_F(RunOfThreeElements, ASelectionWithoutAluminiumIsNotReplacedByTheWholeModel) {
  host_.model.selection = {3};
  host_.model.other_metals = {3};
  EXPECT_EQ(manager_.CheckCode(nullptr), 0);
  EXPECT_THAT(host_.log.written, IsEmpty());
  EXPECT_EQ(host_.log.history.size(), 1U);
}

TEST_F(RunOfThreeElements, AnElementWithoutDesignDataIsReportedAndSkipped) {
  host_.model.elements[2].nMatl = 99;
  EXPECT_EQ(manager_.CheckCode(nullptr), 1);
  EXPECT_THAT(GoverningElements(host_), ElementsAre(1U, 3U));
  EXPECT_THAT(host_.log.assertions, ElementsAre(AssertionAt(119)));
  EXPECT_THAT(host_.log.events, Contains("progress 3/3"));
}

TEST_F(RunOfThreeElements, NoAssertionIsRaisedWhenTheHostWantsNone) {
  host_.model.elements[2].nMatl = 99;
  host_.model.is_release_assert = 0;
  EXPECT_EQ(manager_.CheckCode(nullptr), 1);
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(RunOfThreeElements, BuffersThatCannotBeBuiltDoNotStopTheRun) {
  // Element 8 is in no table of the host: building the members stops at it, with element 1's member
  // built, and no section is read at all.
  const auto keys = Keys({1, 8});
  EXPECT_EQ(manager_.CheckCode(&keys), 1);
  EXPECT_THAT(host_.log.events, Not(Contains(HasSubstr("section"))));
  EXPECT_THAT(host_.log.events, Contains("progress 2/2"));
  EXPECT_THAT(host_.log.assertions, testing::IsSupersetOf({AssertionAt(119), AssertionAt(119)}));
  EXPECT_THAT(host_.log.written, IsEmpty());
}

TEST_F(RunOfThreeElements, CancellingKeepsWhatIsStoredAndLeavesTheDesignFlagAlone) {
  host_.model.cancel_at_update = 1;
  EXPECT_EQ(manager_.CheckCode(nullptr), 0);
  EXPECT_THAT(GoverningElements(host_), ElementsAre(1U));
  EXPECT_THAT(host_.log.design_flags, IsEmpty());
  EXPECT_THAT(host_.log.status_lines, IsEmpty());
}

TEST_F(RunOfThreeElements, CancellingRestoresTheUnitsAndThenClosesTheDialog) {
  host_.model.cancel_at_update = 2;
  manager_.CheckCode(nullptr);
  const auto& events = host_.log.events;
  ASSERT_GE(events.size(), 3U);
  EXPECT_EQ(events[events.size() - 3], "progress 2/3");
  EXPECT_EQ(events[events.size() - 2], "units 1,0");
  EXPECT_EQ(events[events.size() - 1], "progress closed");
  EXPECT_EQ(host_.log.objects_alive, 0);
}

TEST_F(RunOfThreeElements, CancellingAtTheLastElementStillCancels) {
  host_.model.cancel_at_update = 3;
  EXPECT_EQ(manager_.CheckCode(nullptr), 0);
  EXPECT_THAT(host_.log.design_flags, IsEmpty());
}

TEST_F(RunOfThreeElements, ASecondRunForgetsTheSectionsOfTheFirst) {
  manager_.CheckCode(nullptr);
  host_.model.sections.clear();
  host_.log = {};
  manager_.CheckCode(nullptr);
  EXPECT_THAT(host_.log.written, IsEmpty());
  EXPECT_THAT(host_.log.assertions,
              ElementsAre(AssertionAt(119), AssertionAt(119), AssertionAt(119)));
}

TEST(AluDgnDataMgrTest, ThereIsOneManager) {
  EXPECT_EQ(IAluDgnDataMgr::Instance(), IAluDgnDataMgr::Instance());
  EXPECT_FALSE(std::is_copy_constructible_v<IAluDgnDataMgr>);
  EXPECT_FALSE(std::is_default_constructible_v<IAluDgnDataMgr>);
}

}  // namespace
