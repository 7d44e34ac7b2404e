#include "aluframe/forces/second_order_forces.h"

#include <fmt/format.h>

#include <algorithm>
#include <utility>

#include "aluframe/analysis/large_displacement.h"
#include "aluframe/forces/frame_buckling.h"
#include "aluframe/forces/frame_of_model.h"
#include "aluframe/forces/imperfections_of_model.h"
#include "aluframe/model/envelopes.h"
#include "aluframe/texts/text.h"

namespace aluframe::forces {

using analysis::SecondOrderResult;

SecondOrderAnalyses::SecondOrderAnalyses(const model::Model& model)
    : model_(model),
      plans_(model::compile_combinations(model)),
      frame_(frame_of(model)),
      options_(second_order_options(model)) {
  loads_.reserve(model.load_cases.size());
  for (const model::LoadCase& load_case : model.load_cases) {
    loads_.push_back(loads_of(model, load_case));
  }
}

std::optional<std::string> SecondOrderAnalyses::missing_loads(const LoadSet& set) const {
  for (const auto& entry : set) {
    const model::LoadCase& load_case = model_.load_cases[entry.load_case];
    if (load_case.loads != model::CaseLoads()) continue;
    return fmt::format(
        texts::translatable(
            "load case {} has no loads, and second order cannot use forces that are given"),
        load_case.number);
  }
  return std::nullopt;
}

analysis::Result<SecondOrderResult> SecondOrderAnalyses::analyse(const LoadSet& set) const {
  std::vector<analysis::FactoredCase> cases;
  for (const auto& entry : set) cases.push_back({&loads_[entry.load_case], entry.factor});
  const analysis::LoadCase loads = analysis::combine(cases);
  if (model_.analysis.large_displacements) {
    return analysis::analyse_large_displacements(frame_, loads);
  }
  auto solved = analysis::analyse_second_order(frame_, loads, options_);
  if (auto* problem = std::get_if<analysis::Problem>(&solved)) {
    return with_buckling_factor(std::move(*problem), frame_, loads);
  }
  return solved;
}

analysis::Result<const SecondOrderResult*> SecondOrderAnalyses::answer(const LoadSet& set) {
  Key key;
  for (const auto& entry : set) key.emplace_back(entry.load_case, entry.factor);
  if (const auto known = answers_.find(key); known != answers_.end()) return &known->second;
  auto solved = analyse(set);
  if (auto* problem = std::get_if<analysis::Problem>(&solved)) return std::move(*problem);
  const auto [place, is_new] =
      answers_.emplace(std::move(key), std::get<SecondOrderResult>(std::move(solved)));
  const SecondOrderResult& result = place->second;
  most_iterations_ = std::max(most_iterations_, result.iterations);
  const analysis::Equilibrium& balance = result.result.equilibrium;
  largest_residual_ = std::max({largest_residual_, balance.nodes, balance.whole});
  largest_force_error_ = std::max(largest_force_error_, balance.force_error);
  return &result;
}

analysis::Result<std::vector<const SecondOrderResult*>> SecondOrderAnalyses::answers(
    std::size_t place) {
  const auto sets = load_sets_of(model_, plans_, place);
  if (const auto* text = std::get_if<std::string>(&sets)) return analysis::Problem{.text = *text};
  std::vector<const SecondOrderResult*> found;
  for (const LoadSet& set : std::get<std::vector<LoadSet>>(sets)) {
    const auto name = [&] {
      return fmt::format(texts::translatable("combination {}"),
                         model::label_of(model_.combinations[place]));
    };
    if (const auto text = missing_loads(set))
      return analysis::Problem{.text = name() + ": " + *text};
    auto solved = answer(set);
    if (auto* problem = std::get_if<analysis::Problem>(&solved)) {
      problem->text = name() + ": " + problem->text;
      return std::move(*problem);
    }
    found.push_back(std::get<const SecondOrderResult*>(solved));
  }
  return found;
}

const SecondOrderResult* SecondOrderAnalyses::growing(std::size_t place) {
  const auto found = answers(place);
  const auto* all = std::get_if<std::vector<const SecondOrderResult*>>(&found);
  if (all == nullptr || all->empty()) return nullptr;
  const SecondOrderResult* most = *std::ranges::max_element(*all, {}, &SecondOrderResult::growth);
  if (most->growth > analysis::noticeable_growth) return most;
  const auto flat = std::ranges::find(*all, true, &SecondOrderResult::flattens);
  return flat != all->end() ? *flat : nullptr;
}

}  // namespace aluframe::forces
