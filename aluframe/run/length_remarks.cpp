#include "aluframe/run/length_remarks.h"

#include <fmt/format.h>

#include <algorithm>
#include <string>

#include "aluframe/analysis/buckling.h"
#include "aluframe/model/number_ranges.h"
#include "aluframe/texts/text.h"

namespace aluframe::run {

namespace {

using members::LengthFactor;
using members::SegmentFactors;

constexpr const char* remark_kind = texts::translatable("length");

/// A factor among those of a segment, and its name.
struct NamedFactor {
  const SegmentFactors* of = nullptr;
  const LengthFactor* factor = nullptr;
  const char* name = "";
  const members::ModeLength* mode = nullptr;  ///< null: no mode tells of it
};

NamedFactor with_name(const SegmentFactors& of, const LengthFactor& factor, const char* name) {
  return {&of, &factor, name, factor.mode ? &*factor.mode : nullptr};
}

template <class Wanted>
std::vector<NamedFactor> chosen(const std::vector<SegmentFactors>& factors, Wanted wanted) {
  std::vector<NamedFactor> found;
  for (const SegmentFactors& of : factors) {
    if (wanted(of.y)) found.push_back(with_name(of, of.y, "Ky"));
    if (wanted(of.z)) found.push_back(with_name(of, of.z, "Kz"));
  }
  return found;
}

/// "Ky of member 3", "Kz of element 7"
std::string title(const NamedFactor& named) {
  if (named.of->member)
    return fmt::format(texts::translatable("{} of member {}"), named.name, *named.of->member);
  return fmt::format(texts::translatable("{} of element {}"), named.name,
                     named.of->elements.front());
}

store::RemarkRow row_of(const std::vector<NamedFactor>& concerned, const NamedFactor& worst,
                        std::string text) {
  std::vector<model::Number> elements;
  for (const NamedFactor& named : concerned) {
    elements.insert(elements.end(), named.of->elements.begin(), named.of->elements.end());
  }
  std::ranges::sort(elements);
  const auto repeated = std::ranges::unique(elements);
  elements.erase(repeated.begin(), repeated.end());
  store::RemarkRow row;
  row.kind = remark_kind;
  row.elements = model::join_as_ranges(elements);
  row.element = worst.of->elements.front();
  row.text = std::move(text);
  return row;
}

double shortfall(const NamedFactor& below) {
  return below.mode->k / below.factor->k;
}

void add_below_modes(const std::vector<SegmentFactors>& factors,
                     std::vector<store::RemarkRow>& rows) {
  const auto below = chosen(factors, members::is_below_mode);
  if (below.empty()) return;
  const NamedFactor& worst = *std::ranges::max_element(below, {}, shortfall);
  const members::ModeLength& mode = *worst.mode;
  const bool is_truss = worst.factor->source == members::FactorSource::truss;
  rows.push_back(row_of(
      below, worst,
      fmt::format(
          texts::translatable(
              "effective length factors are smaller than the frame's buckling mode has them: "
              "{} is {:.3f} ({}), by the mode of combination {} at {:.3g} times its loads "
              "{:.3f}; {}"),
          title(worst), worst.factor->k, members::name_of(worst.factor->source), mode.combination,
          mode.factor, mode.k,
          is_truss
              ? texts::translatable("trusses keep 1: hold their nodes, or give their factors")
              : texts::translatable("take them from the modes (\"frame\": {\"length_factors\": "
                                    "\"buckling\"}), or give them"))));
}

bool is_any_unknown(const FrameModes* modes) {
  return modes == nullptr || std::ranges::any_of(modes->factors, [](const BucklingFactor& factor) {
           return !factor.unknown.empty();
         });
}

void add_guessed(const std::vector<SegmentFactors>& factors, const FrameModes* modes,
                 std::vector<store::RemarkRow>& rows) {
  const auto guessed = chosen(factors, [](const LengthFactor& factor) {
    return members::is_guessed(factor) && !factor.mode;
  });
  if (guessed.empty() || !is_any_unknown(modes)) return;
  const NamedFactor& first = guessed.front();
  rows.push_back(row_of(
      guessed, first,
      fmt::format(texts::translatable(
                      "effective length factors are those of charts for straight columns and "
                      "beams, and no buckling mode is known: {} is {:.3f}, but {}; let the "
                      "program compute the forces and the modes, or give factors"),
                  title(first), first.factor->k, first.factor->objection)));
}

/// Members that buckle in modes beyond may have factors that are too small.
void add_passed_over(const FrameModes* modes, std::vector<store::RemarkRow>& rows) {
  if (modes == nullptr || modes->passed_over.empty()) return;
  std::vector<model::Number> numbers = modes->passed_over;
  std::ranges::sort(numbers);
  store::RemarkRow row;
  row.kind = remark_kind;
  row.combination = numbers.front();
  row.text = fmt::format(
      texts::translatable(
          "combination {}: more buckling modes than were looked at have factors up to {:g} times "
          "the "
          "smallest; members that buckle in those alone have length factors of charts: see what "
          "buckles first (`aluframe buckling --modes`), and stiffen it or give length factors"),
      model::join_as_ranges(numbers), analysis::near_factors);
  rows.push_back(std::move(row));
}

}  // namespace

std::vector<store::RemarkRow> length_remarks(const std::vector<SegmentFactors>& factors,
                                             const FrameModes* modes) {
  std::vector<store::RemarkRow> rows;
  add_below_modes(factors, rows);
  add_guessed(factors, modes, rows);
  add_passed_over(modes, rows);
  return rows;
}

}  // namespace aluframe::run
