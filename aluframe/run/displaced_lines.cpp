#include "aluframe/run/displaced_lines.h"

#include <set>

#include "aluframe/analysis/displaced_element.h"
#include "aluframe/analysis/element_loads.h"
#include "aluframe/analysis/local_axes.h"
#include "aluframe/forces/analyse_sets.h"
#include "aluframe/forces/compute_forces.h"
#include "aluframe/forces/frame_of_model.h"
#include "aluframe/run/chosen_numbers.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

constexpr int pieces = 16;  ///< of an element, and where loads begin, end and act

/// Where a displaced element is drawn, mm from its start.
std::set<double> drawn_places(const analysis::DisplacedElement& displaced, double length) {
  std::set<double> places(displaced.places().begin(), displaced.places().end());
  for (int i = 0; i <= pieces; ++i) places.insert(length * i / pieces);
  return places;
}

picture::DisplacedLine line_of(model::Number element, const analysis::DisplacedElement& displaced,
                               const analysis::Geometry& geometry) {
  picture::DisplacedLine line{element, {}};
  for (const double x : drawn_places(displaced, geometry.length)) {
    const Eigen::Vector3d global = geometry.axes.transpose() * displaced.at(x);
    line.places.push_back({x / geometry.length, {global.x(), global.y(), global.z()}});
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
  std::vector<picture::DisplacedLine> lines;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    const analysis::Element& element = frame.elements[i];
    const analysis::ElementLoads of_element = loads.of(i);
    const analysis::Vector12 ends = analysis::end_displacements(element, geometry[i], of_element,
                                                                answer.displacements[element.start],
                                                                answer.displacements[element.end]);
    const analysis::DisplacedElement displaced(element, of_element, ends);
    lines.push_back(line_of(element.number, displaced, geometry[i]));
  }
  return lines;
}

}  // namespace aluframe::run
