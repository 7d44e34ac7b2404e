#pragma once

#include <filesystem>
#include <functional>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/run/buckling.h"
#include "aluframe/run/input.h"
#include "aluframe/run/second_opinion.h"
#include "aluframe/services/check_run.h"

namespace aluframe::run {

/// Whether a check goes on with what an earlier one has left.
enum class Beginning { anew, resumed };

struct CheckOptions {
  std::filesystem::path results;                    ///< the result file to be written
  services::ProgressListener* progress = nullptr;   ///< null: nobody watches
  std::function<void(const std::string&)> message;  ///< what the design module says to the user
  /// Shows a message box of the design module, as services::SessionOptions has it; nothing: nobody
  /// can answer one, and its text goes to `message`.
  std::function<int(const std::string&, unsigned)> message_box = {};
  SecondOpinion second_opinion = SecondOpinion::on;
  /// Whether to wait for another run that is writing the result file.
  files::WhenBusy when_busy = files::WhenBusy::refuse;
  /// `resumed`: only what is missing in the partial file of an earlier run is checked; the results
  /// are those of one run that was not interrupted.
  Beginning beginning = Beginning::anew;
  /// What speaks against the place of the result file, or nothing. Asked when no other run can
  /// write there any more: what that run has left may not be what stood there before.
  std::function<std::optional<std::string>()> objection = {};
};

/// What a check came to.
struct CheckResult {
  services::CheckSummary summary;
  /// Where the results stand: the result file, or what a run that ended early has left; empty when
  /// nothing was stored.
  std::filesystem::path results;
  SecondOpinion second_opinion = SecondOpinion::on;  ///< whether it was asked for
  std::optional<SafeSummary> safe;                   ///< nothing without a second opinion
  std::vector<store::RemarkRow> remarks;             ///< what an engineer is owed beside the ratios
  FrameBuckling buckling = FrameBuckling::on;        ///< whether it was looked at
  std::vector<store::BucklingRow> buckling_factors;  ///< of the combinations
  std::vector<store::DisplacementRow> displacements;  ///< under combinations for serviceability
};

/// Why there is nothing that a check could go on with, or nothing.
std::optional<std::string> nothing_to_resume(const std::filesystem::path& results);

/// Checks what `prepare` has made ready, and stores the results.
/// @throws store::CannotTakeUp when the check is to be resumed, and what the earlier run has left
/// is
///   missing, damaged, or of a run that could have other results; it then is as it was
CheckResult check(const Input& input, const CheckOptions& options);

}  // namespace aluframe::run
