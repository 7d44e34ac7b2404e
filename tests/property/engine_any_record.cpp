// Whatever finite numbers stand in its input, the engine returns, says 0 or 1, and fills every
// output.

#include <gtest/gtest.h>
#include <rapidcheck/gtest.h>

#include <cmath>

#include "tests/property/engine_outcomes.h"
#include "tests/property/engine_record_fields.h"
#include "tests/unit/tz_alu/engine/fake_host.h"

namespace {

using namespace engine_outcomes;

double AnyNumber() {
  constexpr double kOdd[] = {0.0, -0.0, 1e-10, -1e-10, 1.0, 10.0, 1e150, -1e150, 1e-150, 1.7e308};
  if (*rc::gen::inRange(0, 4) == 0) return kOdd[*rc::gen::inRange(0, 10)];
  const double sign = *rc::gen::inRange(0, 4) == 0 ? -1.0 : 1.0;
  return sign * *rc::gen::inRange(1, 1000) * std::pow(10.0, *rc::gen::inRange(-4, 8));
}

std::wstring AnyText() {
  constexpr const wchar_t* kTexts[] = {
      L"GB50429-07(A)", L"6061-T4",  L"6061-T6",  L"6063-T5",   L"6063-T6",
      L"6063A-T5",      L"6063A-T6", L"5083-O/F", L"5083-H112", L"3003-H24",
      L"3004-H34",      L"3004-H36", L"",         L"6061-t6"};
  return kTexts[*rc::gen::inRange(0, 14)];
}

struct FILL_WITH_ANYTHING {
  void operator()(double& field) const { field = AnyNumber(); }
  void operator()(CString& field) const { field = AnyText(); }
  void operator()(std::int32_t& field) const { field = *rc::gen::inRange(-1, 8); }
  void operator()(UINT& field) const { field = *rc::gen::arbitrary<UINT>(); }
};

/// Fields of any value, without a report.
ALU_DGN_DATA AnyRecord() {
  ALU_DGN_DATA data;
  FILL_WITH_ANYTHING fill;
  engine_records::VisitFields(data, fill);
  data.code.matl.nElast = *rc::gen::element(70000, 70000, 0, 1, 2147483647);
  data.bReport = 0;
  return data;
}

AluDgnSectForce AnyForceRecord() {
  AluDgnSectForce force;
  FILL_WITH_ANYTHING fill;
  engine_records::VisitFields(force, fill);
  return force;
}

RC_GTEST_PROP(AnyFiniteRecord, IsAnsweredAndLeavesNothingUnset, ()) {
  const FakeHost host;
  const ALU_DGN_DATA data = AnyRecord();
  const AluDgnSectForce force = AnyForceRecord();
  OUTCOME outcome;
  FillWithSentinels(outcome);
  CALUCode_GB50429_07 engine;
  outcome.ret = engine.CheckCode(data, force, outcome.result, outcome.buffer);
  RC_ASSERT(outcome.ret == 0 || outcome.ret == 1);
  RC_ASSERT(!HoldsASentinel(outcome));
  if (outcome.ret == 1) return;
  for (const T_RALU_RLT& item : outcome.result.aItem) {
    RC_ASSERT(item.dDemand == 0.0);
    RC_ASSERT(item.dCapacity == 0.0);
  }
}

}  // namespace
