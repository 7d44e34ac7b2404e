#include "aluframe/tables/not_checked_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "aluframe/model/number_ranges.h"
#include "aluframe/run/not_checked.h"
#include "aluframe/tables/result_tables.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

/// "12.5 kN", "0.75 kN·m".
std::string magnitude_text(const store::LargestForce& force) {
  constexpr double kilo = 1e3, kilo_metre = 1e6;  // N in a kN, N·mm in a kN·m
  return run::is_moment(force) ? fmt::format("{:.4g} kN·m", force.magnitude / kilo_metre)
                               : fmt::format("{:.4g} kN", force.magnitude / kilo);
}

/// "largest Mx 0.75 kN·m at element 2, combination 3, position J", or "between positions", for
/// every force of a group.
std::vector<std::string> largest_texts(const run::NotCheckedGroup& group) {
  std::vector<std::string> out;
  for (const auto& [element, force] : group.largest) {
    const std::string position =
        force.position < 0
            ? std::string(texts::translatable("between positions"))
            : fmt::format(texts::translatable("position {}"), position_name(force.position));
    const std::string combination =
        force.min_side != 0
            ? fmt::format(texts::translatable("{} (minimum side)"), force.combination)
            : fmt::format("{}", force.combination);
    out.push_back(
        fmt::format(texts::translatable("largest {} {} at element {}, combination {}, {}"),
                    force.component, magnitude_text(force), element, combination, position));
  }
  return out;
}

/// "element 2-4, combination 7".
std::string place_text(const run::NotCheckedGroup& group, Lists lists) {
  const std::string elements = shown_list(model::join_as_ranges(group.elements), lists);
  return group.combinations.empty()
             ? fmt::format(texts::translatable("element {}"), elements)
             : fmt::format(texts::translatable("element {}, combination {}"), elements,
                           shown_list(model::join_as_ranges(group.combinations), lists));
}

Cell whole(std::uint32_t value) {
  return static_cast<std::int64_t>(value);
}

void add_largest(std::vector<Cell>& row, const run::UncheckedForce& unchecked) {
  const store::LargestForce& force = unchecked.force;
  row.insert(row.end(),
             {force.component, force.magnitude, std::string(run::is_moment(force) ? "N·mm" : "N"),
              whole(unchecked.element), whole(force.combination),
              force.min_side != 0 ? Cell(std::string("min")) : Cell(),
              std::string(force.position < 0 ? "between" : position_name(force.position))});
}

}  // namespace

std::string not_checked_text(const std::vector<store::NotChecked>& items,
                             const std::vector<store::RemarkRow>& remarks, Lists lists) {
  std::string out = texts::translated("  not checked\n");
  for (const run::NotCheckedGroup& group : run::group_not_checked(items)) {
    out += texts::translated("    {}: {}", texts::sentence_in_words(place_text(group, lists)),
                             texts::sentence_in_words(group.reason));
    for (const std::string& text : largest_texts(group)) {
      out += "\n      " + texts::sentence_in_words(text);
    }
    out += "\n";
    const store::RemarkRow* remark = run::second_opinion_on(group, remarks);
    if (remark != nullptr) {
      out += fmt::format("      {}\n", second_opinion_text(*remark));
    }
  }
  return out;
}

OutputTable not_checked_table(const std::vector<store::NotChecked>& items,
                              const std::vector<store::RemarkRow>& remarks) {
  OutputTable table;
  for (const char* key : {texts::translatable("reason"), texts::translatable("elements"),
                          texts::translatable("combinations"), texts::translatable("force"),
                          texts::translatable("magnitude"), texts::translatable("unit"),
                          texts::translatable("element"), texts::translatable("combination"),
                          texts::translatable("side"), texts::translatable("position"),
                          texts::translatable("second_opinion")}) {
    table.columns.push_back({.key = key, .heading = key});
  }
  for (const run::NotCheckedGroup& group : run::group_not_checked(items)) {
    const std::vector<Cell> start{Phrase{group.reason}, model::join_as_ranges(group.elements),
                                  group.combinations.empty()
                                      ? Cell(Phrase{texts::translatable("all")})
                                      : Cell(model::join_as_ranges(group.combinations))};
    for (const run::UncheckedForce& unchecked : group.largest) {
      table.rows.push_back(start);
      add_largest(table.rows.back(), unchecked);
      const store::RemarkRow* remark = run::second_opinion_on(group, remarks);
      table.rows.back().push_back(remark != nullptr ? Cell(*remark->ratio) : Cell());
    }
    if (!group.largest.empty()) continue;
    table.rows.push_back(start);
    table.rows.back().resize(table.columns.size());
  }
  return table;
}

std::string not_checked_line(const std::vector<store::NotChecked>& items) {
  std::string out;
  for (const run::NotCheckedGroup& group : run::group_not_checked(items)) {
    out += fmt::format("{}{}: {}", out.empty() ? "" : " | ", group.reason,
                       place_text(group, Lists::whole));
    for (const std::string& text : largest_texts(group)) out += "; " + text;
  }
  return out;
}

}  // namespace aluframe::tables
