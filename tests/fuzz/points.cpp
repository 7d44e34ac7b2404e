// Any bytes are lines of check points or errors told on their lines: never a crash, a hang or an
// exception, every line that is not blank is answered once, and an answer is a line of JSON.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <sstream>
#include <string>

#include "aluframe/points/line_source.h"
#include "aluframe/points/point_stream.h"

namespace {

std::uint64_t lines_to_answer(const std::string& text) {
  std::istringstream in(text);
  aluframe::points::LineSource source(in);
  std::uint64_t count = 0;
  while (source.next()) count += source.is_blank() ? 0U : 1U;
  return count;
}

void require(bool condition) {
  if (!condition) std::abort();
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
  for (std::string line; std::getline(answers, line); ++count) {
    require(line.starts_with("{\"id\":") || line.starts_with("{\"line\":"));
    require(line.ends_with('}'));
  }
  require(count == lines_to_answer(text));
  return 0;
}
