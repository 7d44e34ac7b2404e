#include "aluframe/members/length_factors.h"

#include <cmath>

#include "aluframe/members/buckling_line.h"
#include "aluframe/members/chart_equations.h"
#include "aluframe/members/end_restraint.h"
#include "aluframe/members/restraining_bar.h"

namespace aluframe::members {

namespace {

using Given = std::optional<model::ElementDesign::AxisPair>;

/// A direction has a part along a global axis when it is more than 0.01° off square to it.
constexpr double square_limit = 1.75e-4;

/// Whether the frame's bracing holds what moves along a direction.
bool is_braced_along(const model::Model& model, const Eigen::Vector3d& direction) {
  const model::FrameSettings frame = model.frame.value_or(model::FrameSettings{});
  const bool moves_along_x = std::abs(direction.x()) > square_limit;
  const bool moves_along_y = std::abs(direction.y()) > square_limit;
  return (frame.braced_a || !moves_along_x) && (frame.braced_b || !moves_along_y);
}

/// Whether an end moves because nothing but the stretch itself holds it along a direction. Bracing,
/// which the model does not show, holds what stands on a column, but no bare tip.
bool is_tip(const Stretches& stretches, const ElementEnd& at, const Eigen::Vector3d& direction) {
  if (is_free_end(stretches, at, direction)) return true;
  const model::Model& model = stretches.model();
  const bool is_braced =
      is_upright(model, model.elements[at.element], stretches.geometry(at.element)) &&
      is_braced_along(model, direction);
  return stretches.is_carried(at) && !is_braced;
}

/// Whether a stretch sways when it buckles about an axis, its ends moving along a direction.
bool sways(const Stretches& stretches, const Stretch& stretch, Axis axis,
           const Eigen::Vector3d& direction) {
  const model::Model& model = stretches.model();
  const std::size_t first = stretch.elements.front();
  if (!is_upright(model, model.elements[first], stretches.geometry(first))) return false;
  if (is_braced_along(model, direction)) return false;
  // A diagonal on hinges is no leg: it could not stand.
  const bool is_leg = model::member_type(model, model.elements[first]) != model::MemberType::column;
  if (is_leg && is_released(stretches, stretch.ends[0], axis) &&
      is_released(stretches, stretch.ends[1], axis)) {
    return false;
  }
  return !is_held_along(stretches, stretch.ends[0], direction) ||
         !is_held_along(stretches, stretch.ends[1], direction);
}

LengthFactor computed(const Stretches& stretches, const Stretch& stretch, Axis axis) {
  const Axis other = axis == Axis::y ? Axis::z : Axis::y;
  const std::size_t first = stretch.elements.front();
  const Eigen::Vector3d moves = stretches.direction(first, other);
  const model::Model& model = stretches.model();
  const bool may_sway = is_upright(model, model.elements[first], stretches.geometry(first)) &&
                        !is_braced_along(model, moves);
  const Stretch line =
      line_of(stretches, stretch, axis, may_sway ? Meeting::without_hold : Meeting::none);
  Buckling buckling = Buckling::non_sway;
  LengthFactor factor{.k = 1.0, .source = FactorSource::non_sway};
  if (is_tip(stretches, line.ends[0], moves) || is_tip(stretches, line.ends[1], moves)) {
    buckling = Buckling::cantilever;
    factor.source = FactorSource::cantilever;
  } else if (sways(stretches, line, axis, moves)) {
    buckling = Buckling::sway;
    factor.source = FactorSource::sway;
  }
  for (const std::size_t end : {0U, 1U}) {
    factor.g[end] = end_ratio(stretches, line, end, axis, buckling);
  }
  const auto solve = buckling == Buckling::non_sway ? non_sway_factor : sway_factor;
  factor.k = solve(factor.g[0], factor.g[1]) * line.length / stretch.length;
  return factor;
}

bool is_truss(const model::Model& model, const Stretch& stretch) {
  const model::Element& first = model.elements[stretch.elements.front()];
  return first.kind == model::ElementKind::truss ||
         model::member_type(model, first) == model::MemberType::truss;
}

void take(const model::ElementDesign::AxisPair& given, FactorSource source, StretchFactors& out) {
  out.y = {.k = given.y, .source = source};
  out.z = {.k = given.z, .source = source};
}

void find_factors(const Stretches& stretches, const Stretch& stretch, StretchFactors& out) {
  const model::Model& model = stretches.model();
  const Given none;
  const Given& own = stretch.elements.size() == 1
                         ? model.elements[stretch.elements.front()].design.length_factors
                         : none;
  const bool is_one = model.frame && model.frame->length_factors == model::LengthFactors::one;
  if (own) {
    take(*own, FactorSource::given_element, out);
  } else if (stretch.member != nullptr && stretch.member->length_factors) {
    take(*stretch.member->length_factors, FactorSource::given_member, out);
  } else if (is_one) {
    take({.y = 1.0, .z = 1.0}, FactorSource::one, out);
  } else if (model.supports.empty()) {
    take({.y = 1.0, .z = 1.0}, FactorSource::no_supports, out);
  } else if (is_truss(model, stretch)) {
    take({.y = 1.0, .z = 1.0}, FactorSource::truss, out);
  } else {
    out.y = computed(stretches, stretch, Axis::y);
    out.z = computed(stretches, stretch, Axis::z);
  }
}

}  // namespace

std::string_view name_of(FactorSource source) {
  constexpr std::string_view names[] = {"given (element)", "given (member)", "one",  "no supports",
                                        "truss",           "non-sway",       "sway", "cantilever"};
  return names[static_cast<std::size_t>(source)];
}

std::vector<StretchFactors> length_factors(const model::Model& model) {
  const Stretches stretches(model);
  std::vector<StretchFactors> all;
  all.reserve(stretches.all().size());
  for (const Stretch& stretch : stretches.all()) {
    StretchFactors factors{
        .member = {}, .elements = {}, .length = stretch.length, .y = {}, .z = {}};
    if (stretch.member != nullptr) factors.member = stretch.member->number;
    for (const std::size_t place : stretch.elements) {
      factors.elements.push_back(model.elements[place].number);
    }
    find_factors(stretches, stretch, factors);
    all.push_back(std::move(factors));
  }
  return all;
}

}  // namespace aluframe::members
