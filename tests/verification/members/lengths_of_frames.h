#pragma once

#include <algorithm>
#include <cmath>
#include <numbers>
#include <stdexcept>
#include <vector>

#include "aluframe/forces/frame_buckling.h"
#include "aluframe/forces/frame_of_model.h"
#include "aluframe/members/find_members.h"
#include "aluframe/members/length_factors.h"
#include "tests/support/fine_frame.h"
#include "tests/unit/aluframe/members/frames.h"

namespace aluframe::members {

using analysis::verification::FineFrame;

/// Factors with what the program's own modes tell, or nothing when nothing is compressed.
inline std::vector<SegmentFactors> factors_of(const model::Model& model) {
  auto made = forces::FrameBuckling::of(model);
  if (const auto* problem = std::get_if<analysis::Problem>(&made)) {
    throw std::runtime_error(problem->text);
  }
  auto found = std::get<forces::FrameBuckling>(made).under({{0, 1.0}}, 1);
  if (const auto* problem = std::get_if<analysis::Problem>(&found)) {
    throw std::runtime_error(problem->text);
  }
  auto& result = std::get<analysis::BucklingResult>(found);
  std::vector<FrameMode> modes;
  for (auto& mode : result.modes) {
    modes.push_back({.combination = 1,
                     .factor = mode.factor,
                     .work = std::move(mode.work),
                     .compression = result.compression});
  }
  return length_factors(model, modes);
}

/// What the fine frame tells of a segment about an axis.
struct Fine {
  double share = 0.0;  ///< of the work of the segment that does most
  double k = 0.0;
};

class FineFactors {
 public:
  FineFactors(const model::Model& model, const FineFrame::Mode& mode,
              const std::vector<SegmentFactors>& factors)
      : model_(model), mode_(mode) {
    for (const SegmentFactors& of : factors) {
      for (const std::size_t axis : {0U, 1U}) most_ = std::max(most_, work(of, axis));
    }
  }

  Fine of(const SegmentFactors& segment, std::size_t axis) const {
    double compression = 0.0;
    for (const Number number : segment.elements) {
      compression = std::max(compression, mode_.compression[model_.elements.position(number)]);
    }
    const double euler = std::numbers::pi * std::numbers::pi * FrameBuilder::e *
                         FrameBuilder::inertia / (segment.length * segment.length);
    return {work(segment, axis) / most_, std::sqrt(euler / (mode_.factor * compression))};
  }

 private:
  double work(const SegmentFactors& segment, std::size_t axis) const {
    double sum = 0.0;
    for (const Number number : segment.elements) {
      sum += std::max(0.0, mode_.work[model_.elements.position(number)][axis]);
    }
    return sum;
  }

  const model::Model& model_;
  const FineFrame::Mode& mode_;
  double most_ = 0.0;
};

/// Segments at the border of a tenth of the work may be told of or not.
constexpr double clearly_working = 0.13;
/// A twentieth, and what the fine frame may be off.
constexpr double below = 1.055;

/// The first mode of a model's first load case, every element cut into pieces.
inline std::optional<FineFrame::Mode> fine_mode(const model::Model& model, int parts) {
  const analysis::Frame frame = forces::frame_of(model);
  return FineFrame(frame, forces::loads_of(model, model.load_cases[0]), parts).first_mode();
}

}  // namespace aluframe::members
