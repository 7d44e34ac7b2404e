#include "aluframe/analysis/initial_state.h"

#include <algorithm>

#include "aluframe/analysis/mode_shape.h"

namespace aluframe::analysis {

InitialState::InitialState(const Frame& frame, std::span<const Geometry> geometry,
                           const LoadCase& loads, const Imperfections& imperfections)
    : frame_(frame), geometry_(geometry), loads_(loads), imperfections_(imperfections) {
  if (imperfections.has_bow()) stages_.push_back(Stage::bow);
  if (imperfections.mode > 0.0) stages_.push_back(Stage::mode);
  if (imperfections.has_sway()) stages_.push_back(Stage::sway);
}

InitialCurvatures InitialState::curvatures() const {
  InitialCurvatures out;
  for (const InitialSlopes& slopes : slopes_) {
    for (const InitialSlope& slope : slopes) {
      if (slope.terms() > 1) out.terms = std::max(out.terms, slope.terms() - 1);
    }
  }
  if (out.terms == 0) return out;
  for (std::size_t i = 0; i < slopes_.size(); ++i) {
    const double turns = 2.0 / geometry_[i].length;  // of t, per mm
    for (const InitialSlope& slope : slopes_[i]) {
      for (std::size_t k = 1; k <= out.terms; ++k) {
        out.powers.push_back(
            static_cast<float>(static_cast<double>(k) * slope.powers()[k] * turns));
      }
    }
  }
  return out;
}

std::vector<InitialShape> InitialState::swayed() const {
  std::vector<InitialShape> shapes;
  for (std::size_t direction = 0; direction < 2; ++direction) {
    const double lean = imperfections_.sway[direction];
    if (lean != 0.0) shapes.push_back(shape_of_sway(frame_, geometry_, direction, lean));
  }
  return shapes;
}

std::vector<InitialShape> InitialState::bowed() const {
  std::vector<InitialShape> shapes;
  for (const std::vector<std::size_t>& member : all_members(frame_, imperfections_)) {
    for (std::size_t about = 0; about < 2; ++about) {
      const double bow = imperfections_.bow[about];
      // Bent about y it deflects along z, and the other way round.
      if (bow != 0.0) shapes.push_back(shape_of_bow(frame_, geometry_, member, 1 - about, bow));
    }
  }
  return shapes;
}

Result<std::vector<InitialShape>> InitialState::of_mode(
    std::span<const double> axial_forces) const {
  auto found = Buckling(frame_).find(loads_, axial_forces);
  if (auto* problem = std::get_if<Problem>(&found)) return std::move(*problem);
  const auto& modes = std::get<BucklingResult>(found).modes;
  if (modes.empty()) return std::vector<InitialShape>{};  // nothing is compressed
  auto shape =
      shape_of_mode(frame_, geometry_, loads_, axial_forces, modes.front(), imperfections_.mode);
  if (auto* problem = std::get_if<Problem>(&shape)) return std::move(*problem);
  return std::vector<InitialShape>{std::get<InitialShape>(std::move(shape))};
}

Result<std::vector<InitialShape>> InitialState::shapes_of(
    Stage stage, std::span<const double> axial_forces) const {
  if (stage == Stage::sway) return swayed();
  if (stage == Stage::bow) return bowed();
  return of_mode(axial_forces);
}

std::optional<Problem> InitialState::add_next(const DisplacedFrame& displaced,
                                              std::span<const double> first_axial_forces) {
  if (is_complete()) return std::nullopt;
  auto found = shapes_of(stages_.back(), first_axial_forces);
  if (auto* problem = std::get_if<Problem>(&found)) return std::move(*problem);
  stages_.pop_back();
  slopes_.resize(frame_.elements.size());
  for (const InitialShape& shape : std::get<std::vector<InitialShape>>(found)) {
    const double sign = adding_sign(shape, displaced);
    for (const auto& [element, slopes] : shape) {
      for (std::size_t axis = 0; axis < 2; ++axis) slopes_[element][axis].add(slopes[axis], sign);
    }
  }
  return std::nullopt;
}

}  // namespace aluframe::analysis
