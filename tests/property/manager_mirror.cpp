// It does not matter which way round an element is drawn.
//
// Swapping an element's nodes while its section keeps its axes y and z mirrors it about the plane
// across its middle: position p becomes position 4 − p. Under that mirror the normal force and the
// bending moments stay what they are (tension stays tension, and the fibre that a moment pulls
// stays the same fibre, whichever side the moment is looked at from), while the shear forces and
// the torsion, which act in the plane of the cut, change sign. Turning the element about z instead,
// which would negate Mz too, is no invariance: bending of a symmetric section reads Mz with its
// sign.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <array>
#include <map>
#include <utility>
#include <vector>

#include "tests/support/fake_host.h"
#include "tz_alu/manager/dgnaludatamgr.h"

namespace {

using test_support::FakeHost;
using test_support::FakeModel;

constexpr std::array<UINT, 3> kElements{1, 2, 3};
constexpr std::array<UINT, 2> kLcombs{1, 2};

double Between(int low, int high) {
  return *rc::gen::inRange(low, high) / 4.0;
}

// A section so stocky that it is checked, with properties of the right order of magnitude.
T_SECT_DESIGN_D AnySection(const wchar_t* shape) {
  const CString name(shape);
  T_SECT_DESIGN_D sect;
  sect.strShape = name;
  sect.aSize = {Between(400, 800), Between(160, 320), Between(40, 60),
                Between(40, 60),   Between(160, 320), Between(40, 60)};
  if (name == L"P") sect.aSize[1] = Between(40, 60);
  sect.dArea = Between(4000, 40000);
  sect.dIyy = 1e3 * Between(4000, 40000);
  sect.dIzz = 1e3 * Between(4000, 40000);
  sect.dIxx = 1e3 * Between(400, 4000);
  sect.dQyb = Between(400, 4000);
  sect.dQzb = Between(400, 4000);
  sect.aPtY = {-40, 40, 40, -40};
  sect.aPtZ = {Between(100, 400), Between(100, 400), -Between(100, 400), -Between(100, 400)};
  sect.nBuildType = *rc::gen::element(0, 1);
  return sect;
}

// N, Fy, Fz, Mx, My, Mz; each 0 now and then, so that every force state occurs.
T_ALU_FORCE_D AnyForces(bool bBendingOnly) {
  constexpr std::array<float, 6> kUnit{100.0F, 10.0F, 10.0F, 1e3F, 1e4F, 1e4F};
  T_ALU_FORCE_D forces;
  forces.bInner = *rc::gen::element(0, 1);
  for (auto& position : forces.aForce) {
    for (std::size_t i = 0; i < kUnit.size(); ++i) {
      position[i] = kUnit[i] * static_cast<float>(*rc::gen::inRange(-100, 101));
      if (*rc::gen::inRange(0, 4) == 0) position[i] = 0.0F;
    }
    if (bBendingOnly) position[0] = 0.0F;
  }
  return forces;
}

// A member of three elements with forces for two combinations.
FakeModel AnyFrame(const wchar_t* shape) {
  FakeModel model = test_support::three_element_model();
  model.sections[1] = AnySection(shape);
  model.combinations = {kLcombs.begin(), kLcombs.end()};
  const bool bBendingOnly = *rc::gen::arbitrary<bool>();
  for (const UINT elem : kElements) {
    model.member_types[elem] = *rc::gen::element(1, 2);
    for (const UINT lcomb : kLcombs) model.add_forces(elem, lcomb, AnyForces(bBendingOnly));
  }
  return model;
}

T_ALU_FORCE_D Mirrored(const T_ALU_FORCE_D& forces) {
  T_ALU_FORCE_D out = forces;
  for (std::size_t pos = 0; pos < out.aForce.size(); ++pos) {
    out.aForce[pos] = forces.aForce[out.aForce.size() - 1 - pos];
    for (const int odd : {ALU_FORCE_FY, ALU_FORCE_FZ, ALU_FORCE_MX}) {
      float& force = out.aForce[pos][static_cast<std::size_t>(odd)];
      force = -force;
    }
  }
  return out;
}

// Draws an element the other way round.
void Reverse(FakeModel& model, UINT elem) {
  auto& nodes = model.elements[elem].aNode;
  std::swap(nodes[0], nodes[1]);
  for (const UINT lcomb : kLcombs) {
    T_ALU_FORCE_D& forces = model.forces[{elem, lcomb, false}];
    forces = Mirrored(forces);
  }
}

// Runs with a host bound and leaves none bound.
template <class ACTION>
auto Bound(FakeHost& host, ACTION action) {
  host::Bind(host);
  auto result = action(*IAluDgnDataMgr::Instance());
  host::Unbind();
  return result;
}

// The governing record of every element.
std::map<UINT, T_RALU_D> GoverningRecords(const FakeModel& model) {
  FakeHost host(model);
  RC_ASSERT(Bound(host, [](IAluDgnDataMgr& manager) { return manager.CheckCode(nullptr); }) == 1);
  std::map<UINT, T_RALU_D> records;
  for (const auto& written : host.log.written) {
    if (written.lcomb == 0) records[written.elem] = written.record;
  }
  RC_ASSERT(records.size() == kElements.size());
  return records;
}

void ExpectMirrored(const T_RALU_D& drawn, const T_RALU_D& reversed) {
  for (const auto type : {RALU_STRENGTH, RALU_SHEAR_Y, RALU_SHEAR_Z}) {
    RC_ASSERT(reversed.aComp[type].Ratio() == drawn.aComp[type].Ratio());
    for (std::size_t pos = 0; pos < drawn.aSect.size(); ++pos) {
      const T_RALU_RLT& there = drawn.aSect[pos].aItem[type];
      const T_RALU_RLT& here = reversed.aSect[drawn.aSect.size() - 1 - pos].aItem[type];
      RC_ASSERT(here.dDemand == there.dDemand);
      RC_ASSERT(here.dCapacity == there.dCapacity);
    }
  }
}

void CheckReversingKeepsTheRatios(const wchar_t* shape) {
  FakeModel model = AnyFrame(shape);
  const std::map<UINT, T_RALU_D> drawn = GoverningRecords(model);
  const UINT reversed = *rc::gen::elementOf(std::vector<UINT>(kElements.begin(), kElements.end()));
  Reverse(model, reversed);
  const std::map<UINT, T_RALU_D> after = GoverningRecords(model);
  // Without section parameters nothing would be checked and anything would be invariant.
  RC_ASSERT(drawn.at(reversed).aSect[0].aItem[RALU_SLENDERNESS_Y].dDemand > 0.0);
  ExpectMirrored(drawn.at(reversed), after.at(reversed));
}

RC_GTEST_PROP(DrawnTheOtherWayRound, TheStrengthAndShearRatiosStayTheSame, ()) {
  for (const wchar_t* shape : {L"C", L"H", L"T", L"B", L"P", L"2C", L"SR"}) {
    CheckReversingKeepsTheRatios(shape);
  }
}

RC_GTEST_PROP(DrawnTheOtherWayRound, TheEndMomentsOfTheMemberStayTheSame, ()) {
  FakeModel model = AnyFrame(L"H");
  const auto endsOf = [](const FakeModel& frame, UINT elem) {
    FakeHost host(frame);
    return Bound(host, [&](IAluDgnDataMgr& manager) {
      CArrayEx<UINT> keys;
      keys.Add(elem);
      manager.MakeBuffMemb(keys);
      AluDgnEndForce end;
      manager.GetDgnEndForce(end, elem, 1, frame.forces.at({elem, 1U, false}));
      return std::array{end.dMyI, end.dMyJ, end.dMzI, end.dMzJ};
    });
  };
  const FakeModel drawn = model;
  for (const UINT elem : kElements) {
    if (*rc::gen::arbitrary<bool>()) Reverse(model, elem);
  }
  for (const UINT elem : kElements) RC_ASSERT(endsOf(model, elem) == endsOf(drawn, elem));
}

}  // namespace
