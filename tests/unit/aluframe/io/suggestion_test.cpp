#include "aluframe/io/suggestion.h"

#include <gtest/gtest.h>

#include <array>

namespace aluframe::io {
namespace {

constexpr auto names =
    std::to_array<std::string_view>({"number", "name", "nodes", "section", "material", "x"});

TEST(ClosestName, ForgivesLettersThatAreMissingAddedOrWrong) {
  EXPECT_EQ(closest_name("numbr", names), "number");
  EXPECT_EQ(closest_name("sectionn", names), "section");
  EXPECT_EQ(closest_name("materiel", names), "material");
  EXPECT_EQ(closest_name("mateiral", names), "material");  // two letters changed places
}

TEST(ClosestName, ForgivesCase) {
  EXPECT_EQ(closest_name("NODES", names), "nodes");
  EXPECT_EQ(closest_name("X", names), "x");
}

TEST(ClosestName, IsTheNearestOfSeveral) {
  EXPECT_EQ(closest_name("node", names), "nodes");
}

TEST(ClosestName, IsNoneWhenThreeLettersOrHalfTheNameDiffer) {
  EXPECT_EQ(closest_name("matrial_no", names), "");
  EXPECT_EQ(closest_name("y", names), "");
  EXPECT_EQ(closest_name("", names), "");
  EXPECT_EQ(closest_name("colour", names), "");
}

TEST(UnknownName, ListsAllNamesWhenNoneIsClose) {
  EXPECT_EQ(unknown_name_text("field", "colour", names),
            "unknown field, allowed are number, name, nodes, section, material, x");
  EXPECT_EQ(unknown_name_text("field", "colour", {}), "unknown field, none is allowed here");
}

}  // namespace
}  // namespace aluframe::io
