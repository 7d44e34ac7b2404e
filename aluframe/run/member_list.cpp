#include "aluframe/run/member_list.h"

#include <fmt/format.h>

#include "aluframe/texts/text.h"

#include <utility>
#include <variant>

namespace aluframe::run {

namespace {

/// "combination 2: load case 1 has given forces, ..." of the first whose factor is not known.
std::string unknown_of(const FrameModes& modes) {
  if (modes.factors.empty()) return texts::translatable("the model has no combination for design");
  for (const BucklingFactor& factor : modes.factors) {
    if (factor.unknown.empty()) continue;
    return fmt::format(texts::translatable("combination {}: {}"), factor.subject, factor.unknown);
  }
  return {};
}

}  // namespace

Result<MemberList> list_members(const InputOptions& options, const Selection& selection) {
  auto read = read_input(options, selection);
  if (auto* problem = std::get_if<Problem>(&read)) return std::move(*problem);
  MemberList list{.input = std::get<Input>(std::move(read)), .factors = {}, .unknown = {}};
  Input& input = list.input;
  auto computed = forces::compute_forces(input.model);
  if (const auto* problem = std::get_if<analysis::Problem>(&computed)) {
    list.unknown = problem_of(input.file, *problem).text;
    list.factors = members::length_factors(input.model);
    input.restrained = restrained_elements(input, list.factors);
    return list;
  }
  input.forces = std::get<forces::Summary>(std::move(computed));
  const FrameModes modes = frame_modes_of_all(input);
  list.unknown = unknown_of(modes);
  list.factors = members::length_factors(input.model, modes.modes);
  input.restrained = restrained_elements(input, list.factors);
  return list;
}

}  // namespace aluframe::run
