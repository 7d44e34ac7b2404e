#pragma once

#include <string>
#include <vector>

#include "aluframe/model/model.h"

// What entities of a model have, in one line each. Lines with words in them are kept sentences,
// English; the others are the same in every language.

namespace aluframe::tables {

/// With as few digits as tell it apart among those of its kind: "0.405", "70000".
std::string short_value(double value);

/// "Dx, Dy, Dz"; empty: nothing is held rigidly.
std::string restraints_text(const model::Support& support);
/// "Dz 250 kN/m, Rx 40 kN·m/rad"; empty without springs.
std::string springs_text(const model::Support& support, const model::Units& units);

/// "start: My, Mz; end: Mz", a kept sentence; empty without releases.
std::string releases_text(const model::Element& element);
/// "z towards node 7, β 30°", a kept sentence; empty where the rule for all elements holds.
std::string orientation_text(const model::Element& element);

/// "H 150, B 60, tw 3", of dimensions that are not 0.
std::string dimensions_text(const model::Section& section, model::LengthUnit unit);

/// "1.3 LC1 + 1.5 C2", LC a load case and C a combination; of an envelope "1.3 LC1; 1.5 C2".
std::string terms_text(const model::Combination& combination);

/// "1-3, 7, 5": numbers in their order, as those of a member from its start to its end.
std::string in_order_text(const std::vector<model::Number>& numbers);

}  // namespace aluframe::tables
