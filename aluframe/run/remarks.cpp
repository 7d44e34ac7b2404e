#include "aluframe/run/remarks.h"
#include "aluframe/analysis/second_order.h"

#include <fmt/format.h>

#include <algorithm>
#include <iterator>
#include <map>
#include <set>

#include "aluframe/credibility/credibility.h"
#include "aluframe/members/axes_remarks.h"
#include "aluframe/model/envelopes.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/remarks/remarks.h"
#include "aluframe/run/length_remarks.h"
#include "aluframe/section/second_computation.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

using Numbers = std::set<model::Number>;

store::RemarkRow row_of(const std::string& kind, const Numbers& elements, std::string text) {
  store::RemarkRow row;
  row.kind = kind;
  row.elements = model::join_as_ranges({elements.begin(), elements.end()});
  row.text = std::move(text);
  return row;
}

void add_of_model(const model::Model& model, const std::vector<members::SegmentFactors>& factors,
                  std::vector<store::RemarkRow>& rows) {
  for (remarks::Remark& remark : remarks::model_remarks(model, factors)) {
    store::RemarkRow row = row_of(remark.rule, {remark.elements.begin(), remark.elements.end()},
                                  std::move(remark.text));
    row.element = remark.element;
    rows.push_back(std::move(row));
  }
}

/// One row with the text of the first; the others lean as little.
void add_of_axes(const model::Model& model, std::vector<store::RemarkRow>& rows) {
  const auto found = members::axes_remarks(model);
  if (found.empty()) return;
  Numbers elements;
  for (const members::AxesRemark& remark : found) elements.insert(remark.element);
  store::RemarkRow row = row_of(texts::translatable("axes"), elements, found.front().text);
  if (found.size() > 1) {
    row.text = fmt::format(texts::translatable("of element {} {}; the others likewise"),
                           found.front().element, found.front().text);
  }
  row.element = found.front().element;
  rows.push_back(std::move(row));
}

void add_of_sections(const model::Model& model, std::vector<store::RemarkRow>& rows) {
  std::map<model::Number, Numbers> used;
  for (const model::Element& element : model.elements) {
    used[element.section].insert(element.number);
  }
  for (const auto& [number, elements] : used) {
    const auto text = section::torsion_remark(*model.sections.find(number));
    if (text)
      rows.push_back(row_of("It", elements,
                            fmt::format(texts::translatable("section {}: {}"), number, *text)));
  }
}

void add_of_magnitudes(const model::Model& model, std::vector<store::RemarkRow>& rows) {
  for (credibility::Doubt& doubt : credibility::doubts(model)) {
    store::RemarkRow row =
        row_of(texts::translatable("units"), {doubt.elements.begin(), doubt.elements.end()},
               std::move(doubt.text));
    row.element = doubt.element;
    rows.push_back(std::move(row));
  }
}

/// A row a load case, because each is given apart.
void add_of_positions(const Input& input, std::vector<store::RemarkRow>& rows) {
  std::map<model::Number, Numbers> by_case;
  for (const auto& [element, load_case] : input.forces.without_inner) {
    by_case[load_case].insert(element);
  }
  for (const auto& [load_case, elements] : by_case) {
    rows.push_back(row_of(
        unknown_between_ends, elements,
        fmt::format(
            texts::translatable(
                "load case {} has forces at the two ends only, while loads act between them: "
                "nothing is known there, give five rows"),
            load_case)));
  }
}

/// One row; an envelope's state is told by the envelope.
void add_of_growth(const Input& input, std::vector<store::RemarkRow>& rows) {
  const std::vector<forces::Growing>& growing = input.forces.growing;
  if (growing.empty()) return;
  const auto& worst = *std::ranges::max_element(growing, {}, &forces::Growing::share);
  const auto number_of = [&](const forces::Growing& one) {
    return input.model.combinations.find(one.combination)->state_of.value_or(one.combination);
  };
  Numbers numbers;
  for (const forces::Growing& one : growing) numbers.insert(number_of(one));
  const std::string name = fmt::format(texts::translatable("combination {}"), number_of(worst));
  const std::string all =
      numbers.size() == 1 ? name
                          : fmt::format(texts::translatable("combinations {}"),
                                        model::join_as_ranges({numbers.begin(), numbers.end()}));
  store::RemarkRow row = row_of(texts::translatable("displacements"), {},
                                growth_remark(all, name, worst.share, worst.moves));
  row.combination = number_of(worst);
  rows.push_back(std::move(row));
}

/// Peaks of extremes are those of their parts, which second order does not keep.
constexpr const char* peaks_unknown = texts::translatable(
    "combination {}: where extremes of second order peak between the five positions is unknown; "
    "check the states (\"envelopes\": \"states\")");

void add_of_extremes(const Input& input, std::vector<store::RemarkRow>& rows) {
  auto combinations = model::checked_by_extremes(input.model, input.combinations);
  if (combinations.empty()) return;
  std::ranges::sort(combinations);
  const std::string numbers = model::join_as_ranges(combinations);
  rows.push_back(row_of(
      "extremes", {},
      fmt::format(
          texts::translatable(
              "combination {}: checked by extremes (\"envelopes\": \"extremes\"), whose forces "
              "need not act together; the ratio of a state in it may be higher"),
          numbers)));
  if (!input.model.analysis.second_order) return;
  rows.push_back(row_of("P", {}, fmt::format(fmt::runtime(peaks_unknown), numbers)));
}

/// Where modes are not known yet, a check tells of them.
void add_of_lengths(const Input& input, std::vector<store::RemarkRow>& rows) {
  if (!input.modes && input.buckling == FrameBuckling::on) return;
  std::ranges::move(length_remarks(input.length_factors, input.modes ? &*input.modes : nullptr),
                    std::back_inserter(rows));
}

}  // namespace

std::string growth_remark(const std::string& subjects, const std::string& worst, double share,
                          const std::string& moves) {
  const std::string why =
      share > analysis::noticeable_growth
          ? fmt::format(texts::translatable("those at the displaced nodes are {:.0f} % larger"),
                        100.0 * share)
          : fmt::format(texts::translatable("{:.0f} times as far, no stiffness would be left"),
                        analysis::flattening_times);
  return fmt::format(
      texts::translatable(
          "{}: displacements are too large for second order, {} under {} ({}), and the frame may "
          "snap "
          "through at less than its buckling factor: follow them (\"second_order\": \"large\", or "
          "--large-displacements)"),
      subjects, why, worst, moves);
}

std::vector<store::RemarkRow> input_remarks(const Input& input) {
  std::vector<store::RemarkRow> rows;
  add_of_magnitudes(input.model, rows);
  add_of_positions(input, rows);
  add_of_extremes(input, rows);
  add_of_growth(input, rows);
  add_of_axes(input.model, rows);
  add_of_sections(input.model, rows);
  add_of_model(input.model, input.length_factors, rows);
  add_of_lengths(input, rows);
  std::ranges::copy(input.restrained.remarks, std::back_inserter(rows));
  return rows;
}

}  // namespace aluframe::run
