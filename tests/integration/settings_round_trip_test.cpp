// From the dialogs to the model file, the check and the report: what the user sets shows in all of
// them.

#include <gtest/gtest.h>

#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <string>
#include <variant>

#include "aluframe/io/model_edit.h"
#include "aluframe/io/model_file.h"
#include "aluframe/services/check_run.h"
#include "aluframe/services/readable_report.h"
#include "aluframe/services/report_run.h"
#include "aluframe/services/settings_dialogs.h"
#include "aluframe/toolkit/headless/headless_toolkit.h"
#include "tz_alu/dialogs/resource.h"

namespace {

namespace fs = std::filesystem;
using namespace aluframe;
using toolkit::HeadlessDialog;

/// A pipe 100 × 10 in tension by an earthquake.
constexpr const char* tie = R"json({
  "format": "aluframe-model", "version": 1, "title": "Tie",
  "units": {"force": "kN", "length": "m"},
  "materials": [
    {"number": 1, "alloy": "6061-T6"}
  ],
  "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 10}}],
  "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 2, "y": 0, "z": 0}],
  "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1}],
  "load_cases": [{"number": 1, "kind": "response_spectrum"}],
  "combinations": [{"number": 1, "name": "EQ", "terms": [{"case": 1}]}],
  "forces": [{"element": 1, "case": 1, "values": [[100, 0, 0, 0, 0, 0], [100, 0, 0, 0, 0, 0]]}]
}
)json";

// By hand: Aen = 0.85·π/4·(100² − 80²) = 2403.3184 mm², so N/Aen = 41.609135 N/mm² without a
// factor.
constexpr double stress = 41.609135;

class SettingsRoundTrip : public testing::Test {
 protected:
  void SetUp() override {
    std::string folder = (fs::temp_directory_path() / "aluframe-round-trip-XXXXXX").string();
    ASSERT_NE(mkdtemp(folder.data()), nullptr);
    folder_ = folder;
    std::ofstream(file()) << tie;
    setenv("LC_ALL", "C.UTF-8", 1);
  }
  void TearDown() override { fs::remove_all(folder_); }

  fs::path file() const { return folder_ / "tie.json"; }
  fs::path results() const { return folder_ / "tie.aluresult"; }
  fs::path report() const { return folder_ / "tie.alu"; }

  model::Model read() const {
    auto read = io::read_model(file());
    if (const auto* problem = std::get_if<io::Problem>(&read)) {
      ADD_FAILURE() << problem->message();
      return {};
    }
    return std::get<model::Model>(std::move(read));
  }

  services::SessionOptions options() const {
    services::SessionOptions session;
    session.result_path = results();
    session.units = T_UNIT_INDEX{0, 2};
    return session;
  }

  /// Opens a dialog over the model file, lets a script work it, and saves what it changed.
  services::DialogEnd use(services::SettingsDialog dialog,
                          toolkit::HeadlessToolkit::Script script) {
    toolkit::HeadlessToolkit toolkit;
    toolkit.script(std::move(script));
    services::SessionOptions session = options();
    session.toolkit = &toolkit;
    model::Model model = read();
    const io::Editable saved = io::editable_of(model);
    const auto end = services::run_settings_dialog(model, dialog, std::move(session));
    const auto problem = io::save_changes(file(), io::changes_since(saved, model));
    EXPECT_FALSE(problem.has_value()) << problem->message();
    return end;
  }

  T_RALU_ITEM strength() const {
    const auto summary = services::run_check(read(), options());
    EXPECT_EQ(summary.outcome, services::RunOutcome::complete) << summary.failure;
    const auto record = store::ResultReader::open(results())->read(1, 0, 0);
    return record ? record->aComp[RALU_STRENGTH] : T_RALU_ITEM();
  }

  std::string report_text() const {
    const auto summary = services::run_report(read(), options(), report());
    EXPECT_EQ(summary.outcome, services::RunOutcome::complete) << summary.failure;
    std::ifstream text(report(), std::ios::binary);
    return services::readable_text({std::istreambuf_iterator<char>(text), {}});
  }

  fs::path folder_;
};

TEST_F(SettingsRoundTrip, TheSeismicFactorOfTheDialogShowsInResultsAndReport) {
  EXPECT_NEAR(strength().dDemand, stress, 1e-6);
  EXPECT_EQ(report_text().find("γRE"), std::string::npos);

  const auto end = use(services::SettingsDialog::code, [](HeadlessDialog& dialog) {
    dialog.click(IDC_CHECK_ALU_CONSIDE_SESI);
    dialog.type(IDC_EDIT_ALU_GAMARE_STRENGTH, L"0.6");
    dialog.click(IDOK);
  });

  EXPECT_EQ(end, services::DialogEnd::accepted);
  ASSERT_TRUE(read().design.has_value());
  EXPECT_TRUE(read().design->seismic);
  EXPECT_EQ(read().design->gamma_re_strength, 0.6);
  EXPECT_NEAR(strength().dDemand, 0.6 * stress, 1e-6);
  const std::string report = report_text();
  EXPECT_NE(report.find("   N=100000.000, γRE=     0.600\n"), std::string::npos) << report;
  // 0.6·41.609135/200
  EXPECT_NE(report.find("Rmax1=N/(f*Aen)=     0.125<1.00 ----> OK\n"), std::string::npos) << report;
}

TEST_F(SettingsRoundTrip, TheGradeOfTheDialogShowsInResultsAndReport) {
  // GB 50429-2007, table 4.3.4: f is 200 N/mm² for 6061-T6 and 90 N/mm² for 6063-T5.
  EXPECT_EQ(strength().dCapacity, 200.0);
  const auto end = use(services::SettingsDialog::materials, [](HeadlessDialog& dialog) {
    dialog.click_row(IDC_DGN_STEELMAT_LIST, 0);
    dialog.choose(IDC_DGN_STEEL_MAT, L"6063-T5");
    dialog.click(IDC_DGN_STEELMAT_MODIFY);
    dialog.click(IDCANCEL);
  });

  EXPECT_EQ(end, services::DialogEnd::closed);
  EXPECT_EQ(read().materials.find(1)->grade, "6063-T5");
  EXPECT_EQ(strength().dCapacity, 90.0);
  EXPECT_NE(report_text().find("   f =     90.000\n"), std::string::npos);
}

TEST_F(SettingsRoundTrip, ClosingTheDialogsLeavesTheFileAsItIs) {
  use(services::SettingsDialog::code, [](HeadlessDialog& dialog) {
    dialog.type(IDC_EDIT_ALU_SECTSTENGTH, L"0.5");
    dialog.press_escape();
  });
  use(services::SettingsDialog::materials, [](HeadlessDialog& dialog) {
    dialog.click_row(IDC_DGN_STEELMAT_LIST, 0);
    dialog.click(IDCANCEL);
  });
  std::ifstream text(file(), std::ios::binary);
  EXPECT_EQ(std::string(std::istreambuf_iterator<char>(text), {}), tie);
}

}  // namespace
