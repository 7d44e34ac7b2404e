#pragma once

#include <cstddef>
#include <optional>
#include <set>
#include <span>
#include <string>
#include <vector>

#include "aluframe/model/model.h"

namespace aluframe::model {

/// So many states of one combination are checked one by one. Each costs as much time and as much of
/// the result file as a combination of the model, and its number stays readable: three digits
/// behind the combination's.
inline constexpr std::size_t max_envelope_states = 999;

/// Puts the states of the design envelopes in their place, unless the model wants their extremes.
///
/// A state is a sum of load cases that may act together: of an envelope, the states of its terms
/// times their factors; of a linear combination, every choice of one state of each term. An
/// envelope that a sum names twice is chosen from twice. A term with factor 0 is the state without
/// any load in an envelope, and nothing in a sum.
///
/// Each design combination that is or contains an envelope stops being one (`design`), and each of
/// its states becomes a linear design combination behind it, which knows it (`state_of`) and bears
/// its name and the sum: "Extremes: 1.3G+1.5Wp". A state that is checked already, as a combination
/// of the model or of another envelope, is not repeated. `states` lists what stands for it. State 3
/// of combination 7 gets the number 7003; one that is taken or too large, the largest free number.
///
/// Call it once, when nothing more goes by the model as its file has it (`io::model_digest`).
/// @return which combination has more than `max_envelope_states` states, with its JSON path; the
///         model is then unchanged
std::optional<std::string> expand_envelopes(Model& model);

/// "7 Extremes: 1.3G+1.5Wp" for a state, "7" for a combination of the model.
std::string label_of(const Combination& combination);

/// Numbers by which the user may choose what is checked: design combinations, states, and what was
/// replaced by its states.
std::vector<Number> design_numbers(const Model& model);

/// The combinations to check for those named, each of `design_numbers`: themselves, or their
/// states.
std::set<Number> checked_combinations(const Model& model, std::span<const Number> named);

/// Design combinations that have two sides, whose forces need not act together.
/// @param wanted where to look for them; empty: everywhere
std::vector<Number> checked_by_extremes(const Model& model, const std::set<Number>& wanted);

}  // namespace aluframe::model
