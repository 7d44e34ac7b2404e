#include "apps/cli/report_files.h"

#include <fstream>
#include <system_error>

#include "aluframe/files/output_guard.h"
#include "aluframe/run/results.h"
#include "aluframe/texts/text.h"

namespace aluframe::cli {

namespace {

namespace fs = std::filesystem;

/// The name of no file.
constexpr const char* standard_output = "-";

fs::path beside_model(const fs::path& model, const char* extension) {
  return fs::path(model).replace_extension(extension);
}

/// "frame.txt" beside "frame.alu".
fs::path readable_beside(const fs::path& report) {
  fs::path readable = fs::path(report).replace_extension(".txt");
  return readable == report ? readable.replace_extension(".readable.txt") : readable;
}

/// Options that do not go together, or nothing.
std::optional<std::string> contradiction(const ReportOptions& options) {
  if (options.output != standard_output) return std::nullopt;
  if (options.readable) {
    return texts::translated(
        "--readable: --output - writes the readable text to standard output; give one of the two");
  }
  if (options.open) {
    return texts::translated("--open: --output - leaves no file to open; give one of the two");
  }
  return std::nullopt;
}

/// Whether a file is the readable copy of some report, by its title.
bool is_readable_copy(const fs::path& path) {
  std::error_code ignored;
  if (!fs::is_regular_file(path, ignored)) return false;  // a pipe would be waited for
  constexpr std::size_t head_bytes = 512;
  std::string head(head_bytes, '\0');
  std::ifstream file(path, std::ios::binary);
  file.read(head.data(), static_cast<std::streamsize>(head.size()));
  return head.find("  Aluminum Alloy Code Checking [ GB 50429") != std::string::npos;
}

/// Something else that stands where the readable copy goes without being named, or nothing.
std::optional<std::string> standing_in_the_way(const ReportOptions& options,
                                               const ReportFiles& files) {
  std::error_code ignored;
  if (options.readable || !files.readable || !fs::exists(*files.readable, ignored)) {
    return std::nullopt;
  }
  if (is_readable_copy(*files.readable)) return std::nullopt;
  return texts::translated(
      "{}: is no readable copy of a report, which would overwrite it; move it, or name another "
      "file with --readable",
      files.readable->string());
}

/// What would be overwritten that the user cannot mean, or nothing. The results are added to, so
/// they are an output as well.
std::optional<std::string> overwriting_problem(const ReportOptions& options,
                                               const ReportFiles& files) {
  return files::find_overwriting(
      {{texts::translatable("the result file"), files.results, files::FileKind::results},
       {texts::translatable("the report"), files.report},
       {texts::translatable("the readable copy"), files.readable}},
      {{texts::translatable("the model"), options.input.model},
       {texts::translatable("the table of forces"), options.input.forces}});
}

}  // namespace

ReportFiles report_files(const ReportOptions& options) {
  ReportFiles files{.results = options.results.value_or(run::result_path_of(options.input.model)),
                    .report = {},
                    .readable = {}};
  if (options.output == standard_output) return files;
  files.report = options.output.value_or(beside_model(options.input.model, ".alu"));
  files.readable = options.readable.value_or(readable_beside(*files.report));
  return files;
}

std::optional<std::string> problem_of_files(const ReportOptions& options,
                                            const ReportFiles& files) {
  if (auto problem = contradiction(options)) return problem;
  if (auto problem = overwriting_problem(options, files)) return problem;
  return standing_in_the_way(options, files);
}

}  // namespace aluframe::cli
