#include "aluframe/second_opinion/run_opinion.h"

#include <algorithm>
#include <array>
#include <cmath>
#include <utility>

#include "aluframe/model/force_component.h"
#include "aluframe/model/meeting.h"
#include "aluframe/section/section_properties.h"
#include "aluframe/services/run_monitor.h"
#include "tz_alu/manager/dgnaludatamgr.h"

namespace aluframe::second_opinion {

namespace {

constexpr std::size_t last_position = kCheckPositions - 1;

model::Side side_of(int min_side) {
  return min_side != 0 ? model::Side::minimum : model::Side::maximum;
}

/// The member that the module checks the element in.
MemberChain chain_of(const model::Model& model, std::uint32_t element) {
  IAluDgnDataMgr& manager = *IAluDgnDataMgr::Instance();
  MemberChain chain;
  const ALU_DGN_MEMB* member = manager.GetMembInfo(element);
  if (member == nullptr || member->aElem.GetSize() < 2) {
    chain.elements = {model.elements.position(element)};
    chain.reversed = {false};
    return chain;
  }
  for (const UINT number : member->aElem) {
    chain.elements.push_back(model.elements.position(number));
    chain.reversed.push_back(manager.IsReverseToMemb(number) != 0);
  }
  return chain;
}

}  // namespace

/// The element being checked.
struct RunOpinion::Current {
  std::uint32_t number = 0;
  std::size_t place = 0;
  double length = 0.0;
  MemberChain chain;
  std::optional<ElementOpinion> opinion;  ///< nothing: its design data cannot be had
  std::array<bool, kCheckPositions> is_end{};
  std::vector<forces::Weights> weights;
  ElementSafe worst;
  bool any = false;
};

RunOpinion::RunOpinion(const model::Model& model, const forces::ComputedPairs& computed,
                       RestrainedMembers restrained)
    : model_(model),
      restrained_(std::move(restrained)),
      evaluator_(model),
      connectivity_(model),
      extremes_(model, evaluator_, restrained_.parted),
      inner_(model, computed) {
  for (const auto& [element, load_case] : inner_.unknown()) {
    // Forces of two ends alone are a matter of their own, known before the run.
    if (!model.forces.find(element, load_case)->inner) continue;
    result_.unknown_between.emplace_back(element, load_case);
  }
  for (const auto& [element, load_case] : inner_.estimated()) {
    result_.estimated_between.emplace_back(element, load_case);
  }
  is_seismic_.reserve(model.combinations.size());
  for (const model::Combination& combination : model.combinations) {
    is_seismic_.push_back(evaluator_.is_seismic(combination.number));
  }
}

RunOpinion::~RunOpinion() = default;

ElementFacts RunOpinion::facts_of(const MemberChain& chain, const model::Element& element) const {
  std::vector<model::Number> numbers;
  for (const std::size_t place : chain.elements) {
    numbers.push_back(model_.elements[place].number);
  }
  const auto is_held = [&](std::size_t i, bool start) {
    const bool first_node = start != chain.reversed[i];
    const model::Number node = model_.elements[chain.elements[i]].nodes[first_node ? 0 : 1];
    return model::meets_others(model_, connectivity_, node, numbers, model::Meeting::beams);
  };
  const model::Section& section = *model_.sections.find(element.section);
  const auto restrained = restrained_.phi_b.find(element.number);
  return {.shear_centre_y = section::properties_of(section).shear_centre_y,
          .end_is_held = {is_held(0, true), is_held(chain.elements.size() - 1, false)},
          .restrained_phi_b = restrained == restrained_.phi_b.end()
                                  ? std::nullopt
                                  : std::optional(restrained->second)};
}

void RunOpinion::start(std::uint32_t number) {
  current_ = std::make_unique<Current>();
  Current& current = *current_;
  current.number = number;
  current.place = model_.elements.position(number);
  current.chain = chain_of(model_, number);
  IAluDgnDataMgr& manager = *IAluDgnDataMgr::Instance();
  ALU_DGN_DATA data;
  if (manager.GetDgnData(number, data) == 0) return;
  const model::Element& element = model_.elements[current.place];
  current.length = model::element_length(model_, element);
  const ElementOpinion& opinion =
      current.opinion.emplace(engine_, data, facts_of(current.chain, element));
  for (int p = 0; p < kCheckPositions; ++p) {
    current.is_end[static_cast<std::size_t>(p)] = manager.IsEndSectCal(number, p) == 1;
  }
  const UnitStresses& units = opinion.units();
  for (const double bending : units.bending_y) {
    current.weights.push_back(
        {units.axial, bending, units.bending_z, units.shear_y, units.shear_z, units.torsion});
  }
  for (const LateralUnit& unit : units.lateral[0]) {
    if (std::isfinite(unit.safe)) current.weights.push_back({0.0, unit.safe, units.bending_z});
  }
}

void RunOpinion::checked(std::uint32_t element, std::uint32_t combination, int min_side,
                         const T_RALU_D& record) {
  if (current_ == nullptr || current_->number != element) start(element);
  if (combination == 0) return finish(record);
  std::optional<ElementOpinion>& known = current_->opinion;
  if (!known) return;
  ElementOpinion& opinion = *known;
  const auto forces = evaluator_.evaluate(current_->place, combination, side_of(min_side));
  if (!forces) return;
  const Place place{element, combination, min_side, std::nullopt};
  end_ = end_moments(place, *forces);
  ask_positions(opinion, place, *forces, record);
  ask_between(opinion, place, *forces);
  ask_member(opinion, place, *forces);
}

AluDgnEndForce RunOpinion::end_moments(const Place& place, const model::CaseForces& own) const {
  const MemberChain& chain = current_->chain;
  const auto moments = [&](std::size_t i, bool start) -> std::array<double, 2> {
    const std::size_t position = start != chain.reversed[i] ? 0 : last_position;
    const bool is_own = chain.elements[i] == current_->place;
    const auto other =
        is_own ? std::optional(own)
               : evaluator_.evaluate(chain.elements[i], place.combination, side_of(place.min_side));
    if (!other) return {};
    return {static_cast<double>(other->at[position][model::about_y]),
            static_cast<double>(other->at[position][model::about_z])};
  };
  const auto first = moments(0, true);
  const auto last = moments(chain.elements.size() - 1, false);
  AluDgnEndForce end;
  end.dMyI = first[0];
  end.dMzI = first[1];
  end.dMyJ = last[0];
  end.dMzJ = last[1];
  return end;
}

AluDgnSectForce RunOpinion::section_force(const Place& place) const {
  AluDgnSectForce force;
  force.nLComb = MakeLcombKey(place.combination, place.min_side);
  force.nSesiType = is_seismic_[model_.combinations.position(place.combination)] ? 1 : 0;
  force.end = end_;
  return force;
}

void RunOpinion::ask_positions(ElementOpinion& opinion, const Place& place,
                               const model::CaseForces& forces, const T_RALU_D& record) {
  AluDgnSectForce force = section_force(place);
  Place here = place;
  const std::size_t step = forces.inner ? 1 : last_position;
  for (std::size_t p = 0; p < kCheckPositions; p += step) {
    std::ranges::copy(forces.at[p], force.dForce);
    force.nPos = static_cast<std::int32_t>(p);
    force.bEndSect = current_->is_end[p] ? 1 : 0;
    here.fraction = static_cast<double>(p) / static_cast<double>(last_position);
    const T_RALU_SECT& code = record.aSect[p];
    keep(opinion.at(force, code), here);
    unchecked_.note(here, PlaceKind::position, opinion, force, code);
  }
}

void RunOpinion::ask_between(ElementOpinion& opinion, const Place& place,
                             const model::CaseForces& forces) {
  places_.clear();
  if (!inner_.has_peaks(current_->place)) return;
  AluDgnSectForce force = section_force(place);
  ask_for_torsion_above(opinion.least_torsion_stress(force, unchecked_.worst_torsion()));
  inner_.peaks(current_->place, place.combination, side_of(place.min_side), forces,
               current_->weights, places_);
  Place here = place;
  for (const forces::PlaceForces& at : places_) {
    std::ranges::copy(at.forces, force.dForce);
    here.fraction = at.fraction;
    const T_RALU_SECT code = opinion.checks_of(force);
    SafeRatio ratio = opinion.at(force, code);
    ratio.rules = ratio.rules | Rule::between;
    keep(ratio, here);
    unchecked_.note(here, PlaceKind::between, opinion, force, code);
  }
}

/// Of torsion a run tells the worst ratio alone, so that peaks below it need not be looked for.
void RunOpinion::ask_for_torsion_above(double stress) {
  for (forces::Weights& weights : current_->weights) weights.least_torsion = stress;
}

/// Of the axes about which the element at hand has the length of a piece.
std::array<double, 2> RunOpinion::piece_factors(const LargestForces& largest) const {
  const auto parted = restrained_.parted.find(current_->number);
  if (parted == restrained_.parted.end()) return {};
  std::array<double, 2> factors = largest.piece_factors();
  for (std::size_t axis = 0; axis < factors.size(); ++axis) {
    if (!parted->second.is_shortened[axis]) factors[axis] = 0.0;
  }
  return factors;
}

void RunOpinion::ask_member(ElementOpinion& opinion, const Place& place,
                            const model::CaseForces& forces) {
  LargestForces largest = extremes_.of(current_->chain, current_->place, place.combination,
                                       side_of(place.min_side), forces);
  for (const forces::PlaceForces& at : places_) largest.add(at.forces);
  if (!(largest.n < 0.0)) return;
  AluDgnSectForce force = section_force(place);
  force.dForce[ALU_FORCE_N] = largest.n;
  force.dForce[ALU_FORCE_MZ] = largest.mz;
  const std::array<double, 2> factors = piece_factors(largest);
  const auto ask = [&](double my) {
    force.dForce[ALU_FORCE_MY] = my;
    keep(opinion.of_member(force, largest.has_span_moments, factors), place);
  };
  if (!opinion.is_unsymmetric()) return ask(std::max(largest.my_max, -largest.my_min));
  ask(largest.my_max);
  if (largest.my_min < 0.0) ask(largest.my_min);
}

void RunOpinion::keep(const SafeRatio& ratio, const Place& place) {
  if (!ratio.any) return;
  ElementSafe& worst = current_->worst;
  const bool first = !std::exchange(current_->any, true);
  // What is not finite is worse than anything, and stays.
  const bool worse = std::isfinite(worst.safe) &&
                     (!std::isfinite(ratio.safe) || ratio.safe > worst.safe * (1.0 + 1e-9));
  if (!first && !worse) return;
  worst.safe = ratio.safe;
  worst.item = ratio.item;
  worst.rules = ratio.rules;
  worst.place = place;
  worst.from_start = place.fraction.value_or(0.0) * current_->length;
}

RunFound RunOpinion::result() const {
  RunFound out = result_;
  out.unchecked = unchecked_.kinds();
  return out;
}

void RunOpinion::finish(const T_RALU_D& governing) {
  extremes_.finished_element(current_->chain);
  last_ = {std::nullopt, unchecked_.finish_element()};
  const std::unique_ptr<Current> done = std::move(current_);
  if (!done->any) return;
  std::optional<double>& code = done->worst.code;
  for (const T_RALU_ITEM& check : governing.aComp) {
    if (!services::was_judged(check.dDemand, check.dCapacity)) continue;
    const double ratio = std::isfinite(check.dDemand) ? check.Ratio() : check.dDemand;
    if (!code || !std::isfinite(ratio) || ratio > *code) code = ratio;
    if (!std::isfinite(ratio)) break;
  }
  last_.safe = done->worst;
}

}  // namespace aluframe::second_opinion
