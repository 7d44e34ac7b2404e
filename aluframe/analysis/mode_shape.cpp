#include "aluframe/analysis/mode_shape.h"

#include <algorithm>
#include <cmath>
#include <numbers>

#include "aluframe/analysis/beam_column.h"
#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/analysis/load_vector.h"
#include "aluframe/elementary/functions.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

constexpr Eigen::Index most_points = InitialSlope::most_terms + 1;
/// Intervals of an element in which its largest displacement is looked for.
constexpr std::size_t intervals = 32;

using Points = Eigen::Matrix<double, most_points, 1>;

/// Places of t at which a polynomial follows a function nearly as well as any does (Chebyshev's of
/// the second kind), both ends among them.
Points fitted_places() {
  Points t;
  for (Eigen::Index i = 0; i < most_points; ++i) {
    t[i] = -elementary::cosine(std::numbers::pi * static_cast<double>(i) / (most_points - 1));
  }
  return t;
}

/// Turns deflections at the fitted places into the powers of their polynomial.
const Eigen::Matrix<double, most_points, most_points>& powers_of_points() {
  static const Eigen::Matrix<double, most_points, most_points> inverse = [] {
    Eigen::Matrix<double, most_points, most_points> powers;
    powers.col(0).setOnes();
    for (Eigen::Index k = 1; k < most_points; ++k) {
      powers.col(k) = powers.col(k - 1).cwiseProduct(fitted_places());
    }
    return powers.inverse().eval();
  }();
  return inverse;
}

/// Slope dw/dx from deflections at the fitted places.
InitialSlope slope_through(std::span<const double> deflections, double length) {
  const Eigen::Map<const Points> points(deflections.data());
  if (points.isZero(0.0)) return {};
  const Points powers = powers_of_points() * points;
  InitialSlope::Powers slope{};
  for (std::size_t k = 0; k < slope.size(); ++k) {
    const auto next = static_cast<Eigen::Index>(k) + 1;
    slope[k] = powers[next] * static_cast<double>(next) * 2.0 / length;
  }
  return InitialSlope(slope);
}

/// The largest value of equally spaced ones, or of the parabola through it and its neighbours.
double largest_of(std::span<const double> values) {
  const auto top = std::ranges::max_element(values);
  if (top == values.begin() || top == values.end() - 1) return *top;
  const double before = top[-1], here = top[0], after = top[1];
  const double bend = before - 2.0 * here + after;
  if (!(bend < 0.0)) return here;
  return here - (after - before) * (after - before) / (8.0 * bend);
}

/// The elements of a frame in a mode of unknown size.
class ModeElements {
 public:
  ModeElements(const Frame& frame, std::span<const Geometry> geometry, const LoadCase& loads,
               std::span<const double> axial_forces, const BucklingMode& mode)
      : frame_(frame),
        geometry_(geometry),
        loads_(frame, geometry, scaled(loads, factor_of(mode))),
        axial_forces_(axial_forces),
        mode_(mode) {}

  /// Adds the element's shape. @return its largest displacement; nothing when it has no equilibrium
  std::optional<double> add(std::size_t element, InitialShape& shape) const;

 private:
  /// An element that buckles between its nodes is bent by a load across it, as close to its factor
  /// as leaves nothing but its mode.
  static double factor_of(const BucklingMode& mode) {
    constexpr double just_below = 1.0 - 1e-5;
    return mode.element ? just_below * mode.factor : mode.factor;
  }
  static LoadCase scaled(const LoadCase& loads, double factor) {
    const FactoredCase factored{&loads, factor};
    return combine({&factored, 1});
  }
  Vector12 end_displacements(std::size_t element) const;

  const Frame& frame_;
  std::span<const Geometry> geometry_;
  LoadsByElement loads_;
  std::span<const double> axial_forces_;
  const BucklingMode& mode_;
};

Vector12 ModeElements::end_displacements(std::size_t place) const {
  const Element& element = frame_.elements[place];
  Vector12 global;
  for (std::size_t i = 0; i < 6; ++i) {
    global[static_cast<int>(i)] = mode_.shape[element.start][i];
    global[static_cast<int>(i) + 6] = mode_.shape[element.end][i];
  }
  return to_local(geometry_[place].axes, global);
}

std::optional<double> ModeElements::add(std::size_t place, InitialShape& shape) const {
  const Vector12 ends = end_displacements(place);
  const bool is_own = mode_.element == place;
  if (!is_own && ends.isZero(0.0)) return 0.0;
  const double length = geometry_[place].length;
  // Along the element alone the loads bring its axial force about; a mode has none across.
  const ElementLoads given = loads_.of(place);
  std::vector<LocalDistributed> distributed(given.distributed.begin(), given.distributed.end());
  std::vector<LocalPoint> points(given.points.begin(), given.points.end());
  for (LocalDistributed& load : distributed) {
    load.from_value.tail<2>().setZero();
    load.to_value.tail<2>().setZero();
  }
  for (LocalPoint& load : points) {
    load.force.tail<2>().setZero();
    load.moment.setZero();
  }
  // Of no symmetry, so that it bends every mode.
  if (is_own) distributed.push_back({0.0, length, {0.0, 1.0, 1.0}, {0.0, 0.5, 0.5}});
  const auto column = BeamColumn::of(frame_.elements[place], {length, distributed, points, {}},
                                     factor_of(mode_) * axial_forces_[place]);
  if (!column) return std::nullopt;
  std::vector<double> places;
  for (const double t : fitted_places()) places.push_back((t + 1.0) / 2.0 * length);
  for (std::size_t i = 0; i <= intervals; ++i) {
    places.push_back(length * static_cast<double>(i) / intervals);
  }
  const auto deflections = column->deflections(length, ends, places);
  shape.push_back({place,
                   {slope_through(std::span(deflections[0]).first(most_points), length),
                    slope_through(std::span(deflections[1]).first(most_points), length)}});
  std::vector<double> squares;
  for (std::size_t i = 0; i <= intervals; ++i) {
    const double along = ends[0] + (ends[6] - ends[0]) * static_cast<double>(i) / intervals;
    const double y = deflections[0][i + most_points], z = deflections[1][i + most_points];
    squares.push_back(along * along + y * y + z * z);
  }
  return std::sqrt(largest_of(squares));
}

/// @param text with a place for the element's name
Problem no_shape(const Frame& frame, std::size_t element, const char* text) {
  return {Problem::Kind::input, fmt::format(fmt::runtime(text), element_name(frame, element)),
          std::nullopt, element};
}

}  // namespace

Result<InitialShape> shape_of_mode(const Frame& frame, std::span<const Geometry> geometry,
                                   const LoadCase& loads, std::span<const double> axial_forces,
                                   const BucklingMode& mode, double amplitude) {
  if (mode.element && frame.elements[*mode.element].kind == ElementKind::truss) {
    return no_shape(
        frame, *mode.element,
        texts::translatable("the first buckling mode cannot be an imperfection: {} buckles in it "
                            "between its nodes, and a truss does not bend; give sway, or make it a "
                            "beam with hinges"));
  }
  const ModeElements elements(frame, geometry, loads, axial_forces, mode);
  InitialShape shape;
  double largest = 0.0;
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    const auto found = elements.add(i, shape);
    if (!found) {
      return no_shape(frame, i,
                      texts::translatable("the first buckling mode cannot be an imperfection: {} "
                                          "buckles by itself at the same loads; give sway or bow"));
    }
    largest = std::max(largest, *found);
  }
  if (!(largest > 0.0)) return InitialShape{};
  for (auto& [element, slopes] : shape) {
    for (InitialSlope& slope : slopes) {
      InitialSlope sized;
      slope = sized.add(slope, amplitude / largest);
    }
  }
  return shape;
}

}  // namespace aluframe::analysis
