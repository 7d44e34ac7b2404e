#pragma once

#include <array>
#include <optional>
#include <string>
#include <variant>
#include <vector>

#include "aluframe/model/case_loads.h"
#include "aluframe/model/combination_rule.h"
#include "aluframe/model/table.h"

namespace aluframe::model {

enum class LoadCaseKind {
  static_load,
  seismic_static,
  response_spectrum,
  eccentric_spectrum,  ///< response spectrum with accidental eccentricity
  time_history,
  moving,
  settlement,
  crane
};

/// Codes of moving loads that the contract knows; 0: none.
inline constexpr std::array moving_load_codes{0,  1,  2,  3,  4,  5,  6,  7,  8,  9,
                                              10, 11, 12, 13, 14, 15, 16, 18, 100};

struct LoadCase {
  Number number = 0;
  std::string name;
  LoadCaseKind kind = LoadCaseKind::static_load;
  CaseLoads loads;
  /// For combinations made by rule; nothing: not said.
  std::optional<Action> action = std::nullopt;

  friend bool operator==(const LoadCase&, const LoadCase&) = default;
};

enum class CombinationKind {
  linear,   ///< sum of the terms
  envelope  ///< extremes of the terms
};

/// By what design combinations that are or contain envelopes are checked.
enum class Envelopes {
  states,   ///< each set of loads that they contain on its own (model::expand_envelopes)
  extremes  ///< largest and smallest value of each force component, which need not act together
};

/// A load case or another combination, times a factor.
struct CombinationTerm {
  enum class Source { load_case, combination };
  Source source = Source::load_case;
  Number number = 0;
  double factor = 1.0;

  friend bool operator==(const CombinationTerm&, const CombinationTerm&) = default;
};

struct Combination {
  Number number = 0;
  std::string name;
  CombinationKind kind = CombinationKind::linear;
  std::vector<CombinationTerm> terms;
  bool seismic = false;  ///< marked seismic by the user, whatever its cases are
  bool design = true;    ///< elements are checked for it; false: only a part of others
  /// Displacements are looked at and limited under it, whatever `design` is.
  bool serviceability = false;
  /// The combination that it is a state of (model::expand_envelopes); nothing: one of the file.
  std::optional<Number> state_of = std::nullopt;
  /// The design combinations by which it is checked in its place; empty: it was not expanded.
  std::vector<Number> states = {};
  bool by_rule = false;  ///< made by the rule of the model, not written in its file

  friend bool operator==(const Combination&, const Combination&) = default;
};

/// N, Fy, Fz, Mx, My, Mz in N and N·mm, local axes; N > 0 is tension.
using SectionForces = std::array<float, 6>;

/// Forces of one element in one load case: at the two ends, or at five positions (0, ¼, ½, ¾, 1 of
/// the length).
struct CaseForces {
  std::array<SectionForces, 5> at{};
  bool inner = false;  ///< positions 1 to 3 are given too

  friend bool operator==(const CaseForces&, const CaseForces&) = default;
};

}  // namespace aluframe::model
