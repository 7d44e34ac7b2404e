// Every service of the host may fail at any moment of a report: it then returns 0 with the user's
// units restored, and the file holds what was finished.

#include <set>

#include "tests/support/fault_host.h"
#include "tests/unit/tz_alu/manager/report_test.h"

namespace {

using namespace manager_test;
using test_support::FaultHost;

constexpr T_UNIT_INDEX kUserUnits{1, 0};
constexpr const char* kEarlier = "an earlier report\n";

/// A frame whose report calls nearly every service: combinations of load cases of several kinds,
/// a member of three elements, one element without a material and one that was never checked.
FakeModel RichModel() {
  FakeModel model = test_support::three_element_model();
  model.add_node(9, 1000.0, 500.0, 0.0);
  model.add_element(4, 2, 9);
  model.add_element(5, 3, 9);
  model.elements[5].nMatl = 99;
  model.combinations = {1, MakeLcombKey(2, 0), MakeLcombKey(2, 1)};
  for (const UINT number : {1U, 2U}) {
    T_LCOM_D& record = model.combination_records[number];
    record.strName = L"ULS";
    for (const int kind : {LCOM_ENTRY_STATIC, LCOM_ENTRY_SPECTRUM, LCOM_ENTRY_MOVING,
                           LCOM_ENTRY_COMBINATION, LCOM_ENTRY_CRANE}) {
      record.aEntry.Add({kind, 1, 1.2});
    }
  }
  model.moving_load_code = 3;
  model.load_cases[{{LCOM_ENTRY_MOVING, 3}, 1}] = L"TRUCK";
  for (const T_LCOM_MAXMIN_K key : model.combinations) {
    for (const UINT elem : {1U, 2U, 4U}) {
      T_ALU_FORCE_D forces;
      forces.bInner = 1;
      for (auto& position : forces.aForce) position = {-1e3F, 10.0F, 20.0F, 0.0F, 1e5F, 1e4F};
      model.add_forces(elem, key, forces);
    }
  }
  model.moment_factors[2] = {};
  return model;
}

/// A host of that frame in which elements 1 and 3 have results, element 2 has none and 4 was never
/// checked. Of element 3 the forces of the minimum side are missing.
struct RichHost : FakeHost {
  RichHost() : FakeHost(RichModel()) {
    log.written.push_back(
        {1, 0, 0, 0,
         RecordOf({{RALU_STRENGTH, 1}, {RALU_STABILITY, 2, 2}, {RALU_SLENDERNESS_Z, 4}})});
    log.written.push_back({2, 0, 0, 0, T_RALU_D()});
    log.written.push_back(
        {3, 0, 0, 0, RecordOf({{RALU_STRENGTH, 4, MakeLcombKey(2, 1)}, {RALU_SHEAR_Y, 0}})});
  }
};

int MakeReport(const ReportFile& file) {
  return IAluDgnDataMgr::Instance()->MakeReport(nullptr, file.path().wstring());
}

/// Where blocks begin and end in a report: at the rule above the title of each one.
std::set<std::size_t> BordersOf(const std::string& text) {
  std::set<std::size_t> borders{text.size()};
  std::size_t above = 0;
  std::size_t at = 0;
  for (const std::string& line : LinesOf(text)) {
    const std::string block = BlockOf(line);
    if (!block.empty()) borders.insert(above);
    above = at;
    at += line.size() + 1;
  }
  return borders;
}

/// The undisturbed report of `RichHost`.
std::string WholeReport() {
  const ReportFile file;
  RichHost host;
  host::Bind(host);
  MakeReport(file);
  host::Unbind();
  return file.text();
}

/// A report that fails at the k-th call of a service, over a file that is there already.
struct FailedReport {
  explicit FailedReport(int k) {
    file.fill(kEarlier);
    FaultHost faulty(inner, k);
    host::Bind(faulty);
    answer = MakeReport(file);
    has_failed = faulty.HasThrown();
    host::Unbind();
    text = file.text();
  }
  /// The next report of the same host, without a fault.
  std::string Next() {
    host::Bind(inner);
    EXPECT_EQ(MakeReport(file), 1);
    host::Unbind();
    return file.text();
  }

  ReportFile file;
  RichHost inner;
  int answer = -1;
  bool has_failed = false;
  std::string text;
};

/// Shows `check` every failed report, that of the first call first.
/// @return their number
template <class CHECK>
int ForEveryFault(const CHECK& check) {
  for (int k = 1;; ++k) {
    FailedReport report(k);
    if (!report.has_failed) return k - 1;
    check(report, k);
    if (testing::Test::HasFailure()) return k;
  }
}

/// More calls than the report could do with: five elements are each read, and four checked.
constexpr int kManyCalls = 100;

TEST(ReportFaults, TheUndisturbedReportHasTheBlocksThatItsHostCallsFor) {
  EXPECT_THAT(BlocksOf(WholeReport()),
              testing::ElementsAre("header", "member 1", "strength", "stability y", "slenderness",
                                   "member 3", "shear y", "member 4", "strength", "stability y",
                                   "stability z", "slenderness"));
}

TEST(ReportFaults, AFaultAtAnyCallReturnsZeroAndRestoresTheUnits) {
  const int faults = ForEveryFault([](const FailedReport& report, int k) {
    EXPECT_EQ(report.answer, 0) << "call " << k;
    EXPECT_EQ(report.inner.units, kUserUnits) << "call " << k;
    EXPECT_EQ(report.inner.log.objects_alive, 0) << "call " << k;
  });
  EXPECT_GT(faults, kManyCalls);
}

TEST(ReportFaults, AFaultAtAnyCallLeavesTheEarlierReportOrTheFinishedBlocks) {
  const std::string whole = WholeReport();
  const std::set<std::size_t> borders = BordersOf(whole);
  const std::size_t header_end = *borders.upper_bound(0);
  std::set<std::size_t> cuts;
  ForEveryFault([&](const FailedReport& report, int k) {
    if (report.text == kEarlier) return;
    EXPECT_TRUE(whole.starts_with(report.text)) << "call " << k;
    const std::size_t size = report.text.size();
    // The header asks for names while it is being written; no other block does.
    EXPECT_TRUE(size < header_end || borders.contains(size)) << "call " << k << ": " << size;
    if (size >= header_end) cuts.insert(size);
  });
  // Every block was at some time the last one, but not those that are followed by no call at all.
  EXPECT_GT(cuts.size(), 8U);
}

TEST(ReportFaults, AFaultAtAnyCallLeavesTheNextReportUndisturbed) {
  const std::string whole = WholeReport();
  ForEveryFault(
      [&](FailedReport& report, int k) { EXPECT_EQ(report.Next(), whole) << "call " << k; });
}

TEST(ReportFaults, AFaultAtAnyCallOfAReportOfNothingEndsItCleanly) {
  int faults = 0;
  for (int k = 1;; ++k) {
    const ReportFile file;
    FakeHost inner(test_support::one_element_model());
    inner.model.combinations.clear();
    inner.model.is_reg_test_mode = false;
    FaultHost faulty(inner, k);
    host::Bind(faulty);
    EXPECT_EQ(MakeReport(file), 0);
    host::Unbind();
    EXPECT_EQ(inner.units, kUserUnits) << "call " << k;
    EXPECT_FALSE(file.exists()) << "call " << k;
    if (!faulty.HasThrown()) break;
    ++faults;
  }
  EXPECT_GT(faults, 5);
}

/// Throws something that is no `std::exception` once the editor is to be started.
struct HostThrowingANumber : FakeHost {
  using FakeHost::FakeHost;
  int RunTextEditor(const CString&, const CString&) override { throw 42; }
};

class ReportOfThrowingHost : public testing::Test {
 protected:
  ReportOfThrowingHost() { host::Bind(host_); }
  ~ReportOfThrowingHost() override { host::Unbind(); }

  const ReportFile file_;
  HostThrowingANumber host_{test_support::one_element_model()};
};

TEST_F(ReportOfThrowingHost, AFaultThatIsNoStandardExceptionEndsTheReportCleanlyToo) {
  EXPECT_EQ(MakeReport(file_), 0);
  EXPECT_EQ(host_.units, kUserUnits);
}

TEST_F(ReportOfThrowingHost, AnEditorThatFailsLeavesTheReportWhole) {
  MakeReport(file_);
  EXPECT_THAT(BlocksOf(file_.text()),
              testing::ElementsAre("header", "member 1", "strength", "slenderness"));
}

TEST_F(ReportOfThrowingHost, UnitsThatCannotBeRestoredAfterAFaultAreRestoredAgain) {
  host_.model.failing_unit_changes = {2};
  EXPECT_EQ(MakeReport(file_), 0);
  EXPECT_EQ(host_.units, kUserUnits);
}

TEST_F(ReportOfOneElement, UnitsThatCannotBeRestoredAtTheEndAreRestoredAgain) {
  host_.model.failing_unit_changes = {2};
  EXPECT_EQ(Report(), 0);
  EXPECT_EQ(host_.units, kUserUnits);
}

TEST_F(ReportOfOneElement, UnitsThatNeverChangeDoNotLetAnythingEscape) {
  host_.model.failing_unit_changes = {1, 2, 3};
  EXPECT_EQ(Report(), 0);
  EXPECT_FALSE(file_.exists());
}

TEST(ReportFaults, WithoutAHostTheReportReturnsZero) {
  const ReportFile file;
  host::Unbind();
  EXPECT_EQ(MakeReport(file), 0);
  EXPECT_FALSE(file.exists());
}

}  // namespace
