#include "aluframe/run/force_lines.h"

#include <fmt/format.h>

#include <algorithm>
#include <functional>
#include <numeric>

#include "aluframe/forces/compute_forces.h"
#include "aluframe/forces/inner_forces.h"
#include "aluframe/model/combinations.h"
#include "aluframe/model/members.h"

namespace aluframe::run {

namespace {

using CaseFactors = std::vector<model::CombinationPlan::CaseFactor>;
using picture::Ordinate;

/// The forces at the five positions and at places between them, in any order.
struct Places {
  std::vector<forces::PlaceForces> between;
  /// Forces anywhere, where these are known in closed form.
  std::function<std::array<double, 6>(double x)> anywhere;
};

/// So many pieces of a curve between two positions.
constexpr int pieces = 5;

/// Values from the start to the end. A position and what is found anywhere stand for the side of a
/// jump towards the start; at the end of the element the position is beyond what acts there.
/// @param component its place in a row of forces
std::vector<Ordinate> ordinates(const model::CaseForces& five, const Places& places, double length,
                                std::size_t component) {
  std::vector<Ordinate> out;
  const std::size_t last = five.at.size() - 1;
  for (std::size_t i = 0; i < last; ++i) {
    if (i > 0 && !five.inner) continue;
    out.push_back({0.25 * static_cast<double>(i), double{five.at[i][component]}});
  }
  for (int i = 1; places.anywhere && i < 4 * pieces; ++i) {
    if (i % pieces == 0) continue;
    const double fraction = static_cast<double>(i) / (4 * pieces);
    out.push_back({fraction, places.anywhere(fraction * length)[component]});
  }
  for (const forces::PlaceForces& place : places.between) {
    out.push_back({place.fraction, place.forces[component]});
  }
  std::ranges::stable_sort(out, {}, &Ordinate::fraction);
  out.push_back({1.0, double{five.at[last][component]}});
  return out;
}

/// Pairs of element and load case without anything known between the ends.
bool is_known(const forces::InnerForces& inner, std::size_t element, const CaseFactors& cases) {
  return std::ranges::none_of(inner.unknown(), [&](const auto& pair) {
    return pair.element == element && std::ranges::any_of(cases, [&](const auto& entry) {
             return entry.factor != 0.0 && entry.load_case == pair.load_case;
           });
  });
}

/// Whether all forces follow from loads, in straight elements: then curves have a closed form.
bool follows_from_loads(const model::Model& model, const forces::ComputedPairs& computed,
                        std::size_t element, const CaseFactors& cases) {
  const model::AnalysisSettings& analysis = model.analysis;
  if (analysis.second_order) return !analysis.large_displacements && !analysis.imperfections.any();
  return std::ranges::all_of(cases, [&](const auto& entry) {
    return entry.factor == 0.0 || computed.contains(element, entry.load_case);
  });
}

/// Collects the lines of all elements.
class Collector {
 public:
  Collector(const model::Model& model, const forces::Summary& summary,
            picture::ForceComponent component)
      : model_(model),
        computed_(summary.computed),
        inner_(model, summary.computed),
        component_(static_cast<std::size_t>(component)) {}

  /// @param cases that act together; null: none do, as on a side of an envelope
  /// @param find_peaks appends what peaks between the positions
  template <class FindPeaks>
  std::vector<Ordinate> line(std::size_t element, const model::CaseForces& five,
                             const CaseFactors* cases, const FindPeaks& find_peaks) const {
    Places places;
    find_peaks(inner_, places.between);
    if (five.inner && cases != nullptr && is_known(inner_, element, *cases) &&
        follows_from_loads(model_, computed_, element, *cases)) {
      places.anywhere = [&, element, cases](double x) {
        return inner_.forces_at(element, *cases, five, x);
      };
    }
    return ordinates(five, places, length_of(element), component_);
  }

  /// @param cases that the forces are made of
  void add(std::size_t element, const CaseFactors& cases, const model::CaseForces& five,
           std::vector<Ordinate> values, std::vector<Ordinate> minimum) {
    const model::Number number = model_.elements[element].number;
    for (const auto& entry : cases) {
      const bool is_computed =
          model_.analysis.second_order || computed_.contains(element, entry.load_case);
      (is_computed ? out_.has_computed : out_.has_given) = true;
    }
    if (!five.inner) out_.ends_only.push_back(number);
    out_.lines.push_back({number, std::move(values), std::move(minimum)});
  }
  void add_without(std::size_t element) {
    out_.without_forces.push_back(model_.elements[element].number);
  }

  ForceLines take() { return std::move(out_); }

 private:
  double length_of(std::size_t element) const {
    return model::element_length(model_, model_.elements[element]);
  }

  const model::Model& model_;
  const forces::ComputedPairs& computed_;
  forces::InnerForces inner_;
  std::size_t component_;
  ForceLines out_;
};

Result<forces::Summary> computed(Input& input) {
  auto summary = forces::compute_forces(input.model);
  if (const auto* problem = std::get_if<analysis::Problem>(&summary)) {
    return problem_of(input.file, *problem);
  }
  return std::get<forces::Summary>(std::move(summary));
}

}  // namespace

Result<ForceLines> force_lines_of_case(Input input, model::Number load_case,
                                       picture::ForceComponent component) {
  input.model.analysis.second_order = false;
  input.model.analysis.large_displacements = false;
  const auto summary = computed(input);
  if (const auto* problem = std::get_if<Problem>(&summary)) return *problem;
  const model::Model& model = input.model;
  const std::size_t place = model.load_cases.position(load_case);
  const CaseFactors cases{{place, 1.0}};
  Collector collector(model, std::get<forces::Summary>(summary), component);
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    const model::CaseForces* five = model.forces.find(element, place);
    if (five == nullptr) {
      collector.add_without(element);
      continue;
    }
    const auto find_peaks = [&](const forces::InnerForces& inner, auto& out) {
      inner.peaks(element, cases, *five, {}, out);
    };
    collector.add(element, cases, *five, collector.line(element, *five, &cases, find_peaks), {});
  }
  return collector.take();
}

namespace {

/// The lines of elements under a combination.
/// @param places of the elements in their table
ForceLines lines_of_combination(const model::Model& model, const forces::Summary& summary,
                                model::Number combination, picture::ForceComponent component,
                                const std::vector<std::size_t>& places) {
  const model::CombinationEvaluator evaluator(model);
  const bool has_two_sides = evaluator.has_two_sides(combination);
  const auto plans = model::compile_combinations(model);
  // With two sides the factors of cases mean nothing.
  const CaseFactors cases = plans[model.combinations.position(combination)].cases;
  Collector collector(model, summary, component);
  const auto line_of = [&](std::size_t element, const model::CaseForces& five, model::Side side) {
    const auto find_peaks = [&](const forces::InnerForces& inner, auto& out) {
      inner.peaks(element, combination, side, five, {}, out);
    };
    return collector.line(element, five, has_two_sides ? nullptr : &cases, find_peaks);
  };
  for (const std::size_t element : places) {
    const auto five = evaluator.evaluate(element, combination, model::Side::maximum);
    if (!five) {
      collector.add_without(element);
      continue;
    }
    auto values = line_of(element, *five, model::Side::maximum);
    std::vector<Ordinate> minimum;
    if (has_two_sides) {
      const auto low = evaluator.evaluate(element, combination, model::Side::minimum);
      if (low) minimum = line_of(element, *low, model::Side::minimum);
    }
    collector.add(element, cases, *five, std::move(values), std::move(minimum));
  }
  return collector.take();
}

}  // namespace

Result<ForceLines> force_lines_of_combination(Input input, model::Number combination,
                                              picture::ForceComponent component) {
  const auto summary = computed(input);
  if (const auto* problem = std::get_if<Problem>(&summary)) return *problem;
  std::vector<std::size_t> all(input.model.elements.size());
  std::iota(all.begin(), all.end(), std::size_t{0});
  return lines_of_combination(input.model, std::get<forces::Summary>(summary), combination,
                              component, all);
}

std::array<std::vector<picture::ForceLine>, 6> force_lines_along(
    const Input& input, model::Number combination, const std::vector<model::Number>& elements) {
  std::vector<std::size_t> places;
  places.reserve(elements.size());
  for (const model::Number number : elements) {
    places.push_back(input.model.elements.position(number));
  }
  std::array<std::vector<picture::ForceLine>, 6> lines;
  for (std::size_t component = 0; component < lines.size(); ++component) {
    lines[component] = lines_of_combination(input.model, input.forces, combination,
                                            static_cast<picture::ForceComponent>(component), places)
                           .lines;
  }
  return lines;
}

}  // namespace aluframe::run
