#include "aluframe/run/displaced_lines.h"

#include <array>

#include "aluframe/analysis/element_loads.h"
#include "aluframe/analysis/local_axes.h"
#include "aluframe/forces/analyse_sets.h"
#include "aluframe/forces/compute_forces.h"
#include "aluframe/forces/frame_of_model.h"
#include "aluframe/forces/inner_forces.h"
#include "aluframe/run/chosen_numbers.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

using picture::Point3;

constexpr std::size_t pieces = 16;  ///< of an element
using Curve = std::array<double, pieces + 1>;

Point3 point_of(const analysis::Vector6& values) {
  return {values[0], values[1], values[2]};
}

/// The deflection off the straight line between the ends, from the curvatures and the shear angles
/// along an element. Curvatures are linear between the places.
Curve deflection(const Curve& curvature, const Curve& shear, double length) {
  const double step = length / static_cast<double>(pieces);
  Curve out{};
  double slope = 0.0;
  for (std::size_t i = 0; i < pieces; ++i) {
    const double start = curvature[i], end = curvature[i + 1];
    out[i + 1] = out[i] + step * slope + step * step * (2.0 * start + end) / 6.0 +
                 step * (shear[i] + shear[i + 1]) / 2.0;
    slope += step * (start + end) / 2.0;
  }
  const double at_end = out.back();
  for (std::size_t i = 0; i <= pieces; ++i) {
    out[i] -= at_end * static_cast<double>(i) / static_cast<double>(pieces);
  }
  return out;
}

/// One element of an analysed frame.
struct Bent {
  const analysis::Stiffness& stiffness;
  double length = 0.0;
  analysis::FreeDeformation free;
};

/// Deflections along local y and z. My bends towards +z and Mz towards +y; a shear force that
/// pushes the rest of an element along an axis shears it the other way.
template <class ForcesAt>
std::array<Curve, 2> deflections(const Bent& bent, const ForcesAt& forces_at) {
  const analysis::Stiffness& s = bent.stiffness;
  const auto angle = [&s](double force, double area) {
    return area > 0.0 ? -force / (s.g * area) : 0.0;
  };
  std::array<Curve, 2> curvature{}, shear{};
  for (std::size_t i = 0; i <= pieces; ++i) {
    const double x = bent.length * static_cast<double>(i) / static_cast<double>(pieces);
    const std::array<double, 6> f = forces_at(x);
    curvature[0][i] = f[5] / (s.e * s.izz) + bent.free.curvature_y;
    curvature[1][i] = f[4] / (s.e * s.iyy) + bent.free.curvature_z;
    shear[0][i] = angle(f[1], s.ay);
    shear[1][i] = angle(f[2], s.az);
  }
  return {deflection(curvature[0], shear[0], bent.length),
          deflection(curvature[1], shear[1], bent.length)};
}

picture::DisplacedLine line_of(model::Number element, const Point3& start, const Point3& end,
                               const analysis::Geometry& geometry,
                               const std::array<Curve, 2>& deflected) {
  picture::DisplacedLine line{element, {}};
  for (std::size_t i = 0; i <= pieces; ++i) {
    const double fraction = static_cast<double>(i) / static_cast<double>(pieces);
    const Eigen::Vector3d bent = geometry.axes.row(1).transpose() * deflected[0][i] +
                                 geometry.axes.row(2).transpose() * deflected[1][i];
    line.places.push_back(
        {fraction, picture::between(start, end, fraction) + Point3{bent.x(), bent.y(), bent.z()}});
  }
  return line;
}

Result<analysis::CaseResult> solved(const Input& input, const model::Model& model,
                                    const forces::LoadSet& set, model::Number load_case) {
  auto answers = forces::analyse_sets(model, {&set, 1}, forces::Order::first);
  if (auto* problem = std::get_if<analysis::Problem>(&answers)) {
    if (problem->load_case) {
      problem->text =
          fmt::format(texts::translatable("load case {}: {}"), load_case, problem->text);
    }
    return problem_of(input.file, *problem);
  }
  return std::move(std::get<std::vector<analysis::SecondOrderResult>>(answers).front().result);
}

}  // namespace

Result<std::vector<picture::DisplacedLine>> displaced_lines(const Input& input,
                                                            model::Number load_case) {
  const std::size_t place = input.model.load_cases.position(load_case);
  if (!forces::has_loads(input.model.load_cases[place])) {
    return about(input, texts::translated("--deformed: load case {} has no loads", load_case));
  }
  // Displacements are those of the loads, whatever forces are given.
  model::Model model = input.model;
  model.forces = {};
  model.analysis = {};
  const forces::LoadSet set{{place, 1.0}};
  const auto result = solved(input, model, set, load_case);
  if (const auto* problem = std::get_if<Problem>(&result)) return *problem;
  const auto& answer = std::get<analysis::CaseResult>(result);
  const analysis::Frame frame = forces::frame_of(model);
  const auto geometry = analysis::element_geometry(frame);
  const analysis::LoadsByElement loads(frame, geometry,
                                       forces::loads_of(model, model.load_cases[place]));
  const forces::InnerForces inner(model);
  std::vector<picture::DisplacedLine> lines;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    const analysis::Element& element = frame.elements[i];
    const bool is_beam = element.kind == analysis::ElementKind::beam;
    const model::CaseForces five{answer.forces[i], true};
    std::array<Curve, 2> deflected{};
    if (is_beam) {
      deflected = deflections({element.stiffness, geometry[i].length, loads.of(i).free},
                              [&](double x) { return inner.forces_at(i, set, five, x); });
    }
    lines.push_back(line_of(element.number, point_of(answer.displacements[element.start]),
                            point_of(answer.displacements[element.end]), geometry[i], deflected));
  }
  return lines;
}

}  // namespace aluframe::run
