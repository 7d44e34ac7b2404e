#include "apps/cli/members_command.h"

#include <fmt/format.h>

#include <algorithm>

#include "aluframe/run/member_list.h"
#include "aluframe/tables/structure_texts.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"
#include "apps/cli/common_options.h"
#include "apps/cli/terminal.h"

namespace aluframe::cli {

namespace {

std::vector<tables::Column> columns(const model::Model& model) {
  const std::string unit(model::name_of(model.units.length));
  return {{.key = "member", .heading = texts::translatable("member")},
          {.key = "name", .heading = texts::translatable("name")},
          {.key = "elements", .heading = texts::translatable("elements")},
          {.key = "origin", .heading = texts::translatable("origin")},
          {.key = "length_" + unit, .heading = fmt::format(texts::translatable("length {}"), unit)},
          {.key = "ky", .heading = "Ky"},
          {.key = "ky_source", .heading = texts::translatable("Ky from")},
          {.key = "kz", .heading = "Kz"},
          {.key = "kz_source", .heading = texts::translatable("Kz from")},
          {.key = "own_factors", .heading = texts::translatable("own factors")},
          {.key = "ky_mode", .heading = texts::translatable("Ky of mode")},
          {.key = "kz_mode", .heading = texts::translatable("Kz of mode")},
          {.key = "remark", .heading = texts::translatable("remark")}};
}

/// Elements of a member whose own factors the checks take in place of the member's.
tables::Cell own_factors(const model::Model& model, const members::SegmentFactors& of) {
  std::vector<model::Number> own;
  for (const model::Number number : of.elements) {
    if (model.elements.find(number)->design.length_factors) own.push_back(number);
  }
  if (of.elements.size() == 1 || own.empty()) return {};
  return tables::in_order_text(own);
}

tables::Phrase origin(const model::Model& model, const members::SegmentFactors& of) {
  if (!of.member) return {texts::translatable("lone element")};
  return {model.finds_members ? texts::translatable("found") : texts::translatable("file")};
}

tables::Cell of_mode(const members::LengthFactor& factor) {
  if (!factor.mode) return {};
  return factor.mode->k;
}

/// What an engineer should know about a factor: "charts do not hold: it is inclined", "less than
/// by the mode of combination 2".
std::string remark_on(const members::LengthFactor& factor) {
  if (factor.mode && members::is_below_mode(factor)) {
    return fmt::format(texts::translatable("less than by the mode of combination {}"),
                       factor.mode->combination);
  }
  if (factor.mode && factor.source == members::FactorSource::mode) {
    const members::ModeLength& mode = *factor.mode;
    if (factor.objection.empty()) {
      return fmt::format(texts::translatable("mode of combination {}, factor {:.3g}"),
                         mode.combination, mode.factor);
    }
    return fmt::format(texts::translatable("mode of combination {}, factor {:.3g}, as {}"),
                       mode.combination, mode.factor, factor.objection);
  }
  if (!members::is_guessed(factor)) return {};
  return fmt::format(texts::translatable("{}, which charts leave out; no mode tells of it"),
                     factor.objection);
}

tables::Cell remarks_on(const members::SegmentFactors& of) {
  const std::string y = remark_on(of.y), z = remark_on(of.z);
  if (y.empty() && z.empty()) return {};
  if (y == z) return tables::Phrase{y};
  if (z.empty()) return tables::Phrase{fmt::format(texts::translatable("Ky: {}"), y)};
  if (y.empty()) return tables::Phrase{fmt::format(texts::translatable("Kz: {}"), z)};
  return tables::Phrase{fmt::format(texts::translatable("Ky: {}; Kz: {}"), y, z)};
}

std::vector<tables::Cell> row(const model::Model& model, const members::SegmentFactors& of) {
  std::vector<tables::Cell> cells(2);
  if (of.member) {
    cells[0] = std::int64_t{*of.member};
    const std::string& name = model.members.find(*of.member)->name;
    if (!name.empty()) cells[1] = name;
  }
  const double unit = model::millimetres_per(model.units.length);
  cells.insert(cells.end(),
               {tables::in_order_text(of.elements), origin(model, of), of.length / unit, of.y.k,
                tables::Phrase{std::string(members::name_of(of.y.source))}, of.z.k,
                tables::Phrase{std::string(members::name_of(of.z.source))}, own_factors(model, of),
                of_mode(of.y), of_mode(of.z), remarks_on(of)});
  return cells;
}

bool is_wanted(const members::SegmentFactors& of, const model::NumberRanges& elements) {
  return elements.empty() || std::ranges::any_of(of.elements, [&](model::Number element) {
           return elements.contains(element);
         });
}

}  // namespace

int run_members_command(const MembersOptions& options) {
  const auto listed = run::list_members(
      {.model = options.model, .allow_outside = options.allow_outside}, options.common.selection);
  if (const auto* problem = std::get_if<run::Problem>(&listed)) return stop(*problem);
  const auto& [input, factors, unknown] = std::get<run::MemberList>(listed);
  tables::OutputTable table{.columns = columns(input.model), .rows = {}};
  for (const members::SegmentFactors& of : factors) {
    if (is_wanted(of, options.common.selection.elements))
      table.rows.push_back(row(input.model, of));
  }
  print_text(tables::render(table, options.common.format, false));
  if (!unknown.empty())
    print_message(
        texts::translated("buckling modes are not known: {}", texts::sentence_in_words(unknown)));
  return exit_done;
}

}  // namespace aluframe::cli
