#include "aluframe/model/combination_nesting.h"
#include "aluframe/model/combinations.h"
#include "aluframe/texts/text.h"

namespace aluframe::model {

namespace {

/// The first term through which the combination at `place` nests as deep as it does.
std::size_t deepest_term(const Table<Combination>& combinations, const CombinationNesting& nesting,
                         std::size_t place) {
  const std::vector<CombinationTerm>& terms = combinations[place].terms;
  std::size_t term = 0;
  while (terms[term].source == CombinationTerm::Source::load_case ||
         nesting.levels[combinations.position(terms[term].number)] + 1 != nesting.levels[place]) {
    ++term;
  }
  return term;
}

}  // namespace

std::optional<CombinationProblem> find_combination_problem(const Table<Combination>& combinations) {
  const CombinationNesting nesting = nesting_of(combinations);
  if (nesting.cycle) return nesting.cycle;
  for (std::size_t place = 0; place < combinations.size(); ++place) {
    if (nesting.levels[place] <= max_combination_depth) continue;
    return CombinationProblem{place, deepest_term(combinations, nesting, place),
                              texts::translated("contains combinations {} levels deep (at most {})",
                                                nesting.levels[place], max_combination_depth)};
  }
  return std::nullopt;
}

}  // namespace aluframe::model
