#include "aluframe/analysis/diagnostic_text.h"

#include "aluframe/texts/text.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>

namespace aluframe::analysis {

namespace {

/// More runs of numbers than a reader takes in are counted only.
constexpr std::size_t most_runs = 6;

struct Run {
  Number first = 0, last = 0;
};

std::vector<Run> runs_of(std::vector<Number> numbers) {
  std::sort(numbers.begin(), numbers.end());
  std::vector<Run> runs;
  for (const Number number : numbers) {
    if (!runs.empty() && number <= runs.back().last + 1) {
      runs.back().last = number;
    } else {
      runs.push_back({number, number});
    }
  }
  return runs;
}

std::string run_text(const Run& run) {
  return run.first == run.last ? fmt::format("{}", run.first)
                               : fmt::format("{}-{}", run.first, run.last);
}

}  // namespace

std::string axis_name(std::size_t direction) {
  return std::string(1, "XYZ"[direction % 3]);
}

std::string axis_name(const Eigen::Vector3d& direction) {
  if (!direction.allFinite() || direction.isZero(0.0))
    return texts::translatable("an uncertain direction");
  // Stable, because the squares of a small direction vanish.
  const Eigen::Vector3d unit = direction.stableNormalized();
  for (int i = 0; i < 3; ++i) {
    if (std::abs(unit[i]) > 0.9999) return axis_name(static_cast<std::size_t>(i));
  }
  // Of the two senses, the one whose first component is positive.
  const auto first =
      std::find_if(unit.begin(), unit.end(), [](double u) { return std::abs(u) > 1e-3; });
  const double sign = *first < 0.0 ? -1.0 : 1.0;
  // Adding 0 turns -0 into 0.
  const auto rounded = [&](int i) { return std::round(sign * unit[i] * 1000.0) / 1000.0 + 0.0; };
  return fmt::format("({:.3g}, {:.3g}, {:.3g})", rounded(0), rounded(1), rounded(2));
}

std::string node_name(const Frame& frame, std::size_t place) {
  return fmt::format(texts::translatable("node {}"), frame.nodes[place].number);
}

std::string element_name(const Frame& frame, std::size_t place) {
  return fmt::format(texts::translatable("element {}"), frame.elements[place].number);
}

std::string node_names(const Frame& frame, std::span<const std::size_t> places) {
  std::vector<Number> numbers;
  for (const std::size_t place : places) numbers.push_back(frame.nodes[place].number);
  const std::vector<Run> runs = runs_of(numbers);
  std::string text;
  std::size_t named = 0;
  for (std::size_t i = 0; i < std::min(runs.size(), most_runs); ++i) {
    text += (i > 0 ? ", " : "") + run_text(runs[i]);
    named += runs[i].last - runs[i].first + 1;
  }
  if (named < numbers.size()) {
    text = fmt::format(texts::translatable("{} and {} more"), text, numbers.size() - named);
  }
  return numbers.size() == 1 ? fmt::format(texts::translatable("node {}"), text)
                             : fmt::format(texts::translatable("nodes {}"), text);
}

std::string listed(std::span<const std::string> parts) {
  std::string text;
  for (std::size_t i = 0; i < parts.size(); ++i) {
    const bool last = i + 1 == parts.size();
    if (i > 0 && last) {
      text = fmt::format(texts::translatable("{} and {}"), text, parts[i]);
    } else {
      text += (i == 0 ? "" : ", ") + parts[i];
    }
  }
  return text;
}

}  // namespace aluframe::analysis
