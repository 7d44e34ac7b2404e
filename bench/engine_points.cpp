#include "bench/engine_points.h"

#include <algorithm>
#include <array>

#include "aluframe/model/section.h"
#include "aluframe/section/section_properties.h"

namespace {

using aluframe::model::Shape;

struct Profile {
  const char* name;
  Shape shape;
  std::int32_t code;
  std::array<double, 8> host;  // dimensions in the host's order, for the properties
  std::array<double, 8> size;  // the same as the engine takes them
};

// mm. The slender ones have plates beyond every limit of the code.
const std::array kProfiles{
    Profile{"C", Shape::channel, ALU_SHAPE_C, {160, 60, 6, 10, 60, 10}, {160, 6, 60, 10, 60, 10}},
    Profile{
        "C slender", Shape::channel, ALU_SHAPE_C, {200, 90, 6, 6, 80, 6}, {200, 6, 90, 6, 80, 6}},
    Profile{
        "H", Shape::h_section, ALU_SHAPE_H, {200, 60, 10, 12, 60, 12}, {200, 10, 60, 12, 60, 12}},
    Profile{"H slender",
            Shape::h_section,
            ALU_SHAPE_H,
            {300, 200, 6, 8, 200, 8},
            {300, 6, 200, 8, 200, 8}},
    Profile{"H unequal",
            Shape::h_section,
            ALU_SHAPE_H,
            {300, 200, 6, 8, 120, 10},
            {300, 6, 200, 8, 120, 10}},
    Profile{"T", Shape::tee, ALU_SHAPE_T, {120, 100, 8, 10}, {120, 8, 100, 10}},
    Profile{"B", Shape::box, ALU_SHAPE_B, {120, 60, 5, 5, 55, 5}, {120, 5, 60, 5, 55, 5}},
    Profile{
        "B slender", Shape::box, ALU_SHAPE_B, {200, 150, 4, 4, 146, 4}, {200, 4, 150, 4, 146, 4}},
    Profile{"P", Shape::pipe, ALU_SHAPE_P, {100, 5}, {100, 5}},
    Profile{"2C", Shape::double_channel, ALU_SHAPE_2C, {160, 60, 6, 10, 10}, {160, 6, 60, 10, 10}},
    Profile{"SR", Shape::solid_round, ALU_SHAPE_SR, {40}, {40, 40}},
};

ALU_SECT_DATA section_of(const Profile& profile, bool welded) {
  aluframe::model::Section model;
  model.shape = profile.shape;
  model.dimensions = profile.host;
  const auto properties = aluframe::section::properties_of(model);
  ALU_SECT_DATA sect;
  sect.nShape = profile.code;
  std::ranges::copy(profile.size, sect.dSize);
  sect.dArea = properties.area;
  sect.dIxx = properties.it;
  sect.dIyy = properties.iyy;
  sect.dIzz = properties.izz;
  sect.dQyb = properties.qyb;
  sect.dQzb = properties.qzb;
  // Without warping stiffness of its own a section has a tiny one.
  sect.dIw = std::max(properties.iw, 1e-9 * properties.izz * sect.dSize[0] * sect.dSize[0]);
  sect.dShearCtr = properties.shear_centre_z;
  std::ranges::copy(properties.point_y, sect.dPtY);
  std::ranges::copy(properties.point_z, sect.dPtZ);
  sect.bWelded = welded ? 1 : 0;
  return sect;
}

// N, My, Mz of the five force states, compression with bending under both signs of My; shear in all
// of them.
struct State {
  double n;
  double my;
  double mz;
};

constexpr std::array kStates{State{2e4, 0, 0},      State{-2e4, 0, 0},      State{0, 3e6, 4e5},
                             State{2e4, 3e6, -4e5}, State{-2e4, -3e6, 4e5}, State{-2e4, 3e6, 4e5}};

AluDgnSectForce force_of(const State& state, std::size_t turn) {
  AluDgnSectForce force;
  constexpr double shear_y = 1e3;
  constexpr double shear_z = 6e3;
  const double values[] = {state.n, shear_y, shear_z, 0.0, state.my, state.mz};
  std::ranges::copy(values, force.dForce);
  force.bEndSect = turn % 2 == 0 ? 1 : 0;
  force.nSesiType = turn % 5 == 0 ? 1 : 0;
  force.end.dMyI = state.my;
  force.end.dMyJ = -0.5 * state.my;
  force.end.dMzI = 0.3 * state.mz;
  force.end.dMzJ = state.mz;
  return force;
}

ALU_DGN_DATA data_of(const ALU_SECT_DATA& sect, std::size_t turn) {
  constexpr std::array grades{L"6061-T6", L"6063-T5", L"6063A-T6", L"5083-H112", L"3004-H36"};
  constexpr std::array types{ALU_MEMBER_COLUMN, ALU_MEMBER_BEAM, ALU_MEMBER_BRACE};
  ALU_DGN_DATA data;
  data.code.sect = sect;
  ALU_MATL_DATA& matl = data.code.matl;
  matl.strStandard = L"GB50429-07(A)";
  matl.strGrade = grades[turn % grades.size()];
  matl.nElast = 70000;
  matl.dPoisson = 0.3;
  matl.dF02Thin = 180.0;
  matl.dF02Thick = 170.0;
  ALU_PARA_DATA& para = data.code.para;
  para.dKy = para.dKz = 1.0;
  para.bRib = turn % 3 == 0 ? 1 : 0;
  para.bSeismicGammaRE = 1;
  para.nBetaMOpt2[0] = static_cast<std::int32_t>(turn % 4);
  para.nBetaMOpt2[1] = static_cast<std::int32_t>((turn + 1) % 4);
  data.dMembLength = 3000.0;
  data.nMembType = types[turn % types.size()];
  data.nEndCond[0][0] = data.nEndCond[0][1] = ALU_END_PINNED;
  return data;
}

}  // namespace

std::vector<EnginePoint> engine_points() {
  std::vector<EnginePoint> points;
  for (const Profile& profile : kProfiles) {
    for (const bool welded : {false, true}) {
      const ALU_SECT_DATA sect = section_of(profile, welded);
      for (const State& state : kStates) {
        const std::size_t turn = points.size();
        const std::string name = std::string(profile.name) + (welded ? " welded" : "");
        points.push_back({name, data_of(sect, turn), force_of(state, turn)});
      }
    }
  }
  return points;
}
