// Any bytes are lines of check points or errors told on their lines: never a crash, a hang or an
// exception, every line that is not blank is answered once, and an answer is a line of JSON.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>
#include <string_view>

#include "aluframe/io/json_value.h"
#include "aluframe/points/point_stream.h"

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

/// Lines that hold anything but blanks.
std::uint64_t lines_to_answer(std::string_view text) {
  std::uint64_t count = 0;
  bool blank = true;
  for (const char c : text) {
    if (c == '\n') {
      count += blank ? 0U : 1U;
      blank = true;
    } else if (c != ' ' && c != '\t' && c != '\r') {
      blank = false;
    }
  }
  return count + (blank ? 0U : 1U);
}

/// An answer is a line of JSON: a result with all its values, or an error.
void require_answer(const std::string& line) {
  using namespace aluframe::io;
  const JsonDocument document(line);
  const JsonValue answer(document, JsonDocument::root);
  if (const auto error = answer.field("error")) {
    require(!error->string().empty() && answer.field("line").has_value());
    return;
  }
  require(answer.field("id").has_value() && answer.field("ret").has_value());
  require(answer.field("items")->list().size() == 8);
  require(answer.field("sectpara")->list().size() == 7);
  require(answer.field("report")->list().size() == 23);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(reinterpret_cast<const char*>(data), size);
  std::istringstream in(text);
  std::ostringstream out;
  const auto summary = aluframe::points::check_points(in, out);
  require(!summary.read_failed && !summary.write_failed);
  require(summary.checked + summary.bad_lines == lines_to_answer(text));
  std::istringstream answers(out.str());
  std::uint64_t count = 0;
  for (std::string line; std::getline(answers, line); ++count) require_answer(line);
  require(count == lines_to_answer(text));
  return 0;
}
