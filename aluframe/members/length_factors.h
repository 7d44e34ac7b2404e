#pragma once

#include <array>
#include <optional>
#include <span>
#include <string>
#include <string_view>
#include <vector>

#include "aluframe/members/frame_mode.h"
#include "aluframe/model/model.h"

namespace aluframe::members {

/// Where an effective length factor comes from.
enum class FactorSource {
  given_element,  ///< `design.length_factors` of the element
  given_member,   ///< `length_factors` of the member
  one,            ///< the model asks for 1
  no_supports,    ///< 1: without any support the model does not say what restrains the frame
  truss,          ///< 1: axial-only elements are hinged at both ends
  non_sway,       ///< alignment chart, both ends restrained
  sway,           ///< alignment chart, ends move
  cantilever,     ///< alignment chart, an end is free
  mode            ///< a buckling mode of the frame
};

/// "given (element)", "sway" and so on, for the user.
std::string_view name_of(FactorSource source);

struct LengthFactor {
  double k = 1.0;
  FactorSource source = FactorSource::one;
  /// G of the start and the end (chart_equations.h) where a chart gives the factor.
  std::array<double, 2> g{};
  std::optional<ModeLength> mode = std::nullopt;  ///< what buckling modes tell, whatever k is
  /// Why charts do not hold, where one gives the factor for want of a mode, or why a mode does;
  /// empty otherwise.
  std::string objection = {};
};

/// Whether a factor that the program chose lies more than a twentieth below what a mode tells.
bool is_below_mode(const LengthFactor& factor);

/// Whether a chart gives the factor and has no larger one: the joints resist nothing.
bool is_at_bound(const LengthFactor& factor);

/// Whether a chart gives a factor that it does not hold for.
bool is_guessed(const LengthFactor& factor);

/// Effective length factors of a member, or of an element that belongs to none.
struct SegmentFactors {
  std::optional<model::Number> member;  ///< nothing for a lone element
  std::vector<model::Number> elements;
  double length = 0.0;  ///< mm, what the factors are of
  LengthFactor y, z;    ///< for buckling about the section's y and z
};

/// Factors of all members, then of all lone elements, in the order of the file. What the model
/// gives goes first; an element's own factors only stand here when it is alone, within a member
/// they are that element's business. In a model without any support (its forces come from
/// elsewhere) factors are 1, and of trusses.
///
/// Others are those of the modes (mode_lengths.h), where these tell of them, when the model asks
/// for them, or when no chart holds (chart_scope.h) or has a factor. A mode far from the first of
/// its loads takes no smaller factor than the chart. The rest are computed from the ends
/// (end_restraint.h):
/// - An end that no other element meets and no support restrains makes a cantilever, and one that
///   alone restrains what lies beyond it (cantilever_ends.h), unless it is a column's and braced.
/// - Columns, and inclined legs within 30° of the vertical, sway, unless supports restrain both
///   their ends, or the frame is braced (model::FrameSettings): about y they move along z, about z
///   along y; braced_a restrains translation along global X, braced_b along global Y, both together
///   in any direction.
/// - Beams and other inclined elements do not sway.
/// - Member segments that go straight on past a node that is no joint (collinear_run.h) have the
///   factor of all of them together, times its length over their own.
/// The model must be consistent, as its reader leaves it.
std::vector<SegmentFactors> length_factors(const model::Model& model,
                                           std::span<const FrameMode> modes = {});

/// Whether factors of a model hang on modes: it asks for them, or a chart does not hold.
bool need_modes(const model::Model& model, const std::vector<SegmentFactors>& factors);

}  // namespace aluframe::members
