// Any model that is accepted is analysed, checked and reported, or refused with one clear line:
// never a crash, an exception or an internal error, and what says that it is complete can be read.

#include <stdlib.h>

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <iterator>
#include <stdexcept>
#include <string>
#include <variant>

#include "aluframe/run/check.h"
#include "aluframe/run/report.h"

namespace {

namespace fs = std::filesystem;
using namespace aluframe;
using services::RunOutcome;

/// Records that a model may have: larger ones find nothing that smaller ones do not.
constexpr std::size_t most_records = 2000;

/// One for the whole process: a target runs thousands of times.
const fs::path& folder() {
  static const fs::path path = [] {
    std::string name = (fs::temp_directory_path() / "aluframe-fuzz-XXXXXX").string();
    if (mkdtemp(name.data()) == nullptr) throw std::runtime_error("no temporary folder");
    return fs::path(name);
  }();
  return path;
}

void require(bool holds) {
  if (!holds) std::abort();
}

/// A line for a user, who cannot do anything about a fault of the program. What the model itself
/// says may stand in it.
void require_clear(const std::string& text) {
  require(!text.empty() && text.find('\n') == std::string::npos);
  std::ifstream file(folder() / "model.json", std::ios::binary);
  const std::string model{std::istreambuf_iterator<char>(file), {}};
  for (const char* raw : {"internal error", "std::", "code -"}) {
    require(text.find(raw) == std::string::npos || model.find(raw) != std::string::npos);
  }
}

void report(const run::Input& input, const fs::path& results) {
  const services::ReportSummary summary = run::report(
      input, {.results = results, .report = folder() / "model.alu", .message = [](const auto&) {}});
  if (summary.outcome == RunOutcome::failed) require_clear(summary.failure);
  require(summary.outcome != RunOutcome::complete || fs::exists(folder() / "model.alu"));
}

void check(const run::Input& input) {
  const fs::path results = folder() / "model.aluresult";
  const run::CheckResult result =
      run::check(input, {.results = results, .message = [](const auto&) {}});
  if (result.summary.outcome == RunOutcome::failed) return require_clear(result.summary.failure);
  if (result.summary.outcome != RunOutcome::complete) return;
  require(store::ResultReader::open(results)->state() == store::RunState::complete);
  report(input, results);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  for (const auto& left : fs::directory_iterator(folder())) fs::remove_all(left);
  const fs::path model = folder() / "model.json";
  std::ofstream(model, std::ios::binary)
      .write(reinterpret_cast<const char*>(data), static_cast<std::streamsize>(size));
  const auto prepared = run::prepare({.model = model});
  if (const auto* problem = std::get_if<run::Problem>(&prepared)) {
    require_clear(problem->text);
    return 0;
  }
  const auto& input = std::get<run::Input>(prepared);
  if (input.model.elements.size() * input.model.combinations.size() <= most_records) check(input);
  return 0;
}
