#include "aluframe/run/mode_lines.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <utility>

#include "aluframe/analysis/displaced_element.h"
#include "aluframe/analysis/local_axes.h"
#include "aluframe/elementary/functions.h"
#include "aluframe/forces/frame_of_model.h"
#include "aluframe/run/buckling_subjects.h"
#include "aluframe/run/chosen_numbers.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

using picture::Point3;

constexpr std::size_t pieces = 16;  ///< of an element

Point3 point_of(const Eigen::Vector3d& values) {
  return {values.x(), values.y(), values.z()};
}

/// The cubic between two ends by their deflections and slopes.
double cubic(double fraction, double length, const std::array<double, 2>& deflection,
             const std::array<double, 2>& slope) {
  const double t = fraction, r = 1.0 - t;
  return deflection[0] * r * r * (1.0 + 2.0 * t) + deflection[1] * t * t * (1.0 + 2.0 * r) +
         length * (slope[0] * t * r * r - slope[1] * t * t * r);
}

/// Displacement of a place of an element, local axes. A positive rotation about y slopes its axis
/// towards -z.
Eigen::Vector3d local_at(double fraction, double length, const analysis::Vector12& ends) {
  return {std::lerp(ends[0], ends[6], fraction),
          cubic(fraction, length, {ends[1], ends[7]}, {ends[5], ends[11]}),
          cubic(fraction, length, {ends[2], ends[8]}, {-ends[4], -ends[10]})};
}

/// Half a wave across the axis of least stiffness.
Eigen::Vector3d half_wave(double fraction, const analysis::Stiffness& stiffness) {
  const double wave = elementary::sine(std::numbers::pi * fraction);
  return stiffness.izz <= stiffness.iyy ? Eigen::Vector3d(0, wave, 0) : Eigen::Vector3d(0, 0, wave);
}

void scale_to_one(std::vector<picture::DisplacedLine>& lines) {
  double largest = 0.0;
  for (const auto& line : lines) {
    for (const auto& place : line.places) {
      largest = std::max(largest, length_of(place.displacement));
    }
  }
  if (largest == 0.0) return;
  for (auto& line : lines) {
    for (auto& place : line.places) place.displacement = (1.0 / largest) * place.displacement;
  }
}

std::vector<picture::DisplacedLine> lines_of(const analysis::Frame& frame,
                                             const std::vector<analysis::Geometry>& geometry,
                                             const analysis::BucklingMode& mode) {
  std::vector<picture::DisplacedLine> lines;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    const analysis::Element& element = frame.elements[i];
    const analysis::ElementLoads unloaded{geometry[i].length, {}, {}, {}};
    const analysis::Vector12 local = analysis::end_displacements(
        element, geometry[i], unloaded, mode.shape[element.start], mode.shape[element.end]);
    picture::DisplacedLine line{element.number, {}};
    for (std::size_t k = 0; k <= pieces; ++k) {
      const double fraction = static_cast<double>(k) / static_cast<double>(pieces);
      const Eigen::Vector3d at = mode.element == i ? half_wave(fraction, element.stiffness)
                                                   : local_at(fraction, geometry[i].length, local);
      line.places.push_back({fraction, point_of(geometry[i].axes.transpose() * at)});
    }
    lines.push_back(std::move(line));
  }
  scale_to_one(lines);
  return lines;
}

}  // namespace

Result<std::vector<DrawnMode>> drawn_modes(const Input& input, model::Number combination,
                                           int count) {
  if (input.model.combinations.find(combination) == nullptr) {
    return about(input, texts::translated("there is no {} {}", texts::translated("combination"),
                                          combination));
  }
  const BucklingSubject subject = BucklingSubjects(input).of_combination(combination);
  if (subject.sets.empty()) return Problem{subject.unknown};
  auto made = forces::FrameBuckling::of(input.model);
  if (const auto* problem = std::get_if<analysis::Problem>(&made)) {
    return problem_of(input.file, *problem);
  }
  auto found = smallest_modes(std::get<forces::FrameBuckling>(made), subject, count);
  if (const auto* problem = std::get_if<analysis::Problem>(&found)) {
    return problem_of(input.file, *problem);
  }
  const analysis::Frame frame = forces::frame_of(input.model);
  const auto geometry = analysis::element_geometry(frame);
  std::vector<DrawnMode> out;
  for (const SubjectMode& of : std::get<std::vector<SubjectMode>>(found)) {
    out.push_back({of.mode.factor, of.mode.text, lines_of(frame, geometry, of.mode)});
  }
  return out;
}

}  // namespace aluframe::run
