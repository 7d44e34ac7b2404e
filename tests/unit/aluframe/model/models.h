#pragma once

#include <gtest/gtest.h>

#include <vector>

#include "aluframe/model/model.h"

namespace aluframe::model {

/// Factor × load case.
inline CombinationTerm of_case(Number number, double factor = 1.0) {
  return {CombinationTerm::Source::load_case, number, factor};
}

/// Factor × another combination.
inline CombinationTerm of_combination(Number number, double factor = 1.0) {
  return {CombinationTerm::Source::combination, number, factor};
}

inline Combination linear(Number number, std::vector<CombinationTerm> terms) {
  Combination combination;
  combination.number = number;
  combination.terms = std::move(terms);
  return combination;
}

inline Combination envelope(Number number, std::vector<CombinationTerm> terms) {
  Combination combination = linear(number, std::move(terms));
  combination.kind = CombinationKind::envelope;
  return combination;
}

inline LoadCase load_case(Number number, LoadCaseKind kind = LoadCaseKind::static_load) {
  LoadCase out;
  out.number = number;
  out.kind = kind;
  return out;
}

inline Element element(Number number, Number start, Number end) {
  Element out;
  out.number = number;
  out.nodes = {start, end};
  return out;
}

inline Node node(Number number, double x, double y, double z) {
  Node out;
  out.number = number;
  out.x = x;
  out.y = y;
  out.z = z;
  return out;
}

/// Axial force `n` at all five positions, or at the ends alone; other components 0.
inline CaseForces axial(float n, bool inner = true) {
  CaseForces forces;
  forces.inner = inner;
  for (std::size_t position = 0; position < forces.at.size(); ++position) {
    if (inner || position == 0 || position == 4) forces.at[position][0] = n;
  }
  return forces;
}

}  // namespace aluframe::model
