#include "aluframe/run/check.h"

#include <algorithm>
#include <iterator>
#include <stdexcept>
#include <utility>
#include <vector>

#include "aluframe/files/link_target.h"
#include "aluframe/run/deflections.h"
#include "aluframe/run/forces_digest.h"
#include "aluframe/run/opinion_notes.h"
#include "aluframe/run/session_options.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

namespace fs = std::filesystem;

/// Opens the result file after telling the user when that means to wait.
template <class Open>
auto open_or_wait(const CheckOptions& options, Open open) {
  const auto opened = [&] {
    try {
      return open(files::WhenBusy::refuse);
    } catch (const files::FileBusy& busy) {
      if (options.when_busy == files::WhenBusy::refuse) throw;
      if (options.message)
        options.message(texts::translated("{}; waiting for its end", busy.what()));
      return open(files::WhenBusy::wait);
    }
  };
  auto out = opened();
  if (!options.objection) return out;
  if (const auto objection = options.objection()) throw std::runtime_error(*objection);
  return out;
}

std::unique_ptr<store::ResultWriter> create(const fs::path& path, const store::RunInfo& info,
                                            const CheckOptions& options) {
  return open_or_wait(options, [&](files::WhenBusy when_busy) {
    return when_busy == files::WhenBusy::wait ? store::ResultWriter::wait_and_create(path, info)
                                              : store::ResultWriter::create(path, info);
  });
}

store::TakenUp take_up(const fs::path& path, const store::RunInfo& info,
                       const std::vector<std::uint32_t>& elements, const CheckOptions& options) {
  store::TakenUp taken_up = open_or_wait(options, [&](files::WhenBusy when_busy) {
    try {
      return store::ResultWriter::take_up(path, info, elements, when_busy);
    } catch (const store::CannotTakeUp&) {
      const auto nothing = nothing_to_resume(path);
      if (nothing) throw store::CannotTakeUp(*nothing);
      throw;
    }
  });
  const auto count = std::ranges::count_if(
      taken_up.elements, [](const auto& element) { return element.notes.element != 0; });
  const std::size_t done = static_cast<std::size_t>(count);
  if (options.message) {
    options.message(elements.size() == 1
                        ? texts::translated("{}: {} of {} element taken up, {} to be checked",
                                            store::partial_path_of(path).string(), done,
                                            elements.size(), elements.size() - done)
                        : texts::translated("{}: {} of {} elements taken up, {} to be checked",
                                            store::partial_path_of(path).string(), done,
                                            elements.size(), elements.size() - done));
  }
  return taken_up;
}

fs::path stored_at(const fs::path& results, const services::CheckSummary& summary) {
  if (summary.records == 0) return {};
  if (summary.outcome == services::RunOutcome::complete) return results;
  fs::path partial = store::partial_path_of(results);
  std::error_code ignored;
  return fs::exists(partial, ignored) ? partial : fs::path();
}

/// Shows the progress of a part of the run. @return false when the user has stopped it
bool watched(const CheckOptions& options, const std::string& title,
             const std::function<void(const GoesOn&)>& part) {
  services::ProgressListener* const progress = options.progress;
  if (progress != nullptr) progress->started(title);
  bool is_cancelled = false;
  part([&](int done, int total) {
    is_cancelled = progress != nullptr && progress->advanced(done, total);
    return !is_cancelled;
  });
  if (progress != nullptr) progress->ended();
  return !is_cancelled;
}

/// @return false when the user has stopped it
bool find_buckling(const Input& input, const CheckOptions& options, CheckResult& result) {
  RunBuckling buckling;
  const bool is_whole =
      watched(options, texts::translated("Buckling of the frame"),
              [&](const GoesOn& goes_on) { buckling = buckling_of_run(input, goes_on); });
  if (!is_whole) return false;
  result.buckling_factors = std::move(buckling.rows);
  std::ranges::move(buckling.remarks, std::back_inserter(result.remarks));
  return true;
}

/// @return false when the user has stopped it
bool find_displacements(const Input& input, const CheckOptions& options, CheckResult& result) {
  if (!is_looked_at_in_use(input.model)) return true;
  RunDisplacements displacements;
  const bool is_whole =
      watched(options, texts::translated("Displacements in use"),
              [&](const GoesOn& goes_on) { displacements = displacements_of_run(input, goes_on); });
  if (!is_whole) return false;
  std::ranges::move(displacement_remarks(displacements), std::back_inserter(result.remarks));
  result.displacements = std::move(displacements.rows);
  return true;
}

}  // namespace

std::optional<std::string> nothing_to_resume(const fs::path& results) {
  const fs::path partial = store::partial_path_of(files::link_target(results));
  std::error_code ignored;
  if (fs::exists(fs::symlink_status(partial, ignored))) return std::nullopt;
  const std::string why =
      fs::exists(results, ignored)
          ? texts::translated("; {} holds the results of a run that went through", results.string())
          : "";
  return texts::translated(
      "{}: there is no such file, no run has left anything to take up{}; check without "
      "--resume",
      partial.string(), why);
}

CheckResult check(const Input& input, const CheckOptions& options) {
  services::SessionOptions session = session_options(input, options.results);
  session.progress = options.progress;
  session.message = options.message;
  session.message_box = options.message_box;
  session.create_writer = [&](const fs::path& path, const store::RunInfo& info) {
    return create(path, info, options);
  };
  if (options.beginning == Beginning::resumed) {
    session.take_up = [&](const fs::path& path, const store::RunInfo& info,
                          const std::vector<std::uint32_t>& elements) {
      return take_up(path, info, elements, options);
    };
  }
  session.setup.forces_digest = forces_digest(input);
  CheckResult result;
  std::optional<OpinionNotes> opinion;
  result.second_opinion = options.second_opinion;
  if (options.second_opinion == SecondOpinion::on) {
    session.observer = &opinion.emplace(input);
  } else {
    leave_out_second_opinion(session.setup);
  }
  result.remarks = input.remarks;
  result.buckling = input.buckling;
  if (input.buckling == FrameBuckling::off) leave_out_buckling(session.setup);
  session.after_elements = [&] {
    return find_displacements(input, options, result) &&
           (input.buckling == FrameBuckling::off || find_buckling(input, options, result));
  };
  session.before_finish = [&](store::ResultWriter& writer) {
    if (opinion) {
      result.safe = summary_of(opinion->safe_rows());
      std::ranges::move(opinion->remarks(), std::back_inserter(result.remarks));
    }
    for (const store::RemarkRow& row : result.remarks) writer.add_remark(row);
    for (const store::BucklingRow& row : result.buckling_factors) writer.add_buckling(row);
    for (const store::DisplacementRow& row : result.displacements) writer.add_displacement(row);
  };
  result.summary = services::run_check(input.model, std::move(session));
  if (opinion) {
    std::ranges::copy(opinion->between(), std::back_inserter(result.summary.not_checked));
  }
  result.results = stored_at(options.results, result.summary);
  return result;
}

}  // namespace aluframe::run
