// What the user is told when there is nothing to check.

#include <gmock/gmock.h>

#include "host/framework/messagebox.h"
#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using testing::ElementsAre;
using testing::IsEmpty;

constexpr const wchar_t* kNoElements = L"[IDS_DGN_COM_ERROR_TITLE]\n\t[IDS_ACS_NO_SECT_TYPE_GOOD]";
constexpr const wchar_t* kNoCombinations = L"[IDS_DGN_COM_ERROR_TITLE]\n\t[IDS_ACS_NO_LCOM_GOOD]";

class RunMessages : public ManagerTest {
 protected:
  RunMessages() : ManagerTest(test_support::one_element_model()) {}
};

TEST_F(RunMessages, ElementsAndCombinationsNeedNoMessage) {
  EXPECT_EQ(manager_.ShowErrorMessage(1, 1), 1);
  EXPECT_THAT(host_.log.events, IsEmpty());
}

TEST_F(RunMessages, MissingElementsAreNamed) {
  EXPECT_EQ(manager_.ShowErrorMessage(0, 1), 0);
  EXPECT_THAT(host_.log.history, ElementsAre(kNoElements));
}

TEST_F(RunMessages, MissingCombinationsAreNamed) {
  EXPECT_EQ(manager_.ShowErrorMessage(1, 0), 0);
  EXPECT_THAT(host_.log.history, ElementsAre(kNoCombinations));
}

TEST_F(RunMessages, WhenBothAreMissingOnlyTheElementsAreNamed) {
  EXPECT_EQ(manager_.ShowErrorMessage(0, 0), 0);
  EXPECT_THAT(host_.log.history, ElementsAre(kNoElements));
}

TEST_F(RunMessages, ANegativeNumberOfCombinationsCountsAsNone) {
  EXPECT_EQ(manager_.ShowErrorMessage(1, -1), 0);
  EXPECT_THAT(host_.log.history, ElementsAre(kNoCombinations));
}

TEST_F(RunMessages, AUserSeesABoxWithExclamationMarkAndOneButton) {
  host_.model.is_reg_test_mode = false;
  EXPECT_EQ(manager_.ShowErrorMessage(0, 1), 0);
  ASSERT_EQ(host_.log.messages.size(), 1U);
  EXPECT_EQ(host_.log.messages[0].text, kNoElements);
  EXPECT_EQ(host_.log.messages[0].type, MB_OK | MB_ICONEXCLAMATION);
  EXPECT_THAT(host_.log.history, IsEmpty());
}

TEST_F(RunMessages, WithoutAUserNoBoxIsShown) {
  manager_.ShowErrorMessage(0, 1);
  EXPECT_THAT(host_.log.messages, IsEmpty());
}

TEST_F(RunMessages, ARunWithoutElementsOfAluminiumSaysSoAndDoesNothing) {
  host_.model.other_metals = {1};
  EXPECT_EQ(manager_.CheckCode(nullptr), 0);
  EXPECT_THAT(host_.log.events, ElementsAre("history written"));
  EXPECT_THAT(host_.log.history, ElementsAre(kNoElements));
}

TEST_F(RunMessages, ARunOfAnEmptyModelSaysThatElementsAreMissing) {
  host_.model.element_order.clear();
  EXPECT_EQ(manager_.CheckCode(nullptr), 0);
  EXPECT_THAT(host_.log.history, ElementsAre(kNoElements));
}

TEST_F(RunMessages, ARunWithoutCombinationsSaysSoAndDoesNothing) {
  host_.model.combinations.clear();
  EXPECT_EQ(manager_.CheckCode(nullptr), 0);
  EXPECT_THAT(host_.log.events, ElementsAre("history written"));
  EXPECT_THAT(host_.log.history, ElementsAre(kNoCombinations));
}

}  // namespace
