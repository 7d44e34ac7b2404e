#include "aluframe/members/length_factors.h"

#include <algorithm>
#include <cmath>

#include "aluframe/members/chart_equations.h"
#include "aluframe/members/chart_scope.h"
#include "aluframe/members/collinear_run.h"
#include "aluframe/members/end_restraint.h"
#include "aluframe/members/mode_lengths.h"
#include "aluframe/members/restraining_bar.h"
#include "aluframe/texts/text.h"

namespace aluframe::members {

namespace {

using Given = std::optional<model::ElementDesign::AxisPair>;

/// A direction has a part along a global axis when it is more than 0.01° off square to it.
constexpr double square_limit = 1.75e-4;

/// Whether the frame's bracing restrains translation along a direction.
bool is_braced_along(const model::Model& model, const Eigen::Vector3d& direction) {
  const model::FrameSettings frame = model.frame.value_or(model::FrameSettings{});
  const bool moves_along_x = std::abs(direction.x()) > square_limit;
  const bool moves_along_y = std::abs(direction.y()) > square_limit;
  return (frame.braced_a || !moves_along_x) && (frame.braced_b || !moves_along_y);
}

/// Whether an end moves because nothing but the segment itself restrains it along a direction.
/// Bracing, which the model does not show, restrains what stands on a column, but no bare tip.
bool is_tip(const MemberSegments& segments, const ElementEnd& at,
            const Eigen::Vector3d& direction) {
  if (is_free_end(segments, at, direction)) return true;
  const model::Model& model = segments.model();
  const bool is_braced =
      is_upright(model, model.elements[at.element], segments.geometry(at.element)) &&
      is_braced_along(model, direction);
  return segments.is_cantilever_end(at) && !is_braced;
}

/// Whether a segment sways when it buckles about an axis, its ends moving along a direction.
bool sways(const MemberSegments& segments, const MemberSegment& segment, Axis axis,
           const Eigen::Vector3d& direction) {
  const model::Model& model = segments.model();
  const std::size_t first = segment.elements.front();
  if (!is_upright(model, model.elements[first], segments.geometry(first))) return false;
  if (is_braced_along(model, direction)) return false;
  // A diagonal on hinges is no leg: it could not stand.
  const bool is_leg = model::member_type(model, model.elements[first]) != model::MemberType::column;
  if (is_leg && is_released(segments, segment.ends[0], axis) &&
      is_released(segments, segment.ends[1], axis)) {
    return false;
  }
  return !is_restrained_along(segments, segment.ends[0], direction) ||
         !is_restrained_along(segments, segment.ends[1], direction);
}

LengthFactor by_chart(const MemberSegments& segments, const MemberSegment& segment, Axis axis) {
  const Axis other = axis == Axis::y ? Axis::z : Axis::y;
  const std::size_t first = segment.elements.front();
  const Eigen::Vector3d moves = segments.direction(first, other);
  const model::Model& model = segments.model();
  const bool may_sway = is_upright(model, model.elements[first], segments.geometry(first)) &&
                        !is_braced_along(model, moves);
  const MemberSegment run =
      collinear_run(segments, segment, axis, may_sway ? Meeting::without_restraint : Meeting::none);
  Buckling buckling = Buckling::non_sway;
  LengthFactor factor{.k = 1.0, .source = FactorSource::non_sway};
  if (is_tip(segments, run.ends[0], moves) || is_tip(segments, run.ends[1], moves)) {
    buckling = Buckling::cantilever;
    factor.source = FactorSource::cantilever;
  } else if (sways(segments, run, axis, moves)) {
    buckling = Buckling::sway;
    factor.source = FactorSource::sway;
  }
  for (const std::size_t end : {0U, 1U}) {
    factor.g[end] = end_ratio(segments, run, end, axis, buckling);
  }
  const auto solve = buckling == Buckling::non_sway ? non_sway_factor : sway_factor;
  factor.k = solve(factor.g[0], factor.g[1]) * run.length / segment.length;
  return factor;
}

bool is_truss(const model::Model& model, const MemberSegment& segment) {
  const model::Element& first = model.elements[segment.elements.front()];
  return first.kind == model::ElementKind::truss ||
         model::member_type(model, first) == model::MemberType::truss;
}

void take(const model::ElementDesign::AxisPair& given, FactorSource source, SegmentFactors& out) {
  out.y = {.k = given.y, .source = source};
  out.z = {.k = given.z, .source = source};
}

/// A factor that the model does not give.
LengthFactor chosen(const MemberSegments& segments, const MemberSegment& segment, Axis axis,
                    const std::optional<ModeLength>& mode) {
  const model::FrameSettings frame = segments.model().frame.value_or(model::FrameSettings{});
  LengthFactor factor = by_chart(segments, segment, axis);
  factor.objection = chart_objection(segments, segment, axis).value_or("");
  if (factor.objection.empty() && is_at_bound(factor)) {
    factor.objection = texts::translatable("nothing at its ends resists its sway");
  }
  const bool asks = frame.length_factors == model::LengthFactors::buckling;
  if (!mode || (factor.objection.empty() && !asks)) return factor;
  // Another mode may lie between the first of the loads and one far from it.
  if (!mode->is_near && mode->k < factor.k) return factor;
  factor.k = mode->k;
  factor.source = FactorSource::mode;
  return factor;
}

void find_factors(const MemberSegments& segments, const MemberSegment& segment,
                  const SegmentModeLengths& modes, SegmentFactors& out) {
  const model::Model& model = segments.model();
  const Given none;
  const Given& own = segment.elements.size() == 1
                         ? model.elements[segment.elements.front()].design.length_factors
                         : none;
  const bool is_one = model.frame && model.frame->length_factors == model::LengthFactors::one;
  if (own) {
    take(*own, FactorSource::given_element, out);
  } else if (segment.member != nullptr && segment.member->length_factors) {
    take(*segment.member->length_factors, FactorSource::given_member, out);
  } else if (is_one) {
    take({.y = 1.0, .z = 1.0}, FactorSource::one, out);
  } else if (model.supports.empty()) {
    take({.y = 1.0, .z = 1.0}, FactorSource::no_supports, out);
  } else if (is_truss(model, segment)) {
    take({.y = 1.0, .z = 1.0}, FactorSource::truss, out);
  } else {
    out.y = chosen(segments, segment, Axis::y, modes.y);
    out.z = chosen(segments, segment, Axis::z, modes.z);
  }
  out.y.mode = modes.y;
  out.z.mode = modes.z;
}

bool is_of_chart(FactorSource source) {
  return source == FactorSource::non_sway || source == FactorSource::sway ||
         source == FactorSource::cantilever;
}

}  // namespace

std::string_view name_of(FactorSource source) {
  using texts::translatable;
  constexpr std::string_view names[] = {translatable("given (element)"),
                                        translatable("given (member)"),
                                        translatable("one"),
                                        translatable("no supports"),
                                        translatable("truss"),
                                        translatable("non-sway"),
                                        translatable("sway"),
                                        translatable("cantilever"),
                                        translatable("mode")};
  return names[static_cast<std::size_t>(source)];
}

bool is_below_mode(const LengthFactor& factor) {
  constexpr double tolerated = 1.05;
  const bool is_own_choice = is_of_chart(factor.source) || factor.source == FactorSource::truss;
  return is_own_choice && factor.mode && factor.k * tolerated < factor.mode->k;
}

bool is_at_bound(const LengthFactor& factor) {
  return (factor.source == FactorSource::sway || factor.source == FactorSource::cantilever) &&
         sway_factor(factor.g[0], factor.g[1]) >= largest_factor;
}

bool is_guessed(const LengthFactor& factor) {
  return is_of_chart(factor.source) && !factor.objection.empty();
}

std::vector<SegmentFactors> length_factors(const model::Model& model,
                                           std::span<const FrameMode> modes) {
  const MemberSegments segments(model);
  const std::vector<SegmentModeLengths> by_mode = mode_lengths(segments, modes);
  std::vector<SegmentFactors> all;
  all.reserve(segments.all().size());
  for (std::size_t i = 0; i < segments.all().size(); ++i) {
    const MemberSegment& segment = segments.all()[i];
    SegmentFactors factors{
        .member = {}, .elements = {}, .length = segment.length, .y = {}, .z = {}};
    if (segment.member != nullptr) factors.member = segment.member->number;
    for (const std::size_t place : segment.elements) {
      factors.elements.push_back(model.elements[place].number);
    }
    find_factors(segments, segment, by_mode[i], factors);
    all.push_back(std::move(factors));
  }
  return all;
}

bool need_modes(const model::Model& model, const std::vector<SegmentFactors>& factors) {
  const model::FrameSettings frame = model.frame.value_or(model::FrameSettings{});
  if (frame.length_factors == model::LengthFactors::buckling) return true;
  return std::ranges::any_of(
      factors, [](const SegmentFactors& of) { return is_guessed(of.y) || is_guessed(of.z); });
}

}  // namespace aluframe::members
