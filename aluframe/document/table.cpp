#include "aluframe/document/table.h"

namespace aluframe::document {

namespace {

Attributes class_of(Align align, bool is_failing) {
  std::string names = align == Align::right ? "number" : "";
  if (is_failing) names += names.empty() ? "over" : " over";
  return names.empty() ? Attributes{} : Attributes{{"class", names}};
}

}  // namespace

void TableRows::add(const std::vector<Cell>& cells, const std::string& id) {
  html_.element("tr", id.empty() ? Attributes{} : Attributes{{"id", id}}, [&] {
    for (std::size_t i = 0; i < cells.size(); ++i) {
      Attributes attributes = class_of(columns_[i].align, cells[i].is_failing);
      const bool names_line = i == 0;
      if (names_line) attributes.emplace_back("scope", "row");
      html_.leaf(names_line ? "th" : "td", attributes, cells[i].text.empty() ? "–" : cells[i].text);
    }
  });
}

void write_table(HtmlWriter& html, std::string_view caption, const std::vector<Column>& columns,
                 const std::function<void(TableRows&)>& add_rows) {
  constexpr std::size_t most_columns = 10;  // with letters of the usual size
  const bool is_wide = columns.size() > most_columns;
  html.element("table", is_wide ? Attributes{{"class", "wide"}} : Attributes{}, [&] {
    html.leaf("caption", caption);
    html.element("thead", [&] {
      html.element("tr", [&] {
        for (const Column& column : columns) {
          Attributes attributes = class_of(column.align, false);
          attributes.emplace_back("scope", "col");
          html.leaf("th", attributes, column.heading);
        }
      });
    });
    html.element("tbody", [&] {
      TableRows rows(html, columns);
      add_rows(rows);
    });
  });
}

void write_facts(HtmlWriter& html, std::string_view caption,
                 const std::vector<std::pair<std::string, std::string>>& facts) {
  html.element("table", {{"class", "facts"}}, [&] {
    html.leaf("caption", caption);
    html.element("tbody", [&] {
      for (const auto& [name, text] : facts) {
        html.element("tr", [&] {
          html.leaf("th", {{"scope", "row"}}, name);
          html.leaf("td", text);
        });
      }
    });
  });
}

}  // namespace aluframe::document
