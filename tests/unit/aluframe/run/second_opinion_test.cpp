#include "aluframe/run/second_opinion.h"

#include <gtest/gtest.h>

#include <cmath>
#include <limits>

#include "aluframe/services/run_monitor.h"

namespace aluframe::run {
namespace {

using second_opinion::ElementSafe;
using second_opinion::Place;
using second_opinion::Rule;
using second_opinion::RunFound;
using second_opinion::Unchecked;

constexpr double not_a_number = std::numeric_limits<double>::quiet_NaN();

TEST(SafeRow, HasWhatWasFoundOfTheElement) {
  const ElementSafe element{.code = 0.241,
                            .safe = 1.083,
                            .item = RALU_STABILITY,
                            .rules = Rule::c4 | Rule::c3,
                            .place = {21, 3, 1, 0.5},
                            .from_start = 1500.0};
  EXPECT_EQ(safe_row(element), (store::SafeRow{.element = 21,
                                               .code = 0.241,
                                               .safe = 1.083,
                                               .item = RALU_STABILITY,
                                               .rules = "C3, C4",
                                               .combination = 3,
                                               .min_side = 1,
                                               .fraction = 0.5,
                                               .from_start = 1500.0}));
}

TEST(SafeRow, OfAWholeMemberHasNoFraction) {
  ElementSafe element;
  element.rules = Rule::c7;
  element.place = {21, 3, 0, std::nullopt};
  EXPECT_EQ(safe_row(element).fraction, std::nullopt);
}

store::SafeRow row(std::uint32_t element, double code, double safe) {
  store::SafeRow out;
  out.element = element;
  out.code = code;
  out.safe = safe;
  return out;
}

TEST(SafeSummary, CountsWhatFailsAndWhatNoCheckTells) {
  // 1.0 exactly is fulfilled.
  const SafeSummary found =
      summary_of({row(1, 0.2, 1.1), row(2, 1.2, 1.3), row(3, 0.5, 0.6), row(4, 0.9, 1.0)});
  EXPECT_EQ(found.elements, 4U);
  EXPECT_EQ(found.over, 2U);
  EXPECT_EQ(found.unsaid, 1U);
}

TEST(SafeSummary, HasTheLargestSafeRatio) {
  const SafeSummary found = summary_of({row(1, 0.2, 0.4), row(2, 0.3, 0.9), row(3, 0.8, 0.8)});
  ASSERT_TRUE(found.worst.has_value());
  EXPECT_EQ(found.worst->element, 2U);
}

TEST(SafeSummary, AmongEqualRatiosTheFirstIsTheWorst) {
  EXPECT_EQ(summary_of({row(1, 0.2, 0.4), row(2, 0.3, 0.4)}).worst->element, 1U);
}

TEST(SafeSummary, WhatIsNoNumberIsTheWorstAndFails) {
  for (const auto& rows : {std::vector{row(1, 0.2, 9.0), row(2, not_a_number, not_a_number)},
                           std::vector{row(2, not_a_number, not_a_number), row(1, 0.2, 9.0)}}) {
    const SafeSummary found = summary_of(rows);
    EXPECT_EQ(found.worst->element, 2U);
    EXPECT_EQ(found.over, 2U);
    EXPECT_EQ(found.unsaid, 1U);
  }
}

TEST(SafeSummary, OfNothingHasNoWorst) {
  EXPECT_FALSE(summary_of({}).worst.has_value());
}

Unchecked unchecked(Unchecked::Kind kind, double magnitude) {
  Unchecked item;
  item.kind = kind;
  item.elements = {1, 2, 3, 7};
  item.magnitude = magnitude;
  item.magnitude_place = {2, 5, 0, 0.0};
  return item;
}

store::RemarkRow remark_of(const Unchecked& item) {
  RunFound run;
  run.unchecked.push_back(item);
  return unchecked_remarks(run, model::Model()).at(0);
}

TEST(UncheckedRemarks, NameTheRuleTheElementsAndTheLargestForce) {
  const store::RemarkRow found = remark_of(unchecked(Unchecked::Kind::shear, 12.5e3));
  EXPECT_EQ(found.kind, "C5");
  EXPECT_EQ(found.elements, "1-3, 7");
  EXPECT_NE(found.text.find("up to 12.5 kN (element 2, combination 5)"), std::string::npos)
      << found.text;
}

TEST(UncheckedRemarks, GiveMomentsAsMoments) {
  const store::RemarkRow torsion = remark_of(unchecked(Unchecked::Kind::torsion, 2.5e6));
  EXPECT_EQ(torsion.kind, "C6");
  EXPECT_NE(torsion.text.find("up to 2.5 kNm"), std::string::npos) << torsion.text;
  const store::RemarkRow bending = remark_of(unchecked(Unchecked::Kind::tension_bending, 30e6));
  EXPECT_EQ(bending.kind, "C1");
  EXPECT_NE(bending.text.find("up to 30 kNm"), std::string::npos) << bending.text;
}

TEST(UncheckedRemarks, SayThatNoisePicksTheChecks) {
  const store::RemarkRow found = remark_of(unchecked(Unchecked::Kind::tiny_axial, 0.001));
  EXPECT_EQ(found.kind, "C2");
  EXPECT_NE(found.text.find("up to 1e-06 kN"), std::string::npos) << found.text;
}

TEST(UncheckedRemarks, SayWhereBetweenThePositionsTheForceActs) {
  Unchecked item = unchecked(Unchecked::Kind::torsion, 2e6);
  item.magnitude_place.fraction = 0.3;
  const store::RemarkRow found = remark_of(item);
  EXPECT_NE(found.text.find("(element 2, combination 5, 0.3 of the length)"), std::string::npos)
      << found.text;
}

TEST(NotCheckedBetween, AreForcesAtNoPosition) {
  EXPECT_EQ(not_checked_between({model::torsion, 2e6, {3, 5, 1, 0.3}}),
            (store::NotChecked{3, std::nullopt, services::torsion_without_check,
                               store::LargestForce{"Mx", 2e6, -1, 5, 1}}));
  EXPECT_EQ(not_checked_between({model::shear_y, 4e3, {3, 6, 0, 0.7}}),
            (store::NotChecked{3, std::nullopt, services::shear_without_check,
                               store::LargestForce{"Fy", 4e3, -1, 6, 0}}));
}

TEST(UncheckedRow, ComesBackAsItWasStored) {
  for (const auto kind : {Unchecked::Kind::shear, Unchecked::Kind::torsion,
                          Unchecked::Kind::tension_bending, Unchecked::Kind::tiny_axial}) {
    Unchecked item = unchecked(kind, 12.5e3);
    item.elements = {2};
    item.ratio = 0.75;
    item.ratio_place = {2, 9, 1, 0.25};
    const Unchecked back = unchecked_of(2, unchecked_row(item));
    EXPECT_EQ(back.kind, kind);
    EXPECT_EQ(back.elements, item.elements);
    EXPECT_EQ(back.magnitude, item.magnitude);
    EXPECT_EQ(back.magnitude_place, item.magnitude_place);
    EXPECT_EQ(back.ratio, item.ratio);
    EXPECT_EQ(back.ratio_place, item.ratio_place);
  }
}

TEST(UncheckedRow, OfAnUnknownRemarkIsRefused) {
  store::UncheckedRow row = unchecked_row(unchecked(Unchecked::Kind::shear, 1e3));
  row.kind = "C4";
  EXPECT_THROW(unchecked_of(2, row), std::runtime_error);
}

TEST(UncheckedRemarks, HaveTheWorstSecondOpinionWhereItStands) {
  Unchecked item = unchecked(Unchecked::Kind::shear, 1e3);
  item.ratio = 0.75;
  item.ratio_place = {7, 9, 0, 1.0};
  const store::RemarkRow found = remark_of(item);
  EXPECT_EQ(found.ratio, 0.75);
  EXPECT_EQ(found.element, 7U);
  EXPECT_EQ(found.combination, 9U);
}

TEST(UncheckedRemarks, WithoutARatioHaveNoPlaceOfIt) {
  const store::RemarkRow found = remark_of(unchecked(Unchecked::Kind::torsion, 1e3));
  EXPECT_FALSE(found.ratio || found.element || found.combination);
}

TEST(UncheckedRemarks, OfACleanRunAreNone) {
  EXPECT_TRUE(unchecked_remarks({}, model::Model()).empty());
}

}  // namespace
}  // namespace aluframe::run
