#include "aluframe/tables/structure_texts.h"

#include <fmt/format.h>

#include <array>
#include <span>
#include <string_view>
#include <variant>

#include "aluframe/io/scales.h"
#include "aluframe/texts/text.h"

namespace aluframe::tables {

namespace {

using texts::translatable;

constexpr std::array directions{"Dx", "Dy", "Dz", "Rx", "Ry", "Rz"};
constexpr std::array releases{"N", "Fy", "Fz", "Mx", "My", "Mz"};

/// Parts of a line.
class Line {
 public:
  explicit Line(std::string_view separator = ", ") : separator_(separator) {}

  void add(std::string_view part) {
    if (part.empty()) return;
    if (!text_.empty()) text_ += separator_;
    text_ += part;
  }
  const std::string& text() const { return text_; }

 private:
  std::string_view separator_;
  std::string text_;
};

std::string released_text(std::span<const bool> released) {
  Line line;
  for (std::size_t i = 0; i < releases.size(); ++i) {
    if (released[i]) line.add(releases[i]);
  }
  return line.text();
}

}  // namespace

std::string short_value(double value) {
  return fmt::format("{:.6g}", value == 0.0 ? 0.0 : value);
}

std::string restraints_text(const model::Support& support) {
  Line line;
  for (std::size_t i = 0; i < directions.size(); ++i) {
    if (support.restrained[i]) line.add(directions[i]);
  }
  return line.text();
}

std::string springs_text(const model::Support& support, const model::Units& units) {
  const io::Scales scales(units);
  const std::string_view force = model::name_of(units.force), length = model::name_of(units.length);
  const std::string along = fmt::format("{}/{}", force, length);
  const std::string about = fmt::format("{}·{}/rad", force, length);
  Line line;
  for (std::size_t i = 0; i < directions.size(); ++i) {
    if (support.springs[i] == 0.0) continue;
    line.add(fmt::format("{} {} {}", directions[i],
                         short_value(support.springs[i] / scales.of_stiffness(i)),
                         i < 3 ? along : about));
  }
  return line.text();
}

std::string releases_text(const model::Element& element) {
  const std::span<const bool> all(element.released);
  const std::string start = released_text(all.first(releases.size()));
  const std::string end = released_text(all.last(releases.size()));
  Line line("; ");
  if (!start.empty()) line.add(fmt::format(translatable("start: {}"), start));
  if (!end.empty()) line.add(fmt::format(translatable("end: {}"), end));
  return line.text();
}

std::string orientation_text(const model::Element& element) {
  Line line;
  if (element.orientation) {
    if (const auto* node = std::get_if<model::Number>(&*element.orientation)) {
      line.add(fmt::format(translatable("z towards node {}"), *node));
    } else {
      const auto& v = std::get<std::array<double, 3>>(*element.orientation);
      line.add(fmt::format(translatable("z towards ({}, {}, {})"), short_value(v[0]),
                           short_value(v[1]), short_value(v[2])));
    }
  }
  if (element.beta != 0.0) line.add(fmt::format("β {}°", short_value(element.beta)));
  return line.text();
}

std::string dimensions_text(const model::Section& section, model::LengthUnit unit) {
  const std::span<const std::string_view> names = model::dimension_names(section.shape);
  Line line;
  for (std::size_t i = 0; i < names.size(); ++i) {
    const double value = section.dimensions[i];
    if (value == 0.0) continue;
    line.add(fmt::format("{} {}", names[i], short_value(value / model::millimetres_per(unit))));
  }
  return line.text();
}

std::string terms_text(const model::Combination& combination) {
  const bool is_sum = combination.kind == model::CombinationKind::linear;
  Line line(is_sum ? " + " : "; ");
  for (const model::CombinationTerm& term : combination.terms) {
    const bool is_case = term.source == model::CombinationTerm::Source::load_case;
    line.add(fmt::format("{} {}{}", short_value(term.factor), is_case ? "LC" : "C", term.number));
  }
  return line.text();
}

std::string in_order_text(const std::vector<model::Number>& numbers) {
  Line line;
  for (std::size_t first = 0; first < numbers.size();) {
    std::size_t last = first;
    while (last + 1 < numbers.size() && numbers[last + 1] == numbers[last] + 1) ++last;
    line.add(last == first ? fmt::format("{}", numbers[first])
                           : fmt::format("{}-{}", numbers[first], numbers[last]));
    first = last + 1;
  }
  return line.text();
}

}  // namespace aluframe::tables
