#include "aluframe/forces/analyse_sets.h"

#include <utility>
#include <variant>

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/large_displacement.h"
#include "aluframe/forces/frame_buckling.h"
#include "aluframe/forces/frame_of_model.h"
#include "aluframe/forces/imperfections_of_model.h"

namespace aluframe::forces {

namespace {

using Answers = std::vector<analysis::SecondOrderResult>;

std::vector<analysis::LoadCase> loads_of_sets(const model::Model& model,
                                              std::span<const LoadSet> sets) {
  std::vector<analysis::LoadCase> cases;
  for (const model::LoadCase& load_case : model.load_cases) {
    cases.push_back(loads_of(model, load_case));
  }
  std::vector<analysis::LoadCase> out;
  for (const LoadSet& set : sets) {
    std::vector<analysis::FactoredCase> factored;
    for (const auto& entry : set) factored.push_back({&cases[entry.load_case], entry.factor});
    out.push_back(analysis::combine(factored));
  }
  return out;
}

analysis::Result<Answers> in_first_order(const analysis::Frame& frame,
                                         std::span<const analysis::LoadCase> loads) {
  auto solved = analysis::analyse(frame, loads);
  if (auto* problem = std::get_if<analysis::Problem>(&solved)) return std::move(*problem);
  Answers answers;
  for (analysis::CaseResult& result : std::get<analysis::Solution>(solved).cases) {
    answers.push_back({.result = std::move(result)});
  }
  return answers;
}

analysis::Result<Answers> in_second_order(const analysis::Frame& frame,
                                          std::span<const analysis::LoadCase> loads,
                                          const analysis::SecondOrderOptions& options) {
  Answers answers;
  for (std::size_t i = 0; i < loads.size(); ++i) {
    auto solved = analysis::analyse_second_order(frame, loads[i], options);
    if (auto* problem = std::get_if<analysis::Problem>(&solved)) {
      problem->load_case = i;
      return with_buckling_factor(std::move(*problem), frame, loads[i]);
    }
    answers.push_back(std::get<analysis::SecondOrderResult>(std::move(solved)));
  }
  return answers;
}

analysis::Result<Answers> with_large_displacements(const analysis::Frame& frame,
                                                   std::span<const analysis::LoadCase> loads) {
  Answers answers;
  for (std::size_t i = 0; i < loads.size(); ++i) {
    auto solved = analysis::analyse_large_displacements(frame, loads[i]);
    if (auto* problem = std::get_if<analysis::Problem>(&solved)) {
      problem->load_case = i;
      return std::move(*problem);
    }
    answers.push_back(std::get<analysis::SecondOrderResult>(std::move(solved)));
  }
  return answers;
}

}  // namespace

Order order_of(const model::AnalysisSettings& settings) {
  if (settings.large_displacements) return Order::large_displacements;
  return settings.second_order ? Order::second : Order::first;
}

analysis::Result<Answers> analyse_sets(const model::Model& model, std::span<const LoadSet> sets,
                                       Order order) {
  const analysis::Frame frame = frame_of(model);
  const std::vector<analysis::LoadCase> loads = loads_of_sets(model, sets);
  switch (order) {
    case Order::first:
      return in_first_order(frame, loads);
    case Order::second:
      return in_second_order(frame, loads, second_order_options(model));
    default:
      return with_large_displacements(frame, loads);
  }
}

}  // namespace aluframe::forces
