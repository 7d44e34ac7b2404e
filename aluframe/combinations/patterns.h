#pragma once

#include <optional>
#include <variant>
#include <vector>

#include "aluframe/combinations/acting_units.h"

/// What each type of combination makes of the units: factors that those have which always act, and
/// factors of the others when they lead and when they accompany.
namespace aluframe::combinations {

enum class Role { permanent, favourable, gravity, accidental, leading, accompanying };

/// A factor ψ·γ and what an action is with it.
struct Factor {
  double psi = 1.0;
  double gamma = 1.0;
  Role role = Role::permanent;

  double value() const;  ///< to 12 digits, so that 0.7·1.5 is 1.05
};

/// A unit that always acts, with one of some factors.
struct Standing {
  std::size_t unit = 0;
  std::vector<Factor> factors;
};

/// A unit that may act.
struct Movable {
  std::size_t unit = 0;
  std::optional<Factor> leading;       ///< nothing: cannot lead
  std::optional<Factor> accompanying;  ///< nothing: only leads
  bool needs_leader = true;            ///< accompanies only where another leads
  bool must_act = false;               ///< unless one that it excludes acts
};

struct Pattern {
  std::vector<Standing> standing;
  std::vector<Movable> movable;
  bool must_lead = false;  ///< there is none without a leading action
};

/// The patterns of a type; none when the model has no action that it is about. A fault when the
/// table has no number that it needs.
/// @param units their indices are the ones of the patterns
std::variant<std::vector<Pattern>, Fault> patterns_of(model::CombinationType type,
                                                      const std::vector<ActingUnit>& units,
                                                      const Rule& rule,
                                                      const model::CombinationRule& wanted,
                                                      const model::Model& model);

}  // namespace aluframe::combinations
