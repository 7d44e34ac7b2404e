#include "aluframe/model/table.h"

#include <gtest/gtest.h>

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

}  // namespace
}  // namespace aluframe::model
