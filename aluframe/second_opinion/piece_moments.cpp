#include "aluframe/second_opinion/piece_moments.h"

#include <algorithm>
#include <cmath>

namespace aluframe::second_opinion {

namespace {

/// Rounding of forces to single precision stays far below it.
constexpr double straight = 1e-3;

double equivalent(double start, double end, double inner) {
  const bool start_is_larger = std::fabs(start) > std::fabs(end);
  const double m1 = start_is_larger ? start : end;
  const double m2 = start_is_larger ? end : start;
  if (inner > (1.0 + straight) * std::fabs(m1)) return inner;
  return 0.6 * std::fabs(m1) + 0.4 * (m1 < 0.0 ? -m2 : m2);
}

}  // namespace

void PieceMoments::take(double moment) {
  if (!start_) start_ = moment;
  end_ = moment;
  inner_ = std::max(inner_, std::fabs(moment));
}

void PieceMoments::end_piece(double moment) {
  take(moment);
  largest_ = std::max(largest_, equivalent(*start_, end_, inner_));
  start_ = moment;
  inner_ = std::fabs(moment);
}

void PieceMoments::add(const model::CaseForces& forces, std::size_t component,
                       const std::vector<double>& at, double sign, bool is_reversed) {
  const std::size_t last = forces.at.size() - 1;
  const std::size_t step = forces.inner ? 1 : last;
  const auto moment = [&](std::size_t i) {
    return sign * static_cast<double>(forces.at[is_reversed ? last - i : i][component]);
  };
  std::vector<double> meetings;
  for (const double share : at) meetings.push_back(is_reversed ? 1.0 - share : share);
  std::ranges::sort(meetings);
  auto next = meetings.begin();
  const auto position = [&](std::size_t i) {
    return static_cast<double>(i) / static_cast<double>(last);
  };
  take(moment(0));
  for (std::size_t i = 0; i < last; i += step) {
    const double from = position(i), to = position(i + step);
    for (; next != meetings.end() && *next <= to; ++next) {
      const double share = std::max(0.0, (*next - from) / (to - from));
      end_piece(std::lerp(moment(i), moment(i + step), share));
    }
    take(moment(i + step));
  }
}

double PieceMoments::largest() {
  if (start_) end_piece(end_);
  return largest_;
}

}  // namespace aluframe::second_opinion
