#include "aluframe/section/mesh_properties.h"

#include "sections.h"

namespace aluframe::section {
namespace {

using model::Shape;

MeshProperties on_mesh(Shape shape, std::array<double, 8> dimensions, int across = 4) {
  return properties_of(mesh_of(make_section(shape, dimensions), across));
}

// Channel of the literature on finite elements of sections: middle lines 8 x 18, t 1.
// Published: A 34, Ixx 1787.833, shear centre 2.868 from the web's middle line, J 11.289,
// Cw 12763. J converges from above, and the published mesh is coarse: 0.2 %.
TEST(SectionMesh, GivesTheConstantsOfThePublishedChannel) {
  const MeshProperties c = on_mesh(Shape::channel, {19, 8.5, 1, 1, 8.5, 1});
  expect_close(c.area, 34.0);
  EXPECT_NEAR(c.iyy, 1787.833, 5e-4);
  EXPECT_NEAR(c.shear_centre_y + c.centroid_y - 0.5, -2.868, 1e-3);
  EXPECT_NEAR(c.shear_centre_z, 0.0, 1e-9);
  EXPECT_NEAR(c.it, 11.289, 0.002 * 11.289);
  EXPECT_NEAR(c.iw, 12763.0, 5e-4 * 12763.0);
}

// Rectangle 50 x 100: J = a·b³·(16/3 − 3.36·b/a·(1 − b⁴/(12a⁴)))/16 with the exact series,
// Timoshenko and Goodier: 0.228682·100·50³ = 2.858521e6. As a channel without web: flanges that
// meet.
TEST(SectionMesh, GivesTheTorsionConstantOfARectangle) {
  const MeshProperties coarse = on_mesh(Shape::channel, {100, 50, 50, 40, 50, 40}, 4);
  const MeshProperties fine = on_mesh(Shape::channel, {100, 50, 50, 40, 50, 40}, 8);
  EXPECT_NEAR(coarse.it, 2.858521e6, 1e-3 * 2.858521e6);
  EXPECT_NEAR(fine.it, 2.858521e6, 2e-4 * 2.858521e6);
  EXPECT_LT(fine.it, coarse.it);
}

// Timoshenko and Gere: Iw = I1·I2/(I1 + I2)·h² = 6.2296e10, shear centre 32.222 from the large
// flange's middle line. Thin-wall theory: the mesh adds the warping across the thickness, 0.3 %.
TEST(SectionMesh, AgreesWithThinWallTheoryOnUnequalFlanges) {
  const MeshProperties h = on_mesh(Shape::h_section, {300, 200, 8, 10, 100, 10});
  EXPECT_NEAR(h.iw, 6.2296e10, 0.003 * 6.2296e10);
  const double from_large_flange = 145.0 - (h.shear_centre_z + h.centroid_z);
  EXPECT_NEAR(from_large_flange, 32.222, 0.01 * 32.222);
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

// Bredt: 4·(95·192)²/(2·95/8 + 2·192/5) = 1.3235e7, less the walls' own b·t³/3 (about 1 %).
TEST(SectionMesh, GivesTheTorsionConstantOfAClosedCell) {
  const MeshProperties box = on_mesh(Shape::box, {200, 100, 5, 8, 95, 8});
  const double bredt = 4.0 * square(95.0 * 192.0) / (2.0 * 95.0 / 8.0 + 2.0 * 192.0 / 5.0);
  EXPECT_GT(box.it, bredt);
  EXPECT_NEAR(box.it, bredt, 0.025 * bredt);
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

}  // namespace
}  // namespace aluframe::section
