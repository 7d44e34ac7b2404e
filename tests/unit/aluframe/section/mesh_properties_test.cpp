#include "aluframe/section/mesh_properties.h"

#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

MeshProperties on_mesh(Shape shape, std::array<double, 8> dimensions, int across = 4) {
  return properties_of(mesh_of(make_section(shape, dimensions), across));
}

// A ring has ω = 0 and It = Ip; polygons of 48 curved sides lose less than 3e-5 of it.
TEST(SectionMesh, GivesThePolarMomentOfRounds) {
  const MeshProperties pipe = on_mesh(Shape::pipe, {100, 5});
  const double ring = M_PI / 32.0 * (std::pow(100.0, 4) - std::pow(90.0, 4));
  EXPECT_NEAR(pipe.it, ring, 3e-5 * ring);
  EXPECT_NEAR(pipe.iw, 0.0, 1e-6);
  const MeshProperties solid = on_mesh(Shape::solid_round, {100});
  const double disc = M_PI / 32.0 * std::pow(100.0, 4);
  EXPECT_NEAR(solid.it, disc, 3e-5 * disc);
}

TEST(SectionMesh, HasTheAreaAndMomentsOfTheClosedFormulas) {
  const struct {
    Shape shape;
    std::array<double, 8> dimensions;
  } sections[] = {{Shape::channel, {100, 60, 5, 8, 40, 6}},
                  {Shape::h_section, {240, 130, 6, 10, 160, 12}},
                  {Shape::tee, {180, 120, 8, 10}},
                  {Shape::box, {200, 100, 5, 8, 80, 6}}};
  for (const auto& [shape, dimensions] : sections) {
    const MeshProperties mesh = on_mesh(shape, dimensions);
    const model::SectionProperties formula = properties_of(shape, dimensions);
    expect_close(mesh.area, formula.area, 1e-11);
    expect_close(mesh.iyy, formula.iyy, 1e-11);
    expect_close(mesh.izz, formula.izz, 1e-11);
  }
}

// Thin walls (b/t of 20 and more): theory and mesh differ by corners and thickness, a few per cent.
TEST(SectionMesh, AgreesWithTheClosedFormulasOfThinWalls) {
  const struct {
    Shape shape;
    std::array<double, 8> dimensions;
  } sections[] = {{Shape::channel, {200, 80, 3, 3, 60, 3}},
                  {Shape::channel, {300, 120, 4, 5, 120, 5}},
                  {Shape::h_section, {300, 180, 4, 5, 120, 5}}};
  for (const auto& [shape, dimensions] : sections) {
    const MeshProperties mesh = on_mesh(shape, dimensions);
    const model::SectionProperties formula = properties_of(shape, dimensions);
    expect_close(mesh.it, formula.it, 0.03);
    expect_close(mesh.iw, formula.iw, 0.02);
    EXPECT_NEAR(mesh.shear_centre_z, formula.shear_centre_z, 0.01 * dimensions[0]);
  }
}

TEST(SectionMesh, ConvergesFromAboveAsItGetsFiner) {
  const MeshProperties two = on_mesh(Shape::channel, {100, 60, 5, 8, 40, 6}, 2);
  const MeshProperties four = on_mesh(Shape::channel, {100, 60, 5, 8, 40, 6}, 4);
  const MeshProperties eight = on_mesh(Shape::channel, {100, 60, 5, 8, 40, 6}, 8);
  EXPECT_GT(two.it, four.it);
  EXPECT_GT(four.it, eight.it);
  EXPECT_LT(four.it - eight.it, 1e-3 * eight.it);
}

// Cells grow by a half from one to the next, so that their number follows the logarithm of the
// largest over the smallest dimension. From both ends of an interval of 1e5 mm to its middle, with
// 16 cells across 1e-3 mm: 2·ln(1 + 5e4/(2·6.25e-5))/ln 1.5 < 98. An H with unlike flanges has five
// intervals across and three up.
TEST(SectionMesh, OfTheMostUnlikePlatesStaysSmall) {
  constexpr std::size_t most_cells = (5 * 98) * (3 * 98);
  const struct {
    Shape shape;
    std::array<double, 8> dimensions;
  } sections[] = {{Shape::h_section, {1e5, 1e5, 1e-3, 3e4, 5e4, 3e4}},
                  {Shape::h_section, {1e5, 1e5, 1e-3, 1e-3, 1e5, 1e-3}},
                  {Shape::box, {1e5, 1e5, 3e4, 3e4, 30000.002, 1e-3}},
                  {Shape::box, {1e5, 1e5, 49999.999, 49999.999, 50000.001, 49999.999}},
                  {Shape::channel, {1e5, 1e5, 1e-3, 3e4, 5e4, 3e4}},
                  {Shape::tee, {1e5, 1e5, 1e-3, 5e4}}};
  for (const auto& [shape, dimensions] : sections) {
    const model::Section section = make_section(shape, dimensions);
    ASSERT_FALSE(find_dimension_problem(section));
    const std::size_t cells = mesh_of(section, 16).cells.size();
    EXPECT_GT(cells, 0U);
    EXPECT_LE(cells, most_cells) << model::name_of(shape);
  }
}

}  // namespace
}  // namespace aluframe::section
