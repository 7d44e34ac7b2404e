// Long lists of numbers on the screen.

#include "aluframe/tables/short_lists.h"

#include <gtest/gtest.h>

namespace aluframe::tables {
namespace {

// 60 characters: "1000" and eight of ", 1002".
const std::string fits = "1000, 1002, 1004, 1006, 1008, 1010, 1012, 1014, 1016, 1018-99";

TEST(ShortLists, AListThatFitsIsShownWhole) {
  EXPECT_EQ(shown_list("1-3, 7"), "1-3, 7");
  EXPECT_EQ(shown_list(""), "");
  EXPECT_EQ(shown_list(fits.substr(0, 60)), fits.substr(0, 60));
}

// 1030 to 1039 are ten numbers, 2000 is one.
TEST(ShortLists, OfALongOneTheRestIsCounted) {
  const std::string start = "1000, 1002, 1004, 1006, 1008, 1010, 1012, 1014, 1016, 1018";
  EXPECT_EQ(shown_list(start + ", 1030-1039, 2000"), start + " and 11 more");
}

TEST(ShortLists, AListForAFileStaysWhole) {
  EXPECT_EQ(shown_list(fits + "9, 2000", Lists::whole), fits + "9, 2000");
}

}  // namespace
}  // namespace aluframe::tables
