#include "apps/cli/combinations_table.h"

#include <fmt/format.h>

#include <string>

#include "aluframe/combinations/made_names.h"
#include "aluframe/model/action_names.h"
#include "aluframe/model/factored_case.h"
#include "aluframe/texts/text.h"

namespace aluframe::cli {

namespace {

using combinations::MadeCombination;
using combinations::MadeTerm;
using combinations::Role;

/// Marked for translation; what a JSON or CSV output says.
const char* word_of(model::CombinationType type) {
  switch (type) {
    case model::CombinationType::fundamental:
      return texts::translatable("fundamental");
    case model::CombinationType::seismic:
      return texts::translatable("seismic");
    case model::CombinationType::accidental:
      return texts::translatable("accidental");
    case model::CombinationType::characteristic:
      return texts::translatable("characteristic");
    case model::CombinationType::frequent:
      return texts::translatable("frequent");
    case model::CombinationType::quasi_permanent:
      return texts::translatable("quasi-permanent");
  }
  return "";
}

/// "characteristic, frequent": serviceability types of one sum.
tables::Phrase types_of(const MadeCombination& made) {
  const auto& types = made.types;
  if (types.size() == 1) return {word_of(types[0])};
  if (types.size() == 2) {
    return {fmt::format(texts::translatable("{}, {}"), word_of(types[0]), word_of(types[1]))};
  }
  return {fmt::format(texts::translatable("{}, {}, {}"), word_of(types[0]), word_of(types[1]),
                      word_of(types[2]))};
}

/// The sum of a combination of the file: "1.3 × 1 + combination 7".
std::string sum_of(const model::Model& model, const model::Combination& combination) {
  std::string text;
  for (const model::CombinationTerm& term : combination.terms) {
    const bool is_case = term.source == model::CombinationTerm::Source::load_case;
    if (term.factor < 0.0) {
      text += '-';
    } else if (!text.empty()) {
      text += '+';
    }
    const double size = term.factor < 0.0 ? -term.factor : term.factor;
    const std::string factor = size == 1.0 ? "" : fmt::format("{:.6g}", size);
    model::LoadCase named;
    if (is_case) {
      named = *model.load_cases.find(term.number);
    } else {
      named.name = fmt::format("[{}]", term.number);
    }
    text += model::factored_case(factor, named);
  }
  return text;
}

/// The actions of one role, "0.7·1.5S, 0.6·1.5W".
tables::Cell of_roles(const model::Model& model, const MadeCombination& made,
                      std::initializer_list<Role> roles) {
  std::string text;
  for (const MadeTerm& term : made.terms) {
    bool is_wanted = false;
    for (const Role role : roles) is_wanted = is_wanted || term.factor.role == role;
    if (!is_wanted) continue;
    text += (text.empty() ? "" : ", ") + combinations::sum_text(model, {term});
  }
  if (text.empty()) return {};
  return text;
}

std::vector<tables::Column> columns(Detail detail) {
  std::vector<tables::Column> all{
      {.key = "number", .heading = texts::translatable("number")},
      {.key = "type", .heading = texts::translatable("type")},
      {.key = "combination", .heading = texts::translatable("combination")},
      {.key = "seismic", .heading = texts::translatable("seismic")},
      {.key = "design", .heading = texts::translatable("design")}};
  if (detail == Detail::brief) return all;
  all.insert(all.end(), {{.key = "unfavourable", .heading = texts::translatable("unfavourable")},
                         {.key = "favourable", .heading = texts::translatable("favourable")},
                         {.key = "leading", .heading = texts::translatable("leading")},
                         {.key = "accompanying", .heading = texts::translatable("accompanying")}});
  return all;
}

std::vector<tables::Cell> row(const model::Model& model, const MadeCombination& made,
                              Detail detail) {
  std::vector<tables::Cell> cells{std::int64_t{made.number}, types_of(made), made.name,
                                  made.is_seismic(), made.is_ultimate()};
  if (detail == Detail::brief) return cells;
  cells.push_back(of_roles(model, made, {Role::permanent}));
  cells.push_back(of_roles(model, made, {Role::favourable}));
  cells.push_back(of_roles(model, made, {Role::leading, Role::accidental}));
  cells.push_back(of_roles(model, made, {Role::accompanying, Role::gravity}));
  return cells;
}

std::vector<tables::Cell> row(const model::Model& model, const model::Combination& combination,
                              Detail detail) {
  const std::string sum = sum_of(model, combination);
  const bool has_own_name = !combination.name.empty() && combination.name != sum;
  std::vector<tables::Cell> cells{
      std::int64_t{combination.number}, tables::Phrase{texts::translatable("of the file")},
      has_own_name ? combination.name + ": " + sum : sum, combination.seismic, combination.design};
  if (detail == Detail::explained) cells.resize(columns(detail).size());
  return cells;
}

}  // namespace

tables::OutputTable combinations_table(const model::Model& model,
                                       const std::vector<model::Combination>& own,
                                       const std::vector<MadeCombination>& made, Detail detail) {
  tables::OutputTable table{.columns = columns(detail), .rows = {}};
  for (const model::Combination& each : own) table.rows.push_back(row(model, each, detail));
  for (const MadeCombination& each : made) table.rows.push_back(row(model, each, detail));
  return table;
}

}  // namespace aluframe::cli
