#include "aluframe/analysis/load_case.h"

namespace aluframe::analysis {

namespace {

template <std::size_t count>
void scale(std::array<double, count>& values, double factor) {
  for (double& value : values) value *= factor;
}

void scale(NodalLoad& load, double factor) {
  scale(load.value, factor);
}
void scale(DistributedLoad& load, double factor) {
  scale(load.from_value, factor);
  scale(load.to_value, factor);
}
void scale(PointLoad& load, double factor) {
  scale(load.force, factor);
  scale(load.moment, factor);
}
void scale(Temperature& load, double factor) {
  load.change *= factor;
  load.difference_y *= factor;
  load.difference_z *= factor;
}
void scale(Settlement& load, double factor) {
  load.value *= factor;
}

template <class Load>
void append(const std::vector<Load>& loads, double factor, std::vector<Load>& to) {
  for (Load load : loads) {
    scale(load, factor);
    to.push_back(load);
  }
}

}  // namespace

LoadCase combine(std::span<const FactoredCase> cases) {
  LoadCase sum;
  for (const auto& [load_case, factor] : cases) {
    append(load_case->nodal, factor, sum.nodal);
    append(load_case->distributed, factor, sum.distributed);
    append(load_case->points, factor, sum.points);
    append(load_case->temperatures, factor, sum.temperatures);
    append(load_case->settlements, factor, sum.settlements);
    for (std::size_t i = 0; i < 3; ++i) sum.self_weight[i] += factor * load_case->self_weight[i];
  }
  return sum;
}

}  // namespace aluframe::analysis
