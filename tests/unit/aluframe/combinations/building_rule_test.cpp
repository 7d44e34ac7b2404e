#include <gtest/gtest.h>

#include "tests/unit/aluframe/combinations/made_models.h"

// Factors of GB 50068-2018, 8.2.4 to 8.2.9, shares of GB 50009-2012, seismic ones of GB 50011-2010,
// 5.4.1, and GB 55002-2021, 4.3.2.

namespace aluframe::combinations {
namespace {

using testing::ElementsAre;
using testing::UnorderedElementsAre;

TEST(BuildingRule, PermanentActionsAloneHaveTheirTwoFactors) {
  EXPECT_THAT(names_of(model_of({{"G", dead}}), CombinationType::fundamental),
              ElementsAre("1.3G", "G"));
}

TEST(BuildingRule, EveryVariableActionLeadsAndAccompaniesOrIsAbsent) {
  const auto model = model_of({{"G", dead}, {"W", wind}, {"S", snow}});
  EXPECT_THAT(names_of(model, CombinationType::fundamental),
              UnorderedElementsAre("1.3G+1.5W+0.7·1.5S", "G+1.5W+0.7·1.5S", "1.3G+1.5W", "G+1.5W",
                                   "1.3G+1.5S+0.6·1.5W", "G+1.5S+0.6·1.5W", "1.3G+1.5S", "G+1.5S",
                                   "1.3G", "G"));
}

TEST(BuildingRule, FactorsAreProductsToTwelveDigits) {
  const auto model = model_of({{"G", dead}, {"W", wind}, {"S", snow}});
  const auto made = made_of(model, {.rule = "GB 50068-2018"});
  ASSERT_EQ(made.front().name, "1.3G+1.5W+0.7·1.5S");
  EXPECT_EQ(made.front().terms[2].value(), 1.05);
}

TEST(BuildingRule, SnowAndTheRoofLoadOfAnInaccessibleRoofDoNotActTogether) {
  const auto model = model_of({{"G", dead}, {"R", roof}, {"S", snow}});
  EXPECT_THAT(names_of(model, CombinationType::characteristic),
              UnorderedElementsAre("G+R", "G+S", "G"));
}

TEST(BuildingRule, FrequentValuesLeadAndQuasiPermanentOnesAccompany) {
  const auto model = model_of({{"G", dead}, {"Q", office}, {"W", wind}});
  EXPECT_THAT(names_of(model, CombinationType::frequent),
              UnorderedElementsAre("G+0.5Q", "G+0.4W+0.4Q", "G+0.4W", "G"));
  EXPECT_THAT(names_of(model, CombinationType::quasi_permanent),
              UnorderedElementsAre("G+0.4Q", "G"));
}

TEST(BuildingRule, EqualServiceabilitySumsAreOneCombinationOfSeveralTypes) {
  const auto made = made_of(model_of({{"G", dead}}), {.rule = "GB 50068-2018"});
  ASSERT_EQ(made.size(), 3u);
  EXPECT_THAT(made.back().types,
              ElementsAre(CombinationType::characteristic, CombinationType::frequent,
                          CombinationType::quasi_permanent));
  EXPECT_EQ(made.back().number, 4001u);
}

TEST(BuildingRule, AnEarthquakeActsEitherWayWithTheRepresentativeGravityLoad) {
  const auto model = model_of({{"G", dead}, {"Q", office}, {"E", earthquake}});
  EXPECT_THAT(names_of(model, CombinationType::seismic),
              UnorderedElementsAre("1.2G+1.3E+0.5·1.2Q", "1.2G-1.3E+0.5·1.2Q", "G+1.3E+0.5Q",
                                   "G-1.3E+0.5Q"));
}

TEST(BuildingRule, TheNewerSeismicCodeHasItsOwnFactors) {
  const auto model = model_of({{"G", dead}, {"E", earthquake}});
  EXPECT_THAT(names_of(model, CombinationType::seismic,
                       {.rule = "GB 50068-2018", .seismic = "GB 55002-2021"}),
              UnorderedElementsAre("1.3G+1.4E", "1.3G-1.4E", "G+1.4E", "G-1.4E"));
}

TEST(BuildingRule, HorizontalAndVerticalEarthquakesLeadEachOther) {
  const Action vertical{.kind = ActionKind::earthquake, .category = "vertical"};
  const Action never{.kind = ActionKind::permanent, .favourable = model::Favourable::never};
  const auto model = model_of({{"G", never}, {"E", earthquake}, {"V", vertical}});
  EXPECT_THAT(
      names_of(model, CombinationType::seismic),
      UnorderedElementsAre("1.2G+1.3E+0.5V", "1.2G+1.3E-0.5V", "1.2G-1.3E+0.5V", "1.2G-1.3E-0.5V",
                           "1.2G+1.3V+0.5E", "1.2G+1.3V-0.5E", "1.2G-1.3V+0.5E", "1.2G-1.3V-0.5E"));
}

TEST(BuildingRule, EarthquakesInTwoHorizontalDirectionsActOneAtATime) {
  const Action one_way{.kind = ActionKind::earthquake, .reversible = false};
  const Action never{.kind = ActionKind::permanent, .favourable = model::Favourable::never};
  const auto model = model_of({{"G", never}, {"Ex", one_way}, {"Ey", one_way}});
  EXPECT_THAT(names_of(model, CombinationType::seismic),
              UnorderedElementsAre("1.2G+1.3Ex", "1.2G+1.3Ey"));
}

TEST(BuildingRule, WindActsWithEarthquakesWhereItGoverns) {
  const Action never{.kind = ActionKind::permanent, .favourable = model::Favourable::never};
  const Action one_way{.kind = ActionKind::earthquake, .reversible = false};
  const auto model = model_of({{"G", never}, {"W", wind}, {"E", one_way}});
  EXPECT_THAT(names_of(model, CombinationType::seismic), ElementsAre("1.2G+1.3E"));
  EXPECT_THAT(names_of(model, CombinationType::seismic,
                       {.rule = "GB 50068-2018", .wind_with_earthquake = true}),
              UnorderedElementsAre("1.2G+1.3E+0.2·1.4W", "1.2G+1.3E"));
}

TEST(BuildingRule, AccidentalActionsActOneAtATimeWithFrequentAndQuasiPermanentValues) {
  const Action accident{.kind = ActionKind::accidental};
  const auto model = model_of({{"G", dead}, {"Q", office}, {"A", accident}, {"B", accident}});
  EXPECT_THAT(names_of(model, CombinationType::accidental),
              UnorderedElementsAre("G+A+0.5Q", "G+A", "G+B+0.5Q", "G+B"));
}

TEST(BuildingRule, OnlySeismicCombinationsAreMarkedSeismicAndOnlyUltimateOnesAreForDesign) {
  const auto model = model_of({{"G", dead}, {"E", earthquake}});
  for (const MadeCombination& made : made_of(model, {.rule = "GB 50068-2018"})) {
    const model::Combination combination = combination_of(made);
    const CombinationType type = made.types.front();
    EXPECT_EQ(combination.seismic, type == CombinationType::seismic) << made.name;
    EXPECT_EQ(combination.design, type <= CombinationType::accidental) << made.name;
    EXPECT_TRUE(combination.by_rule);
  }
}

TEST(BuildingRule, LiveLoadsAreThoseOfTheDesignLife) {
  const auto model = model_of({{"G", dead}, {"Q", office}});
  EXPECT_THAT(
      names_of(model, CombinationType::fundamental, {.rule = "GB 50068-2018", .design_life = 100}),
      UnorderedElementsAre("1.3G+1.65Q", "G+1.65Q", "1.3G", "G"));
}

}  // namespace
}  // namespace aluframe::combinations
