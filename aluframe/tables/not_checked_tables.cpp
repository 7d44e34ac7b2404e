#include "aluframe/tables/not_checked_tables.h"

#include <fmt/format.h>

#include <algorithm>
#include <string_view>

#include "aluframe/model/number_ranges.h"
#include "aluframe/run/not_checked.h"
#include "aluframe/tables/result_tables.h"

namespace aluframe::tables {

namespace {

bool is_moment(const store::LargestForce& force) {
  return force.component.starts_with('M');
}

/// "12.5 kN", "0.75 kN·m".
std::string magnitude_text(const store::LargestForce& force) {
  constexpr double kilo = 1e3, kilo_metre = 1e6;  // N in a kN, N·mm in a kN·m
  return is_moment(force) ? fmt::format("{:.4g} kN·m", force.magnitude / kilo_metre)
                          : fmt::format("{:.4g} kN", force.magnitude / kilo);
}

/// "largest Mx 0.75 kN·m at element 2, combination 3, position J", or "between positions", for
/// every force of a group and behind a separator.
std::string largest_text(const run::NotCheckedGroup& group, std::string_view separator) {
  std::string out;
  for (const auto& [element, force] : group.largest) {
    const std::string position = force.position < 0
                                     ? "between positions"
                                     : fmt::format("position {}", position_name(force.position));
    out += fmt::format("{}largest {} {} at element {}, combination {}{}, {}", separator,
                       force.component, magnitude_text(force), element, force.combination,
                       force.min_side != 0 ? " (minimum side)" : "", position);
  }
  return out;
}

/// "element 2-4, combination 7".
std::string place_text(const run::NotCheckedGroup& group, Lists lists) {
  std::string out = "element " + shown_list(model::join_as_ranges(group.elements), lists);
  if (!group.combinations.empty()) {
    out += ", combination " + shown_list(model::join_as_ranges(group.combinations), lists);
  }
  return out;
}

/// The worst second opinion of the shear or torsion that the group is about, or null: a report adds
/// remarks about elements of its own to those of the check.
const store::RemarkRow* remark_of(const run::NotCheckedGroup& group,
                                  const std::vector<store::RemarkRow>& remarks) {
  if (group.largest.empty()) return nullptr;
  const char* kind = is_moment(group.largest.front().force) ? "C6" : "C5";
  const store::RemarkRow* worst = nullptr;
  for (const store::RemarkRow& remark : remarks) {
    if (remark.kind != kind || !remark.ratio) continue;
    if (worst == nullptr || *remark.ratio > *worst->ratio) worst = &remark;
  }
  return worst;
}

Cell whole(std::uint32_t value) {
  return static_cast<std::int64_t>(value);
}

void add_largest(std::vector<Cell>& row, const run::UncheckedForce& unchecked) {
  const store::LargestForce& force = unchecked.force;
  row.insert(row.end(),
             {force.component, force.magnitude, std::string(is_moment(force) ? "N·mm" : "N"),
              whole(unchecked.element), whole(force.combination),
              force.min_side != 0 ? Cell(std::string("min")) : Cell(),
              std::string(force.position < 0 ? "between" : position_name(force.position))});
}

}  // namespace

std::string not_checked_text(const std::vector<store::NotChecked>& items,
                             const std::vector<store::RemarkRow>& remarks, Lists lists) {
  std::string out = "  not checked\n";
  for (const run::NotCheckedGroup& group : run::group_not_checked(items)) {
    out += fmt::format("    {}: {}{}\n", place_text(group, lists), group.reason,
                       largest_text(group, "\n      "));
    const store::RemarkRow* remark = remark_of(group, remarks);
    if (remark != nullptr) {
      out += fmt::format("      {}\n", second_opinion_text(*remark));
    }
  }
  return out;
}

OutputTable not_checked_table(const std::vector<store::NotChecked>& items,
                              const std::vector<store::RemarkRow>& remarks) {
  OutputTable table;
  for (const char* key : {"reason", "elements", "combinations", "force", "magnitude", "unit",
                          "element", "combination", "side", "position", "second_opinion"}) {
    table.columns.push_back({.key = key, .heading = key});
  }
  for (const run::NotCheckedGroup& group : run::group_not_checked(items)) {
    const std::vector<Cell> start{group.reason, model::join_as_ranges(group.elements),
                                  group.combinations.empty()
                                      ? Cell(std::string("all"))
                                      : Cell(model::join_as_ranges(group.combinations))};
    for (const run::UncheckedForce& unchecked : group.largest) {
      table.rows.push_back(start);
      add_largest(table.rows.back(), unchecked);
      const store::RemarkRow* remark = remark_of(group, remarks);
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
    out += fmt::format("{}{}: {}{}", out.empty() ? "" : " | ", group.reason,
                       place_text(group, Lists::whole), largest_text(group, "; "));
  }
  return out;
}

}  // namespace aluframe::tables
