#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <vector>

#include "aluframe/model/initial_curvatures.h"
#include "aluframe/model/loads.h"
#include "aluframe/model/material.h"
#include "aluframe/model/project.h"
#include "aluframe/model/section.h"
#include "aluframe/model/serviceability.h"
#include "aluframe/model/settings.h"
#include "aluframe/model/structure.h"
#include "aluframe/model/table.h"
#include "aluframe/model/units.h"

namespace aluframe::model {

/// Forces per element and load case, by the places of both in their tables.
class ForceTable {
 public:
  void resize(std::size_t elements, std::size_t cases) {
    cases_ = cases;
    forces_.assign(elements * cases, {});
    given_.assign(elements * cases, 0);
  }
  /// @return false, with nothing changed, when the pair has forces already
  bool set(std::size_t element, std::size_t load_case, const CaseForces& forces) {
    const std::size_t place = element * cases_ + load_case;
    if (given_[place] != 0) return false;
    forces_[place] = forces;
    given_[place] = 1;
    return true;
  }
  /// Forces of the pair, or null when the model has none.
  const CaseForces* find(std::size_t element, std::size_t load_case) const {
    const std::size_t place = element * cases_ + load_case;
    return place < given_.size() && given_[place] != 0 ? &forces_[place] : nullptr;
  }
  /// Forces of an element, case by case; zeros where the model has none.
  const CaseForces* of_element(std::size_t element) const {
    return forces_.data() + element * cases_;
  }

  /// Of all pairs, element by element, and whether each is given (1).
  const std::vector<CaseForces>& forces() const { return forces_; }
  const std::vector<std::uint8_t>& given() const { return given_; }

  friend bool operator==(const ForceTable&, const ForceTable&) = default;

 private:
  std::size_t cases_ = 0;
  std::vector<CaseForces> forces_;
  std::vector<std::uint8_t> given_;  ///< 1 or 0; bytes, because single bits take longer to read
};

/// A frame with everything that its design check needs. Lengths in mm, forces in N, stresses in
/// N/mm², whatever the units of the file. A model that the reader returns is consistent: every
/// number that it refers to exists.
struct Model {
  std::string title;
  std::string description;
  Project project;
  Units units;  ///< the user's, for what is shown
  std::optional<DesignSettings> design;
  std::optional<FrameSettings> frame;
  AnalysisSettings analysis;
  Table<Material> materials;
  Table<Section> sections;
  Table<Node> nodes;
  std::vector<Support> supports;
  Table<Element> elements;
  Table<Member> members;
  /// The file names no members: those that belong together are to be found (members::complete).
  /// What was found stays out of the file when the model is written.
  bool finds_members = false;
  ServiceabilityLimits serviceability;
  int moving_load_code = 0;  ///< code that the moving loads follow, one of `moving_load_codes`
  Table<LoadCase> load_cases;
  Table<Combination> combinations;
  /// By which the file has some of them made (`Combination::by_rule`).
  std::optional<CombinationRule> combination_rule;
  Envelopes envelopes = Envelopes::states;
  ForceTable forces;
  /// Forces of combinations that were analysed on their own, in place of what their load cases add
  /// up to; by element and `side_place` of the combination.
  ForceTable combined_forces;
  /// What elements are bowed by in such a combination before it loads them, by its place; those
  /// with two sides have nothing. Empty without imperfections.
  std::vector<InitialCurvatures> combined_curvatures;
};

/// Place of a combination's side (0 maximum, 1 minimum) in the table of combined forces. One with a
/// single side has the maximum only.
constexpr std::size_t side_place(std::size_t combination, std::size_t side) {
  return 2 * combination + side;
}

}  // namespace aluframe::model
