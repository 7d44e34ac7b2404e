// The static calls of the contract reach the bound host, and only it.

#include <gtest/gtest.h>

#include <stdexcept>
#include <string>
#include <vector>

#include "host/framework/messagebox.h"
#include "host/tz_base/tz_base.h"
#include "host/zel_lib/zel_lib.h"
#include "tests/support/fake_host.h"

namespace {

using test_support::FakeHost;

class BindTest : public testing::Test {
 protected:
  ~BindTest() override { host::Unbind(); }

  FakeHost first_;
  FakeHost second_;
};

TEST_F(BindTest, WithoutAHostACallThrows) {
  EXPECT_THROW(host::Bound(), std::logic_error);
  EXPECT_THROW(CDBDoc::GetDocPoint(), std::logic_error);
  EXPECT_THROW(GDisplayAnalString(L"text", 0), std::logic_error);
}

TEST_F(BindTest, TheBoundHostIsTheOneReached) {
  host::Bind(first_);
  EXPECT_EQ(&host::Bound(), &first_);
  EXPECT_EQ(CDBDoc::GetDocPoint(), first_.DocPoint());
  EXPECT_EQ(CDgnDynData::GetDgnDynData(), first_.DgnDynData());
}

TEST_F(BindTest, BindingReplacesTheHostBefore) {
  host::Bind(first_);
  host::Bind(second_);
  EXPECT_EQ(CDBDoc::GetDocPoint(), second_.DocPoint());
}

TEST_F(BindTest, AfterUnbindingACallThrowsAgain) {
  host::Bind(first_);
  host::Unbind();
  EXPECT_THROW(CDBDoc::GetDocPoint(), std::logic_error);
}

TEST_F(BindTest, AMessageBoxArrivesWithItsTextAndType) {
  host::Bind(first_);
  EXPECT_EQ(AfxMessageBox(L"look", MB_OK | MB_ICONEXCLAMATION), 1);
  ASSERT_EQ(first_.log.messages.size(), 1U);
  EXPECT_EQ(first_.log.messages[0].text, L"look");
  EXPECT_EQ(first_.log.messages[0].type, 0x30U);
}

TEST_F(BindTest, StatusLineAndHistoryArriveEachInItsPlace) {
  host::Bind(first_);
  GDisplayAnalString(L"status", 0);
  GSaveHistoryNF(L"history", 0, nullptr);
  EXPECT_EQ(first_.log.status_lines, std::vector<std::wstring>{L"status"});
  EXPECT_EQ(first_.log.history, std::vector<std::wstring>{L"history"});
}

TEST_F(BindTest, ReleaseAssertionsArriveWithSourceAndLine) {
  host::Bind(first_);
  first_.model.is_release_assert = 3;
  EXPECT_EQ(CAppBase::IsReleaseAssert_ST(), 3);
  CAppBase::ReleaseAssertion_ST(L"source", 12);
  ASSERT_EQ(first_.log.assertions.size(), 1U);
  EXPECT_EQ(first_.log.assertions[0], (test_support::RaisedAssertion{L"source", 12}));
}

TEST_F(BindTest, MessageTextsComeFromTheHost) {
  host::Bind(first_);
  EXPECT_TRUE(zel::lib::MMSGFunction::GetValue(L"IDS_X") == L"[IDS_X]");
}

TEST_F(BindTest, ObjectsCreatedForTheCallerBelongToTheBoundHost) {
  host::Bind(first_);
  const auto dialog = CDgnProgressDlg::Create();
  const auto factors = CKFactor::Create();
  EXPECT_EQ(first_.log.objects_alive, 2);
  EXPECT_EQ(second_.log.objects_alive, 0);
}

}  // namespace
