#include <algorithm>
#include <cmath>

#include "aluframe/analysis/diagnostic_text.h"

#include <fmt/format.h>
#include "aluframe/analysis/input_check.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

using Found = std::optional<Problem>;

Problem input_problem(std::string text) {
  return {Problem::Kind::input, std::move(text), std::nullopt, std::nullopt};
}

template <std::size_t count>
bool finite(const std::array<double, count>& values) {
  return std::all_of(values.begin(), values.end(), [](double v) { return std::isfinite(v); });
}

Found check_element_place(const Frame& frame, std::size_t element) {
  if (element < frame.elements.size()) return std::nullopt;
  return input_problem(fmt::format(texts::translatable("a load is on an element at place {} of {}"),
                                   element, frame.elements.size()));
}

Problem on_element(const Frame& frame, std::size_t element, const std::string& text) {
  Problem problem = input_problem(
      fmt::format(texts::translatable("load on {}: {}"), element_name(frame, element), text));
  problem.element = element;
  return problem;
}

Found check(const Frame& frame, const NodalLoad& load) {
  if (load.node >= frame.nodes.size()) {
    return input_problem(fmt::format(texts::translatable("a load is on a node at place {} of {}"),
                                     load.node, frame.nodes.size()));
  }
  if (finite(load.value)) return std::nullopt;
  Problem problem = input_problem(
      fmt::format(texts::translatable("load on {}: not finite"), node_name(frame, load.node)));
  problem.node = load.node;
  return problem;
}

Found check(const Frame& frame, const DistributedLoad& load) {
  if (auto problem = check_element_place(frame, load.element)) return problem;
  if (!finite(load.from_value) || !finite(load.to_value)) {
    return on_element(frame, load.element, texts::translatable("not finite"));
  }
  if (load.from >= 0.0 && load.from <= load.to && load.to <= 1.0) return std::nullopt;
  return on_element(
      frame, load.element,
      fmt::format(
          texts::translatable("it goes from {:g} to {:g} of the length, must lie within 0 to 1"),
          load.from, load.to));
}

Found check(const Frame& frame, const PointLoad& load) {
  if (auto problem = check_element_place(frame, load.element)) return problem;
  if (!finite(load.force) || !finite(load.moment)) {
    return on_element(frame, load.element, texts::translatable("not finite"));
  }
  if (!(load.at >= 0.0 && load.at <= 1.0)) {
    return on_element(
        frame, load.element,
        fmt::format(texts::translatable("it acts at {:g} of the length, must lie within 0 to 1"),
                    load.at));
  }
  const bool truss = frame.elements[load.element].kind == ElementKind::truss;
  if (truss && load.moment != Vector3{}) {
    return on_element(frame, load.element, texts::translatable("a truss cannot take a moment"));
  }
  return std::nullopt;
}

Found check(const Frame& frame, const Temperature& load) {
  if (auto problem = check_element_place(frame, load.element)) return problem;
  const std::array values{load.change, load.difference_y, load.depth_y, load.difference_z,
                          load.depth_z};
  if (!finite(values)) return on_element(frame, load.element, texts::translatable("not finite"));
  const bool lost = (load.difference_y != 0.0 && !(load.depth_y > 0.0)) ||
                    (load.difference_z != 0.0 && !(load.depth_z > 0.0));
  if (!lost && load.depth_y >= 0.0 && load.depth_z >= 0.0) return std::nullopt;
  return on_element(
      frame, load.element,
      texts::translatable("a temperature difference needs the positive distance of its two faces"));
}

bool is_supported(const Frame& frame, const Settlement& settlement) {
  return std::any_of(frame.supports.begin(), frame.supports.end(), [&](const Support& support) {
    return support.node == settlement.node && support.fixed[settlement.direction];
  });
}

Found check(const Frame& frame, const Settlement& settlement) {
  if (settlement.node >= frame.nodes.size() || settlement.direction > 5) {
    return input_problem(
        texts::translatable("a settlement is at a node or in a direction that does not exist"));
  }
  const bool supported = is_supported(frame, settlement);
  if (supported && std::isfinite(settlement.value)) return std::nullopt;
  Problem problem = input_problem(
      supported ? fmt::format(texts::translatable("{}: its settlement is not finite"),
                              node_name(frame, settlement.node))
      : settlement.direction < 3
          ? fmt::format(texts::translatable("{} has a settlement along {}, but no support there"),
                        node_name(frame, settlement.node), axis_name(settlement.direction))
          : fmt::format(texts::translatable("{} has a settlement about {}, but no support there"),
                        node_name(frame, settlement.node), axis_name(settlement.direction)));
  problem.node = settlement.node;
  return problem;
}

template <class Load>
Found check_all(const Frame& frame, const std::vector<Load>& loads) {
  for (const Load& load : loads) {
    if (auto problem = check(frame, load)) return problem;
  }
  return std::nullopt;
}

}  // namespace

Found find_problem(const Frame& frame, const LoadCase& load_case) {
  if (!finite(load_case.self_weight))
    return input_problem(texts::translatable("a factor of self-weight is not finite"));
  if (auto problem = check_all(frame, load_case.nodal)) return problem;
  if (auto problem = check_all(frame, load_case.distributed)) return problem;
  if (auto problem = check_all(frame, load_case.points)) return problem;
  if (auto problem = check_all(frame, load_case.temperatures)) return problem;
  return check_all(frame, load_case.settlements);
}

}  // namespace aluframe::analysis
