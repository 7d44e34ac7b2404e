#include "apps/cli/points_command.h"

#include <fmt/format.h>

#include <cerrno>
#include <fstream>
#include <iostream>
#include <system_error>

#include "aluframe/points/point_stream.h"
#include "apps/cli/exit_status.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

int report(const points::StreamSummary& summary, const std::string& input) {
  for (const auto& [place, count] : summary.assertions) {
    print_message(fmt::format("internal inconsistency ({}), met {} times", place, count));
  }
  if (summary.bad_lines > 0) {
    print_message(fmt::format("{}: {} lines are no check points, {} points were checked", input,
                              summary.bad_lines, summary.checked));
  }
  if (summary.write_failed) {
    print_message("standard output: cannot be written");
    return exit_failure;
  }
  if (summary.read_failed) {
    print_message(input + ": cannot be read further");
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
    return report(points::check_points(std::cin, std::cout, opinion), "standard input");
  }
  std::ifstream file(options.input, std::ios::binary);
  if (!file || std::filesystem::is_directory(options.input)) {
    print_message(fmt::format("{}: cannot be opened: {}", options.input.string(),
                              file ? "it is a folder" : std::generic_category().message(errno)));
    return exit_input_error;
  }
  return report(points::check_points(file, std::cout, opinion), options.input.string());
}

}  // namespace aluframe::cli
