#include "apps/cli/envelope_remark.h"

#include <fmt/format.h>

#include <algorithm>

#include "apps/cli/number_ranges.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

void remark_on_extremes(std::vector<model::Number> combinations) {
  if (combinations.empty()) return;
  std::ranges::sort(combinations);
  print_message(fmt::format(
      "remark: combination {}: checked by extremes (\"envelopes\": \"extremes\"), whose "
      "forces need not act together; the ratio of a state in it may be higher",
      join_as_ranges(combinations)));
}

}  // namespace aluframe::cli
