// Which elements a report has, and what happens to those without data or results.

#include "tests/unit/tz_alu/manager/report_test.h"

namespace {

using namespace manager_test;
using testing::Contains;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::Not;
using testing::SizeIs;

class ReportedElements : public ReportOfThreeElements {
 protected:
  void StoreAll() {
    for (const UINT elem : {1U, 2U, 3U}) Store(elem, {{RALU_STRENGTH}});
  }
  std::vector<std::string> Members() const {
    std::vector<std::string> members;
    for (const std::string& block : Blocks()) {
      if (block.starts_with("member")) members.push_back(block);
    }
    return members;
  }
};

TEST_F(ReportedElements, GivenOnesComeInTheirOrder) {
  StoreAll();
  Report({3, 1});
  EXPECT_THAT(Members(), ElementsAre("member 3", "member 1"));
}

TEST_F(ReportedElements, GivenOnesThatAreNotOfAluminiumAreLeftOut) {
  StoreAll();
  host_.model.other_metals = {3};
  Report({3, 1});
  EXPECT_THAT(Members(), ElementsAre("member 1"));
}

TEST_F(ReportedElements, GivenOnesGoBeforeTheSelection) {
  StoreAll();
  host_.model.selection = {2};
  Report({1});
  EXPECT_THAT(Members(), ElementsAre("member 1"));
}

TEST_F(ReportedElements, WithoutKeysAreThoseOfTheSelection) {
  StoreAll();
  host_.model.selection = {3, 2};
  Report();
  EXPECT_THAT(Members(), ElementsAre("member 3", "member 2"));
}

TEST_F(ReportedElements, WithoutKeysAndSelectionAreAllInTheHostsOrder) {
  StoreAll();
  host_.model.element_order = {2, 3, 1};
  Report();
  EXPECT_THAT(Members(), ElementsAre("member 2", "member 3", "member 1"));
}

TEST_F(ReportedElements, AnElementWithoutDesignDataIsSkippedAndTheNextOnesAreReported) {
  StoreAll();
  host_.model.elements[2].nMatl = 99;
  EXPECT_EQ(Report(), 1);
  EXPECT_THAT(Members(), ElementsAre("member 1", "member 3"));
}

TEST_F(ReportedElements, AnElementWithoutDesignDataIsNeitherReadNorChecked) {
  Store(1, {{RALU_STRENGTH}});
  Store(3, {{RALU_STRENGTH}});
  host_.model.elements[2].nMatl = 99;
  Report();
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(ReportedElements, BuffersThatCannotBeBuiltDoNotStopTheReport) {
  // Element 8 is in no table of the host: no section is read, so that element 1 has no data either.
  StoreAll();
  EXPECT_EQ(Report({1, 8}), 1);
  EXPECT_THAT(Blocks(), ElementsAre("header"));
}

// --- results ---

TEST_F(ReportedElements, ARecordWithoutResultPrintsNothing) {
  StoreAll();
  T_RALU_D empty = RecordOf({{RALU_STRENGTH}});
  empty.nHasResult = 0;
  ReportTest::Store(host_, 2, empty);
  EXPECT_EQ(Report(), 1);
  EXPECT_THAT(Members(), ElementsAre("member 1", "member 3"));
  EXPECT_THAT(host_.log.assertions, IsEmpty());
}

TEST_F(ReportedElements, ARecordWithAResultButNoGoverningCheckPrintsTheMemberAlone) {
  Store(1, {});
  Report({1});
  EXPECT_THAT(Blocks(), ElementsAre("header", "member 1"));
}

TEST_F(ReportedElements, TheRecordOfCombinationZeroIsTheOneThatCounts) {
  Store(1, {{RALU_STRENGTH}});
  host_.log.written.push_back({1, 1, 0, 0, RecordOf({{RALU_SHEAR_Y}})});
  Report({1});
  EXPECT_THAT(Blocks(), ElementsAre("header", "member 1", "strength"));
}

TEST_F(ReportedElements, NothingIsStoredForElementsThatHaveResults) {
  StoreAll();
  host_.log.events.clear();
  Report();
  EXPECT_THAT(host_.log.events, Not(Contains(HasSubstr("written"))));
  EXPECT_THAT(host_.log.written, SizeIs(3));
}

// --- elements that were never checked ---

class NeverChecked : public ReportedElements {
 protected:
  NeverChecked() {
    host_.model.combinations = {1, MakeLcombKey(2, 0), MakeLcombKey(2, 1)};
    T_ALU_FORCE_D pull;
    for (auto& position : pull.aForce) position[ALU_FORCE_N] = 5e3F;
    host_.model.add_forces(2, 1, pull);
    host_.model.add_forces(2, MakeLcombKey(2, 1), pull);
    Store(1, {{RALU_STRENGTH}});
    Store(3, {{RALU_STRENGTH}});
  }
};

TEST_F(NeverChecked, AnElementIsAnInconsistencyThatIsReported) {
  Report();
  EXPECT_THAT(host_.log.assertions, ElementsAre(AssertionAt(349)));
}

TEST_F(NeverChecked, NoAssertionIsRaisedWhenTheHostWantsNone) {
  host_.model.is_release_assert = 0;
  Report();
  EXPECT_THAT(host_.log.assertions, IsEmpty());
  EXPECT_THAT(Members(), Contains("member 2"));
}

TEST_F(NeverChecked, AnElementIsCheckedAndItsResultsAreStored) {
  host_.log.events.clear();
  Report();
  std::vector<std::string> stored;
  for (const std::string& event : host_.log.events) {
    if (event.starts_with("written")) stored.push_back(event);
  }
  // Combination 1, the minimum side of 2, whose maximum side has no forces, and the governing one.
  EXPECT_THAT(stored, ElementsAre("written 2/1/0", "written 2/2/1", "written 2/0/0"));
}

TEST_F(NeverChecked, WhatIsStoredIsWhatARunWouldStore) {
  Report();
  const T_RALU_D stored = host_.log.written.back().record;
  FakeHost checking(host_.model);
  host::Bind(checking);
  const auto keys = Keys({2});
  manager_.CheckCode(&keys);
  host::Bind(host_);
  const T_RALU_D& expected = checking.log.written.back().record;
  EXPECT_EQ(stored.nHasResult, expected.nHasResult);
  for (std::size_t type = 0; type < stored.aComp.size(); ++type) {
    EXPECT_EQ(stored.aComp[type].dDemand, expected.aComp[type].dDemand) << type;
    EXPECT_EQ(stored.aComp[type].dCapacity, expected.aComp[type].dCapacity) << type;
    EXPECT_EQ(stored.aComp[type].nPos, expected.aComp[type].nPos) << type;
  }
}

TEST_F(NeverChecked, AnElementIsReportedLikeTheOthers) {
  Report();
  EXPECT_THAT(Blocks(), ElementsAre("header", "member 1", "strength", "member 2", "strength",
                                    "slenderness", "member 3", "strength"));
}

TEST_F(NeverChecked, AnElementIsNotCheckedAgainByTheNextReport) {
  Report();
  const std::string first = file_.text();
  host_.log.assertions.clear();
  const std::size_t stored = host_.log.written.size();
  Report();
  EXPECT_THAT(host_.log.assertions, IsEmpty());
  EXPECT_EQ(host_.log.written.size(), stored);
  EXPECT_EQ(file_.text(), first);
}

TEST_F(NeverChecked, AnElementWithoutForcesIsStoredWithoutResultAndPrintsNothing) {
  host_.model.forces.erase({2U, 1U, false});
  host_.model.forces.erase({2U, 2U, true});
  Report();
  EXPECT_THAT(Members(), ElementsAre("member 1", "member 3"));
  EXPECT_EQ(host_.log.written.back().elem, 2U);
  EXPECT_EQ(host_.log.written.back().record.nHasResult, 0);
}

/// Loses an element as soon as it turns out to have no stored results.
struct ForgettingHost : FakeHost {
  using FakeHost::FakeHost;
  void ReleaseAssertion(const wchar_t* source, int line) override {
    FakeHost::ReleaseAssertion(source, line);
    model.elements.erase(2);
  }
};

TEST(NeverCheckedAtAll, AnElementThatCannotBeCheckedIsSkippedAndTheNextOnesAreReported) {
  const ReportFile file;
  ForgettingHost host(test_support::three_element_model());
  for (const UINT elem : {1U, 3U}) {
    host.log.written.push_back({elem, 0, 0, 0, RecordOf({{RALU_STRENGTH}})});
  }
  host::Bind(host);
  EXPECT_EQ(IAluDgnDataMgr::Instance()->MakeReport(nullptr, file.path().wstring()), 1);
  host::Unbind();
  EXPECT_THAT(BlocksOf(file.text()),
              ElementsAre("header", "member 1", "strength", "member 3", "strength"));
  EXPECT_THAT(host.log.assertions, Contains(AssertionAt(349)));
  EXPECT_THAT(host.log.written, SizeIs(2));
}

}  // namespace
