#include "aluframe/forces/frame_buckling.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "aluframe/analysis/analyse.h"
#include "aluframe/forces/frame_of_model.h"
#include "aluframe/texts/text.h"

namespace aluframe::forces {

analysis::Result<FrameBuckling> FrameBuckling::of(const model::Model& model) {
  FrameBuckling result;
  result.frame_ = std::make_unique<analysis::Frame>(frame_of(model));
  for (const model::LoadCase& load_case : model.load_cases) {
    result.loads_.push_back(loads_of(model, load_case));
  }
  const auto solved = analysis::analyse(*result.frame_, result.loads_);
  if (const auto* problem = std::get_if<analysis::Problem>(&solved)) return *problem;
  for (const analysis::CaseResult& of_case : std::get<analysis::Solution>(solved).cases) {
    result.axial_forces_.push_back(analysis::axial_forces_at_start(of_case));
  }
  result.buckling_ = std::make_unique<analysis::Buckling>(*result.frame_);
  return result;
}

analysis::Result<analysis::BucklingResult> FrameBuckling::under(const LoadSet& set, int modes) {
  return find(set, modes);
}

analysis::Result<analysis::BucklingResult> FrameBuckling::near(const LoadSet& set) {
  return find(set, std::nullopt);
}

analysis::Result<analysis::BucklingResult> FrameBuckling::find(const LoadSet& set,
                                                               std::optional<int> modes) {
  Key key{{}, modes};
  for (const auto& entry : set) key.first.emplace_back(entry.load_case, entry.factor);
  if (const auto known = known_.find(key); known != known_.end()) return known->second;
  std::vector<analysis::FactoredCase> cases;
  std::vector<double> axial(frame_->elements.size(), 0.0);
  for (const auto& entry : set) {
    cases.push_back({&loads_[entry.load_case], entry.factor});
    const std::vector<double>& of_case = axial_forces_[entry.load_case];
    for (std::size_t i = 0; i < axial.size(); ++i) axial[i] += entry.factor * of_case[i];
  }
  const analysis::LoadCase loads = analysis::combine(cases);
  auto found = modes ? buckling_->find(loads, axial, *modes) : buckling_->find_near(loads, axial);
  if (const auto* result = std::get_if<analysis::BucklingResult>(&found)) {
    known_.emplace(std::move(key), *result);
  }
  return found;
}

analysis::Problem with_buckling_factor(analysis::Problem problem, const analysis::Frame& frame,
                                       const analysis::LoadCase& loads) {
  using Kind = analysis::Problem::Kind;
  if (problem.kind != Kind::buckling && problem.kind != Kind::divergence) return problem;
  const auto solved = analysis::analyse(frame, std::span(&loads, 1));
  const auto* solution = std::get_if<analysis::Solution>(&solved);
  if (solution == nullptr) return problem;
  const auto found = analysis::Buckling(frame).find(
      loads, analysis::axial_forces_at_start(solution->cases.front()));
  const auto* result = std::get_if<analysis::BucklingResult>(&found);
  if (result == nullptr || result->modes.empty()) return problem;
  const analysis::BucklingMode& mode = result->modes.front();
  problem.text +=
      problem.text.find(mode.text) != std::string::npos
          ? fmt::format(texts::translatable(
                            "; by forces of first order the factor of these loads is {:.3g}"),
                        mode.factor)
          : fmt::format(texts::translatable(
                            "; by forces of first order the factor of these loads is {:.3g}: {}"),
                        mode.factor, mode.text);
  return problem;
}

}  // namespace aluframe::forces
