#pragma once

#include <cstdint>
#include <istream>
#include <map>
#include <ostream>
#include <string>

namespace aluframe::points {

/// Whether safe ratios stand beside the results of a point.
enum class SecondOpinion { off, on };

/// What became of a stream of check points.
struct StreamSummary {
  std::uint64_t checked = 0;    ///< points that went through the engine
  std::uint64_t bad_lines = 0;  ///< lines that are no check point
  bool read_failed = false;     ///< the input broke off
  bool write_failed = false;    ///< the output took no more; nothing after that was checked
  /// "source:line" of every internal inconsistency of the engine, and how often it was met.
  std::map<std::string, std::uint64_t> assertions;
};

/// Runs the design check engine on every line of `in` and writes a line of results, or of an error,
/// to `out` for each, in order. Blank lines are skipped. Memory does not grow with the input, and a
/// line's results are passed on before more input is waited for, so a script may talk with the
/// stream line by line. Binds a host of its own while it runs.
StreamSummary check_points(std::istream& in, std::ostream& out,
                           SecondOpinion second_opinion = SecondOpinion::off);

}  // namespace aluframe::points
