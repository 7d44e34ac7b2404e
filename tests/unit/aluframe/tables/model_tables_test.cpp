// What stands in the tables of a model. Expected values are by hand.

#include "aluframe/tables/model_tables.h"

#include <gtest/gtest.h>

#include <algorithm>

#include "aluframe/tables/force_tables.h"
#include "aluframe/tables/structure_texts.h"
#include "aluframe/texts/language.h"
#include "tests/unit/aluframe/model/models.h"
#include "tests/unit/aluframe/tables/cells.h"

namespace aluframe::tables {
namespace {

/// What stands in a row under a key.
Cell cell(const OutputTable& table, std::size_t row, const std::string& key) {
  const auto found = std::ranges::find(table.columns, key, &Column::key);
  if (found == table.columns.end()) throw std::logic_error("no column " + key);
  return table.rows.at(row).at(static_cast<std::size_t>(found - table.columns.begin()));
}

double number(const OutputTable& table, std::size_t row, const std::string& key) {
  return std::get<double>(cell(table, row, key));
}

std::string heading(const OutputTable& table, const std::string& key) {
  return std::ranges::find(table.columns, key, &Column::key)->heading;
}

/// A column of 3 m of which a beam of 4 m goes off, both solid rods of 20 mm; in kN and m.
class ModelTables : public testing::Test {
 protected:
  ModelTables() {
    model.nodes.add(model::node(1, 0, 0, 0));
    model.nodes.add(model::node(2, 0, 0, 3000));
    model.nodes.add(model::node(3, 4000, 0, 3000));
    model::Section rod;
    rod.number = 7;
    rod.name = "Rod";
    rod.shape = model::Shape::solid_round;
    rod.dimensions = {20};
    model.sections.add(rod);
    model::Material material;
    material.number = 5;
    material.grade = "6061-T6";
    model.materials.add(material);
    add_element(1, 1, 2);
    add_element(2, 2, 3);
    model::Member member;
    member.number = 4;
    member.elements = {1, 2};
    model.members.add(member);
  }

  void add_element(model::Number number, model::Number start, model::Number end) {
    model::Element element = model::element(number, start, end);
    element.section = 7;
    element.material = 5;
    model.elements.add(element);
  }

  model::Model model;
};

TEST_F(ModelTables, NodesStandInTheLengthUnitOfTheModel) {
  const OutputTable table = nodes_table(model);
  ASSERT_EQ(table.rows.size(), 3U);
  EXPECT_EQ(heading(table, "x_m"), "X m");
  EXPECT_DOUBLE_EQ(number(table, 2, "x_m"), 4.0);
  EXPECT_DOUBLE_EQ(number(table, 2, "z_m"), 3.0);
  model.units.length = model::LengthUnit::millimetre;
  EXPECT_DOUBLE_EQ(number(nodes_table(model), 2, "x_mm"), 4000.0);
}

TEST_F(ModelTables, ASupportTellsWhatItHoldsAndBySprings) {
  model::Support support;
  support.node = 2;
  support.restrained = {true, false, true, false, false, false};
  support.springs = {0, 250.0, 0, 4e7, 0, 0};  // 250 N/mm = 250 kN/m, 4e7 N·mm/rad = 40 kN·m/rad
  model.supports.push_back(support);
  const OutputTable table = nodes_table(model);
  EXPECT_EQ(cell(table, 0, "restrained"), none);
  EXPECT_EQ(cell(table, 1, "restrained"), text("Dx, Dz"));
  EXPECT_EQ(cell(table, 1, "springs"), text("Dy 250 kN/m, Rx 40 kN·m/rad"));
}

TEST_F(ModelTables, AnElementTellsWhatItRefersToItsTypeAndLength) {
  const OutputTable table = elements_table(model);
  EXPECT_EQ(cell(table, 0, "type"), phrase("column"));
  EXPECT_EQ(cell(table, 1, "type"), phrase("beam"));
  EXPECT_EQ(cell(table, 1, "start"), whole(2));
  EXPECT_EQ(cell(table, 1, "end"), whole(3));
  EXPECT_EQ(cell(table, 1, "section"), whole(7));
  EXPECT_EQ(cell(table, 1, "section_name"), text("Rod"));
  EXPECT_EQ(cell(table, 1, "material"), whole(5));
  EXPECT_EQ(cell(table, 1, "member"), whole(4));
  EXPECT_DOUBLE_EQ(number(table, 1, "length_m"), 4.0);
  EXPECT_EQ(cell(table, 1, "releases"), none);
  EXPECT_EQ(cell(table, 1, "orientation"), none);
}

TEST_F(ModelTables, ReleasesAndOrientationComeInTheLanguageInUse) {
  model::Element element = *model.elements.find(2);
  element.released[4] = element.released[11] = true;  // My at the start, Mz at the end
  element.orientation = model::Number{1};
  element.beta = 30.0;
  model.elements.replace(element);
  const OutputTable table = elements_table(model);
  EXPECT_EQ(cell(table, 1, "releases"), phrase("start: My; end: Mz"));
  EXPECT_EQ(cell(table, 1, "orientation"), phrase("z towards node 1, β 30°"));
  const texts::LanguageInUse chinese(texts::Language::chinese);
  const std::string shown = cell_text(table.columns.back(), table.rows[1].back());
  EXPECT_EQ(shown.find("start"), std::string::npos) << shown;
  EXPECT_EQ(shown.find("end"), std::string::npos) << shown;
}

TEST_F(ModelTables, AMemberIsAsLongAsItsElementsAndListsThemFromItsStart) {
  const OutputTable table = members_table(model);
  ASSERT_EQ(table.rows.size(), 1U);
  EXPECT_DOUBLE_EQ(number(table, 0, "length_m"), 7.0);
  EXPECT_EQ(cell(table, 0, "elements"), text("1-2"));
  EXPECT_EQ(cell(table, 0, "origin"), phrase("file"));
  EXPECT_EQ(cell(table, 0, "ky"), none);
  model.finds_members = true;
  EXPECT_EQ(cell(members_table(model), 0, "origin"), phrase("found"));
}

// A circle of 20 mm: A = 100π, I = 2500π, It = 2 I.
TEST_F(ModelTables, ASectionHasItsPropertiesAndHowOftenItIsUsed) {
  constexpr double pi = 3.14159265358979;
  const OutputTable table = sections_table(model);
  EXPECT_EQ(cell(table, 0, "shape"), phrase("solid round bar"));
  EXPECT_EQ(cell(table, 0, "dimensions_mm"), text("D 20"));
  EXPECT_EQ(cell(table, 0, "elements"), whole(2));
  EXPECT_NEAR(number(table, 0, "A_mm2"), 100 * pi, 1e-9);
  EXPECT_NEAR(number(table, 0, "Iyy_mm4"), 2500 * pi, 1e-8);
  EXPECT_NEAR(number(table, 0, "It_mm4"), 5000 * pi, 1e-8);
  EXPECT_EQ(heading(table, "Iyy_mm4"), "Iyy mm⁴");
}

// In m⁴ the same needs twelve digits behind the point.
TEST_F(ModelTables, PropertiesInLargeUnitsKeepTheirDigits) {
  model.units.section = model::LengthUnit::metre;
  const OutputTable table = sections_table(model);
  EXPECT_EQ(cell(table, 0, "dimensions_m"), text("D 0.02"));
  const auto inertia = std::ranges::find(table.columns, "Iyy_m4", &Column::key);
  ASSERT_NE(inertia, table.columns.end());
  EXPECT_EQ(cell_text(*inertia, cell(table, 0, "Iyy_m4")), "0.000000007854");
}

TEST_F(ModelTables, MaterialsStandInUnitsThatAreUsualForThem) {
  const OutputTable table = materials_table(model);
  EXPECT_EQ(cell(table, 0, "grade"), text("6061-T6"));
  EXPECT_DOUBLE_EQ(number(table, 0, "e_n_mm2"), 70000.0);
  EXPECT_NEAR(number(table, 0, "density_kg_m3"), 2700.0, 1e-9);
  EXPECT_EQ(cell(table, 0, "elements"), whole(2));
}

TEST_F(ModelTables, ALoadCaseCountsItsLoads) {
  model::LoadCase load_case = model::load_case(3, model::LoadCaseKind::crane);
  load_case.loads.self_weight = {0, 0, -1};
  load_case.loads.nodal.resize(2);
  load_case.loads.span.resize(3);
  load_case.loads.area.resize(1);
  for (std::size_t i = 1; i < 3; ++i) load_case.loads.span[i].of_area = 0;
  model.load_cases.add(load_case);
  const OutputTable table = load_cases_table(model);
  EXPECT_EQ(cell(table, 0, "load_case"), whole(3));
  EXPECT_EQ(cell(table, 0, "kind"), phrase("crane"));
  EXPECT_EQ(cell(table, 0, "self_weight"), Cell(true));
  EXPECT_EQ(cell(table, 0, "nodal_loads"), whole(2));
  EXPECT_EQ(cell(table, 0, "area_loads"), whole(1));
  EXPECT_EQ(cell(table, 0, "line_loads"), whole(1));  // those that area loads become do not count
  EXPECT_EQ(cell(table, 0, "settlements"), whole(0));
  EXPECT_EQ(cell(table, 0, "given_forces"), Cell(false));
}

TEST_F(ModelTables, CombinationsOfTheFileStandWithTheirTerms) {
  model.combinations.add(
      model::linear(1, {model::of_case(1, 1.3), model::of_combination(2, -0.5)}));
  model.combinations.add(model::envelope(2, {model::of_case(1), model::of_case(2, 1.5)}));
  model::Combination state = model::linear(100, {model::of_case(1)});
  state.state_of = 2;
  model.combinations.add(state);
  const OutputTable table = combinations_table(model);
  ASSERT_EQ(table.rows.size(), 2U);
  EXPECT_EQ(cell(table, 0, "terms"), text("1.3 LC1 + -0.5 C2"));
  EXPECT_EQ(cell(table, 0, "kind"), phrase("sum"));
  EXPECT_EQ(cell(table, 1, "terms"), text("1 LC1; 1.5 LC2"));
  EXPECT_EQ(cell(table, 1, "kind"), phrase("envelope"));
}

/// Axial forces of two load cases: of both elements in the first, of the first in the second.
class ForceTables : public ModelTables {
 protected:
  ForceTables() {
    model.load_cases.add(model::load_case(1));
    model.load_cases.add(model::load_case(2));
    model.forces.resize(2, 2);
    model.forces.set(0, 0, model::axial(-5000));
    model.forces.set(1, 0, model::axial(2000, false));
    model.forces.set(0, 1, model::axial(1000));
    model.combinations.add(model::linear(1, {model::of_case(1), model::of_case(2, 2.0)}));
    model.combinations.add(model::envelope(2, {model::of_case(1), model::of_case(2)}));
  }
};

TEST_F(ForceTables, ALoadCaseTellsThatItsForcesAreGiven) {
  EXPECT_EQ(cell(load_cases_table(model), 0, "given_forces"), Cell(true));
}

TEST_F(ForceTables, ALoadCaseHasALineAnElementAndKnownPosition) {
  const OutputTable table = element_forces_table(model, {.number = 1});
  ASSERT_EQ(table.rows.size(), 7U);  // five positions, and two ends
  EXPECT_EQ(heading(table, "N"), "N kN");
  EXPECT_EQ(heading(table, "My"), "My kN·m");
  EXPECT_DOUBLE_EQ(number(table, 0, "N"), -5.0);
  EXPECT_EQ(cell(table, 5, "element"), whole(2));
  EXPECT_EQ(cell(table, 5, "position"), whole(0));
  EXPECT_EQ(cell(table, 6, "position"), whole(4));
  EXPECT_DOUBLE_EQ(number(table, 6, "N"), 2.0);
}

// -5 + 2 · 1 kN; the second element has no forces in the second case.
TEST_F(ForceTables, ACombinationAddsUpAndLeavesOutElementsWithoutForces) {
  const OutputTable table = element_forces_table(model, {.is_combination = true, .number = 1});
  ASSERT_EQ(table.rows.size(), 5U);
  EXPECT_DOUBLE_EQ(number(table, 2, "N"), -3.0);
}

TEST_F(ForceTables, AnEnvelopeHasBothSides) {
  const OutputTable table = element_forces_table(model, {.is_combination = true, .number = 2});
  ASSERT_EQ(table.rows.size(), 10U);
  EXPECT_EQ(cell(table, 0, "side"), text("max"));
  EXPECT_DOUBLE_EQ(number(table, 0, "N"), 1.0);
  EXPECT_EQ(cell(table, 5, "side"), text("min"));
  EXPECT_DOUBLE_EQ(number(table, 5, "N"), -5.0);
}

TEST(InOrderText, PutsTogetherWhatCountsUp) {
  EXPECT_EQ(in_order_text({1, 2, 3, 7, 5, 6}), "1-3, 7, 5-6");
  EXPECT_EQ(in_order_text({3, 2, 1}), "3, 2, 1");
  EXPECT_EQ(in_order_text({}), "");
}

}  // namespace
}  // namespace aluframe::tables
