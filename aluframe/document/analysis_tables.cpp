#include "aluframe/document/analysis_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "aluframe/document/names.h"
#include "aluframe/document/table.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

constexpr int decimals = 3;

std::string subject_heading(const run::Analysis& analysis) {
  return analysis.of_combinations ? texts::translated("Combination")
                                  : texts::translated("Load case");
}

std::string subject_label(const model::Model& model, const run::Analysis& analysis,
                          std::size_t subject) {
  const model::Number number = analysis.subjects[subject];
  return with_name(number, analysis.of_combinations ? model.combinations.find(number)->name
                                                    : model.load_cases.find(number)->name);
}

double distance_of(const analysis::Vector6& displacement) {
  return std::hypot(displacement[0], displacement[1], displacement[2]);
}

/// The node that is displaced most.
std::size_t largest_of(const analysis::CaseResult& result) {
  std::size_t largest = 0;
  for (std::size_t node = 1; node < result.displacements.size(); ++node) {
    if (distance_of(result.displacements[node]) > distance_of(result.displacements[largest])) {
      largest = node;
    }
  }
  return largest;
}

/// The load case or combination in which a node is displaced most.
std::size_t largest_of(const run::Analysis& analysis, std::size_t node) {
  std::size_t largest = 0;
  const auto distance = [&](std::size_t subject) {
    return distance_of(analysis.answers[subject].result.displacements[node]);
  };
  for (std::size_t subject = 1; subject < analysis.answers.size(); ++subject) {
    if (distance(subject) > distance(largest)) largest = subject;
  }
  return largest;
}

std::array<double, 3> sum_of(const std::vector<analysis::Reaction>& reactions) {
  std::array<double, 3> sum{};
  for (const analysis::Reaction& reaction : reactions) {
    for (std::size_t i = 0; i < sum.size(); ++i) sum[i] += reaction.value[i];
  }
  return sum;
}

std::vector<Cell> equilibrium_cells(const model::Model& model, const run::Analysis& analysis,
                                    std::size_t subject) {
  const Scale scale(model.units);
  const analysis::CaseResult& result = analysis.answers[subject].result;
  const std::size_t node = largest_of(result);
  std::vector<Cell> cells{{subject_label(model, analysis, subject)},
                          {fixed(distance_of(result.displacements[node]), decimals)},
                          {fmt::format("{}", model.nodes[node].number)}};
  for (const double sum : sum_of(result.reactions)) {
    cells.push_back({fixed(sum / scale.force, decimals)});
  }
  cells.push_back(
      {fmt::format("{:.1e}", std::max(result.equilibrium.nodes, result.equilibrium.whole))});
  cells.push_back({fmt::format("{:.1e}", result.equilibrium.force_error)});
  return cells;
}

void write_none(HtmlWriter& html, const run::DocumentContent& content) {
  html.leaf("p", texts::translated("Not known: {}.", content.no_analysis));
}

std::string envelopes_text(const run::Analysis& analysis) {
  return texts::translated(
      "Envelopes among the combinations are left out, as their sides are no state of the frame: "
      "{}.",
      model::join_as_ranges(analysis.left_out));
}

}  // namespace

void write_equilibrium(HtmlWriter& html, const run::DocumentContent& content) {
  if (!content.analysis) return write_none(html, content);
  const Scale scale(content.input.model.units);
  const run::Analysis& analysis = *content.analysis;
  html.leaf("p", analysis.second_order
                     ? texts::translated("Forces are of second order: each combination was "
                                         "analysed on its own, on the displaced frame.")
                     : texts::translated("Forces are of first order: load cases were analysed, "
                                         "combinations add them up."));
  if (!analysis.left_out.empty()) html.leaf("p", envelopes_text(analysis));
  write_table(html, texts::translated("Largest displacements, sums of reactions and residuals"),
              {{subject_heading(analysis), Align::left},
               {in_unit(texts::translated("Displacement"), "mm")},
               {texts::translated("Node")},
               {in_unit(texts::translated("Sum of FX"), scale.force_unit)},
               {in_unit(texts::translated("Sum of FY"), scale.force_unit)},
               {in_unit(texts::translated("Sum of FZ"), scale.force_unit)},
               {texts::translated("Residual")},
               {texts::translated("Force error")}},
              [&](TableRows& rows) {
                for (std::size_t s = 0; s < analysis.subjects.size(); ++s) {
                  rows.add(equilibrium_cells(content.input.model, analysis, s));
                }
              });
  html.leaf("p", texts::translated(
                     "The residual is the largest unbalanced force as a share of the largest load "
                     "or element force; the force error bounds how far forces are uncertain."));
}

void write_displacements(HtmlWriter& html, const run::DocumentContent& content) {
  if (!content.analysis) return write_none(html, content);
  const run::Analysis& analysis = *content.analysis;
  write_table(
      html, texts::translated("Largest displacement of each node"),
      {{texts::translated("Node")},
       {in_unit("DX", "mm")},
       {in_unit("DY", "mm")},
       {in_unit("DZ", "mm")},
       {in_unit(texts::translated("Displacement"), "mm")},
       {subject_heading(analysis), Align::left}},
      [&](TableRows& rows) {
        const auto& nodes = content.input.model.nodes;
        for (std::size_t node = 0; node < nodes.size(); ++node) {
          const std::size_t s = largest_of(analysis, node);
          const auto& d = analysis.answers[s].result.displacements[node];
          rows.add({{fmt::format("{}", nodes[node].number)},
                    {fixed(d[0], decimals)},
                    {fixed(d[1], decimals)},
                    {fixed(d[2], decimals)},
                    {fixed(distance_of(d), decimals)},
                    {distance_of(d) > 0.0 ? subject_label(content.input.model, analysis, s) : ""}});
        }
      });
}

void write_reactions(HtmlWriter& html, const run::DocumentContent& content) {
  if (!content.analysis) return write_none(html, content);
  const Scale scale(content.input.model.units);
  const run::Analysis& analysis = *content.analysis;
  const model::Model& model = content.input.model;
  std::vector<Column> columns{{texts::translated("Node")},
                              {subject_heading(analysis), Align::left}};
  constexpr std::array components{"FX", "FY", "FZ", "MX", "MY", "MZ"};
  const auto is_force = [](std::size_t component) { return component < 3; };
  for (std::size_t i = 0; i < components.size(); ++i) {
    columns.push_back(
        {in_unit(components[i], is_force(i) ? scale.force_unit : scale.moment_unit())});
  }
  write_table(html, texts::translated("Reactions of the supports, global axes"), columns,
              [&](TableRows& rows) {
                for (std::size_t s = 0; s < analysis.subjects.size(); ++s) {
                  for (const auto& reaction : analysis.answers[s].result.reactions) {
                    std::vector<Cell> cells{{fmt::format("{}", model.nodes[reaction.node].number)},
                                            {subject_label(model, analysis, s)}};
                    for (std::size_t i = 0; i < components.size(); ++i) {
                      const double unit = is_force(i) ? scale.force : scale.moment();
                      cells.push_back({fixed(reaction.value[i] / unit, decimals)});
                    }
                    rows.add(cells);
                  }
                }
              });
}

}  // namespace aluframe::document
