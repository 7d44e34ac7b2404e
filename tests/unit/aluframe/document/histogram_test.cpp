#include "aluframe/document/histogram.h"

#include <gmock/gmock.h>

#include <limits>
#include <regex>

namespace aluframe::document {
namespace {

/// The numbers over the bars, in their order.
std::vector<int> counts_in(const std::string& svg) {
  std::vector<int> counts;
  const std::regex whole(">([0-9]+)</text>");
  for (auto at = std::sregex_iterator(svg.begin(), svg.end(), whole); at != std::sregex_iterator();
       ++at) {
    counts.push_back(std::stoi((*at)[1]));
  }
  return counts;
}

TEST(Histogram, CountsRatiosByTenthsThatTheirEndBelongsTo) {
  // Ends of classes are no whole number of the machine's: 0.25 and 0.5 are.
  EXPECT_THAT(counts_in(histogram_of({0.0, 0.05, 0.25, 0.5, 0.55, 1.0})),
              testing::ElementsAre(2, 0, 1, 0, 1, 1, 0, 0, 0, 1, 0));
}

TEST(Histogram, HasAClassForAllThatFails) {
  EXPECT_THAT(counts_in(histogram_of({1.01, 7.0, std::numeric_limits<double>::infinity(),
                                      std::numeric_limits<double>::quiet_NaN()})),
              testing::ElementsAre(0, 0, 0, 0, 0, 0, 0, 0, 0, 0, 4));
}

TEST(Histogram, ReachesItsFullHeightWithTheLargestClassOnly) {
  const std::string svg = histogram_of({0.05, 0.05, 0.15});
  EXPECT_NE(svg.find("height=\"45.00\""), std::string::npos);
  EXPECT_NE(svg.find("height=\"22.50\""), std::string::npos);
}

TEST(Histogram, OfNothingIsEmpty) {
  EXPECT_THAT(counts_in(histogram_of({})), testing::Each(0));
}

}  // namespace
}  // namespace aluframe::document
