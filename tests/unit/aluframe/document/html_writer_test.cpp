#include "aluframe/document/html_writer.h"

#include <gtest/gtest.h>

#include <sstream>

namespace aluframe::document {
namespace {

TEST(HtmlWriter, ElementsEndInTheReverseOrderOfTheirBeginnings) {
  std::ostringstream out;
  HtmlWriter html(out);
  html.element("tr", {{"class", "over"}}, [&] {
    html.leaf("th", {{"scope", "row"}}, "7");
    html.element("td", [&] {
      html.text("a");
      html.empty("br", {});
      html.markup("<b>b</b>");
    });
  });
  EXPECT_EQ(out.str(), "<tr class=\"over\"><th scope=\"row\">7</th><td>a<br><b>b</b></td></tr>\n");
}

TEST(HtmlWriter, WhateverAUserWritesIsText) {
  std::ostringstream out;
  HtmlWriter html(out);
  html.leaf("td", {{"title", "\"><script>"}}, "<script>alert('1 & 2')</script>\x1b[31m\u202E");
  EXPECT_EQ(out.str(),
            "<td title=\"&quot;&gt;&lt;script&gt;\">&lt;script&gt;alert(&#39;1 &amp; 2&#39;)"
            "&lt;/script&gt; [31m </td>");
}

}  // namespace
}  // namespace aluframe::document
