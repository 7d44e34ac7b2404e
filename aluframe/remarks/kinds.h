#pragma once

#include <optional>

#include "aluframe/model/members.h"
#include "aluframe/remarks/effective_area.h"
#include "aluframe/remarks/remarks.h"

namespace aluframe::remarks {

/// What the kinds of remarks look at, formed once.
struct Subject {
  const model::Model& model;
  const std::vector<members::SegmentFactors>& factors;
  model::Connectivity connectivity;
  EffectiveAreas areas;
};

// Every kind of remark: nothing where it does not apply.

/// W1: heat-affected strips wider than the plates have room for.
std::optional<Remark> wide_strips(Subject& subject);
/// W5: a welded section that counts with more than its gross area although its strips fit.
std::optional<Remark> area_above_gross(Subject& subject);
/// F8: welded sections of materials whose welds take nothing off.
std::optional<Remark> welds_without_loss(Subject& subject);
/// B11: plates that are over their limit without the ribs that they are taken to have.
std::optional<Remark> assumed_ribs(Subject& subject);
/// B12: slender plates of shapes that the checks do not judge for local buckling.
std::optional<Remark> unjudged_plates(Subject& subject);
/// B2: webs of H and box sections over their limit in bending, and those to look at for shear.
std::optional<Remark> slender_webs(Subject& subject);
/// S15: columns that nothing keeps from swaying, their length factor at its bound.
std::optional<Remark> factor_at_bound(Subject& subject);
/// S15: columns and braces with K = 1 because the model has no supports.
std::optional<Remark> factor_without_supports(Subject& subject);
/// S6: ends within the frame that count as free.
std::optional<Remark> free_ends(Subject& subject);
/// truss: loads that would bend trusses.
std::optional<Remark> bent_trusses(Subject& subject);
/// cases: loaded cases that no checked combination contains.
std::optional<Remark> unused_cases(Subject& subject);
/// F12: weld coefficients, which no check reads.
std::optional<Remark> unread_weld_coefficients(Subject& subject);
/// S4: stability coefficients above 1.
std::optional<Remark> coefficients_above_one(Subject& subject);
/// S4: open sections whose lateral-torsional buckling a coefficient of 1 switches off.
std::optional<Remark> lateral_buckling_off(Subject& subject);

/// Whether lateral-torsional buckling lowers the strength of a shape: all but boxes, pipes and
/// solid rounds, and what the checks do not cover.
inline bool is_open(model::Shape shape) {
  using model::Shape;
  return shape == Shape::channel || shape == Shape::h_section || shape == Shape::tee ||
         shape == Shape::double_channel;
}

}  // namespace aluframe::remarks
