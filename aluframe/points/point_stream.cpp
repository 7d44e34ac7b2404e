#include "aluframe/points/point_stream.h"

#include <fmt/format.h>

#include "aluframe/points/bare_host.h"
#include "aluframe/points/line_source.h"
#include "aluframe/points/point_reader.h"
#include "aluframe/points/point_writer.h"
#include "aluframe/second_opinion/element_opinion.h"
#include "tz_alu/engine/alucode_gb50429_07.h"

namespace aluframe::points {

namespace {

class PointChecker {
 public:
  explicit PointChecker(SecondOpinion second_opinion) : second_opinion_(second_opinion) {}

  /// Results of a line, or what is wrong with it.
  std::string answer(const LineSource& line, StreamSummary& summary) {
    if (line.is_too_long()) {
      return error(line, fmt::format("the line is longer than {} bytes", longest_line), summary);
    }
    const auto read = read_point(line.text());
    if (const auto* fault = std::get_if<PointError>(&read)) {
      return error(line, fault->text, summary);
    }
    ++summary.checked;
    return check(std::get<Point>(read));
  }

 private:
  static std::string error(const LineSource& line, const std::string& text,
                           StreamSummary& summary) {
    ++summary.bad_lines;
    return error_line(line.number(), text);
  }

  std::string check(const Point& point) {
    const int returned = engine_.CheckCode(point.data, point.force, result_, buffer_);
    const std::string safe =
        second_opinion_ == SecondOpinion::on && returned != 0 ? safe_member(point) : std::string();
    return point_line(point.id, returned, result_, buffer_, safe);
  }

  std::string safe_member(const Point& point) {
    second_opinion::ElementOpinion opinion(asked_, point.data);
    return safe_text(opinion.at(point.force, result_), opinion.answers(point.force, result_),
                     opinion.torsion_ratio(point.force, result_));
  }

  SecondOpinion second_opinion_;
  second_opinion::Engine asked_;

  CALUCode_GB50429_07 engine_;
  T_RALU_SECT result_;
  ALU_CAL_BUFF buffer_;
};

}  // namespace

StreamSummary check_points(std::istream& in, std::ostream& out, SecondOpinion second_opinion) {
  const BareHost host;
  StreamSummary summary;
  PointChecker checker(second_opinion);
  LineSource lines(in);
  while (out && lines.next()) {
    if (!lines.is_blank()) out << checker.answer(lines, summary);
    if (lines.would_wait()) out.flush();
  }
  out.flush();
  summary.read_failed = lines.has_failed();
  summary.write_failed = !out;
  summary.assertions = host.assertions();
  return summary;
}

}  // namespace aluframe::points
