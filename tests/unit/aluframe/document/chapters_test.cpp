#include "aluframe/document/chapters.h"

#include <gmock/gmock.h>

#include <sstream>
#include <stdexcept>

namespace aluframe::document {
namespace {

using testing::HasSubstr;
using testing::Not;

class Chapters : public testing::Test {
 protected:
  std::ostringstream out;
  HtmlWriter html{out};
  std::vector<Chapter> chapters{
      {"one", "One", {{"a", "A", [this] { html.leaf("p", "text of a"); }}}},
      {"two", "Two", {{"b", "B", [] {}}, {"c", "C", [this] { html.leaf("p", "text of c"); }}}}};
};

TEST_F(Chapters, AreNumberedAlikeInContentsAndHeadings) {
  write_contents(html, chapters);
  write_chapters(html, chapters, [] {});
  EXPECT_THAT(out.str(), HasSubstr("<a href=\"#two\">2 Two</a>"));
  EXPECT_THAT(out.str(), HasSubstr("<a href=\"#c\">2.2 C</a>"));
  EXPECT_THAT(out.str(), HasSubstr("<h2 id=\"two\">2 Two</h2>"));
  EXPECT_THAT(out.str(), HasSubstr("<h3 id=\"c\">2.2 C</h3>\n<p>text of c</p>"));
}

TEST_F(Chapters, WriteNothingOfTheirSectionsInTheContents) {
  write_contents(html, chapters);
  EXPECT_EQ(out.str().find("text of"), std::string::npos);
}

TEST_F(Chapters, EndBeforeTheSectionThatIsNotWanted) {
  int sections = 0;
  const auto before_section = [&] {
    if (++sections == 3) throw std::runtime_error("enough");
  };
  EXPECT_THROW(write_chapters(html, chapters, before_section), std::runtime_error);
  EXPECT_THAT(out.str(), HasSubstr("<h3 id=\"b\">"));
  EXPECT_THAT(out.str(), Not(HasSubstr("<h3 id=\"c\">")));
}

}  // namespace
}  // namespace aluframe::document
