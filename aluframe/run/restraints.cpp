#include "aluframe/run/restraints.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>
#include <map>
#include <set>
#include <utility>

#include "aluframe/forces/inner_forces.h"
#include "aluframe/members/end_support.h"
#include "aluframe/members/member_segments.h"
#include "aluframe/model/combinations.h"
#include "aluframe/model/force_component.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/model/units.h"
#include "aluframe/restraints/axis_segments.h"
#include "aluframe/restraints/lateral.h"
#include "aluframe/restraints/lateral_segments.h"
#include "aluframe/run/member_holds.h"
#include "aluframe/run/session_options.h"
#include "aluframe/run/whole_member.h"
#include "aluframe/services/binding.h"
#include "aluframe/services/session.h"
#include "aluframe/texts/text.h"
#include "tz_alu/manager/dgnaludatamgr.h"

namespace aluframe::run {

namespace {

using restraints::Axis;
using restraints::Flange;
using restraints::HeldPlace;
using restraints::Segment;

/// A moment below this share of what the section carries is noise of the analysis.
constexpr double noise_share = 1e-6;
/// A coefficient that is larger by less is the same, computed another way.
constexpr double same = 1e-9;
/// Sections of one member whose z axes part by more than this have no common top flange: the
/// cosine of 60 degrees, well beyond the kinks of a member.
constexpr double alike_axes = 0.5;

/// One element of a restrained member.
struct Part {
  const model::Element* element = nullptr;
  std::size_t place = 0;  ///< in the model
  bool is_reversed = false;
  Segment stretch;
  std::optional<restraints::UnrestrainedCoefficient> coefficient;
  /// −1: a moment about y, z compresses the other side of the member than in its first element.
  std::array<double, 2> moment_sign{1.0, 1.0};
};

/// A restrained member with what its pieces follow from.
struct Subject {
  const model::Member* member = nullptr;
  const members::SegmentFactors* factors = nullptr;
  std::vector<Part> parts;
  std::vector<HeldPlace> places;
  double length = 0.0;
  std::vector<restraints::LateralHold> frame_holds;  ///< by supports and by what meets it
  std::array<bool, 2> is_held{};                     ///< its ends, sideways
  /// Its ends, by supports, against moving as it buckles about y and z.
  std::array<std::array<bool, 2>, 2> is_supported{};
  int assumed_twists = 0;   ///< of its ends
  bool has_one_top = true;  ///< the top flanges of its elements lie on one side
  double noise = 0.0;       ///< of My, N·mm
};

bool is_given(const members::LengthFactor& factor) {
  return factor.source == members::FactorSource::given_member ||
         factor.source == members::FactorSource::given_element;
}

std::vector<Part> parts_of(const model::Model& model, const model::Member& member,
                           const members::MemberSegment& segment) {
  std::vector<Part> parts;
  double start = 0.0;
  model::Number node = segment.nodes[0];
  for (const model::Number number : member.elements) {
    Part part;
    part.place = model.elements.position(number);
    part.element = &model.elements[part.place];
    part.is_reversed = part.element->nodes[0] != node;
    node = part.element->nodes[part.is_reversed ? 0 : 1];
    const double end = start + model::element_length(model, *part.element);
    part.stretch = {start, end};
    start = end;
    parts.push_back(std::move(part));
  }
  return parts;
}

/// Makes the design module ready for the elements, in the units of its checks.
void make_ready(const std::vector<Subject>& subjects) {
  IAluDgnDataMgr& manager = *IAluDgnDataMgr::Instance();
  constexpr T_UNIT_INDEX design_units{0, 2};
  manager.GetDoc()->GetUnitCtrl().SetUnitIndexCurrent(design_units, 0);
  IAluDgnDataMgr::KEYS keys;
  for (const Subject& subject : subjects) {
    for (const Part& part : subject.parts) keys.Add(part.element->number);
  }
  IAluDgnDataMgr::LCOMBS combinations;
  manager.GetDgnLCombs(combinations);
  manager.MakeBuffData(keys, combinations);
}

void complete(Subject& subject, const members::MemberSegments& all) {
  std::vector<MemberNode> nodes;
  for (const Part& part : subject.parts) {
    const std::array<std::size_t, 2> ends{part.is_reversed ? 1UL : 0UL,
                                          part.is_reversed ? 0UL : 1UL};
    if (nodes.empty()) nodes.push_back({part.stretch.start, {part.place, ends[0]}});
    nodes.push_back({part.stretch.end, {part.place, ends[1]}});
  }
  subject.frame_holds = frame_holds(all, subject.member->elements, nodes);
  const auto is_held_at = [&](double place) {
    return std::ranges::any_of(subject.frame_holds,
                               [&](const auto& hold) { return hold.at == place && hold.sideways; });
  };
  subject.is_held = {is_held_at(0.0), is_held_at(subject.length)};
  for (const MemberNode* end : {&nodes.front(), &nodes.back()}) {
    if (has_assumed_twist(all, subject.member->elements, *end)) ++subject.assumed_twists;
  }
  for (const std::size_t i : {0UL, 1UL}) {
    const members::ElementEnd& end = (i == 0 ? nodes.front() : nodes.back()).end;
    const auto is_supported = [&](members::Axis along) {
      return members::is_restrained_along(all, end, all.direction(end.element, along));
    };
    subject.is_supported[0][i] = is_supported(members::Axis::z);
    subject.is_supported[1][i] = is_supported(members::Axis::y);
  }
  IAluDgnDataMgr& manager = *IAluDgnDataMgr::Instance();
  const auto top_of = [&](const Part& part) { return all.geometry(part.place).axes; };
  for (Part& part : subject.parts) {
    ALU_DGN_DATA data;
    if (manager.GetDgnData(part.element->number, data) == 0) continue;
    part.coefficient = restraints::unrestrained_coefficient(data);
    if (!part.coefficient) continue;
    const auto& section = part.coefficient->section;
    subject.noise = std::max(subject.noise, noise_share * section.modulus[0] * section.f);
  }
  const auto first = top_of(subject.parts.front());
  for (Part& part : subject.parts) {
    const auto axes = top_of(part);
    std::array<double, 3> cosines{};
    for (int axis = 0; axis < 3; ++axis) {
      for (int i = 0; i < 3; ++i) cosines.at(axis) += first(axis, i) * axes(axis, i);
    }
    if (cosines[2] < alike_axes) subject.has_one_top = false;
    // A moment about y compresses the side of z, one about z that of y.
    part.moment_sign = {cosines[2] < 0.0 ? -1.0 : 1.0, cosines[1] < 0.0 ? -1.0 : 1.0};
  }
}

/// My along the members of a run: at the positions of its elements, and between them wherever it is
/// larger, or a load acts.
class Moments {
 public:
  Moments(const Input& input, const model::CombinationEvaluator& evaluator)
      : evaluator_(evaluator), inner_(input.model, input.forces.computed) {}

  restraints::ElementMoments of(const Part& part, model::Number combination, model::Side side) {
    const auto forces = evaluator_.evaluate(part.place, combination, side);
    points_.clear();
    if (forces) {
      add_positions(*forces);
      peaks_.clear();
      if (inner_.has_peaks(part.place)) {
        inner_.peaks(part.place, combination, side, *forces, about_y_alone, peaks_);
      }
      if (forces->inner && !has_point_load()) add_curve(*forces);
      for (const forces::PlaceForces& peak : peaks_) {
        points_.push_back({peak.fraction, peak.forces[model::about_y]});
      }
    }
    restraints::ElementMoments moments{.stretch = part.stretch, .at = {}};
    for (const auto& [fraction, my] : points_) {
      const double share = part.is_reversed ? 1.0 - fraction : fraction;
      moments.at.push_back({part.stretch.start + share * part.stretch.length(), my});
    }
    std::ranges::stable_sort(moments.at, {}, [](const auto& point) { return point[0]; });
    return moments;
  }

 private:
  static constexpr std::array<forces::Weights, 1> about_y_alone{{{.my = 1.0}}};
  static constexpr std::size_t last = 4;

  static double my_at(const model::CaseForces& forces, std::size_t position) {
    return static_cast<double>(forces.at[position][model::about_y]);
  }

  void add_positions(const model::CaseForces& forces) {
    for (std::size_t i = 0; i <= last; i += forces.inner ? 1 : last) {
      points_.push_back({static_cast<double>(i) / last, my_at(forces, i)});
    }
  }

  /// Something acts at a point between the ends: both of its sides are there.
  bool has_point_load() const {
    return std::ranges::adjacent_find(peaks_, {}, &forces::PlaceForces::x) != peaks_.end();
  }

  /// What even loads make between the positions: the parabola of three of them.
  void add_curve(const model::CaseForces& forces) {
    constexpr int parts = 4;
    for (const std::size_t first : {0UL, 2UL}) {
      const std::array<double, 3> m{my_at(forces, first), my_at(forces, first + 1),
                                    my_at(forces, first + 2)};
      const double bow = (m[0] - 2.0 * m[1] + m[2]) / 2.0;
      const double scale = std::max({std::fabs(m[0]), std::fabs(m[1]), std::fabs(m[2])});
      if (std::fabs(bow) <= straight * scale) continue;
      for (int i = 1; i < 2 * parts; ++i) {
        if (i == parts) continue;
        const double s = static_cast<double>(i) / parts - 1.0;  // from −1 to 1
        const double my = m[1] + s * (m[2] - m[0]) / 2.0 + s * s * bow;
        points_.push_back({(static_cast<double>(first) + 1.0 + s) / last, my});
      }
    }
  }

  /// Rounding of forces to single precision stays far below it.
  static constexpr double straight = 1e-3;

  const model::CombinationEvaluator& evaluator_;
  forces::InnerForces inner_;
  // Kept, so that a combination allocates little.
  std::vector<forces::PlaceForces> peaks_;
  std::vector<std::array<double, 2>> points_;  ///< share of the element's length, My
};

/// What tells pieces of bending apart.
struct LateralKey {
  Segment segment;
  Flange compressed = Flange::top;
  bool is_free = false;
  model::Number section = 0, material = 0;

  friend auto operator<=>(const LateralKey&, const LateralKey&) = default;
};

/// A piece of bending over all combinations.
struct LateralPiece {
  model::Number combination = 0;  ///< the first that has it
  std::set<std::size_t> parts;    ///< elements, by their place in the member
  double share = 1.0;             ///< of its critical moment that the whole member leaves it
};

std::vector<model::Side> sides_of(const model::CombinationEvaluator& evaluator,
                                  model::Number combination) {
  if (evaluator.has_two_sides(combination)) return {model::Side::maximum, model::Side::minimum};
  return {model::Side::maximum};
}

/// Works out one restrained member.
class MemberWork {
 public:
  MemberWork(const Input& input, const model::CombinationEvaluator& evaluator, Moments& moments,
             const Subject& subject, Restrained& out)
      : input_(input), evaluator_(evaluator), moments_(moments), subject_(subject), out_(out) {}

  void run() {
    find_length_factors();
    find_coefficients();
  }

 private:
  void find_length_factors() {
    const members::SegmentFactors& of = *subject_.factors;
    const std::array<const members::LengthFactor*, 2> own{&of.y, &of.z};
    std::array<std::vector<restraints::AxisSegment>, 2> pieces;
    for (const Axis axis : {Axis::y, Axis::z}) {
      const auto i = static_cast<std::size_t>(axis);
      pieces[i] = restraints::axis_segments(subject_.places, axis, subject_.length, own[i]->k,
                                            subject_.is_supported[i]);
      const bool is_held_at_end = pieces[i].front().k < own[i]->k;
      if (pieces[i].size() > 1 || is_held_at_end) {
        add_axis_pieces(axis, pieces[i], is_given(*own[i]));
      }
    }
    if (is_given(of.y) || is_given(of.z)) return;
    second_opinion::PartedElements parted;
    for (const Part& part : subject_.parts) {
      second_opinion::PartedElement& of_part = parted[part.element->number];
      of_part = {.at = {meetings_in(part, pieces[0]), meetings_in(part, pieces[1])},
                 .sign = part.moment_sign};
      const model::ElementDesign::AxisPair k{restraints::factor_at(pieces[0], part.stretch),
                                             restraints::factor_at(pieces[1], part.stretch)};
      if (part.element->design.length_factors || (k.y >= of.y.k && k.z >= of.z.k)) continue;
      out_.elements[part.element->number].length_factors = k;
      of_part.is_shortened = {k.y < of.y.k, k.z < of.z.k};
    }
    const bool any = std::ranges::any_of(parted, [](const auto& element) {
      return element.second.is_shortened[0] || element.second.is_shortened[1];
    });
    if (any) out_.beyond_checks.parted.merge(parted);
  }

  /// Where pieces meet in the element, by shares of its length from its own start.
  static std::vector<double> meetings_in(const Part& part,
                                         const std::vector<restraints::AxisSegment>& pieces) {
    std::vector<double> shares;
    for (const restraints::AxisSegment& piece : pieces) {
      const double at = piece.segment.start;
      if (at == 0.0 || at < part.stretch.start || at >= part.stretch.end) continue;
      const double share = (at - part.stretch.start) / part.stretch.length();
      shares.push_back(part.is_reversed ? 1.0 - share : share);
    }
    return shares;
  }

  void add_axis_pieces(Axis axis, const std::vector<restraints::AxisSegment>& pieces,
                       bool is_given) {
    for (const restraints::AxisSegment& piece : pieces) {
      RestrainedPiece row;
      row.member = subject_.member->number;
      row.kind = axis == Axis::y ? PieceKind::buckling_y : PieceKind::buckling_z;
      row.start = piece.segment.start;
      row.end = piece.segment.end;
      row.k = piece.k;
      for (const Part& part : subject_.parts) {
        if (piece.segment.overlaps(part.stretch)) row.elements.push_back(part.element->number);
      }
      if (is_given) {
        row.remark = texts::translatable("the model gives the factors of the member");
      } else if (piece.keeps_member) {
        row.remark = texts::translatable("the member's factor: it is smaller, or its end moves");
      }
      out_.pieces.push_back(std::move(row));
    }
  }

  void find_coefficients() {
    const bool any = std::ranges::any_of(
        subject_.parts, [](const Part& part) { return part.coefficient.has_value(); });
    if (!any || !subject_.has_one_top) {
      if (has_lateral_restraints()) add_unchanged_bending(any);
      return;
    }
    for (const model::Combination& combination : input_.model.combinations) {
      if (!combination.design) continue;
      for (const model::Side side : sides_of(evaluator_, combination.number)) {
        add_layout(combination.number, side);
      }
    }
    if (has_lateral_restraints()) take_coefficients();
    add_idle_remark();
  }

  void add_unchanged_bending(bool depends_on_length) {
    RestrainedPiece row;
    row.member = subject_.member->number;
    row.kind = PieceKind::bending;
    row.end = subject_.length;
    row.elements = subject_.member->elements;
    row.remark = depends_on_length
                     ? texts::translatable(
                           "its sections are turned against each other: as the checks have it")
                     : texts::translatable("φb of the section does not depend on lengths");
    out_.pieces.push_back(std::move(row));
  }

  void add_layout(model::Number combination, model::Side side) {
    std::vector<restraints::ElementMoments> moments;
    for (const Part& part : subject_.parts) {
      moments.push_back(moments_.of(part, combination, side));
    }
    const auto layout =
        restraints::lateral_layout(subject_.places, moments, subject_.is_held, subject_.noise);
    if (!layout.idle.empty()) {
      idle_.insert(combination);
      if (!first_idle_) first_idle_ = layout.idle.front();
    }
    for (const restraints::LateralSegment& piece : layout.segments) {
      for (const Flange flange : {Flange::top, Flange::bottom}) {
        if (piece.compressed[flange == Flange::top ? 0 : 1]) keep(combination, piece, flange);
      }
    }
    if (!layout.segments.empty() && has_lateral_restraints()) bound(layout, moments);
  }

  /// Pieces promise what they would carry between forks. Where the whole member buckles before the
  /// first of them would, that one has what the member leaves it.
  void bound(const restraints::LateralLayout& layout,
             const std::vector<restraints::ElementMoments>& moments) {
    // An element that has φb by itself is no weaker than its neighbour.
    const auto first = std::ranges::find_if(
        subject_.parts, [](const Part& part) { return part.coefficient.has_value(); });
    const restraints::LateralSection* section = &first->coefficient->section;
    std::vector<restraints::BucklingPart> parts;
    for (std::size_t i = 0; i < moments.size(); ++i) {
      const auto& coefficient = subject_.parts[i].coefficient;
      if (coefficient) section = &coefficient->section;
      parts.push_back({moments[i], *section});
    }
    for (const BoundPiece& piece :
         bound_by_member(layout, parts, subject_.places, subject_.frame_holds, subject_.noise)) {
      for (auto& [key, of] : pieces_) {
        if (key.segment == piece.segment && key.compressed == piece.compressed) {
          of.share = std::min(of.share, piece.share);
        }
      }
    }
  }

  void keep(model::Number combination, const restraints::LateralSegment& piece, Flange flange) {
    for (std::size_t i = 0; i < subject_.parts.size(); ++i) {
      const Part& part = subject_.parts[i];
      if (!piece.segment.overlaps(part.stretch)) continue;
      const LateralKey key{piece.segment, flange, piece.is_free, part.element->section,
                           part.element->material};
      const auto [found, is_new] = pieces_.try_emplace(key);
      if (is_new) found->second.combination = combination;
      found->second.parts.insert(i);
    }
  }

  bool is_whole(const Segment& segment) const {
    return segment.start == 0.0 && segment.end == subject_.length;
  }

  /// Whether anything that is held may brace bending: a member that is held about an axis alone
  /// stays as the checks have it.
  bool has_lateral_restraints() const {
    constexpr unsigned lateral = model::top_part | model::bottom_part | model::twist_part;
    return std::ranges::any_of(subject_.places, [](const HeldPlace& place) {
      return place.compressed_flange || (place.parts & lateral) != 0;
    });
  }

  /// φb of every element: the smallest of its pieces, where all of these are shorter than the
  /// member and it betters what the checks have.
  void take_coefficients() {
    std::vector<double> smallest(subject_.parts.size(), 2.0);
    std::vector<double> between(subject_.parts.size(), 2.0);
    bool is_given = false;
    for (const auto& [key, piece] : pieces_) {
      add_lateral_piece(key, piece);
      for (const std::size_t i : piece.parts) {
        const auto phi_b = coefficient_of(key, piece.share, subject_.parts[i]);
        smallest[i] = std::min(smallest[i], phi_b ? phi_b->phi_b : 0.0);
        between[i] =
            std::min(between[i], coefficient_of_length(key, piece.share, subject_.parts[i]));
      }
    }
    for (std::size_t i = 0; i < subject_.parts.size(); ++i) {
      const Part& part = subject_.parts[i];
      if (!part.coefficient || smallest[i] > 1.5) continue;  // never bent
      if (smallest[i] <= part.coefficient->largest_phi_b * (1.0 + same)) {
        if (part.coefficient->is_halved)
          out_.beyond_checks.phi_b[part.element->number] = between[i];
        continue;
      }
      out_.elements[part.element->number].phi_b = std::min(smallest[i], 1.0);
      is_given = true;
    }
    if (is_given) out_.assumed_twists += subject_.assumed_twists;
  }

  /// Nothing for a piece that is no shorter than the member, or ends free.
  std::optional<restraints::LateralCoefficient> coefficient_of(const LateralKey& key, double share,
                                                               const Part& part) const {
    if (!part.coefficient || key.is_free || is_whole(key.segment)) return std::nullopt;
    return restraints::lateral_coefficient(part.coefficient->section, key.compressed,
                                           key.segment.length(), share);
  }

  /// Of the piece's length, also where that is the member's: what the checks have by half of it.
  static double coefficient_of_length(const LateralKey& key, double share, const Part& part) {
    if (!part.coefficient) return 1.0;
    return restraints::lateral_coefficient(part.coefficient->section, key.compressed,
                                           key.segment.length(), share)
        .phi_b;
  }

  void add_lateral_piece(const LateralKey& key, const LateralPiece& piece) {
    const Part& first = subject_.parts[*piece.parts.begin()];
    RestrainedPiece row;
    row.member = subject_.member->number;
    row.kind =
        key.compressed == Flange::top ? PieceKind::top_compressed : PieceKind::bottom_compressed;
    row.start = key.segment.start;
    row.end = key.segment.end;
    row.combination = shown_number(piece.combination);
    for (const std::size_t i : piece.parts) {
      row.elements.push_back(subject_.parts[i].element->number);
    }
    const auto of = coefficient_of(key, piece.share, first);
    if (of) {
      row.critical_moment = of->moments.smaller();
      row.slenderness = of->slenderness;
      row.phi_b = std::min(of->phi_b, 1.0);
    }
    row.remark = remark_on(key, first, of);
    if (row.remark.empty() && piece.share < 1.0) {
      row.remark = texts::translatable("the whole member buckles sooner: Mcr as it leaves it");
    }
    out_.pieces.push_back(std::move(row));
  }

  std::string remark_on(const LateralKey& key, const Part& first,
                        const std::optional<restraints::LateralCoefficient>& of) const {
    if (first.element->design.stability_coefficients) {
      return texts::translatable("the elements have coefficients of their own");
    }
    if (!first.coefficient) {
      return texts::translatable("φb of the section does not depend on lengths");
    }
    if (key.is_free) return texts::translatable("an end is free: as the checks have the member");
    if (!of) return texts::translatable("nothing braces it: as the checks have the member");
    if (of->phi_b <= first.coefficient->largest_phi_b * (1.0 + same)) {
      return fmt::format(texts::translatable("the checks have {:.3f} and keep it"),
                         first.coefficient->largest_phi_b);
    }
    return {};
  }

  /// An envelope's state goes by the envelope.
  model::Number shown_number(model::Number combination) const {
    return input_.model.combinations.find(combination)->state_of.value_or(combination);
  }

  void add_idle_remark() {
    if (idle_.empty()) return;
    std::set<model::Number> numbers;
    for (const model::Number combination : idle_) numbers.insert(shown_number(combination));
    const auto unit = input_.model.units.length;
    store::RemarkRow row;
    row.kind = texts::translatable("restraints");
    std::vector<model::Number> elements = subject_.member->elements;
    std::ranges::sort(elements);
    row.elements = model::join_as_ranges(elements);
    row.element = subject_.parts.front().element->number;
    row.combination = *numbers.begin();
    row.text = fmt::format(
        texts::translatable(
            "member {}: combination {} does not compress the flange that is held, "
            "first at {:.4g} {} from its start, so that it braces nothing there; an "
            "element has one φb for all combinations, that of its longest piece"),
        subject_.member->number, model::join_as_ranges({numbers.begin(), numbers.end()}),
        *first_idle_ / model::millimetres_per(unit), model::name_of(unit));
    out_.remarks.push_back(std::move(row));
  }

  const Input& input_;
  const model::CombinationEvaluator& evaluator_;
  Moments& moments_;
  const Subject& subject_;
  Restrained& out_;
  std::map<LateralKey, LateralPiece> pieces_;
  std::set<model::Number> idle_;  ///< combinations that leave a held flange in tension
  std::optional<double> first_idle_;
};

const members::SegmentFactors* factors_of(const std::vector<members::SegmentFactors>& factors,
                                          model::Number member) {
  const auto found =
      std::ranges::find(factors, std::optional(member), &members::SegmentFactors::member);
  return found == factors.end() ? nullptr : &*found;
}

std::vector<Subject> subjects_of(const model::Model& model, const members::MemberSegments& all,
                                 const std::vector<members::SegmentFactors>& factors) {
  std::vector<Subject> subjects;
  for (const members::MemberSegment& segment : all.all()) {
    if (segment.member == nullptr || segment.member->restraints.empty()) continue;
    Subject subject;
    subject.member = segment.member;
    subject.factors = factors_of(factors, segment.member->number);
    subject.parts = parts_of(model, *segment.member, segment);
    subject.length = subject.parts.back().stretch.end;
    subject.places = restraints::held_places(segment.member->restraints, subject.length);
    if (subject.factors != nullptr) subjects.push_back(std::move(subject));
  }
  return subjects;
}

bool has_restraints(const model::Model& model) {
  return std::ranges::any_of(
      model.members, [](const model::Member& member) { return !member.restraints.empty(); });
}

}  // namespace

const char* name_of(PieceKind kind) {
  switch (kind) {
    case PieceKind::top_compressed:
      return texts::translatable("bending, top compressed");
    case PieceKind::bottom_compressed:
      return texts::translatable("bending, bottom compressed");
    case PieceKind::bending:
      return texts::translatable("bending");
    case PieceKind::buckling_y:
      return texts::translatable("buckling about y");
    case PieceKind::buckling_z:
      break;
  }
  return texts::translatable("buckling about z");
}

std::optional<store::SettingRow> restraints_row(const model::Model& model,
                                                const Restrained& restrained) {
  if (!has_restraints(model)) return std::nullopt;
  const auto coefficients = std::ranges::count_if(
      restrained.elements, [](const auto& of) { return of.second.phi_b.has_value(); });
  const auto factors = std::ranges::count_if(
      restrained.elements, [](const auto& of) { return of.second.length_factors.has_value(); });
  std::string value =
      fmt::format(texts::translatable("φb of elements: {}, length factors of elements: {}"),
                  coefficients, factors);
  if (restrained.assumed_twists > 0) {
    value +=
        fmt::format(texts::translatable(", ends whose supports are taken to hold the twist: {}"),
                    restrained.assumed_twists);
  }
  return store::SettingRow{"restraints", std::move(value), texts::translatable("given")};
}

Restrained restrained_elements(const Input& input,
                               const std::vector<members::SegmentFactors>& factors) {
  Restrained out;
  if (!has_restraints(input.model)) return out;
  const members::MemberSegments all(input.model);
  std::vector<Subject> subjects = subjects_of(input.model, all, factors);
  services::SessionOptions options = session_options(input, input.file);
  options.length_factors = factors;
  services::Session session(input.model, std::move(options));
  const services::Binding binding(session);
  make_ready(subjects);
  const model::CombinationEvaluator evaluator(input.model);
  Moments moments(input, evaluator);
  for (Subject& subject : subjects) {
    complete(subject, all);
    MemberWork(input, evaluator, moments, subject, out).run();
  }
  return out;
}

}  // namespace aluframe::run
