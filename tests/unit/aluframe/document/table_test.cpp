#include "aluframe/document/table.h"

#include <gmock/gmock.h>

#include <sstream>

namespace aluframe::document {
namespace {

using testing::HasSubstr;
using testing::Not;

std::string table_of(const std::vector<Column>& columns, const std::vector<Cell>& cells,
                     const std::string& id = {}) {
  std::ostringstream out;
  HtmlWriter html(out);
  write_table(html, "Caption", columns, [&](TableRows& rows) { rows.add(cells, id); });
  return out.str();
}

TEST(DocumentTable, NamesColumnsAndLines) {
  const std::string table =
      table_of({{"Element"}, {"Name", Align::left}}, {{"7"}, {"post"}}, "element-7");
  EXPECT_THAT(table, HasSubstr("<caption>Caption</caption>"));
  EXPECT_THAT(table, HasSubstr("<th class=\"number\" scope=\"col\">Element</th>"
                               "<th scope=\"col\">Name</th>"));
  EXPECT_THAT(table, HasSubstr("<tr id=\"element-7\"><th class=\"number\" scope=\"row\">7</th>"
                               "<td>post</td></tr>"));
}

TEST(DocumentTable, MarksWhatFailsAndShowsADashForNothing) {
  const std::string table =
      table_of({{"Element"}, {"Ratio"}, {"Other"}}, {{"7"}, {"1.2", true}, {}});
  EXPECT_THAT(table, HasSubstr("<td class=\"number over\">1.2</td><td class=\"number\">–</td>"));
}

TEST(DocumentTable, WithManyColumnsHasSmallerLetters) {
  EXPECT_THAT(table_of(std::vector<Column>(11, Column{"A"}), {}),
              HasSubstr("<table class=\"wide\">"));
  EXPECT_THAT(table_of(std::vector<Column>(10, Column{"A"}), {}), Not(HasSubstr("wide")));
}

TEST(DocumentFacts, AreLinesWithoutAHead) {
  std::ostringstream out;
  HtmlWriter html(out);
  write_facts(html, "Project", {{"Client", "A & B"}});
  EXPECT_THAT(out.str(), HasSubstr("<th scope=\"row\">Client</th><td>A &amp; B</td>"));
  EXPECT_THAT(out.str(), Not(HasSubstr("thead")));
}

}  // namespace
}  // namespace aluframe::document
