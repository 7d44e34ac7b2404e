#include "aluframe/run/deflections.h"

#include <fmt/format.h>

#include <algorithm>
#include <cmath>
#include <set>
#include <utility>
#include <variant>

#include "aluframe/deflections/deflection_search.h"
#include "aluframe/io/named_values.h"
#include "aluframe/run/buckling_subjects.h"
#include "aluframe/run/chosen_numbers.h"
#include "aluframe/services/governing_count.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

using store::DisplacementKind;
using store::DisplacementRow;

/// Kind of the remark on limits that are passed.
constexpr const char* remark_kind = texts::translatable("deflection");

std::vector<model::Number> combinations_for_serviceability(const model::Model& model) {
  std::vector<model::Number> numbers;
  for (const model::Combination& combination : model.combinations) {
    if (combination.serviceability && !combination.state_of) numbers.push_back(combination.number);
  }
  return numbers;
}

/// Parts of a span that are rounding, not deflection.
constexpr double noise = 1e-12;

bool is_noise(double value, double length) {
  return std::abs(value) <= noise * length;
}

/// Fills rows from what was found.
class Rows {
 public:
  /// @param states how many were looked at
  Rows(const model::Model& model, const deflections::Deflections& found, std::size_t states)
      : model_(model), found_(found), is_known_(found.unknown.size() < states) {}

  std::vector<DisplacementRow> make() && {
    for (std::size_t i = 0; i < found_.spans.size(); ++i) {
      const deflections::Span& span = found_.spans[i];
      if (span.axes[0]) add_span(span, "y", found_.of_spans[i][0]);
      if (span.axes[1]) add_span(span, "z", found_.of_spans[i][1]);
    }
    for (std::size_t i = 0; i < found_.drifts.size(); ++i) {
      add_drift(model_.serviceability.drifts[i], found_.drifts[i]);
    }
    for (const deflections::NodeDisplacement& node : found_.nodes) add_node(node);
    return std::move(rows_);
  }

 private:
  void add_span(const deflections::Span& span, const char* direction,
                const deflections::AxisDeflection& found) {
    const bool moves = !is_noise(found.relative.value, span.length);
    if (span.is_part && is_known_ && !moves) return;  // nothing to tell beside the others
    DisplacementRow row{.kind = DisplacementKind::deflection, .direction = direction};
    std::vector<model::Number> elements;
    for (const auto& element : span.elements) {
      elements.push_back(model_.elements[element.place].number);
    }
    std::ranges::sort(elements);
    row.elements = model::join_as_ranges(elements);
    if (span.member != 0) {
      row.member = span.member;
      row.name = model_.members.find(span.member)->name;
    }
    row.first_node = model_.nodes[span.start].number;
    row.second_node = model_.nodes[span.end].number;
    row.is_cantilever = span.kind == deflections::SpanKind::cantilever;
    row.length = span.length;
    const double limit = deflections::allowed(deflections::limit_of(model_, span), span);
    if (std::isfinite(limit)) row.limit = limit;
    if (is_known_) {
      row.value = moves ? found.relative.value : 0.0;
      row.absolute = is_noise(found.absolute.value, span.length) ? 0.0 : found.absolute.value;
    }
    if (is_known_ && moves) {
      row.combination = found.relative.combination;
      row.element = model_.elements[found.relative.element].number;
      row.from_start = found.relative.x;
    }
    rows_.push_back(std::move(row));
  }

  void add_drift(const model::DriftLimit& limit, const deflections::Drift& found) {
    const double height = model_.nodes.find(limit.upper)->z - model_.nodes.find(limit.lower)->z;
    add_of_nodes({.kind = DisplacementKind::drift,
                  .name = limit.name,
                  .first_node = limit.lower,
                  .second_node = limit.upper,
                  .direction = "horizontal",
                  .length = height,
                  .limit = height / limit.height},
                 found.value, found.combination);
  }

  void add_node(const deflections::NodeDisplacement& found) {
    const model::DisplacementLimit& limit = model_.serviceability.displacements[found.limit];
    add_of_nodes(
        {.kind = DisplacementKind::node,
         .first_node = model_.nodes[found.node].number,
         .direction = std::string(io::name_in(io::displacement_directions, limit.direction)),
         .limit = limit.absolute},
        found.value, found.combination);
  }

  void add_of_nodes(DisplacementRow row, double value, model::Number combination) {
    if (is_known_) row.value = value;
    if (is_known_ && combination != 0) row.combination = combination;
    rows_.push_back(std::move(row));
  }

  const model::Model& model_;
  const deflections::Deflections& found_;
  bool is_known_;
  std::vector<DisplacementRow> rows_;
};

RunDisplacements displacements_under(const Input& input,
                                     const std::vector<model::Number>& combinations,
                                     const GoesOn& goes_on) {
  RunDisplacements out;
  if (combinations.empty()) return out;
  const BucklingSubjects subjects(input);
  std::vector<deflections::State> states;
  for (const model::Number number : combinations) {
    const BucklingSubject subject = subjects.of_combination(number);
    for (const forces::LoadSet& set : subject.sets) states.push_back({number, set});
    if (!subject.unknown.empty()) out.unknown.push_back({number, subject.unknown});
  }
  const deflections::Deflections found =
      deflections::find_deflections(input.model, states, goes_on, input.forces.displacements.get());
  for (const deflections::Unknown& unknown : found.unknown) {
    out.unknown.push_back({unknown.combination, unknown.reason});
  }
  out.rows = Rows(input.model, found, states.size()).make();
  return out;
}

/// Combinations, and the word for one or several.
std::string combinations_text(const std::vector<UnknownDisplacements>& unknown,
                              const std::string& reason) {
  std::set<model::Number> numbers;
  for (const UnknownDisplacements& of : unknown) {
    if (of.reason == reason) numbers.insert(of.combination);
  }
  const std::string list = model::join_as_ranges({numbers.begin(), numbers.end()});
  return numbers.size() == 1 ? fmt::format(texts::translatable("combination {}"), list)
                             : fmt::format(texts::translatable("combinations {}"), list);
}

/// "23.1 mm along z, of 22.2 mm allowed"
std::string passed_text(const DisplacementRow& row) {
  const std::string value = fmt::format("{:.4g}", std::abs(*row.value));
  const std::string limit = fmt::format("{:.4g}", *row.limit);
  if (row.direction == "total" || row.direction == "horizontal") {
    return fmt::format(texts::translatable("{} mm, of {} mm allowed"), value, limit);
  }
  return fmt::format(texts::translatable("{} mm along {}, of {} mm allowed"), value, row.direction,
                     limit);
}

std::vector<model::Number> elements_of(const DisplacementRow& row) {
  std::vector<model::Number> elements;
  if (row.elements.empty()) return elements;
  std::string text = row.elements;
  std::erase(text, ' ');
  const auto ranges = std::get<model::NumberRanges>(model::parse_number_ranges(text));
  for (const model::NumberRange& range : ranges.ranges()) {
    for (model::Number n = range.first; n <= range.last; ++n) elements.push_back(n);
  }
  return elements;
}

/// Whether a limit of displacements or a drift looks at an end of the span.
bool has_limited_end(const DisplacementRow& span, const std::vector<DisplacementRow>& rows) {
  return std::ranges::any_of(rows, [&](const DisplacementRow& row) {
    if (row.kind == DisplacementKind::deflection) return false;
    const auto is_end = [&](std::uint32_t node) {
      return node == span.first_node || node == span.second_node;
    };
    return is_end(row.first_node) || (row.second_node && is_end(*row.second_node));
  });
}

/// One remark on spans that pass from the line between their ends while these ends sink: of a
/// cantilever that carries others that line says little.
std::optional<store::RemarkRow> remark_on_carried(const std::vector<DisplacementRow>& rows) {
  constexpr double as_cantilever = 2.0;  // what a limit allows an arm of the same length
  std::set<model::Number> elements;
  const DisplacementRow* worst = nullptr;
  for (const DisplacementRow& row : rows) {
    if (row.kind != DisplacementKind::deflection || row.is_cantilever) continue;
    if (!row.limit || !row.absolute || exceeds_limit(row)) continue;
    if (!(std::abs(*row.absolute) > as_cantilever * *row.limit)) continue;
    if (has_limited_end(row, rows)) continue;
    const auto own = elements_of(row);
    elements.insert(own.begin(), own.end());
    if (worst == nullptr || std::abs(*row.absolute) > std::abs(*worst->absolute)) worst = &row;
  }
  if (worst == nullptr) return std::nullopt;
  store::RemarkRow remark;
  remark.kind = remark_kind;
  remark.elements = model::join_as_ranges({elements.begin(), elements.end()});
  remark.combination = worst->combination;
  remark.text = fmt::format(
      texts::translatable(
          "within the limit from the line between their ends, but these ends move: "
          "{} by up to {:.4g} mm along {}, of {:.4g} mm allowed to bend; limit the "
          "displacement of the node where an end hangs on others, as a balcony does "
          "on its edge beam"),
      subject_text(*worst), std::abs(*worst->absolute), worst->direction, *worst->limit);
  return remark;
}

/// One remark on all that pass the limits of their kind.
std::optional<store::RemarkRow> remark_on_passed(const std::vector<DisplacementRow>& rows) {
  const DisplacementRow* const worst = worst_displacement(rows);
  if (worst == nullptr || !exceeds_limit(*worst)) return std::nullopt;
  std::set<model::Number> elements;
  std::set<std::string> subjects;
  for (const DisplacementRow& row : rows) {
    if (!exceeds_limit(row)) continue;
    subjects.insert(subject_text(row));
    const auto own = elements_of(row);
    elements.insert(own.begin(), own.end());
  }
  store::RemarkRow remark;
  remark.kind = remark_kind;
  remark.elements = model::join_as_ranges({elements.begin(), elements.end()});
  remark.combination = worst->combination;
  const char* const text =
      subjects.size() == 1 ? texts::translatable(
                                 "a limit of displacements is passed: {}, {} under combination {}; "
                                 "stiffen, shorten or hold it")
                           : texts::translatable(
                                 "limits of displacements are passed, the worst: {}, {} under "
                                 "combination {}; stiffen, shorten or hold them");
  remark.text = fmt::format(fmt::runtime(text), subject_text(*worst), passed_text(*worst),
                            worst->combination.value_or(0));
  return remark;
}

}  // namespace

Result<RunDisplacements> find_displacements(const Input& input,
                                            const model::NumberRanges& combinations) {
  auto existing = combinations_for_serviceability(input.model);
  if (existing.empty()) {
    return about(input, texts::translated("the model has no combination for serviceability: mark "
                                          "those with \"serviceability\": true, or have them made "
                                          "by rule"));
  }
  const auto numbers = chosen_numbers(input, "--combinations", combinations, std::move(existing),
                                      texts::translated("combination for serviceability"));
  if (const auto* problem = std::get_if<Problem>(&numbers)) return *problem;
  return displacements_under(input, std::get<std::vector<model::Number>>(numbers), {});
}

bool is_looked_at_in_use(const model::Model& model) {
  return !combinations_for_serviceability(model).empty();
}

RunDisplacements displacements_of_run(const Input& input, const GoesOn& goes_on) {
  return displacements_under(input, combinations_for_serviceability(input.model), goes_on);
}

std::vector<store::RemarkRow> displacement_remarks(const RunDisplacements& displacements) {
  std::vector<store::RemarkRow> remarks = remarks_on_unknown(displacements);
  if (auto carried = remark_on_carried(displacements.rows)) {
    remarks.insert(remarks.begin(), *std::move(carried));
  }
  if (auto passed = remark_on_passed(displacements.rows)) {
    remarks.insert(remarks.begin(), *std::move(passed));
  }
  return remarks;
}

std::vector<store::RemarkRow> remarks_on_unknown(const RunDisplacements& displacements) {
  std::vector<store::RemarkRow> remarks;
  std::set<std::string> told;
  for (const UnknownDisplacements& unknown : displacements.unknown) {
    if (!told.insert(unknown.reason).second) continue;
    store::RemarkRow remark;
    remark.kind = unknown_displacements;
    remark.combination = unknown.combination;
    remark.text =
        fmt::format(texts::translatable("displacements under {} are unknown: {}"),
                    combinations_text(displacements.unknown, unknown.reason), unknown.reason);
    remarks.push_back(std::move(remark));
  }
  return remarks;
}

std::optional<double> ratio_of(const DisplacementRow& row) {
  if (!row.limit || !row.value) return std::nullopt;
  return std::abs(*row.value) / *row.limit;
}

bool exceeds_limit(const DisplacementRow& row) {
  const auto ratio = ratio_of(row);
  return ratio && services::exceeds_limit(*ratio);
}

std::map<model::Number, double> deflection_ratios(const std::vector<DisplacementRow>& rows) {
  std::map<model::Number, double> ratios;
  for (const DisplacementRow& row : rows) {
    const auto ratio = ratio_of(row);
    if (!ratio || row.kind != store::DisplacementKind::deflection) continue;
    for (const model::Number element : elements_of(row)) {
      double& largest = ratios.try_emplace(element, 0.0).first->second;
      largest = std::max(largest, *ratio);
    }
  }
  return ratios;
}

std::vector<model::Number> unknown_deflections(const std::vector<DisplacementRow>& rows) {
  std::set<model::Number> elements;
  for (const DisplacementRow& row : rows) {
    if (row.kind != store::DisplacementKind::deflection || !row.limit || row.value) continue;
    const auto own = elements_of(row);
    elements.insert(own.begin(), own.end());
  }
  return {elements.begin(), elements.end()};
}

const DisplacementRow* worst_displacement(const std::vector<DisplacementRow>& rows) {
  constexpr double rounding = 1e-10;
  const DisplacementRow* worst = nullptr;
  for (const DisplacementRow& row : rows) {
    const auto ratio = ratio_of(row);
    if (!ratio) continue;
    if (worst == nullptr || *ratio > *ratio_of(*worst) * (1.0 + rounding)) worst = &row;
  }
  return worst;
}

const DisplacementRow* largest_share(const std::vector<DisplacementRow>& rows) {
  constexpr double rounding = 1e-10;
  const DisplacementRow* largest = nullptr;
  for (const DisplacementRow& row : rows) {
    const auto share = span_share(row);
    if (!share) continue;
    if (largest == nullptr || *share < *span_share(*largest) * (1.0 - rounding)) largest = &row;
  }
  return largest;
}

std::optional<double> span_share(const DisplacementRow& row) {
  if (!row.length || !row.value || *row.value == 0.0) return std::nullopt;
  return *row.length * (row.is_cantilever ? 2.0 : 1.0) / std::abs(*row.value);
}

std::string subject_text(const DisplacementRow& row) {
  switch (row.kind) {
    case DisplacementKind::deflection:
      if (row.member) {
        return fmt::format(texts::translatable("member {} (nodes {} to {})"), *row.member,
                           row.first_node, row.second_node.value_or(0));
      }
      if (row.elements.find_first_of("-,") != std::string::npos) {
        return fmt::format(texts::translatable("elements {} (nodes {} to {})"), row.elements,
                           row.first_node, row.second_node.value_or(0));
      }
      return fmt::format(texts::translatable("element {}"), row.elements);
    case DisplacementKind::drift:
      return fmt::format(texts::translatable("drift between nodes {} and {}"), row.first_node,
                         row.second_node.value_or(0));
    default:
      return fmt::format(texts::translatable("node {}"), row.first_node);
  }
}

}  // namespace aluframe::run
