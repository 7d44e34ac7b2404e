#pragma once

#include <gtest/gtest.h>

#include <initializer_list>
#include <utility>

#include "tests/support/fake_host.h"
#include "tz_alu/manager/dgnaludatamgr.h"

namespace manager_test {

using test_support::FakeHost;
using test_support::FakeModel;
using test_support::RaisedAssertion;

inline CArrayEx<UINT> Keys(std::initializer_list<UINT> keys) {
  CArrayEx<UINT> out;
  for (const UINT key : keys) out.Add(key);
  return out;
}

/// An inconsistency that the manager reports, with the line that it reports it under.
inline RaisedAssertion AssertionAt(int line) {
  return {L"dgnaludatamgr", line};
}

/// The manager over a host in memory. The manager lives as long as the program, so its buffers are
/// emptied before every test.
class ManagerTest : public testing::Test {
 protected:
  explicit ManagerTest(FakeModel model) : host_(std::move(model)) {
    host::Bind(host_);
    manager_.MakeBuffData(Keys({}), Keys({}));
    host_.log = {};
  }
  ~ManagerTest() override { host::Unbind(); }

  /// Fills the buffers for elements, with the host's combinations.
  int Build(std::initializer_list<UINT> elems) {
    CArrayEx<T_LCOM_MAXMIN_K> lcombs;
    manager_.GetDgnLCombs(lcombs);
    return manager_.MakeBuffData(Keys(elems), lcombs);
  }

  FakeHost host_;
  IAluDgnDataMgr& manager_ = *IAluDgnDataMgr::Instance();
};

}  // namespace manager_test
