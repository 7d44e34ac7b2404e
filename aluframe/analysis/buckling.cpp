#include "aluframe/analysis/buckling.h"

#include <algorithm>
#include <cmath>

#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/analysis/factor_search.h"
#include "aluframe/analysis/load_vector.h"
#include "aluframe/analysis/motion_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

/// Axial forces below this share of the largest force are rounding, which presses nothing.
constexpr double rounding_share = 1e-6;

/// Each over the sum of those that are positive.
void make_shares(std::vector<AxialWork>& work) {
  double sum = 0.0;
  for (const AxialWork& w : work) sum += std::max(0.0, w.about_y) + std::max(0.0, w.about_z);
  const double share = sum > 0.0 ? 1.0 / sum : 0.0;
  for (AxialWork& w : work) w = {.about_y = w.about_y * share, .about_z = w.about_z * share};
}

}  // namespace

class Buckling::Search {
 public:
  explicit Search(const Frame& frame)
      : frame_(frame),
        geometry_(element_geometry(frame)),
        equations_(frame),
        solver_(make_solver()),
        space_{frame_, geometry_, equations_, *solver_, {}} {}

  /// @param modes nothing: those near the smallest
  Result<BucklingResult> find(const LoadCase& loads, std::span<const double> axial_forces,
                              std::optional<int> modes);

 private:
  BucklingMode mode_of(const FoundFactor& found, const LoadedFrame& loaded,
                       std::span<const double> scale) const;
  std::string own_text(const FoundFactor& found, const LoadedFrame& loaded) const;

  const Frame& frame_;
  std::vector<Geometry> geometry_;
  Equations equations_;
  std::unique_ptr<LinearSolver> solver_;
  SearchSpace space_;
};

std::string Buckling::Search::own_text(const FoundFactor& found, const LoadedFrame& loaded) const {
  const std::size_t element = *found.element;
  const int axis = loaded.own_direction({found.factor, element});
  const Eigen::Vector3d along = geometry_[element].axes.row(axis).transpose();
  return fmt::format(texts::translatable("{} buckles between its nodes, along {}"),
                     element_name(frame_, element), axis_name(along));
}

BucklingMode Buckling::Search::mode_of(const FoundFactor& found, const LoadedFrame& loaded,
                                       std::span<const double> scale) const {
  BucklingMode mode;
  mode.factor = found.factor;
  mode.element = found.element;
  mode.shape.resize(frame_.nodes.size(), Vector6{});
  mode.work.resize(frame_.elements.size());
  if (found.element) {
    const bool bends_about_y = loaded.own_direction({found.factor, *found.element}) == 2;
    AxialWork& own = mode.work[*found.element];
    (bends_about_y ? own.about_y : own.about_z) = 1.0;
    mode.text = own_text(found, loaded);
    return mode;
  }
  const NodeValues values = node_values(found.shape, equations_, scale, frame_);
  for (std::size_t i = 0; i < values.size(); ++i) mode.shape[i / 6][i % 6] = values[i];
  mode.work = loaded.work(found.factor, values);
  make_shares(mode.work);
  const auto dominant = dominant_motion(frame_, values);
  mode.text = dominant ? motion_text(frame_, *dominant) : texts::translatable("the frame moves");
  return mode;
}

Result<BucklingResult> Buckling::Search::find(const LoadCase& loads,
                                              std::span<const double> axial_forces,
                                              std::optional<int> modes) {
  const LoadedFrame loaded(frame_, geometry_, equations_, loads, axial_forces);
  BucklingResult result;
  result.compression = loaded.compression();
  if (!loaded.is_compressed()) return result;
  FactorSearch search(space_, loaded, largest_buckling_factor);
  constexpr double certain_near = 1e-3;
  const int most = most_near_modes(frame_.elements.size());
  auto found = modes ? search.find(*modes) : search.find_near(near_factors, most, certain_near);
  if (auto* problem = std::get_if<Problem>(&found)) return std::move(*problem);
  result.factorisations = search.factorisations();
  result.has_passed_over = search.has_passed_over();
  for (const FoundFactor& one : std::get<std::vector<FoundFactor>>(found)) {
    result.modes.push_back(mode_of(one, loaded, search.scale()));
  }
  return result;
}

int most_near_modes(std::size_t elements) {
  constexpr std::size_t most = 60, least = 4, of_all_elements = 60000;
  return static_cast<int>(
      std::clamp(of_all_elements / std::max(elements, std::size_t{1}), least, most));
}

Buckling::Buckling(const Frame& frame) : search_(std::make_unique<Search>(frame)) {}
Buckling::~Buckling() = default;

Result<BucklingResult> Buckling::find(const LoadCase& loads, std::span<const double> axial_forces,
                                      int modes) {
  return search_->find(loads, axial_forces, modes);
}

Result<BucklingResult> Buckling::find_near(const LoadCase& loads,
                                           std::span<const double> axial_forces) {
  return search_->find(loads, axial_forces, std::nullopt);
}

std::vector<double> axial_forces_at_start(const CaseResult& result) {
  double largest = 0.0;
  for (const ElementForces& forces : result.forces) {
    for (const SectionForces& at : forces) {
      for (std::size_t i = 0; i < 3; ++i) largest = std::max(largest, std::abs(double{at[i]}));
    }
  }
  std::vector<double> axial;
  axial.reserve(result.forces.size());
  for (const ElementForces& forces : result.forces) {
    const double n = forces[0][0];
    const auto is_rounding = [&](const SectionForces& at) {
      return std::abs(double{at[0]}) <= rounding_share * largest;
    };
    axial.push_back(std::ranges::all_of(forces, is_rounding) ? 0.0 : n);
  }
  return axial;
}

}  // namespace aluframe::analysis
