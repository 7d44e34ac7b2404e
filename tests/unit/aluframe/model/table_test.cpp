#include "aluframe/model/table.h"

#include <gtest/gtest.h>

#include <iterator>

#include "aluframe/model/material.h"

namespace aluframe::model {
namespace {

Material named(Number number, const char* name) {
  Material material;
  material.number = number;
  material.name = name;
  return material;
}

TEST(TableTest, AnEntityIsReplacedInItsPlace) {
  Table<Material> table;
  table.add(named(7, "first"));
  table.add(named(3, "second"));
  EXPECT_TRUE(table.replace(named(7, "other")));
  EXPECT_EQ(table.size(), 2U);
  EXPECT_EQ(table[0].name, "other");
  EXPECT_EQ(table.find(7)->name, "other");
  EXPECT_EQ(table[1].name, "second");
}

TEST(TableTest, WhatIsNotThereIsNotReplaced) {
  Table<Material> table;
  table.add(named(7, "first"));
  EXPECT_FALSE(table.replace(named(3, "other")));
  EXPECT_EQ(table.size(), 1U);
  EXPECT_EQ(table.find(3), nullptr);
}

// Numbers that count up by one, a gap, a number out of line and one below the first.
TEST(TableTest, EveryNumberIsFoundWhateverTheOrder) {
  Table<Material> table;
  const Number numbers[] = {5, 6, 7, 10, 9, 3, max_number};
  for (const Number number : numbers) table.add(named(number, ""));
  for (std::size_t place = 0; place < std::size(numbers); ++place) {
    EXPECT_EQ(table.position(numbers[place]), place) << numbers[place];
    EXPECT_EQ(table.find(numbers[place]), &table[place]) << numbers[place];
  }
  for (const Number absent : {0U, 4U, 8U, 11U, max_number - 1}) {
    EXPECT_EQ(table.find(absent), nullptr) << absent;
  }
}

TEST(TableTest, AnEmptyTableHoldsNoNumber) {
  EXPECT_EQ(Table<Material>().find(0), nullptr);
}

}  // namespace
}  // namespace aluframe::model
