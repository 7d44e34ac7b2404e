#include "aluframe/points/line_source.h"

#include <gtest/gtest.h>

#include <sstream>
#include <vector>

namespace {

using namespace aluframe::points;

std::vector<std::string> lines_of(const std::string& text) {
  std::istringstream in(text);
  LineSource source(in);
  std::vector<std::string> lines;
  while (source.next()) lines.push_back(source.text());
  return lines;
}

TEST(LineSource, GivesLinesWithoutTheirBreaks) {
  EXPECT_EQ(lines_of("a\nb\r\n\nc"), (std::vector<std::string>{"a", "b", "", "c"}));
}

TEST(LineSource, HasNoLineBehindTheLastBreak) {
  EXPECT_EQ(lines_of("a\n"), std::vector<std::string>{"a"});
  EXPECT_TRUE(lines_of("").empty());
}

TEST(LineSource, CountsLinesFromOne) {
  std::istringstream in("a\n\nb\n");
  LineSource source(in);
  std::uint64_t last = 0;
  while (source.next()) last = source.number();
  EXPECT_EQ(last, 3U);
}

TEST(LineSource, KeepsTheBeginningOfALineThatIsTooLongAndGoesOnBehindIt) {
  std::istringstream in(std::string(longest_line + 1, 'x') + "\nshort\n");
  LineSource source(in);
  ASSERT_TRUE(source.next());
  EXPECT_TRUE(source.is_too_long());
  EXPECT_EQ(source.text().size(), longest_line);
  ASSERT_TRUE(source.next());
  EXPECT_FALSE(source.is_too_long());
  EXPECT_EQ(source.text(), "short");
}

TEST(LineSource, TakesALineOfTheGreatestLength) {
  std::istringstream in(std::string(longest_line, 'x'));
  LineSource source(in);
  ASSERT_TRUE(source.next());
  EXPECT_FALSE(source.is_too_long());
}

/// A stream whose second half cannot be read.
class BrokenBuffer : public std::streambuf {
 public:
  BrokenBuffer() { setg(text_, text_, text_ + 2); }

 private:
  int_type underflow() override { throw std::ios_base::failure("cannot be read"); }
  char text_[2] = {'a', '\n'};
};

TEST(LineSource, TellsABrokenStreamFromItsEnd) {
  BrokenBuffer buffer;
  std::istream in(&buffer);
  LineSource source(in);
  ASSERT_TRUE(source.next());
  EXPECT_FALSE(source.has_failed());
  EXPECT_FALSE(source.next());
  EXPECT_TRUE(source.has_failed());
}

}  // namespace
