#include "aluframe/run/document.h"

#include <algorithm>
#include <set>
#include <stdexcept>
#include <utility>
#include <variant>

#include "aluframe/forces/compute_forces.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/run/force_lines.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

namespace fs = std::filesystem;

bool goes_before(const ElementResult& a, const ElementResult& b) {
  const store::GoverningRow &first = a.worst(), &second = b.worst();
  if (was_judged(first) != was_judged(second)) return was_judged(first);
  return first.governing.ComPair(second.governing) != 0;
}

std::vector<ElementResult> wanted_elements(store::ResultReader& reader, const Input& input) {
  std::vector<ElementResult> elements = by_element(reader.governing());
  const std::set<model::Number> wanted(input.elements.begin(), input.elements.end());
  std::erase_if(elements, [&](const ElementResult& element) {
    return !wanted.empty() && !wanted.contains(element.element);
  });
  std::ranges::stable_sort(elements, goes_before);
  return elements;
}

/// The worst check of each combination, by the records of element after element.
class CombinationResults {
 public:
  explicit CombinationResults(const store::RunInfo& info) {
    for (const store::CombinationRow& row : info.combinations)
      out_.push_back({.number = row.number, .worst = {}});
  }

  void add(const ElementResult& element, const std::vector<store::StoredRecord>& records) {
    std::set<std::uint32_t> failing;
    for (const store::StoredRecord& stored : records) {
      for (int item = 0; item < kResultItems; ++item) {
        const store::GoverningRow row{element.element, element.member_type, item,
                                      stored.record.aComp[static_cast<std::size_t>(item)]};
        if (stored.combination == 0 || !was_judged(row)) continue;
        take(stored.combination, row);
        if (fails(row)) failing.insert(stored.combination);
      }
    }
    for (CombinationResult& combination : out_)
      combination.over += failing.count(combination.number);
  }

  std::vector<CombinationResult> result() && { return std::move(out_); }

 private:
  void take(std::uint32_t combination, const store::GoverningRow& row) {
    const auto found = std::ranges::find(out_, combination, &CombinationResult::number);
    if (found == out_.end()) return;
    const std::optional<store::GoverningRow>& known = found->worst;
    if (known && row.governing.ComPair(known->governing) == 0) return;
    found->worst = row;
  }

  std::vector<CombinationResult> out_;
};

/// The elements that are checked with one, from the start of their member to its end.
const members::SegmentFactors* segment_of(const Input& input, model::Number element) {
  const auto found = std::ranges::find_if(input.length_factors, [&](const auto& of) {
    return std::ranges::find(of.elements, element) != of.elements.end();
  });
  return found == input.length_factors.end() ? nullptr : &*found;
}

/// The element of the worst ratio of every section, with the member that it belongs to.
/// @param elements the worst ratio first
std::vector<GoverningMember> governing_members(const Input& input, store::ResultReader& reader,
                                               const std::vector<ElementResult>& elements) {
  std::vector<GoverningMember> out;
  std::set<model::Number> sections;
  for (const ElementResult& element : elements) {
    const model::Number section = input.model.elements.find(element.element)->section;
    if (!was_judged(element.worst()) || !sections.insert(section).second) continue;
    GoverningMember member{.member = {},
                           .elements = {element.element},
                           .section = section,
                           .worst = element.worst(),
                           .forces = {},
                           .ratios = {}};
    if (const auto* segment = segment_of(input, element.element)) {
      member.member = segment->member;
      member.elements = segment->elements;
    }
    for (const model::Number number : member.elements) {
      member.ratios.push_back(ratios_along(reader, number));
    }
    member.forces = force_lines_along(input, member.worst.governing.nLComb, member.elements);
    out.push_back(std::move(member));
  }
  return out;
}

/// Displacements and reactions, or why there are none.
void add_analysis(DocumentContent& content) {
  const model::Model& model = content.input.model;
  if (std::ranges::none_of(model.load_cases, forces::has_loads)) {
    content.no_analysis =
        texts::translated("the model has no loads to analyse, its forces are given");
    return;
  }
  auto analysed = analyse(content.input, {});
  if (auto* problem = std::get_if<Problem>(&analysed)) {
    content.no_analysis = problem->text;
    return;
  }
  content.analysis = std::get<Analysis>(std::move(analysed));
}

void add_results(store::ResultReader& reader, DocumentContent& content) {
  content.elements = wanted_elements(reader, content.input);
  std::vector<model::Number> rising;
  rising.reserve(content.elements.size());
  for (const ElementResult& element : content.elements) rising.push_back(element.element);
  for (const store::NotChecked& item : reader.not_checked()) {
    const auto& only = content.input.elements;
    if (only.empty() || std::ranges::find(only, item.element) != only.end())
      rising.push_back(item.element);
  }
  std::ranges::sort(rising);
  const auto repeated = std::ranges::unique(rising);
  rising.erase(repeated.begin(), repeated.end());
  content.told = told_by(reader, rising);
  content.safe = safe_by_element(reader);
  CombinationResults combinations(content.info);
  for (const ElementResult& element : content.elements) {
    combinations.add(element, reader.read_all(element.element));
  }
  content.combinations = std::move(combinations).result();
  content.governing_members = governing_members(content.input, reader, content.elements);
}

/// Elements that are asked for and that the check has not taken up, or nothing.
std::optional<Problem> elements_without_results(store::ResultReader& reader, const Input& input) {
  std::set<model::Number> missing(input.elements.begin(), input.elements.end());
  for (const std::uint32_t element : reader.elements()) missing.erase(element);
  for (const store::NotChecked& item : reader.not_checked()) missing.erase(item.element);
  if (missing.empty()) return std::nullopt;
  return Problem{texts::translated("--elements: there are no results of element {}; check it first",
                                   model::join_as_ranges({missing.begin(), missing.end()}))};
}

/// What the reader must know before the first ratio.
std::vector<std::string> reservations_of(const DocumentOptions& options,
                                         store::ResultReader& reader,
                                         const DocumentContent& content) {
  std::vector<std::string> out;
  if (auto text = unfinished_text(options.results, reader.state())) out.push_back(*std::move(text));
  if (auto text = later_run_text(options.results)) out.push_back(*std::move(text));
  if (!content.coverage.is_whole()) {
    out.push_back(texts::translated("The results cover a part of the model: {}",
                                    coverage_text(content.coverage)));
  }
  if (!content.input.elements.empty()) {
    std::vector<model::Number> rising = content.input.elements;
    std::ranges::sort(rising);
    out.push_back(texts::translated("The document is of a part of the elements: {}",
                                    model::join_as_ranges(rising)));
  }
  return out;
}

}  // namespace

Result<DocumentContent> gather_document(const DocumentOptions& options) {
  if (auto problem = missing_results(options.results, options.input.model))
    return *std::move(problem);
  const auto reader = store::ResultReader::open(options.results);
  auto prepared = prepare_like(options.results, options.input, options.selection);
  if (auto* problem = std::get_if<Problem>(&prepared)) return std::move(*problem);
  DocumentContent content;
  content.input = std::get<Input>(std::move(prepared));
  content.info = reader->info();
  if (content.input.digest != content.info.model_digest) {
    return Problem{other_state_text(options.input.model, options.results)};
  }
  if (auto problem = elements_without_results(*reader, content.input)) return *std::move(problem);
  content.coverage = coverage_of(*reader);
  content.reservations = reservations_of(options, *reader, content);
  add_results(*reader, content);
  add_analysis(content);
  return content;
}

void derive_checks(const DocumentContent& content, const fs::path& results, DerivationDetail detail,
                   const std::function<void(const ExplainedCheck&)>& take) {
  const auto reader = store::ResultReader::open(results);
  std::vector<model::Number> elements;
  elements.reserve(content.elements.size());
  for (const ElementResult& element : content.elements) elements.push_back(element.element);
  const CheckExplainer explainer(content.input, content.info, results, elements);
  if (const auto problem = for_each_derivation(explainer, *reader, elements, detail, take)) {
    throw std::runtime_error(problem->text);
  }
}

}  // namespace aluframe::run
