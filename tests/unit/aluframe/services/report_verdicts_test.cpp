// Which failing checks a report is silent about, by stored checks and the verdicts of its blocks.

#include "aluframe/services/report_verdicts.h"

#include <gmock/gmock.h>

#include <limits>

namespace aluframe::services {
namespace {

using testing::ElementsAre;
using testing::IsEmpty;

constexpr auto none = Verdict::none;
constexpr auto passes = Verdict::passes;
constexpr auto fails = Verdict::fails;

store::GoverningRow row(std::uint32_t element, int item, double ratio) {
  return {.element = element,
          .item = item,
          .governing = {.nPos = 0, .dDemand = ratio * 200, .dCapacity = 200}};
}

std::vector<int> items_of(const UnprintedFailures& failures) {
  std::vector<int> items;
  for (const store::GoverningRow& check : failures.checks) items.push_back(check.item);
  return items;
}

TEST(UnprintedFailures, AFailureThatTheReportCallsOneIsPrinted) {
  const auto found = unprinted_failures({row(1, RALU_STRENGTH, 1.2)}, {{1}, {{fails}}});
  EXPECT_THAT(found.checks, IsEmpty());
  EXPECT_THAT(found.elements, IsEmpty());
}

TEST(UnprintedFailures, ASlendernessWithItsTitleAloneIsNotPrinted) {
  const auto found =
      unprinted_failures({row(1, RALU_STRENGTH, 0.5), row(1, RALU_SLENDERNESS_Y, 1.2),
                          row(1, RALU_SLENDERNESS_Z, 1.1)},
                         {{1}, {{passes, none}}});
  EXPECT_THAT(items_of(found), ElementsAre(RALU_SLENDERNESS_Y));
  EXPECT_THAT(found.elements, ElementsAre(1));
}

TEST(UnprintedFailures, TheWorseOfTheTwoSlendernessesHasTheBlock) {
  const auto found = unprinted_failures(
      {row(1, RALU_SLENDERNESS_Y, 1.2), row(1, RALU_SLENDERNESS_Z, 1.3)}, {{1}, {{none}}});
  EXPECT_THAT(items_of(found), ElementsAre(RALU_SLENDERNESS_Z));
}

TEST(UnprintedFailures, OfTwoEqualSlendernessesThatAboutYHasTheBlock) {
  const auto found = unprinted_failures(
      {row(1, RALU_SLENDERNESS_Y, 1.2), row(1, RALU_SLENDERNESS_Z, 1.2)}, {{1}, {{none}}});
  EXPECT_THAT(items_of(found), ElementsAre(RALU_SLENDERNESS_Y));
}

TEST(UnprintedFailures, AnElementWithAnotherFailureInItsReportIsSaidToFail) {
  const auto found = unprinted_failures(
      {row(1, RALU_STRENGTH, 1.5), row(1, RALU_SLENDERNESS_Y, 1.2)}, {{1}, {{fails, none}}});
  EXPECT_THAT(items_of(found), ElementsAre(RALU_SLENDERNESS_Y));
  EXPECT_THAT(found.elements, IsEmpty());
}

// The report takes the larger of two sides, and passes over one that is no number.
TEST(UnprintedFailures, ARatioThatIsNoNumberFailsWhateverTheVerdict) {
  const double nan = std::numeric_limits<double>::quiet_NaN();
  const auto found = unprinted_failures({row(1, RALU_STABILITY, nan)}, {{1}, {{passes}}});
  EXPECT_THAT(items_of(found), ElementsAre(RALU_STABILITY));
  EXPECT_THAT(found.elements, ElementsAre(1));
}

TEST(UnprintedFailures, AFailingElementWithOtherBlocksThanChecksIsUnclear) {
  const auto found = unprinted_failures({row(1, RALU_STRENGTH, 1.2), row(2, RALU_STRENGTH, 0.5)},
                                        {{1, 2}, {{passes, none}, {}}});
  EXPECT_THAT(found.unclear, ElementsAre(1));
  EXPECT_THAT(found.checks, IsEmpty());
  EXPECT_THAT(found.elements, IsEmpty());
}

TEST(UnprintedFailures, AnElementThatIsNotReportedIsLeftOut) {
  EXPECT_THAT(unprinted_failures({row(2, RALU_STRENGTH, 1.2)}, {{1}, {{passes}}}).elements,
              IsEmpty());
}

TEST(UnprintedFailures, WhatDoesNotFailNeedsNoLine) {
  const auto found = unprinted_failures(
      {row(1, RALU_STRENGTH, 1.0), row(1, RALU_SLENDERNESS_Y, 0.9)}, {{1}, {{passes, none}}});
  EXPECT_THAT(found.checks, IsEmpty());
  EXPECT_THAT(found.elements, IsEmpty());
}

}  // namespace
}  // namespace aluframe::services
