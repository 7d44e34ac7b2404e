#include "aluframe/second_opinion/member_extremes.h"

#include <algorithm>
#include <cmath>

#include "aluframe/model/force_component.h"

namespace aluframe::second_opinion {

namespace {

using model::about_y;
using model::about_z;

constexpr std::size_t position_count = 5;
/// Rounding of forces to single precision stays far below it.
constexpr double straight = 1e-3;

template <class Act>
void for_each_position(const model::CaseForces& forces, Act act) {
  const std::size_t step = forces.inner ? 1 : position_count - 1;
  for (std::size_t i = 0; i < position_count; i += step) act(forces.at[i]);
}

double moment(const model::SectionForces& at, std::size_t component) {
  return static_cast<double>(at[component]);
}

/// The moment diagram of an element is no straight line.
bool is_curved(const model::CaseForces& forces, std::size_t component) {
  if (!forces.inner) return false;
  double largest = 0.0;
  for_each_position(forces, [&](const model::SectionForces& at) {
    largest = std::max(largest, std::fabs(moment(at, component)));
  });
  const double chord = (moment(forces.at[0], component) + moment(forces.at[4], component)) / 2.0;
  return std::fabs(moment(forces.at[2], component) - chord) > straight * largest;
}

bool has_span_moments(const LargestForces& largest, const model::SectionForces& start,
                      const model::SectionForces& end) {
  const auto ends = [&](std::size_t component) {
    return std::max(std::fabs(moment(start, component)), std::fabs(moment(end, component)));
  };
  const double my = std::max(largest.my_max, -largest.my_min);
  return my > (1.0 + straight) * ends(about_y) || largest.mz > (1.0 + straight) * ends(about_z);
}

/// Equivalent moments about both axes of a member that restraints part.
class BothAxes {
 public:
  explicit BothAxes(const PartedElements& parted) : parted_(parted) {}

  void add(const model::CaseForces& forces, model::Number element, bool is_reversed) {
    const auto found = parted_.find(element);
    if (found == parted_.end()) return;
    const PartedElement& of = found->second;
    y_.add(forces, about_y, of.at[0], of.sign[0], is_reversed);
    z_.add(forces, about_z, of.at[1], of.sign[1], is_reversed);
  }
  std::array<double, 2> largest() { return {y_.largest(), z_.largest()}; }

 private:
  const PartedElements& parted_;
  PieceMoments y_, z_;
};

}  // namespace

std::array<double, 2> LargestForces::piece_factors() const {
  const std::array<double, 2> moments{std::max(my_max, -my_min), mz};
  std::array<double, 2> factors{};
  for (std::size_t i = 0; i < factors.size(); ++i) {
    if (moments[i] > 0.0) factors[i] = std::min(1.0, piece_moments[i] / moments[i]);
  }
  return factors;
}

bool MemberExtremes::is_alike(const model::Element& a, const model::Element& b) const {
  if (a.section == b.section && a.material == b.material) return true;
  const auto same = [](auto of_a, const auto& of_b) {
    // Another number or name makes no other section or alloy.
    of_a.number = of_b.number;
    of_a.name = of_b.name;
    return of_a == of_b;
  };
  const auto* section_a = model_.sections.find(a.section);
  const auto* section_b = model_.sections.find(b.section);
  const auto* material_a = model_.materials.find(a.material);
  const auto* material_b = model_.materials.find(b.material);
  if (!section_a || !section_b || !material_a || !material_b) return false;
  return same(*section_a, *section_b) && same(*material_a, *material_b);
}

LargestForces MemberExtremes::gather(const MemberChain& member, std::size_t element,
                                     model::Number combination, model::Side side) const {
  const model::Element& asked = model_.elements[element];
  LargestForces largest;
  model::SectionForces start{}, end{};
  bool curved = false;
  BothAxes pieces(parted_);
  for (std::size_t i = 0; i < member.elements.size(); ++i) {
    const model::Element& other = model_.elements[member.elements[i]];
    const auto forces = evaluator_.evaluate(member.elements[i], combination, side);
    if (!forces) continue;
    const std::size_t first = member.reversed[i] ? position_count - 1 : 0;
    if (i == 0) start = forces->at[first];
    if (i + 1 == member.elements.size()) end = forces->at[position_count - 1 - first];
    curved = curved || is_curved(*forces, about_y) || is_curved(*forces, about_z);
    pieces.add(*forces, other.number, member.reversed[i]);
    if (!is_alike(other, asked)) continue;
    for_each_position(*forces, [&](const model::SectionForces& at) { largest.add(at); });
  }
  largest.has_span_moments = curved || has_span_moments(largest, start, end);
  largest.piece_moments = pieces.largest();
  return largest;
}

void MemberExtremes::finished_element(const MemberChain& member) {
  const auto known = known_.find(member.elements.front());
  if (known == known_.end()) return;
  if (++known->second.elements_done >= member.elements.size()) known_.erase(known);
}

LargestForces MemberExtremes::of(const MemberChain& member, std::size_t element,
                                 model::Number combination, model::Side side,
                                 const model::CaseForces& own) {
  if (member.elements.size() < 2) {
    LargestForces largest;
    for_each_position(own, [&](const model::SectionForces& at) { largest.add(at); });
    largest.has_span_moments = is_curved(own, about_y) || is_curved(own, about_z) ||
                               has_span_moments(largest, own.at[0], own.at[position_count - 1]);
    BothAxes pieces(parted_);
    pieces.add(own, model_.elements[element].number, member.reversed.front());
    largest.piece_moments = pieces.largest();
    return largest;
  }
  const int side_number = side == model::Side::minimum ? 1 : 0;
  const model::Element& asked = model_.elements[element];
  Known& known = known_[member.elements.front()];
  const Key key{combination, side_number, asked.section, asked.material};
  auto found = known.forces.find(key);
  if (found == known.forces.end()) {
    found = known.forces.emplace(key, gather(member, element, combination, side)).first;
  }
  return found->second;
}

}  // namespace aluframe::second_opinion
