#include "tests/property/io_same_loads.h"

#include <rapidcheck.h>

#include <array>
#include <cmath>
#include <optional>
#include <variant>
#include <vector>

namespace aluframe::io {

using namespace aluframe::model;

namespace {

template <std::size_t Size>
void take_if_close(std::array<double, Size>& expected, const std::array<double, Size>& actual) {
  for (std::size_t i = 0; i < Size; ++i) require_close(expected[i], actual[i]);
  expected = actual;
}

void take_if_close(double& expected, double actual) {
  require_close(expected, actual);
  expected = actual;
}

void take_if_close(NodalLoad& expected, const NodalLoad& actual) {
  take_if_close(expected.components, actual.components);
}

void take_if_close(SpanLoad& expected, const SpanLoad& actual) {
  take_if_close(expected.from_value, actual.from_value);
  take_if_close(expected.to_value, actual.to_value);
}

void take_if_close(std::optional<double>& expected, const std::optional<double>& actual) {
  RC_ASSERT(expected.has_value() == actual.has_value());
  if (expected) take_if_close(*expected, *actual);
}

void take_if_close(AreaLoad& expected, const AreaLoad& actual) {
  take_if_close(expected.spacing, actual.spacing);
  RC_ASSERT(expected.pressure.index() == actual.pressure.index());
  if (auto* wind = std::get_if<WindPressure>(&expected.pressure)) {
    const auto& other = std::get<WindPressure>(actual.pressure);
    take_if_close(wind->w0, other.w0);
    take_if_close(wind->height, other.height);
    take_if_close(wind->profile.gradient_height, other.profile.gradient_height);
    take_if_close(wind->profile.lowest_height, other.profile.lowest_height);
  } else if (auto* snow = std::get_if<SnowPressure>(&expected.pressure)) {
    take_if_close(snow->s0, std::get<SnowPressure>(actual.pressure).s0);
  } else {
    take_if_close(std::get<double>(expected.pressure), std::get<double>(actual.pressure));
  }
}

/// What area loads become follows from these.
void drop_line_loads_of_areas(CaseLoads& loads) {
  std::erase_if(loads.span, [](const SpanLoad& load) { return load.of_area.has_value(); });
}

void take_if_close(PointLoad& expected, const PointLoad& actual) {
  take_if_close(expected.value, actual.value);
}

void take_if_close(Settlement& expected, const Settlement& actual) {
  take_if_close(expected.displacements, actual.displacements);
}

template <class Load>
void take_if_close(std::vector<Load>& expected, const std::vector<Load>& actual) {
  RC_ASSERT(expected.size() == actual.size());
  for (std::size_t i = 0; i < expected.size(); ++i) take_if_close(expected[i], actual[i]);
}

}  // namespace

void require_close(double expected, double actual) {
  RC_ASSERT(std::abs(actual - expected) <= 4.5e-16 * std::abs(expected));
}

void require_equal(Support expected, const Support& actual) {
  take_if_close(expected.springs, actual.springs);
  RC_ASSERT(expected == actual);
}

void require_equal(LoadCase expected, LoadCase actual) {
  drop_line_loads_of_areas(expected.loads);
  drop_line_loads_of_areas(actual.loads);
  take_if_close(expected.loads.area, actual.loads.area);
  take_if_close(expected.loads.nodal, actual.loads.nodal);
  take_if_close(expected.loads.span, actual.loads.span);
  take_if_close(expected.loads.points, actual.loads.points);
  take_if_close(expected.loads.settlements, actual.loads.settlements);
  RC_ASSERT(expected == actual);
}

}  // namespace aluframe::io
