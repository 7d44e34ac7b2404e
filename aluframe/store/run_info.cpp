#include <algorithm>

#include "aluframe/store/result_file.h"

#include "aluframe/texts/text.h"

namespace aluframe::store {

namespace {

bool is_same_combination(const CombinationRow& a, const CombinationRow& b) {
  return a.name == b.name && a.two_sides == b.two_sides && a.seismic == b.seismic &&
         a.state_of == b.state_of;
}

}  // namespace

std::optional<std::string> difference_of_runs(const RunInfo& stored, const RunInfo& wanted) {
  if (stored.code != wanted.code) return texts::translated("holds results of {}", stored.code);
  if (stored.model_title != wanted.model_title) {
    return texts::translated("holds results of the model \"{}\", not of \"{}\"", stored.model_title,
                             wanted.model_title);
  }
  for (const CombinationRow& combination : wanted.combinations) {
    const auto found =
        std::ranges::find(stored.combinations, combination.number, &CombinationRow::number);
    if (found == stored.combinations.end() || is_same_combination(*found, combination)) continue;
    return texts::translated("holds results of another combination {}; check the model again",
                             combination.number);
  }
  const bool both_known = !stored.model_digest.empty() && !wanted.model_digest.empty();
  if (both_known && stored.model_digest != wanted.model_digest) {
    return texts::translated(
        "holds results of another state of the model or its forces; check the model again");
  }
  return std::nullopt;
}

}  // namespace aluframe::store
