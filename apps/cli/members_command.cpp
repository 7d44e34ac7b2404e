#include "apps/cli/members_command.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>

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

bool has_restrained_factors(const run::Input& input, model::Number element) {
  const auto& restrained = input.restrained.elements;
  const auto found = restrained.find(element);
  return found != restrained.end() && found->second.length_factors.has_value();
}

/// Elements of a member whose own factors the checks take in place of the member's.
tables::Cell own_factors(const run::Input& input, const members::SegmentFactors& of) {
  std::vector<model::Number> own;
  for (const model::Number number : of.elements) {
    const bool is_given = input.model.elements.find(number)->design.length_factors.has_value();
    // Those of a lone element are the ones shown.
    if ((is_given && of.elements.size() > 1) || has_restrained_factors(input, number)) {
      own.push_back(number);
    }
  }
  if (own.empty()) return {};
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

tables::Cell remarks_on(const run::Input& input, const members::SegmentFactors& of) {
  const bool is_restrained =
      of.member &&
      std::ranges::any_of(input.restrained.pieces, [&](const run::RestrainedPiece& piece) {
        return piece.member == *of.member;
      });
  if (is_restrained)
    return tables::Phrase{texts::translatable("restraints part it: see --segments")};
  const std::string y = remark_on(of.y), z = remark_on(of.z);
  if (y.empty() && z.empty()) return {};
  if (y == z) return tables::Phrase{y};
  if (z.empty()) return tables::Phrase{fmt::format(texts::translatable("Ky: {}"), y)};
  if (y.empty()) return tables::Phrase{fmt::format(texts::translatable("Kz: {}"), z)};
  return tables::Phrase{fmt::format(texts::translatable("Ky: {}; Kz: {}"), y, z)};
}

std::vector<tables::Cell> row(const run::Input& input, const members::SegmentFactors& of) {
  const model::Model& model = input.model;
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
                tables::Phrase{std::string(members::name_of(of.z.source))}, own_factors(input, of),
                of_mode(of.y), of_mode(of.z), remarks_on(input, of)});
  return cells;
}

bool is_wanted(const std::vector<model::Number>& of, const model::NumberRanges& elements) {
  return elements.empty() ||
         std::ranges::any_of(of, [&](model::Number element) { return elements.contains(element); });
}

tables::OutputTable members_table(const run::MemberList& list, const MembersOptions& options) {
  tables::OutputTable table{.columns = columns(list.input.model), .rows = {}};
  for (const members::SegmentFactors& of : list.factors) {
    if (is_wanted(of.elements, options.common.selection.elements)) {
      table.rows.push_back(row(list.input, of));
    }
  }
  return table;
}

// Pieces between restraints.

std::vector<tables::Column> segment_columns(const model::Model& model) {
  const std::string unit(model::name_of(model.units.length));
  return {{.key = "member", .heading = texts::translatable("member")},
          {.key = "kind", .heading = texts::translatable("what it does")},
          {.key = "from_" + unit, .heading = fmt::format(texts::translatable("from {}"), unit)},
          {.key = "to_" + unit, .heading = fmt::format(texts::translatable("to {}"), unit)},
          {.key = "lb_" + unit, .heading = "lb " + unit},
          {.key = "lw_" + unit, .heading = "lω " + unit},
          {.key = "k", .heading = "K"},
          {.key = "mcr_knm", .heading = "Mcr kNm"},
          {.key = "lambda_b", .heading = "λb"},
          {.key = "phi_b", .heading = "φb"},
          {.key = "combination", .heading = texts::translatable("combination")},
          {.key = "elements", .heading = texts::translatable("elements")},
          {.key = "remark", .heading = texts::translatable("remark")}};
}

tables::Cell number_or_nothing(const std::optional<double>& value, double unit = 1.0) {
  return value ? tables::Cell(*value / unit) : tables::Cell();
}

std::vector<tables::Cell> segment_row(const model::Model& model,
                                      const run::RestrainedPiece& piece) {
  constexpr double kilonewton_metre = 1e6;  // in N·mm
  const double unit = model::millimetres_per(model.units.length);
  // Both lengths of bending are that of the piece.
  const tables::Cell length =
      piece.phi_b ? tables::Cell((piece.end - piece.start) / unit) : tables::Cell();
  return {std::int64_t{piece.member},
          tables::Phrase{run::name_of(piece.kind)},
          piece.start / unit,
          piece.end / unit,
          length,
          length,
          number_or_nothing(piece.k),
          number_or_nothing(piece.critical_moment, kilonewton_metre),
          number_or_nothing(piece.slenderness),
          number_or_nothing(piece.phi_b),
          piece.combination ? tables::Cell(std::int64_t{*piece.combination}) : tables::Cell(),
          tables::in_order_text(piece.elements),
          piece.remark.empty() ? tables::Cell() : tables::Cell(tables::Phrase{piece.remark})};
}

tables::OutputTable segments_table(const run::Input& input, const MembersOptions& options) {
  tables::OutputTable table{.columns = segment_columns(input.model), .rows = {}};
  for (const run::RestrainedPiece& piece : input.restrained.pieces) {
    if (is_wanted(piece.elements, options.common.selection.elements)) {
      table.rows.push_back(segment_row(input.model, piece));
    }
  }
  return table;
}

}  // namespace

int run_members_command(const MembersOptions& options) {
  const auto listed = run::list_members(
      {.model = options.model, .allow_outside = options.allow_outside}, options.common.selection);
  if (const auto* problem = std::get_if<run::Problem>(&listed)) return stop(*problem);
  const auto& list = std::get<run::MemberList>(listed);
  const tables::OutputTable table =
      options.segments ? segments_table(list.input, options) : members_table(list, options);
  print_text(tables::render(table, options.common.format, false));
  if (!list.unknown.empty()) {
    print_message(texts::translated("buckling modes are not known: {}",
                                    texts::sentence_in_words(list.unknown)));
  }
  return exit_done;
}

}  // namespace aluframe::cli
