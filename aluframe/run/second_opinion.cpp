#include "aluframe/run/second_opinion.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <iterator>
#include <set>
#include <stdexcept>

#include "aluframe/model/number_ranges.h"
#include "aluframe/services/run_monitor.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

using second_opinion::Unchecked;

/// Among the settings of a run without a second opinion.
constexpr const char* setting_key = "second_opinion";

struct KindText {
  const char* rule;
  const char* text;  ///< {} is the largest force with its place
  bool is_moment;
};

/// By Unchecked::Kind.
constexpr KindText kinds[] = {
    {"C5", texts::translatable("shear force where the checks have no shear check, up to {}"),
     false},
    {"C6", texts::translatable("torsion, which no check is for, up to {}"), true},
    {"C1", texts::translatable("bending beside tension, without a stability check, up to {}"),
     true},
    {"C2",
     texts::translatable("axial force below 1e-6 of the section's strength beside bending, up to "
                         "{}; its sign picks the checks: give 0 for noise"),
     false},
};

/// Whether a place lies between the positions of an element.
bool is_between(const second_opinion::Place& place) {
  return place.fraction && *place.fraction * 4.0 != std::round(*place.fraction * 4.0);
}

/// A state of an envelope is told by both numbers.
std::string force_place_text(const second_opinion::Place& place, const model::Model& model) {
  const model::Combination* combination = model.combinations.find(place.combination);
  const bool is_state = combination != nullptr && combination->state_of;
  const std::string of =
      is_state ? fmt::format(texts::translatable("element {}, combination {}, state {}"),
                             place.element, *combination->state_of, place.combination)
               : fmt::format(texts::translatable("element {}, combination {}"), place.element,
                             place.combination);
  return place.fraction && is_between(place)
             ? of + fmt::format(texts::translatable(", {:.3g} of the length"), *place.fraction)
             : of;
}

std::string force_text(const Unchecked& item, bool is_moment, const model::Model& model) {
  return is_moment ? fmt::format(texts::translatable("{:.3g} kNm ({})"), item.magnitude * 1e-6,
                                 force_place_text(item.magnitude_place, model))
                   : fmt::format(texts::translatable("{:.3g} kN ({})"), item.magnitude * 1e-3,
                                 force_place_text(item.magnitude_place, model));
}

store::RemarkRow remark_of(const Unchecked& item, const model::Model& model) {
  const KindText& kind = kinds[static_cast<std::size_t>(item.kind)];
  store::RemarkRow row;
  row.kind = kind.rule;
  row.elements = model::join_as_ranges({item.elements.begin(), item.elements.end()});
  row.text = fmt::format(fmt::runtime(kind.text), force_text(item, kind.is_moment, model));
  if (item.ratio) {
    row.ratio = item.ratio;
    row.element = item.ratio_place.element;
    row.combination = item.ratio_place.combination;
  }
  return row;
}

using Pairs = std::vector<std::pair<std::size_t, std::size_t>>;

constexpr const char* unknown_text = texts::translatable(
    "given forces of load case {} follow from no load, as those of a spectrum: where they peak "
    "between the five positions is unknown");
constexpr const char* estimated_text = texts::translatable(
    "given forces of load case {} do not follow from loads of the model: peaks between the five "
    "positions are those of an estimated distributed load; under a point load they are higher");

std::vector<model::Number> elements_of(const Pairs& pairs, const model::Model& model) {
  std::set<model::Number> elements;
  for (const auto& pair : pairs) elements.insert(model.elements[pair.first].number);
  return {elements.begin(), elements.end()};
}

/// What is not known between the five positions in load cases.
std::string between_text(const Pairs& pairs, const model::Model& model, const char* text) {
  std::set<model::Number> cases;
  for (const auto& pair : pairs) cases.insert(model.load_cases[pair.second].number);
  return fmt::format(fmt::runtime(text), model::join_as_ranges({cases.begin(), cases.end()}));
}

/// One row for all elements and load cases; where both are so, the text tells their elements apart.
void add_between(const second_opinion::RunFound& result, const model::Model& model,
                 std::vector<store::RemarkRow>& rows) {
  const Pairs &unknown = result.unknown_between, &estimated = result.estimated_between;
  if (unknown.empty() && estimated.empty()) return;
  store::RemarkRow row;
  row.kind = "P";
  Pairs all = unknown;
  all.insert(all.end(), estimated.begin(), estimated.end());
  row.elements = model::join_as_ranges(elements_of(all, model));
  if (!unknown.empty()) row.text = between_text(unknown, model, unknown_text);
  if (!estimated.empty()) {
    const std::string text = between_text(estimated, model, estimated_text);
    row.text = unknown.empty()
                   ? text
                   : fmt::format(texts::translatable("{} (element {}); {}"), row.text,
                                 model::join_as_ranges(elements_of(unknown, model)), text);
  }
  rows.push_back(std::move(row));
}

}  // namespace

void leave_out_second_opinion(store::RunSetup& setup) {
  setup.settings.push_back({setting_key, "off", "--second-opinion off"});
}

SecondOpinion second_opinion_of(const store::RunSetup& setup) {
  const bool is_off = std::ranges::find(setup.settings, setting_key, &store::SettingRow::key) !=
                      setup.settings.end();
  return is_off ? SecondOpinion::off : SecondOpinion::on;
}

store::SafeRow safe_row(const second_opinion::ElementSafe& element) {
  return {.element = element.place.element,
          .code = element.code,
          .safe = element.safe,
          .item = element.item,
          .rules = second_opinion::to_text(element.rules),
          .combination = element.place.combination,
          .min_side = element.place.min_side,
          .fraction = element.place.fraction,
          .from_start = element.from_start};
}

SafeSummary summary_of(const std::vector<store::SafeRow>& rows) {
  SafeSummary summary;
  summary.elements = rows.size();
  for (const store::SafeRow& row : rows) {
    if (services::exceeds_limit(row.safe)) {
      ++summary.over;
      if (!row.code || !services::exceeds_limit(*row.code)) ++summary.unsaid;
    }
    const bool worse = !summary.worst ||
                       (std::isfinite(summary.worst->safe) && !(row.safe <= summary.worst->safe));
    if (worse) summary.worst = row;
  }
  return summary;
}

store::NotChecked not_checked_between(const second_opinion::UncheckedBetween& force) {
  const bool is_torsion = force.component == model::torsion;
  const char* name = is_torsion ? "Mx" : force.component == model::shear_y ? "Fy" : "Fz";
  return {force.place.element, std::nullopt,
          is_torsion ? services::torsion_without_check : services::shear_without_check,
          store::LargestForce{name, force.magnitude, store::between_positions,
                              force.place.combination, force.place.min_side}};
}

store::UncheckedRow unchecked_row(const Unchecked& item) {
  const auto at = [](const second_opinion::Place& place) -> store::UncheckedRow::At {
    return {place.combination, place.min_side, place.fraction};
  };
  return {.kind = kinds[static_cast<std::size_t>(item.kind)].rule,
          .magnitude = item.magnitude,
          .at = at(item.magnitude_place),
          .ratio = item.ratio,
          .ratio_at = at(item.ratio_place)};
}

Unchecked unchecked_of(std::uint32_t element, const store::UncheckedRow& row) {
  const auto* kind = std::ranges::find(kinds, row.kind, &KindText::rule);
  if (kind == std::end(kinds))
    throw std::runtime_error(fmt::format(texts::translatable("there is no remark {}"), row.kind));
  const auto place = [&](const store::UncheckedRow::At& at) -> second_opinion::Place {
    return {element, at.combination, at.min_side, at.fraction};
  };
  return {.kind = static_cast<Unchecked::Kind>(kind - std::begin(kinds)),
          .elements = {element},
          .magnitude = row.magnitude,
          .magnitude_place = row.magnitude > 0.0 ? place(row.at) : second_opinion::Place(),
          .ratio = row.ratio,
          .ratio_place = row.ratio ? place(row.ratio_at) : second_opinion::Place()};
}

std::vector<store::RemarkRow> unchecked_remarks(const second_opinion::RunFound& result,
                                                const model::Model& model) {
  std::vector<store::RemarkRow> rows;
  rows.reserve(result.unchecked.size());
  for (const Unchecked& item : result.unchecked) rows.push_back(remark_of(item, model));
  add_between(result, model, rows);
  return rows;
}

}  // namespace aluframe::run
