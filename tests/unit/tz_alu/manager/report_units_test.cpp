// When the report takes the user's units, over a host whose names and factors follow the current
// units as those of a real one do.

#include "tests/unit/tz_alu/manager/report_test.h"

namespace {

using namespace manager_test;
using testing::ElementsAre;

/// Names and factors of m and kN, or of mm and N while those are the current units.
class FollowingUnits : public CUnitCtrl {
 public:
  explicit FollowingUnits(CUnitCtrl& inner) : inner_(inner) {}

  T_UNIT_INDEX GetUnitIndexCurrent() const override { return inner_.GetUnitIndexCurrent(); }
  void SetUnitIndexCurrent(const T_UNIT_INDEX& index, int option) override {
    inner_.SetUnitIndexCurrent(index, option);
  }
  CString GetUnitSystemLength() const override { return IsDesign() ? L"mm" : L"m"; }
  CString GetUnitSystemForce() const override { return IsDesign() ? L"N" : L"kN"; }
  double ConvertTgtUnitData2CurUnit(int, int, int, double value) const override {
    return IsDesign() ? value : value * 1e-3;
  }

 private:
  bool IsDesign() const { return GetUnitIndexCurrent() == T_UNIT_INDEX{0, 2}; }

  CUnitCtrl& inner_;
};

class FollowingDocument : public CDBDoc {
 public:
  explicit FollowingDocument(CDBDoc& inner) : inner_(inner), units_(inner.GetUnitCtrl()) {}

  CAttrCtrl& GetAttrCtrl() override { return inner_.GetAttrCtrl(); }
  CAttrCtrl2& GetAttrCtrl2() override { return inner_.GetAttrCtrl2(); }
  CMembCtrl& GetMembCtrl() override { return inner_.GetMembCtrl(); }
  CViewCtrl& GetViewCtrl() override { return inner_.GetViewCtrl(); }
  CPostCtrl& GetPostCtrl() override { return inner_.GetPostCtrl(); }
  CUnitCtrl& GetUnitCtrl() override { return units_; }
  CSectDB& GetSectDB() override { return inner_.GetSectDB(); }
  IAluDgnTool& GetAluDgnTool() override { return inner_.GetAluDgnTool(); }
  double calcLAVElem(const T_ELEM_D& elem) const override { return inner_.calcLAVElem(elem); }
  bool IsRegTestMode() const override { return inner_.IsRegTestMode(); }

 private:
  CDBDoc& inner_;
  FollowingUnits units_;
};

struct FollowingHost : FakeHost {
  using FakeHost::FakeHost;
  CDBDoc* DocPoint() override { return &document; }

  FollowingDocument document{*FakeHost::DocPoint()};
};

class ReportUnits : public testing::Test {
 protected:
  ReportUnits() {
    host_.log.written.push_back({1, 0, 0, 0, RecordOf({{RALU_STRENGTH}})});
    host::Bind(host_);
  }
  ~ReportUnits() override { host::Unbind(); }

  int Report() { return IAluDgnDataMgr::Instance()->MakeReport(nullptr, file_.path().wstring()); }

  const ReportFile file_;
  FollowingHost host_{test_support::one_element_model()};
};

TEST_F(ReportUnits, AreNamedAsTheUserHasThem) {
  Report();
  EXPECT_THAT(LinesWith(file_.text(), "   UNIT"), ElementsAre("   UNIT SYSTEM : m, kN"));
}

TEST_F(ReportUnits, ScaleValuesFromThoseOfTheDesignToTheUsers) {
  Report();
  EXPECT_THAT(LinesWith(file_.text(), "   N="), ElementsAre("   N=    10.000"));  // 10 kN
}

TEST_F(ReportUnits, OfAUserWhoHasThoseOfTheDesignAreTheseToo) {
  host_.units = {0, 2};
  Report();
  EXPECT_THAT(LinesWith(file_.text(), "   UNIT"), ElementsAre("   UNIT SYSTEM : mm, N"));
  EXPECT_THAT(LinesWith(file_.text(), "   N="), ElementsAre("   N= 10000.000"));
}

TEST_F(ReportUnits, AreTakenAgainForEveryReport) {
  Report();
  host_.units = {0, 2};
  Report();
  EXPECT_THAT(LinesWith(file_.text(), "   UNIT"), ElementsAre("   UNIT SYSTEM : mm, N"));
  host_.units = {1, 0};
  Report();
  EXPECT_THAT(LinesWith(file_.text(), "   UNIT"), ElementsAre("   UNIT SYSTEM : m, kN"));
}

}  // namespace
