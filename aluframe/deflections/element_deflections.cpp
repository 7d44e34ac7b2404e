#include "aluframe/deflections/element_deflections.h"

#include <map>
#include <set>
#include <utility>

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/displaced_element.h"
#include "aluframe/analysis/local_axes.h"
#include "aluframe/forces/analyse_sets.h"
#include "aluframe/forces/frame_of_model.h"
#include "aluframe/forces/imperfections_of_model.h"

namespace aluframe::deflections {

namespace {

/// Puts the coefficients of a shape into a column.
void put(const analysis::ElementShape& shape, Eigen::Index column, Eigen::MatrixXd& across) {
  Eigen::Index row = 0;
  for (const analysis::ShapePiece& piece : shape) {
    for (const analysis::Bernstein& along : piece.across) {
      for (const double c : along) across(row++, column) = c;
    }
  }
}

/// Load cases with loads that take part in a state, each a column.
using Columns = std::map<std::size_t, Eigen::Index>;

Columns columns_of(const std::vector<State>& states) {
  Columns columns;
  for (const State& state : states) {
    for (const auto& entry : state.loads) {
      columns.try_emplace(entry.load_case, static_cast<Eigen::Index>(columns.size()));
    }
  }
  return columns;
}

class LinearDisplacements : public Displacements {
 public:
  LinearDisplacements(const model::Model& model, const std::vector<State>& states)
      : frame_(forces::frame_of(model)), geometry_(analysis::element_geometry(frame_)) {
    const Columns columns = columns_of(states);
    cases_.resize(columns.size());
    places_.resize(columns.size());
    for (const auto& [place, column] : columns) {
      places_[static_cast<std::size_t>(column)] = place;
      cases_[static_cast<std::size_t>(column)] = forces::loads_of(model, model.load_cases[place]);
    }
    factors_.setZero(static_cast<Eigen::Index>(columns.size()),
                     static_cast<Eigen::Index>(states.size()));
    for (std::size_t s = 0; s < states.size(); ++s) {
      combinations_.push_back(states[s].combination);
      for (const auto& entry : states[s].loads) {
        factors_(columns.at(entry.load_case), static_cast<Eigen::Index>(s)) += entry.factor;
      }
    }
  }

  /// @param known displacements by load case, which need no analysis; null: there are none
  std::optional<analysis::Problem> solve(const forces::CaseDisplacements* known) {
    if (known == nullptr || !take(*known)) {
      auto solved = analysis::analyse(frame_, cases_);
      if (auto* problem = std::get_if<analysis::Problem>(&solved)) return std::move(*problem);
      results_ = std::move(std::get<analysis::Solution>(solved).cases);
      for (const analysis::CaseResult& result : results_) {
        displacements_.push_back(&result.displacements);
      }
    }
    for (const analysis::LoadCase& load_case : cases_) {
      loads_.emplace_back(frame_, geometry_, load_case);
    }
    return std::nullopt;
  }

  const std::vector<model::Number>& combinations() const override { return combinations_; }

  Eigen::Matrix3Xd of_node(std::size_t node) const override {
    Eigen::Matrix3Xd of_cases(3, factors_.rows());
    for (std::size_t c = 0; c < displacements_.size(); ++c) {
      const analysis::Vector6& u = (*displacements_[c])[node];
      of_cases.col(static_cast<Eigen::Index>(c)) << u[0], u[1], u[2];
    }
    return of_cases * factors_;
  }

  Shapes of_element(std::size_t place) const override {
    const analysis::Element& element = frame_.elements[place];
    std::vector<analysis::DisplacedElement> of_cases;
    std::set<double> bounds;
    for (std::size_t c = 0; c < displacements_.size(); ++c) {
      const analysis::ElementLoads loads = loads_[c].of(place);
      const auto& nodes = *displacements_[c];
      of_cases.emplace_back(element, loads,
                            analysis::end_displacements(element, geometry_[place], loads,
                                                        nodes[element.start], nodes[element.end]));
      bounds.insert(of_cases.back().places().begin(), of_cases.back().places().end());
    }
    if (of_cases.empty()) bounds = {0.0, geometry_[place].length};
    Shapes shapes{{bounds.begin(), bounds.end()}, {}};
    Eigen::MatrixXd across(static_cast<Eigen::Index>(12 * (bounds.size() - 1)), factors_.rows());
    for (std::size_t c = 0; c < of_cases.size(); ++c) {
      put(analysis::shape_through(shapes.bounds, across_of(of_cases[c])),
          static_cast<Eigen::Index>(c), across);
    }
    shapes.across = across * factors_;
    return shapes;
  }

 private:
  /// @return false when a case is missing
  bool take(const forces::CaseDisplacements& known) {
    for (const std::size_t place : places_) {
      if (place >= known.size() || known[place].size() != frame_.nodes.size()) {
        displacements_.clear();
        return false;
      }
      displacements_.push_back(&known[place]);
    }
    return true;
  }

  static analysis::AcrossAt across_of(const analysis::DisplacedElement& displaced) {
    return [&displaced](std::span<const double> places) {
      std::array<std::vector<double>, 2> out;
      for (const double x : places) {
        const Eigen::Vector3d u = displaced.at(x);
        out[0].push_back(u.y());
        out[1].push_back(u.z());
      }
      return out;
    };
  }

  analysis::Frame frame_;
  std::vector<analysis::Geometry> geometry_;
  std::vector<analysis::LoadCase> cases_;
  std::vector<analysis::LoadsByElement> loads_;
  std::vector<std::size_t> places_;                                   ///< of the cases in the model
  std::vector<analysis::CaseResult> results_;                         ///< of the own analysis
  std::vector<const std::vector<analysis::Vector6>*> displacements_;  ///< by case
  Eigen::MatrixXd factors_;  ///< of the cases in the states
  std::vector<model::Number> combinations_;
};

class SecondOrderDisplacements : public Displacements {
 public:
  SecondOrderDisplacements(model::Number combination, analysis::SecondOrderResult result)
      : combinations_{combination}, result_(std::move(result)) {}

  const std::vector<model::Number>& combinations() const override { return combinations_; }

  Eigen::Matrix3Xd of_node(std::size_t node) const override {
    const analysis::Vector6& u = result_.result.displacements[node];
    return Eigen::Vector3d(u[0], u[1], u[2]);
  }

  Shapes of_element(std::size_t place) const override {
    const analysis::ElementShape& shape = result_.shapes[place];
    Shapes shapes;
    shapes.bounds.push_back(shape.front().from);
    for (const analysis::ShapePiece& piece : shape) shapes.bounds.push_back(piece.to);
    shapes.across.resize(static_cast<Eigen::Index>(12 * shape.size()), 1);
    put(shape, 0, shapes.across);
    return shapes;
  }

  bool are_too_large() const override { return !result_.growing.empty(); }

 private:
  std::vector<model::Number> combinations_;
  analysis::SecondOrderResult result_;
};

}  // namespace

analysis::Result<std::unique_ptr<Displacements>> linear_displacements(
    const model::Model& model, const std::vector<State>& states,
    const forces::CaseDisplacements* known) {
  auto displacements = std::make_unique<LinearDisplacements>(model, states);
  if (auto problem = displacements->solve(known)) return std::move(*problem);
  return displacements;
}

analysis::Result<std::unique_ptr<Displacements>> second_order_displacements(
    const model::Model& model, const State& state) {
  std::vector<analysis::LoadCase> cases;
  for (const auto& entry : state.loads) {
    cases.push_back(forces::loads_of(model, model.load_cases[entry.load_case]));
  }
  std::vector<analysis::FactoredCase> factored;
  for (std::size_t i = 0; i < cases.size(); ++i) {
    factored.push_back({&cases[i], state.loads[i].factor});
  }
  analysis::SecondOrderOptions options = forces::second_order_options(model);
  options.with_shapes = true;
  auto solved =
      analysis::analyse_second_order(forces::frame_of(model), analysis::combine(factored), options);
  if (auto* problem = std::get_if<analysis::Problem>(&solved)) return std::move(*problem);
  return std::make_unique<SecondOrderDisplacements>(
      state.combination, std::get<analysis::SecondOrderResult>(std::move(solved)));
}

analysis::Result<std::unique_ptr<Displacements>> large_displacements(const model::Model& model,
                                                                     const State& state) {
  auto solved = forces::analyse_sets(model, {&state.loads, 1}, forces::Order::large_displacements);
  if (auto* problem = std::get_if<analysis::Problem>(&solved)) return std::move(*problem);
  auto& results = std::get<std::vector<analysis::SecondOrderResult>>(solved);
  return std::make_unique<SecondOrderDisplacements>(state.combination, std::move(results.front()));
}

}  // namespace aluframe::deflections
