#include "aluframe/points/point_writer.h"

#include <fmt/format.h>

#include <cmath>
#include <iterator>
#include <span>

#include "aluframe/io/json_writer.h"

namespace aluframe::points {

namespace {

void append(std::string& line, double value) {
  if (std::isfinite(value)) {
    fmt::format_to(std::back_inserter(line), "{:.17g}", value);
  } else if (std::isnan(value)) {
    line += "\"nan\"";
  } else {
    line += value > 0.0 ? "\"inf\"" : "\"-inf\"";
  }
}

void append(std::string& line, std::span<const double> values) {
  char separator = '[';
  for (const double value : values) {
    line += separator;
    append(line, value);
    separator = ',';
  }
  line += ']';
}

void append_items(std::string& line, const T_RALU_SECT& result) {
  char separator = '[';
  for (const T_RALU_RLT& item : result.aItem) {
    line += separator;
    append(line, std::array{item.dDemand, item.dCapacity});
    separator = ',';
  }
  line += ']';
}

}  // namespace

std::string point_line(std::string_view id, int returned, const T_RALU_SECT& result,
                       const ALU_CAL_BUFF& buffer, std::string_view safe) {
  const ALU_CAL_SECTPARA& para = buffer.sectpara;
  std::string line = fmt::format(R"({{"id":{},"ret":{},"items":)", id, returned);
  append_items(line, result);
  line += R"(,"sectpara":)";
  append(line, std::array{para.dA, para.dW1, para.dW2, para.dWz, para.dR1, para.dR2, para.dRw});
  line += R"(,"report":)";
  append(line, buffer.report->dValue);
  if (!safe.empty()) line.append(",\"safe\":").append(safe);
  line += "}\n";
  return line;
}

std::string safe_text(const second_opinion::SafeRatio& ratio,
                      const std::vector<second_opinion::Answer>& answers,
                      std::optional<double> torsion) {
  std::string line = R"({"ratio":)";
  append(line, ratio.safe);
  line += R"(,"code":)";
  append(line, ratio.code);
  line += fmt::format(R"(,"item":{},"rules":"{}","answers":[)", ratio.item,
                      second_opinion::to_text(ratio.rules));
  std::string_view separator;
  for (const second_opinion::Answer& answer : answers) {
    line += fmt::format(R"({}{{"item":{},"rules":"{}","ratio":)", separator, answer.item,
                        second_opinion::to_text(answer.rules));
    append(line, answer.ratio);
    line += '}';
    separator = ",";
  }
  line += "]";
  if (torsion) {
    line += R"(,"torsion":)";
    append(line, *torsion);
  }
  line += '}';
  return line;
}

std::string error_line(std::uint64_t line, std::string_view text) {
  return fmt::format("{{\"line\":{},\"error\":{}}}\n", line, io::json_string(text));
}

}  // namespace aluframe::points
