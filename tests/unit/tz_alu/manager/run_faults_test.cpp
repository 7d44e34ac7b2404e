// Every service of the host may fail at any moment: the run then ends with 0, the user's units and
// nothing left open.

#include <gmock/gmock.h>

#include "tests/support/fault_host.h"
#include "tests/unit/tz_alu/manager/manager_test.h"

namespace {

using namespace manager_test;
using test_support::FaultHost;

constexpr T_UNIT_INDEX kUserUnits{1, 0};

/// A frame whose run calls nearly every service: a member of three elements with a brace at an
/// inner node, a seismic and an envelope combination, inner forces, an element's own attributes, an
/// element without a material and one without a known shape.
FakeModel RichModel() {
  FakeModel model = test_support::three_element_model();
  model.add_node(9, 1000.0, 500.0, 0.0);
  model.add_element(4, 2, 9);
  model.member_types_of_scheme_1[4] = 3;
  model.add_element(5, 3, 9);
  model.elements[5].nMatl = 99;
  model.add_element(6, 4, 9);
  model.elements[6].nSect = 2;
  model.sections[2] = model.sections[1];
  model.sections[2].strShape = L"UP";
  model.combinations = {1, MakeLcombKey(2, 0), MakeLcombKey(2, 1)};
  model.seismic_types[2] = 1;
  for (const T_LCOM_MAXMIN_K key : model.combinations) {
    for (const UINT elem : {1U, 2U, 4U, 6U}) {
      T_ALU_FORCE_D forces;
      forces.bInner = 1;
      for (auto& position : forces.aForce) position = {-1e3F, 10.0F, 20.0F, 0.0F, 1e5F, 1e4F};
      model.add_forces(elem, key, forces);
    }
  }
  model.slenderness_limits[1] = {};
  model.moment_factors[2] = {};
  return model;
}

/// Runs with a fault at the k-th call for every k until a run passes without one, and checks what
/// each failed run leaves.
/// @return the number of failed runs
int RunWithEveryFault(const FakeModel& model, int flag_without_fault) {
  for (int k = 1;; ++k) {
    FakeHost inner(model);
    FaultHost faulty(inner, k);
    host::Bind(faulty);
    const int flag = IAluDgnDataMgr::Instance()->CheckCode(nullptr);
    host::Unbind();
    EXPECT_EQ(inner.units, kUserUnits) << "call " << k;
    EXPECT_FALSE(inner.log.is_progress_open) << "call " << k;
    EXPECT_EQ(inner.log.objects_alive, 0) << "call " << k;
    EXPECT_EQ(flag, faulty.HasThrown() ? 0 : flag_without_fault) << "call " << k;
    if (!faulty.HasThrown() || testing::Test::HasFailure()) return k - 1;
  }
}

TEST(RunFaults, AFaultAtAnyCallOfACompleteRunEndsItCleanly) {
  // 6 elements by 3 sides of combinations each ask for their forces.
  EXPECT_GT(RunWithEveryFault(RichModel(), 1), 6 * 3);
}

TEST(RunFaults, AFaultAtAnyCallOfACancelledRunEndsItCleanly) {
  FakeModel model = RichModel();
  model.cancel_at_update = 2;
  EXPECT_GT(RunWithEveryFault(model, 0), 0);
}

TEST(RunFaults, AFaultWhileTheUserIsToldEndsTheRunCleanly) {
  FakeModel model = RichModel();
  model.combinations.clear();
  model.is_reg_test_mode = false;
  EXPECT_GT(RunWithEveryFault(model, 0), 0);
}

TEST(RunFaults, AFaultBeforeTheDesignIsKnownToBeInUseEndsTheRunCleanly) {
  FakeModel model = RichModel();
  model.is_use_alu = 0;
  EXPECT_GT(RunWithEveryFault(model, 0), 0);
}

class RunOfFaultyHost : public ManagerTest {
 protected:
  RunOfFaultyHost() : ManagerTest(test_support::one_element_model()) {}
};

TEST_F(RunOfFaultyHost, UnitsThatNeverChangeDoNotLetAnythingEscape) {
  host_.model.failing_unit_changes = {1, 2, 3};
  EXPECT_EQ(manager_.CheckCode(nullptr), 0);
  EXPECT_EQ(host_.log.objects_alive, 0);
}

TEST_F(RunOfFaultyHost, UnitsThatCannotBeRestoredAtTheEndAreRestoredAgain) {
  host_.model.failing_unit_changes = {2};
  EXPECT_EQ(manager_.CheckCode(nullptr), 0);
  EXPECT_EQ(host_.units, kUserUnits);
}

/// Throws something that is no `std::exception` once a text is asked for.
struct HostThrowingANumber : FakeHost {
  using FakeHost::FakeHost;
  CString MessageText(const CString&) override { throw 42; }
};

TEST(RunFaults, AFaultThatIsNoStandardExceptionEndsTheRunCleanlyToo) {
  HostThrowingANumber host(test_support::one_element_model());
  host::Bind(host);
  EXPECT_EQ(IAluDgnDataMgr::Instance()->CheckCode(nullptr), 0);
  host::Unbind();
  EXPECT_EQ(host.units, kUserUnits);
  EXPECT_EQ(host.log.objects_alive, 0);
}

TEST(RunFaults, WithoutAHostTheRunReturnsZero) {
  host::Unbind();
  EXPECT_EQ(IAluDgnDataMgr::Instance()->CheckCode(nullptr), 0);
}

TEST(RunFaults, UnitsThatCannotBeRestoredAfterAFaultAreRestoredAgain) {
  HostThrowingANumber host(test_support::one_element_model());
  host.model.failing_unit_changes = {2};
  host::Bind(host);
  EXPECT_EQ(IAluDgnDataMgr::Instance()->CheckCode(nullptr), 0);
  host::Unbind();
  EXPECT_EQ(host.units, kUserUnits);
}

TEST_F(RunOfFaultyHost, ARunAfterAFailedOneIsComplete) {
  {
    FaultHost faulty(host_, 40);
    host::Bind(faulty);
    ASSERT_EQ(manager_.CheckCode(nullptr), 0);
    ASSERT_TRUE(faulty.HasThrown());
  }
  host::Bind(host_);
  host_.log = {};
  EXPECT_EQ(manager_.CheckCode(nullptr), 1);
  EXPECT_EQ(host_.log.written.size(), 2U);
}

}  // namespace
