#include "apps/cli/points_command.h"

#include <cerrno>
#include <fstream>
#include <iostream>
#include <system_error>

#include "aluframe/points/point_stream.h"
#include "aluframe/texts/system_text.h"
#include "aluframe/texts/text.h"
#include "apps/cli/terminal.h"
#include "apps/exit_status.h"

namespace aluframe::cli {

namespace {

/// Answers are for programs, so they are English whoever asks.
points::StreamSummary check_points(std::istream& in, points::SecondOpinion opinion) {
  const texts::LanguageInUse english(texts::Language::english);
  return points::check_points(in, std::cout, opinion);
}

int report(const points::StreamSummary& summary, const std::string& input) {
  for (const auto& [place, count] : summary.assertions) {
    print_message(texts::translated("internal inconsistency ({}), met {} times", place, count));
  }
  if (summary.bad_lines > 0) {
    print_message(texts::translated("{}: {} lines are no check points, {} points were checked",
                                    input, summary.bad_lines, summary.checked));
  }
  if (summary.write_failed) {
    print_message(texts::translated("standard output: cannot be written"));
    return exit_failure;
  }
  if (summary.read_failed) {
    print_message(texts::translated("{}: cannot be read further", input));
    return exit_failure;
  }
  return summary.bad_lines > 0 ? exit_input_error : exit_done;
}

}  // namespace

int run_points_command(const PointsOptions& options) {
  std::ios::sync_with_stdio(false);
  const auto opinion =
      options.second_opinion ? points::SecondOpinion::on : points::SecondOpinion::off;
  if (options.input == "-") {
    std::cin.tie(nullptr);
    return report(check_points(std::cin, opinion), texts::translated("standard input"));
  }
  std::ifstream file(options.input, std::ios::binary);
  if (!file || std::filesystem::is_directory(options.input)) {
    print_message(
        texts::translated("{}: cannot be opened: {}", options.input.string(),
                          file ? texts::translated("it is a folder") : texts::system_text(errno)));
    return exit_input_error;
  }
  return report(check_points(file, opinion), options.input.string());
}

}  // namespace aluframe::cli
