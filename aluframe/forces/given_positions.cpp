#include "aluframe/forces/given_positions.h"

#include <fmt/format.h>

#include <algorithm>
#include <optional>
#include <utility>

#include "aluframe/analysis/local_axes.h"
#include "aluframe/forces/compute_forces.h"
#include "aluframe/forces/frame_of_model.h"
#include "aluframe/forces/load_agreement.h"
#include "aluframe/model/combination_plan.h"
#include "aluframe/texts/text.h"

namespace aluframe::forces {

namespace {

using model::CombinationPlan;

bool is_ends_only(const model::Model& model, std::size_t element, std::size_t load_case) {
  const model::CaseForces* forces = model.forces.find(element, load_case);
  return forces != nullptr && !forces->inner;
}

bool has_ends_only(const model::Model& model) {
  for (std::size_t element = 0; element < model.elements.size(); ++element) {
    for (std::size_t load_case = 0; load_case < model.load_cases.size(); ++load_case) {
      if (is_ends_only(model, element, load_case)) return true;
    }
  }
  return false;
}

/// Why forces at two ends say nothing about those between.
enum class Loaded { no, by_the_model, by_equilibrium };

/// What acts between the ends of elements whose forces are given there only.
class EndsOnly {
 public:
  explicit EndsOnly(const model::Model& model) : cases_(model.load_cases.size()) {
    const analysis::Frame frame = frame_of(model);
    const auto geometry = analysis::element_geometry(frame);
    loaded_.assign(frame.elements.size() * cases_, Loaded::no);
    for (std::size_t c = 0; c < cases_; ++c) {
      const analysis::LoadsByElement loads(frame, geometry, loads_of(model, model.load_cases[c]));
      for (std::size_t e = 0; e < frame.elements.size(); ++e) {
        if (!is_ends_only(model, e, c)) continue;
        const bool is_beam = frame.elements[e].kind == analysis::ElementKind::beam;
        if (is_beam && loads.has_forces(e)) {
          loaded_[e * cases_ + c] = Loaded::by_the_model;
        } else if (!follow_from_loads(*model.forces.find(e, c), {}, geometry[e].length)) {
          loaded_[e * cases_ + c] = Loaded::by_equilibrium;
        }
      }
    }
  }

  Loaded loaded(std::size_t element, std::size_t load_case) const {
    return loaded_[element * cases_ + load_case];
  }

 private:
  std::size_t cases_;
  std::vector<Loaded> loaded_;  ///< by element, then case
};

/// What the cases of a combination have for an element.
struct Positions {
  bool two = false, five = false, none = false;

  bool are_mixed() const { return two && five && !none; }
};

Positions positions_of(const model::Model& model, const CombinationPlan& plan,
                       std::size_t element) {
  Positions out;
  for (const auto& entry : plan.cases) {
    const model::CaseForces* forces = model.forces.find(element, entry.load_case);
    const bool is_computed = forces == nullptr && has_loads(model.load_cases[entry.load_case]);
    out.five = out.five || is_computed || (forces != nullptr && forces->inner);
    out.two = out.two || (forces != nullptr && !forces->inner);
    out.none = out.none || (forces == nullptr && !is_computed);
  }
  return out;
}

/// Forces between the ends of an element without loads there.
model::CaseForces interpolated(model::CaseForces forces) {
  forces.inner = true;
  for (std::size_t position = 1; position < 4; ++position) {
    const double part = static_cast<double>(position) / 4.0;
    for (std::size_t i = 0; i < 6; ++i) {
      const double start = forces.at[0][i], end = forces.at[4][i];
      forces.at[position][i] = static_cast<float>(start + part * (end - start));
    }
  }
  return forces;
}

class Completion {
 public:
  explicit Completion(const model::Model& model)
      : model_(model),
        ends_only_(model),
        plans_(model::compile_combinations(model)),
        to_interpolate_(model.elements.size() * model.load_cases.size(), false),
        takes_part_(model.load_cases.size(), false) {}

  analysis::Result<GivenPositions> run() {
    for (std::size_t i = 0; i < plans_.size(); ++i) {
      if (!model_.combinations[i].design) continue;
      for (const auto& entry : plans_[i].cases) takes_part_[entry.load_case] = true;
      for (std::size_t element = 0; element < model_.elements.size(); ++element) {
        if (!positions_of(model_, plans_[i], element).are_mixed()) continue;
        if (auto problem = mix(element, i)) return *std::move(problem);
      }
    }
    return GivenPositions{table(), without_inner()};
  }

 private:
  std::size_t cases() const { return model_.load_cases.size(); }

  /// Notes the pairs of an element to interpolate for a combination.
  std::optional<analysis::Problem> mix(std::size_t element, std::size_t combination) {
    for (const auto& entry : plans_[combination].cases) {
      const std::size_t load_case = entry.load_case;
      if (!is_ends_only(model_, element, load_case)) continue;
      if (ends_only_.loaded(element, load_case) != Loaded::no) {
        return problem_of(element, load_case, combination);
      }
      to_interpolate_[element * cases() + load_case] = true;
    }
    return std::nullopt;
  }

  analysis::Problem problem_of(std::size_t element, std::size_t load_case,
                               std::size_t combination) const {
    const bool by_model = ends_only_.loaded(element, load_case) == Loaded::by_the_model;
    return {
        .text = fmt::format(
            texts::translatable(
                "forces of element {} in load case {}: found those of the two ends though a load "
                "acts between them ({}), and combination {} adds them to forces at five positions; "
                "give them at five positions too"),
            model_.elements[element].number, model_.load_cases[load_case].number,
            by_model ? texts::translatable("the load case has one there")
                     : texts::translatable("the two ends are not in equilibrium without one"),
            model_.combinations[combination].number),
        .load_case = load_case};
  }

  std::optional<model::ForceTable> table() const {
    if (std::ranges::find(to_interpolate_, true) == to_interpolate_.end()) return std::nullopt;
    model::ForceTable out;
    out.resize(model_.elements.size(), cases());
    for (std::size_t e = 0; e < model_.elements.size(); ++e) {
      for (std::size_t c = 0; c < cases(); ++c) {
        const model::CaseForces* forces = model_.forces.find(e, c);
        if (forces == nullptr) continue;
        out.set(e, c, to_interpolate_[e * cases() + c] ? interpolated(*forces) : *forces);
      }
    }
    return out;
  }

  std::vector<ElementCase> without_inner() const {
    std::vector<ElementCase> out;
    for (std::size_t e = 0; e < model_.elements.size(); ++e) {
      for (std::size_t c = 0; c < cases(); ++c) {
        if (!takes_part_[c] || ends_only_.loaded(e, c) == Loaded::no) continue;
        out.push_back({model_.elements[e].number, model_.load_cases[c].number});
      }
    }
    return out;
  }

  const model::Model& model_;
  EndsOnly ends_only_;
  std::vector<CombinationPlan> plans_;
  std::vector<bool> to_interpolate_;  ///< by element, then case
  std::vector<bool> takes_part_;      ///< in a design combination, by case
};

}  // namespace

analysis::Result<GivenPositions> complete_positions(const model::Model& model) {
  if (!has_ends_only(model)) return GivenPositions();
  return Completion(model).run();
}

}  // namespace aluframe::forces
