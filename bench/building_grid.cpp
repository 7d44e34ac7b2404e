#include "bench/building_grid.h"

#include <algorithm>
#include <cmath>

namespace building_grid {

namespace {

namespace analysis = aluframe::analysis;
using analysis::Frame;
using analysis::LoadCase;

constexpr double bay = 6000.0, storey = 3500.0;
constexpr double e = 70000.0, g = 26923.0;

/// I-sections of about 300 and 500 mm, constants rounded.
constexpr analysis::Stiffness beam{e, g, 8000.0, 4000.0, 3500.0, 4.0e5, 2.1e8, 2.0e7};
constexpr analysis::Stiffness column{e, g, 20000.0, 9000.0, 7000.0, 2.0e6, 8.0e8, 3.0e8};

/// Numbers of bays along a side and of storeys.
struct Size {
  std::size_t bays = 0, storeys = 0;

  std::size_t lines() const { return bays + 1; }
  std::size_t node(std::size_t x, std::size_t y, std::size_t floor) const {
    return (floor * lines() + y) * lines() + x;
  }
};

/// About twice as many storeys as bays.
Size size_for(std::size_t elements) {
  // A storey has 3·bays² elements and a few more, so the whole has about 6·bays³.
  const auto bays = static_cast<std::size_t>(std::cbrt(static_cast<double>(elements) / 7.5));
  const std::size_t a_storey = (bays + 1) * (bays + 1) + 2 * bays * (bays + 1);
  return {bays, std::max<std::size_t>(1, (elements + a_storey / 2) / a_storey)};
}

void add_nodes(const Size& size, Frame& frame) {
  for (std::size_t floor = 0; floor <= size.storeys; ++floor) {
    for (std::size_t y = 0; y < size.lines(); ++y) {
      for (std::size_t x = 0; x < size.lines(); ++x) {
        const auto number = static_cast<analysis::Number>(frame.nodes.size() + 1);
        frame.nodes.push_back({number, bay * static_cast<double>(x), bay * static_cast<double>(y),
                               storey * static_cast<double>(floor)});
      }
    }
  }
}

void add_element(std::size_t start, std::size_t end, const analysis::Stiffness& stiffness,
                 Frame& frame) {
  analysis::Element element;
  element.number = static_cast<analysis::Number>(frame.elements.size() + 1);
  element.start = start;
  element.end = end;
  element.stiffness = stiffness;
  element.density = 2.7e-6;
  element.expansion = 2.3e-5;
  frame.elements.push_back(element);
}

void add_storey(const Size& size, std::size_t floor, Frame& frame) {
  for (std::size_t y = 0; y < size.lines(); ++y) {
    for (std::size_t x = 0; x < size.lines(); ++x) {
      const std::size_t here = size.node(x, y, floor);
      add_element(size.node(x, y, floor - 1), here, column, frame);
      if (x > 0) add_element(size.node(x - 1, y, floor), here, beam, frame);
      if (y > 0) add_element(size.node(x, y - 1, floor), here, beam, frame);
    }
  }
}

bool is_beam(const Frame& frame, const analysis::Element& element) {
  return frame.nodes[element.start].z == frame.nodes[element.end].z;
}

/// 1 N/mm downwards on every beam, or on every second one.
void add_floor_load(const Frame& frame, std::size_t step, LoadCase& load_case) {
  for (std::size_t i = 0; i < frame.elements.size(); i += step) {
    if (!is_beam(frame, frame.elements[i])) continue;
    load_case.distributed.push_back(
        {i, analysis::LoadAxes::global, {0.0, 0.0, -1.0}, {0.0, 0.0, -1.0}});
  }
}

/// 2 kN on every node above the ground.
void add_wind(const Frame& frame, std::size_t direction, LoadCase& load_case) {
  for (std::size_t i = 0; i < frame.nodes.size(); ++i) {
    if (frame.nodes[i].z == 0.0) continue;
    load_case.nodal.push_back({i, {}});
    load_case.nodal.back().value[direction] = 2000.0;
  }
}

void add_warmth(const Frame& frame, LoadCase& load_case) {
  for (std::size_t i = 0; i < frame.elements.size(); ++i) {
    load_case.temperatures.push_back({.element = i, .change = 30.0});
  }
}

}  // namespace

Frame frame_of_about(std::size_t elements) {
  const Size size = size_for(elements);
  Frame frame;
  add_nodes(size, frame);
  for (std::size_t floor = 1; floor <= size.storeys; ++floor) add_storey(size, floor, frame);
  for (std::size_t i = 0; i < size.lines() * size.lines(); ++i) {
    frame.supports.push_back({i, {true, true, true, true, true, true}});
  }
  return frame;
}

std::vector<LoadCase> load_cases(const Frame& frame, std::size_t count) {
  std::vector<LoadCase> cases(count);
  for (std::size_t i = 0; i < count; ++i) {
    switch (i % 5) {
      case 0:
        cases[i].self_weight = {0.0, 0.0, -1.0};
        add_floor_load(frame, 1, cases[i]);
        break;
      case 1:
        add_floor_load(frame, 2, cases[i]);
        break;
      case 2:
        add_wind(frame, 0, cases[i]);
        break;
      case 3:
        add_wind(frame, 1, cases[i]);
        break;
      default:
        add_warmth(frame, cases[i]);
    }
  }
  return cases;
}

}  // namespace building_grid
