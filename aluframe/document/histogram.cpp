#include "aluframe/document/histogram.h"

#include <fmt/format.h>

#include <algorithm>
#include <array>
#include <cmath>

#include "aluframe/model/xml_text.h"
#include "aluframe/picture/colours.h"
#include "aluframe/texts/text.h"

namespace aluframe::document {

namespace {

/// Tenths up to 1, and one for all above.
constexpr std::size_t bins = 11;
// mm on paper.
constexpr double bar_width = 12.0, gap = 2.0, height = 45.0, top = 8.0, left = 4.0, foot = 14.0;
constexpr double width = 2.0 * left + static_cast<double>(bins) * (bar_width + gap);

std::array<std::size_t, bins> counts_of(const std::vector<double>& ratios) {
  std::array<std::size_t, bins> counts{};
  for (const double ratio : ratios) {
    std::size_t bin = bins - 1;
    // A ratio of 0.3 belongs to the class that ends there.
    if (ratio <= 1.0) bin = static_cast<std::size_t>(std::max(0.0, std::ceil(10.0 * ratio) - 1.0));
    ++counts[std::min(bin, bins - 1)];
  }
  return counts;
}

std::string text_at(double x, double y, const std::string& text) {
  return fmt::format(
      "<text x=\"{:.2f}\" y=\"{:.2f}\" font-size=\"3.2\" text-anchor=\"middle\">{}</text>\n", x, y,
      model::for_xml(text));
}

std::string bar(std::size_t bin, std::size_t count, std::size_t most) {
  const double x = left + static_cast<double>(bin) * (bar_width + gap) + 0.5 * gap;
  const double share =
      static_cast<double>(count) / static_cast<double>(std::max<std::size_t>(1, most));
  const double upper = 0.1 * static_cast<double>(bin + 1);
  const auto& kind = picture::class_of(bin + 1 < bins ? upper - 1e-9 : 2.0);
  const std::string label =
      bin + 1 < bins ? fmt::format("{:.1f}–{:.1f}", upper - 0.1, upper) : "> 1";
  return fmt::format(
             "<rect x=\"{:.2f}\" y=\"{:.2f}\" width=\"{:.2f}\" height=\"{:.2f}\" fill=\"{}\"/>\n",
             x, top + height * (1.0 - share), bar_width, height * share, kind.colour) +
         text_at(x + 0.5 * bar_width, top + height * (1.0 - share) - 1.2,
                 fmt::format("{}", count)) +
         text_at(x + 0.5 * bar_width, top + height + 4.5, label);
}

/// Between the last tenth and what exceeds 1.
std::string threshold() {
  const double x = left + static_cast<double>(bins - 1) * (bar_width + gap);
  return fmt::format(
      "<line x1=\"{0:.2f}\" y1=\"2\" x2=\"{0:.2f}\" y2=\"{1:.2f}\" stroke=\"{2}\" "
      "stroke-width=\"0.4\" stroke-dasharray=\"2 1\"/>\n",
      x, top + height, picture::over_one.colour);
}

}  // namespace

std::string histogram_of(const std::vector<double>& ratios) {
  const auto counts = counts_of(ratios);
  const std::size_t most = *std::ranges::max_element(counts);
  std::string body;
  for (std::size_t bin = 0; bin < bins; ++bin) body += bar(bin, counts[bin], most);
  return fmt::format(
             "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"100%\" viewBox=\"0 0 {0:.2f} "
             "{1:.2f}\" "
             "role=\"img\" aria-labelledby=\"histogram-title histogram-shown\" "
             "font-family=\"sans-serif\">\n"
             "<title id=\"histogram-title\">{2}</title>\n<desc id=\"histogram-shown\">{3}</desc>\n",
             width, top + height + foot,
             model::for_xml(texts::translated("How many elements have which governing ratio")),
             model::for_xml(texts::translated(
                 "Bars for every tenth up to 1, and one for all ratios over 1: {} elements",
                 counts.back()))) +
         body + threshold() +
         fmt::format(
             "<line x1=\"{0:.2f}\" y1=\"{1:.2f}\" x2=\"{2:.2f}\" y2=\"{1:.2f}\" "
             "stroke=\"{3}\" stroke-width=\"0.3\"/>\n",
             left, top + height, width - left, picture::ink) +
         text_at(0.5 * width, top + height + 11.0,
                 texts::translated("governing ratio of the element")) +
         "</svg>\n";
}

}  // namespace aluframe::document
