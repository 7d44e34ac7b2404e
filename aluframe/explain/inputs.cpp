#include "aluframe/explain/inputs.h"

#include <array>

#include "tz_alu/engine/constants.h"
#include "tz_alu/engine/section_geometry.h"

namespace aluframe::explain {

namespace {

Term force_of(Derivation& d, const char* symbol, const char* quantity, const char* unit,
              ALU_FORCE component) {
  return d.given({symbol, quantity, unit, "", d.origins.forces}, d.in.force.dForce[component]);
}

Term constant_of(Derivation& d, const char* symbol, const char* quantity, const char* unit,
                 double value) {
  return d.given({symbol, quantity, unit, "", d.origins.section}, value);
}

using Names = std::array<const char*, 8>;

constexpr Names names_of_h{"H", "tw", "B1", "tf1", "B2", "tf2", "r1", "r2"};
constexpr Names names_of_box{"H", "tw", "B", "tf1", "C", "tf2", "", ""};
constexpr Names names_of_tee{"H", "tw", "B", "tf", "", "", "", ""};
constexpr Names names_of_double_channel{"H", "tw", "B", "tf", "C", "", "", ""};
constexpr Names names_of_pipe{"D", "t", "", "", "", "", "", ""};
constexpr Names names_of_round{"D", "D", "", "", "", "", "", ""};

const Names& names_of(std::int32_t shape) {
  switch (shape) {
    case ALU_SHAPE_T:
      return names_of_tee;
    case ALU_SHAPE_B:
      return names_of_box;
    case ALU_SHAPE_2C:
      return names_of_double_channel;
    case ALU_SHAPE_P:
      return names_of_pipe;
    case ALU_SHAPE_SR:
      return names_of_round;
    default:
      return names_of_h;
  }
}

constexpr Names quantities{
    translatable("depth of the section"),       translatable("thickness of the web"),
    translatable("width of the top flange"),    translatable("top flange thickness"),
    translatable("width of the bottom flange"), translatable("bottom flange thickness"),
    translatable("corner allowance r1"),        translatable("corner allowance r2")};

const char* quantity_of(std::int32_t shape, std::size_t place) {
  const bool is_round = shape == ALU_SHAPE_P || shape == ALU_SHAPE_SR;
  if (is_round && (place == 0 || shape == ALU_SHAPE_SR)) return translatable("outside diameter");
  if (shape == ALU_SHAPE_P && place == 1) return translatable("thickness of the wall");
  if (place == 4 && shape == ALU_SHAPE_B) return translatable("distance of the webs");
  if (place == 4 && shape == ALU_SHAPE_2C) return translatable("gap between the backs");
  if (place == 2 && shape == ALU_SHAPE_2C) return translatable("width of a flange of one channel");
  const bool has_one = shape == ALU_SHAPE_T || shape == ALU_SHAPE_2C;
  if (place == 3 && has_one) return translatable("thickness of the flanges");
  return quantities.at(place);
}

}  // namespace

Term axial_force(Derivation& d) {
  return force_of(d, "N", translatable("axial force, tension positive"), "N", ALU_FORCE_N);
}
Term shear_force_y(Derivation& d) {
  return force_of(d, "Fy", translatable("shear force along y"), "N", ALU_FORCE_FY);
}
Term shear_force_z(Derivation& d) {
  return force_of(d, "Fz", translatable("shear force along z"), "N", ALU_FORCE_FZ);
}
Term moment_y(Derivation& d) {
  return force_of(d, "My", translatable("moment about y"), "N·mm", ALU_FORCE_MY);
}
Term moment_z(Derivation& d) {
  return force_of(d, "Mz", translatable("moment about z"), "N·mm", ALU_FORCE_MZ);
}

Term dimension(Derivation& d, Dimension which) {
  const auto place = static_cast<std::size_t>(which);
  return constant_of(d, names_of(d.shape()).at(place), quantity_of(d.shape(), place), "mm",
                     d.in.Section().dSize[place]);
}

Term gross_area(Derivation& d) {
  return constant_of(d, "A", translatable("gross area"), "mm²", d.in.Section().dArea);
}
Term inertia_y(Derivation& d) {
  return constant_of(d, "Iyy", translatable("second moment of area about y"), "mm⁴",
                     d.in.Section().dIyy);
}
Term inertia_z(Derivation& d) {
  return constant_of(d, "Izz", translatable("second moment of area about z"), "mm⁴",
                     d.in.Section().dIzz);
}
Term torsion_constant(Derivation& d) {
  return constant_of(d, "It", translatable("torsion constant"), "mm⁴", d.in.Section().dIxx);
}
Term warping_constant(Derivation& d) {
  return constant_of(d, "Iω", translatable("warping constant"), "mm⁶", d.in.Section().dIw);
}
Term shear_centre(Derivation& d) {
  return constant_of(d, "e0", translatable("z of the shear centre from the centroid"), "mm",
                     d.in.Section().dShearCtr);
}
Term top_fibre(Derivation& d) {
  return constant_of(d, "z1", translatable("z of the top fibre"), "mm", d.in.Section().dPtZ[0]);
}
Term bottom_fibre(Derivation& d) {
  return constant_of(d, "z3", translatable("z of the bottom fibre"), "mm", d.in.Section().dPtZ[2]);
}
Term outermost_y(Derivation& d) {
  return constant_of(d, "ymax", translatable("largest |y| of the stress points"), "mm",
                     alu_engine::OutermostY(d.in.Section()));
}
Term outermost_z(Derivation& d) {
  return constant_of(d, "zmax", translatable("largest |z| of the stress points"), "mm",
                     alu_engine::OutermostZ(d.in.Section()));
}

Term elastic_modulus(Derivation& d) {
  return d.given(
      {"E", translatable("elastic modulus, its whole part"), "N/mm²", "", d.origins.material},
      d.in.E());
}
Term poisson_ratio(Derivation& d) {
  return d.given({"ν", translatable("Poisson's ratio"), "", "", d.origins.material},
                 d.in.data.code.matl.dPoisson);
}
Term shear_modulus(Derivation& d) {
  return d.given({"G", translatable("shear modulus of aluminium"), "N/mm²"},
                 alu_engine::kShearModulus);
}

Term haz_factor(Derivation& d) {
  const bool in_table = d.material.bCodeStandard && d.material.pGrade != nullptr;
  return d.given({"ρhaz", translatable("what a heat-affected strip keeps of its thickness"), "",
                  translatable("chapter 5"),
                  in_table ? translatable("of the alloy")
                           : translatable("1: the code's table does not have this material")},
                 d.material.HazFactor());
}
Term haz_width(Derivation& d) {
  return d.given({"b", translatable("width of the heat-affected zone on each side of a weld"), "mm",
                  "", d.origins.settings},
                 d.in.Parameters().dHazWidth);
}

Term strength_ratio(Derivation& d) {
  return d.given(
      {"ηA", translatable("strength ratio: net over gross area"), "", "", d.origins.settings},
      d.in.Parameters().dCoef085);
}

Term member_length(Derivation& d) {
  return d.given({"L", translatable("length of the member"), "mm", "", d.origins.member},
                 d.in.data.dMembLength);
}
Term length_factor_y(Derivation& d) {
  return d.given(
      {"Ky", translatable("effective length factor about y"), "", "4.5", d.origins.factor_y},
      d.in.Parameters().dKy);
}
Term length_factor_z(Derivation& d) {
  return d.given(
      {"Kz", translatable("effective length factor about z"), "", "4.5", d.origins.factor_z},
      d.in.Parameters().dKz);
}

Term pi_squared() {
  return Term::constant("π²", alu_engine::kPiSquared);
}

}  // namespace aluframe::explain
