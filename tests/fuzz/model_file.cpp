// Any bytes are a model file or a problem with a place: never a crash, a hang or an exception. What
// is accepted is written and read back as accepted again.

#include <cstddef>
#include <cstdint>
#include <cstdlib>
#include <string_view>
#include <variant>

#include "aluframe/io/model_file.h"

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  using namespace aluframe;
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  const auto read = io::parse_model(text, "fuzz.json");
  if (const auto* problem = std::get_if<io::Problem>(&read)) {
    if (problem->text.empty() || problem->message().find('\n') != std::string::npos) std::abort();
    return 0;
  }
  const auto again = io::parse_model(io::write_model(std::get<model::Model>(read)), "again.json");
  if (std::holds_alternative<io::Problem>(again)) std::abort();
  return 0;
}
