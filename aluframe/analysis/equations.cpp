#include "aluframe/analysis/equations.h"

#include "aluframe/analysis/diagnostic_text.h"
#include "aluframe/analysis/node_order.h"
#include "aluframe/texts/text.h"

namespace aluframe::analysis {

namespace {

/// Marks each direction as absent, supported, or (0) in need of an equation.
std::vector<int> directions(const Frame& frame) {
  std::vector<int> marks(6 * frame.nodes.size(), Equations::absent);
  for (const Element& element : frame.elements) {
    const std::size_t active = element.kind == ElementKind::beam ? 6 : 3;
    for (const std::size_t node : {element.start, element.end}) {
      for (std::size_t i = 0; i < active; ++i) marks[6 * node + i] = 0;
    }
  }
  for (const Spring& spring : frame.springs) {
    for (std::size_t i = 0; i < 6; ++i) {
      if (spring.stiffness[i] > 0.0) marks[6 * spring.node + i] = 0;
    }
  }
  for (const Support& support : frame.supports) {
    for (std::size_t i = 0; i < 6; ++i) {
      if (support.fixed[i]) marks[6 * support.node + i] = Equations::supported;
    }
  }
  return marks;
}

std::string lost_load_text(const Frame& frame, std::size_t node, std::size_t direction,
                           bool nothing_there) {
  const std::string load =
      direction < 3 ? fmt::format(texts::translatable("a force along {}"), axis_name(direction))
                    : fmt::format(texts::translatable("a moment about {}"), axis_name(direction));
  return nothing_there
             ? fmt::format(texts::translatable("{} is loaded with {}, but no element meets it"),
                           node_name(frame, node), load)
             : fmt::format(texts::translatable("{} is loaded with {}, but only trusses meet there"),
                           node_name(frame, node), load);
}

}  // namespace

Equations::Equations(const Frame& frame) : numbers_(directions(frame)) {
  dofs_.reserve(numbers_.size());
  for (const std::size_t node : elimination_order(frame)) {
    for (std::size_t i = 6 * node; i < 6 * node + 6; ++i) {
      if (numbers_[i] != 0) continue;
      numbers_[i] = count_++;
      dofs_.push_back(i);
    }
  }
}

std::optional<Problem> find_lost_load(const Frame& frame, const Equations& equations,
                                      const LoadCase& load_case) {
  for (const NodalLoad& load : load_case.nodal) {
    for (std::size_t i = 0; i < 6; ++i) {
      if (load.value[i] == 0.0 || equations.at(load.node, i) != Equations::absent) continue;
      const bool nothing_there = equations.at(load.node, 0) == Equations::absent;
      return Problem{Problem::Kind::input, lost_load_text(frame, load.node, i, nothing_there),
                     load.node, std::nullopt};
    }
  }
  return std::nullopt;
}

}  // namespace aluframe::analysis
