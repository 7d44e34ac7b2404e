#include "bench/analysed_grid.h"

#include <array>
#include <map>

#include "aluframe/analysis/analyse.h"
#include "aluframe/analysis/buckling.h"
#include "bench/building_grid.h"

namespace bench {

namespace analysis = aluframe::analysis;

Grid::Grid(std::size_t elements)
    : frame(building_grid::frame_of_about(elements)),
      cases(building_grid::load_cases(frame, 1 + further_cases)) {
  const auto geometry = analysis::element_geometry(frame);
  matrix = analysis::assemble(frame, geometry, analysis::Equations(frame),
                              analysis::elastic_source(frame, geometry))
               .matrix;
}

const Grid& grid_of(std::size_t elements) {
  static std::map<std::size_t, Grid> grids;
  return grids.try_emplace(elements, elements).first->second;
}

LoadedState state_of(const Grid& grid, double wind_x, double wind_y) {
  const std::array parts{analysis::FactoredCase{&grid.cases[0], 1.3},
                         analysis::FactoredCase{&grid.cases[2], wind_x},
                         analysis::FactoredCase{&grid.cases[3], wind_y}};
  LoadedState state{analysis::combine(parts), {}};
  const auto solution = value_of(analysis::analyse(grid.frame, std::span(&state.loads, 1)));
  state.axial_forces = analysis::axial_forces_at_start(solution.cases.front());
  return state;
}

}  // namespace bench
