#include "aluframe/tables/remark_tables.h"

#include <cstdint>
#include <optional>
#include <set>
#include <string>
#include <utility>

#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

using Concerned = std::vector<std::pair<std::string, run::ConcernedElements>>;

/// Each kind once, by the alphabet.
Cell kinds_of(model::Number element, const Concerned& remarks) {
  std::set<std::string> kinds;
  for (const auto& [kind, elements] : remarks) {
    if (elements.contains(element)) kinds.insert(kind);
  }
  if (kinds.empty()) return {};
  std::string text;
  for (const std::string& kind : kinds) text += (text.empty() ? "" : ", ") + kind;
  return text;
}

}  // namespace

OutputTable remarks_table(const std::vector<store::RemarkRow>& remarks) {
  OutputTable table;
  for (const char* key : {texts::translatable("kind"), texts::translatable("elements"),
                          texts::translatable("text"), texts::translatable("second_opinion"),
                          texts::translatable("element"), texts::translatable("combination")}) {
    table.columns.push_back({.key = key, .heading = key});
  }
  const auto whole = [](const std::optional<std::uint32_t>& value) {
    return value ? Cell(static_cast<std::int64_t>(*value)) : Cell();
  };
  for (const store::RemarkRow& row : remarks) {
    table.rows.push_back({Phrase{row.kind}, row.elements, Phrase{row.text},
                          row.ratio ? Cell(*row.ratio) : Cell(), whole(row.element),
                          whole(row.combination)});
  }
  return table;
}

void add_told_columns(OutputTable& table, const std::vector<run::ElementResult>& elements,
                      run::SecondOpinion second_opinion,
                      const std::vector<store::RemarkRow>& remarks) {
  Concerned concerned;
  for (const store::RemarkRow& row : remarks) concerned.emplace_back(row.kind, row);
  table.columns.push_back(
      {.key = "second_opinion", .heading = texts::translatable("second opinion")});
  table.columns.push_back({.key = "remark_kinds", .heading = texts::translatable("remarks")});
  auto row = table.rows.begin();
  for (const run::ElementResult& element : elements) {
    const Cell kinds = kinds_of(element.element, concerned);
    for (std::size_t item = 0; item < element.items.size(); ++item, ++row) {
      row->emplace_back(std::string(second_opinion == run::SecondOpinion::on ? "on" : "off"));
      row->push_back(kinds);
    }
  }
}

}  // namespace aluframe::tables
