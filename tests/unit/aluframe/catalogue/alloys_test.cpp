#include "aluframe/catalogue/alloys.h"

#include <gtest/gtest.h>

namespace aluframe::catalogue {
namespace {

/// Strengths of GB 50429-2007's table of structural alloys, copied from it by hand, N/mm².
struct Row {
  const char* grade;
  double f02_thin, f02_thick, fu;
};

void PrintTo(const Row& row, std::ostream* out) {
  *out << row.grade;
}

class AlloyTable : public testing::TestWithParam<Row> {};

TEST_P(AlloyTable, HasTheStrengthsOfTheCode) {
  const Alloy* alloy = find_alloy(GetParam().grade);
  ASSERT_NE(alloy, nullptr);
  EXPECT_EQ(alloy->f02_thin, GetParam().f02_thin);
  EXPECT_EQ(alloy->f02_thick, GetParam().f02_thick);
  EXPECT_EQ(alloy->fu, GetParam().fu);
}

INSTANTIATE_TEST_SUITE_P(
    Grades, AlloyTable,
    testing::Values(Row{"6061-T4", 110, 110, 180}, Row{"6061-T6", 240, 240, 265},
                    Row{"6063-T5", 110, 110, 160}, Row{"6063-T6", 180, 180, 205},
                    Row{"6063A-T5", 160, 150, 200}, Row{"6063A-T6", 190, 180, 230},
                    Row{"5083-O/F", 110, 110, 270}, Row{"5083-H112", 110, 110, 270},
                    Row{"3003-H24", 120, 120, 145}, Row{"3004-H34", 170, 170, 220},
                    Row{"3004-H36", 190, 190, 240}));

TEST(Alloys, HaveNoOtherGrade) {
  EXPECT_EQ(alloys().size(), 11U);
}

TEST(Alloys, AreFoundByTheirExactNameOnly) {
  EXPECT_EQ(find_alloy("6061-t6"), nullptr);
  EXPECT_EQ(find_alloy("6061"), nullptr);
  EXPECT_EQ(find_alloy(""), nullptr);
}

TEST(Alloys, AreListedForMessages) {
  EXPECT_EQ(alloy_names(),
            "6061-T4, 6061-T6, 6063-T5, 6063-T6, 6063A-T5, 6063A-T6, 5083-O/F, 5083-H112, "
            "3003-H24, 3004-H34, 3004-H36");
}

TEST(Alloys, MakeMaterialsOfTheCodesStandard) {
  const model::Material material = material_of(*find_alloy("6063A-T5"));
  EXPECT_EQ(material.standard, "GB50429-07(A)");
  EXPECT_EQ(material.grade, "6063A-T5");
  EXPECT_EQ(material.f02_thin, 160);
  EXPECT_EQ(material.f02_thick, 150);
  EXPECT_EQ(material.fu, 200);
}

TEST(Alloys, MakeMaterialsWithTheConstantsOfTheCode) {
  // GB 50429-2007: E 70000 N/mm², ν 0.3, 2700 kg/m³, 2.3e-5 1/K.
  const model::Material material = material_of(alloys().front());
  EXPECT_EQ(material.e, 70000);
  EXPECT_EQ(material.poisson, 0.3);
  EXPECT_EQ(material.density, 2.7e-6);
  EXPECT_EQ(material.thermal_expansion, 2.3e-5);
}

}  // namespace
}  // namespace aluframe::catalogue
