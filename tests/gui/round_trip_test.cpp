// From a dialog through the model file to the results.

#include <cmath>

#include "aluframe/services/check_run.h"
#include "tests/gui/desktop_test.h"
#include "tz_alu/dialogs/resource.h"

namespace gui_test {
namespace {

using namespace aluframe;

class RoundTrip : public DesktopTest {
 protected:
  /// Ratio of the governing strength check of an element of the file.
  double strength_ratio_of(std::uint32_t element) {
    services::SessionOptions options;
    options.result_path = folder.filePath("results.aluresult").toStdString();
    const auto summary = services::run_check(model_of_file(), options);
    EXPECT_EQ(summary.outcome, services::RunOutcome::complete) << summary.failure;
    constexpr int strength = 0;
    for (const auto& row : store::ResultReader::open(options.result_path)->governing()) {
      if (row.element == element && row.item == strength) return row.governing.Ratio();
    }
    ADD_FAILURE() << "no strength check of element " << element;
    return std::nan("");
  }
};

// Tie rod 17 carries tension alone: N / (ratio · A · f), so 0.9 / 0.6 = 1.5 times as much as with
// the file's 0.9. Doubles carry 16 digits.
TEST_F(RoundTrip, AStrengthRatioOfTheDialogShowsInTheResults) {
  constexpr std::uint32_t tie_rod = 17;
  const double before = strength_ratio_of(tie_rod);
  const int status = with_user([this] { return run(services::SettingsDialog::code); },
                               [](DialogUser& user) {
                                 user.type(IDC_EDIT_ALU_SECTSTENGTH, "0.6");
                                 user.click(IDOK);
                               });
  EXPECT_EQ(status, 0);
  EXPECT_NEAR(strength_ratio_of(tie_rod), 1.5 * before, 1e-14);
}

}  // namespace
}  // namespace gui_test
