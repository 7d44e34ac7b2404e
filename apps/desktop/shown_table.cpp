#include "apps/desktop/shown_table.h"

#include <utility>
#include <vector>

#include "aluframe/tables/buckling_tables.h"
#include "aluframe/tables/displacement_tables.h"
#include "aluframe/tables/model_tables.h"
#include "aluframe/tables/not_checked_tables.h"
#include "aluframe/tables/remark_tables.h"
#include "aluframe/tables/result_tables.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/ui_texts.h"
#include "apps/desktop/workspace.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

/// What a kind is called.
struct KindNames {
  const char* shown;
  const char* file;
};

constexpr std::array<KindNames, all_tables.size()> names{{
    {translatable("Ratios"), "ratios"},
    {translatable("Governing checks"), "checks"},
    {translatable("Element forces"), "forces"},
    {translatable("Not checked"), "not-checked"},
    {translatable("Remarks"), "remarks"},
    {translatable("Buckling factors"), "buckling"},
    {translatable("Displacements"), "displacements"},
    {translatable("Nodes"), "nodes"},
    {translatable("Elements"), "elements"},
    {translatable("Members"), "members"},
    {translatable("Sections"), "sections"},
    {translatable("Materials"), "materials"},
    {translatable("Load cases"), "load-cases"},
    {translatable("Combinations"), "combinations"},
}};

const KindNames& names_of(TableKind kind) {
  return names[static_cast<std::size_t>(kind)];
}

template <class Entities>
std::vector<model::Number> numbers_of(const Entities& entities) {
  std::vector<model::Number> numbers;
  for (const auto& entity : entities) numbers.push_back(entity.number);
  return numbers;
}

std::vector<run::ElementResult> elements_of(const run::ShownResults& results) {
  std::vector<run::ElementResult> elements;
  elements.reserve(results.elements.size());
  for (const auto& [number, element] : results.elements) elements.push_back(element);
  return elements;
}

ShownTable about_elements(tables::OutputTable table, std::string why_empty) {
  RowElements elements = elements_by_number(table);
  return {std::move(table), std::move(elements), std::move(why_empty)};
}

ShownTable about_lists(tables::OutputTable table, const model::Model& model,
                       std::string why_empty) {
  RowElements elements = elements_by_list(table, model);
  return {std::move(table), std::move(elements), std::move(why_empty)};
}

ShownTable checks_table(const run::ShownResults& results) {
  const std::vector<run::ElementResult> elements = elements_of(results);
  tables::OutputTable table =
      tables::governing_table(elements, results.info, tables::ResultView(), results.safe);
  tables::add_told_columns(table, elements, results.coverage.second_opinion, results.told.remarks);
  return about_elements(std::move(table), texts::translated("No element was checked."));
}

ShownTable table_of_results(TableKind kind, const run::ShownResults& results,
                            const model::Model& model) {
  const run::Told& told = results.told;
  switch (kind) {
    case TableKind::overview:
      return about_elements(
          tables::overview_table(elements_of(results), results.info, results.safe),
          texts::translated("No element was checked."));
    case TableKind::checks:
      return checks_table(results);
    case TableKind::not_checked:
      return about_lists(tables::not_checked_table(told.not_checked, told.remarks), model,
                         texts::translated("Everything was checked."));
    case TableKind::remarks:
      return about_lists(tables::remarks_table(told.remarks), model,
                         texts::translated("There are no remarks."));
    case TableKind::displacements:
      return about_lists(
          tables::displacement_overview(told.displacements), model,
          texts::translated(
              "The model had no combination for serviceability when it was checked."));
    default:
      return about_lists(tables::stored_buckling_table(told.buckling_factors), model,
                         texts::translated("The run did not look at the buckling of the frame."));
  }
}

ShownTable table_of_model(TableKind kind, const model::Model& model) {
  switch (kind) {
    case TableKind::nodes:
      return {tables::nodes_table(model), elements_at_nodes(model),
              texts::translated("The model has no nodes.")};
    case TableKind::elements:
      return about_elements(tables::elements_table(model),
                            texts::translated("The model has no elements."));
    case TableKind::members:
      return about_lists(tables::members_table(model), model,
                         texts::translated("The model has no members."));
    case TableKind::sections:
      return {tables::sections_table(model),
              elements_with(model, &model::Element::section, numbers_of(model.sections)),
              texts::translated("The model has no sections.")};
    case TableKind::materials:
      return {tables::materials_table(model),
              elements_with(model, &model::Element::material, numbers_of(model.materials)),
              texts::translated("The model has no materials.")};
    case TableKind::load_cases:
      return {tables::load_cases_table(model), RowElements(),
              texts::translated("The model has no load cases.")};
    default:
      return {tables::combinations_table(model), RowElements(),
              texts::translated("The model has no combinations.")};
  }
}

}  // namespace

QString name_of(TableKind kind) {
  return ui_text(names_of(kind).shown);
}

QString file_name_of(TableKind kind) {
  return QString::fromUtf8(names_of(kind).file);
}

bool is_of_results(TableKind kind) {
  return kind < TableKind::nodes && kind != TableKind::forces;
}

ShownTable shown_table(TableKind kind, const Workspace& workspace) {
  if (workspace.document() == nullptr) {
    return {{}, {}, texts::translated("No model is open.")};
  }
  if (!is_of_results(kind)) return table_of_model(kind, workspace.model());
  if (workspace.results() != nullptr) {
    return table_of_results(kind, *workspace.results(), workspace.model());
  }
  const std::string& problem = workspace.results_problem();
  return {
      {},
      {},
      problem.empty() ? texts::translated("There are no results yet: check the model.") : problem};
}

}  // namespace aluframe::desktop
