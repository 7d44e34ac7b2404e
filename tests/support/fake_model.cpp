#include "tests/support/fake_model.h"

#include <numbers>

namespace test_support {

namespace {

constexpr std::size_t kMy = 4;
constexpr std::size_t kMz = 5;

/// Properties by the closed forms of a ring of outer diameter 100 and wall 5.
T_SECT_DESIGN_D pipe_section() {
  constexpr double pi = std::numbers::pi;
  constexpr double outer = 100.0;
  constexpr double inner = 90.0;
  T_SECT_DESIGN_D sect;
  sect.strShape = L"P";
  sect.aSize = {outer, 5.0};
  sect.dArea = pi * (outer * outer - inner * inner) / 4.0;
  sect.dIyy = sect.dIzz =
      pi * (outer * outer * outer * outer - inner * inner * inner * inner) / 64.0;
  sect.dIxx = 2.0 * sect.dIyy;
  sect.dQyb = sect.dQzb = sect.dIyy / (sect.dArea / 2.0);
  sect.aPtY = {0.0, 50.0, 0.0, -50.0};
  sect.aPtZ = {50.0, 0.0, -50.0, 0.0};
  return sect;
}

T_MATD_D alloy() {
  T_MATD_D matl;
  matl.strStandard = L"GB50429-07(A)";
  matl.strGrade = L"6061-T6";
  matl.dElast = 70000.0;
  matl.dPoisson = 0.3;
  matl.dFu = 265.0;
  matl.dF02Thin = 240.0;
  matl.dF02Thick = 240.0;
  return matl;
}

}  // namespace

void FakeModel::add_node(UINT node, double x, double y, double z) {
  nodes[node] = {x, y, z};
}

void FakeModel::add_element(UINT elem, UINT start, UINT end) {
  elements[elem] = {{start, end}, 1, 1, 0.0};
  element_order.push_back(elem);
}

void FakeModel::add_forces(UINT elem, T_LCOM_MAXMIN_K key, T_ALU_FORCE_D forces_of_key) {
  forces_of_key.nLComb = key;
  forces[{elem, LcombNumber(key), LcombMinSide(key) != 0}] = forces_of_key;
}

FakeModel pipe_model() {
  FakeModel model;
  model.sections[1] = pipe_section();
  model.materials[1] = alloy();
  model.combinations = {1};
  model.warping = {1.0, 0.0, 0.0};
  return model;
}

FakeModel one_element_model() {
  FakeModel model = pipe_model();
  model.add_node(1, 0.0, 0.0, 0.0);
  model.add_node(2, 3000.0, 0.0, 0.0);
  model.add_element(1, 1, 2);
  T_ALU_FORCE_D pull;
  for (auto& position : pull.aForce) position[0] = 10e3F;
  model.add_forces(1, 1, pull);
  return model;
}

FakeModel three_element_model() {
  FakeModel model = pipe_model();
  for (UINT node = 1; node <= 4; ++node) model.add_node(node, 1000.0 * (node - 1.0), 0.0, 0.0);
  for (UINT elem = 1; elem <= 3; ++elem) {
    model.add_element(elem, elem, elem + 1);
    T_ALU_FORCE_D bending;
    for (std::size_t pos = 0; pos < bending.aForce.size(); ++pos) {
      const float moment = 10.0F * static_cast<float>(elem) + static_cast<float>(pos);
      bending.aForce[pos][kMy] = moment;
      bending.aForce[pos][kMz] = 100.0F * moment;
    }
    model.add_forces(elem, 1, bending);
  }
  model.members[7] = {1, 2, 3};
  return model;
}

}  // namespace test_support
