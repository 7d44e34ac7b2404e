#include "aluframe/run/chosen_numbers.h"

#include <fmt/format.h>

#include "aluframe/forces/compute_forces.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

Problem about(const Input& input, const std::string& text) {
  return {input.file.string() + ": " + text};
}

Result<std::vector<model::Number>> chosen_numbers(const Input& input, const char* option,
                                                  const model::NumberRanges& ranges,
                                                  std::vector<model::Number> existing,
                                                  const std::string& what) {
  if (ranges.empty()) return existing;
  auto selected = model::select(ranges, existing, what);
  if (const auto* text = std::get_if<std::string>(&selected)) {
    return about(input, fmt::format("{}: {}", option, *text));
  }
  return std::get<std::vector<model::Number>>(std::move(selected));
}

Result<std::vector<model::Number>> chosen_load_cases(const Input& input,
                                                     const model::NumberRanges& ranges) {
  std::vector<model::Number> with_loads;
  for (const model::LoadCase& load_case : input.model.load_cases) {
    if (forces::has_loads(load_case)) with_loads.push_back(load_case.number);
  }
  if (with_loads.empty() && ranges.empty())
    return about(input, texts::translated("has no loads to analyse"));
  return chosen_numbers(input, "--cases", ranges, std::move(with_loads),
                        texts::translated("load case with loads"));
}

std::optional<model::Number> without_loads(const model::Model& model, const forces::LoadSet& set) {
  for (const auto& entry : set) {
    const model::LoadCase& load_case = model.load_cases[entry.load_case];
    if (!forces::has_loads(load_case)) return load_case.number;
  }
  return std::nullopt;
}

}  // namespace aluframe::run
