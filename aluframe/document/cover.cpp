#include "aluframe/document/cover.h"

#include <fmt/format.h>

#include <algorithm>

#include <array>
#include <utility>

#include "aluframe/document/names.h"
#include "aluframe/document/table.h"
#include "aluframe/model/project.h"
#include "aluframe/run/buckling.h"
#include "aluframe/run/deflections.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

using Facts = std::vector<std::pair<std::string, std::string>>;

/// In the order of `model::project_fields`.
constexpr std::array project_labels{
    texts::translatable("Project"),  texts::translatable("Project number"),
    texts::translatable("Client"),   texts::translatable("Location"),
    texts::translatable("Engineer"), texts::translatable("Checker"),
    texts::translatable("Approver"), texts::translatable("Revision"),
    texts::translatable("Date")};
static_assert(project_labels.size() == model::project_fields.size());

void add(Facts& facts, std::string name, const std::string& text) {
  if (!text.empty()) facts.emplace_back(std::move(name), text);
}

Facts project_facts(const model::Project& project) {
  Facts facts;
  for (std::size_t i = 0; i < project_labels.size(); ++i) {
    add(facts, std::string(texts::translation_of(project_labels[i])),
        project.*model::project_fields[i].text);
  }
  return facts;
}

Facts calculation_facts(const run::DocumentContent& content) {
  Facts facts;
  add(facts, texts::translated("Model"), content.input.model.title);
  add(facts, texts::translated("File of the model"), content.input.file.filename().string());
  add(facts, texts::translated("Digest of the model"), content.input.digest);
  add(facts, texts::translated("Design code"), content.info.code);
  add(facts, texts::translated("Program"), content.info.program);
  add(facts, texts::translated("Elements"),
      fmt::format("{} / {}", content.coverage.elements, content.coverage.of_elements));
  add(facts, texts::translated("Combinations"), run::combinations_text(content.coverage));
  add(facts, texts::translated("Forces"), texts::sentence_in_words(content.coverage.analysis));
  return facts;
}

std::string worst_text(const services::WorstCheck& worst, const store::RunInfo& info) {
  return texts::translated(
      "The largest ratio is {} ({}), in element {} at position {}, combination {}.",
      tables::short_number(worst.check.Ratio()), item_label(worst.item), worst.element,
      tables::position_name(worst.check.nPos),
      combination_label(info, worst.check.nLComb, worst.check.nMinSide));
}

bool is_buckling(const run::DocumentContent& content) {
  const store::BucklingRow* smallest = run::smallest_factor(content.told.buckling_factors);
  return smallest != nullptr && run::buckles(*smallest);
}

bool is_displaced_too_far(const run::DocumentContent& content) {
  return std::ranges::any_of(content.told.displacements, run::exceeds_limit);
}

/// Elements that the document is of and that have no check at all.
std::size_t without_check(const run::DocumentContent& content) {
  const std::size_t wanted =
      content.input.elements.empty() ? content.coverage.elements : content.input.elements.size();
  return wanted - std::min(wanted, content.elements.size());
}

bool is_over_safe(const run::DocumentContent& content) {
  return content.told.safe && content.told.safe->over > 0;
}

std::string verdict_text(const run::DocumentContent& content) {
  if (!content.told.worst) return texts::translated("No check was made that has a limit.");
  if (content.told.over == 0) {
    if (is_buckling(content)) {
      return texts::translated("No check exceeds its limit, but the frame buckles.");
    }
    if (is_displaced_too_far(content)) {
      return texts::translated("No check exceeds its limit, but displacements exceed theirs.");
    }
    if (without_check(content) > 0) {
      return texts::translated("No check exceeds its limit, but not every element was checked.");
    }
    if (is_over_safe(content)) {
      return texts::translated("No check exceeds its limit, but safe ratios exceed 1.");
    }
    return texts::translated("No check exceeds its limit.");
  }
  return content.told.over == 1
             ? texts::translated("1 element fails: a ratio of its checks exceeds 1.")
             : texts::translated("{} elements fail: a ratio of their checks exceeds 1.",
                                 content.told.over);
}

std::string buckling_text(const store::BucklingRow& smallest) {
  const std::string factor = fmt::format("{:.4g}", smallest.factor.value_or(0.0));
  const std::string combination = with_name(smallest.combination, smallest.name);
  return run::buckles(smallest)
             ? texts::translated(
                   "The frame buckles: at {} times the loads of combination {}, below them.",
                   factor, combination)
             : texts::translated("The frame buckles at {} times the loads of combination {}.",
                                 factor, combination);
}

std::string displacement_text(const store::DisplacementRow& worst) {
  return texts::translated("The largest displacement is {} of its limit: {}.",
                           tables::short_number(run::ratio_of(worst).value_or(0.0)),
                           texts::sentence_in_words(run::subject_text(worst)));
}

std::string safe_text(const run::SafeSummary& safe, const store::SafeRow& worst) {
  return texts::translated(
      "The largest safe ratio of the second opinion is {}, in element {}; it exceeds 1 in {}, in "
      "{} of which no check says so.",
      tables::short_number(worst.safe), worst.element,
      texts::counted(safe.over, texts::translatable("{} element"),
                     texts::translatable("{} elements")),
      safe.unsaid);
}

/// What else stands between a ratio below 1 and a sound frame.
std::vector<std::string> other_verdicts(const run::DocumentContent& content) {
  std::vector<std::string> out;
  if (content.told.worst) out.push_back(worst_text(*content.told.worst, content.info));
  if (content.told.second_opinion == run::SecondOpinion::off) {
    out.push_back(texts::translated("The check was made without a second opinion."));
  } else if (content.told.safe && content.told.safe->worst) {
    out.push_back(safe_text(*content.told.safe, *content.told.safe->worst));
  }
  const store::BucklingRow* smallest = run::smallest_factor(content.told.buckling_factors);
  if (smallest != nullptr) out.push_back(buckling_text(*smallest));
  if (const auto* worst = run::worst_displacement(content.told.displacements)) {
    out.push_back(displacement_text(*worst));
  }
  if (!content.told.remarks.empty()) {
    out.push_back(texts::translated("Remarks of the check: {}.", content.told.remarks.size()));
  }
  if (const std::size_t count = without_check(content); count > 0) {
    out.push_back(texts::translated("Elements without any check: {}.", count));
  }
  if (!content.told.not_checked.empty()) {
    out.push_back(texts::translated("Not everything was checked: what was not is listed."));
  }
  return out;
}

}  // namespace

std::string title_of(const run::DocumentContent& content) {
  const model::Model& model = content.input.model;
  if (!model.project.name.empty()) return model.project.name;
  return model.title.empty() ? texts::translated("Untitled model") : model.title;
}

void write_cover(HtmlWriter& html, const run::DocumentContent& content) {
  html.element("header", {{"class", "cover"}}, [&] {
    html.leaf("p", {{"class", "kind"}},
              texts::translated("Calculation document of an aluminium frame"));
    html.leaf("h1", title_of(content));
    if (!content.input.model.description.empty()) {
      html.leaf("p", {{"class", "description"}}, content.input.model.description);
    }
    for (const std::string& reservation : content.reservations) {
      html.leaf("p", {{"class", "notice"}}, reservation);
    }
    const Facts project = project_facts(content.input.model.project);
    if (!project.empty()) write_facts(html, texts::translated("Project"), project);
    write_facts(html, texts::translated("Calculation"), calculation_facts(content));
    const bool holds = content.told.worst && content.told.over == 0 && !is_buckling(content) &&
                       !is_displaced_too_far(content) && without_check(content) == 0 &&
                       !is_over_safe(content);
    html.leaf("p", {{"class", holds ? "verdict" : "verdict over"}}, verdict_text(content));
    html.element("ul", [&] {
      for (const std::string& text : other_verdicts(content)) html.leaf("li", text);
    });
  });
}

}  // namespace aluframe::document
