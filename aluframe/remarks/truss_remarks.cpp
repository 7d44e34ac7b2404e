#include <array>
#include <cmath>
#include <set>

#include "aluframe/remarks/concerned.h"
#include "aluframe/remarks/kinds.h"
#include "aluframe/texts/text.h"

namespace aluframe::remarks {

namespace {

/// Share of its length by which an element may leave a direction that it counts as parallel to:
/// the bending of a load along it is as small a share of that of the same load across.
constexpr double parallel_tolerance = 1e-3;

/// Whether a load in this direction acts along the element, so that nothing bends.
bool acts_along(const model::LoadDirection& direction, const model::Element& element,
                const model::Model& model) {
  if (direction.axes == model::LoadAxes::local) return direction.axis == 0;
  const model::Node& start = *model.nodes.find(element.nodes[0]);
  const model::Node& end = *model.nodes.find(element.nodes[1]);
  std::array<double, 3> axis{end.x - start.x, end.y - start.y, end.z - start.z};
  const double length = std::hypot(axis[0], axis[1], axis[2]);
  axis[direction.axis] = 0.0;
  return std::hypot(axis[0], axis[1], axis[2]) <= parallel_tolerance * length;
}

/// Trusses with loads between their ends, by number.
class BentTrusses {
 public:
  explicit BentTrusses(const model::Model& model) : model_(model) {
    for (const model::Element& element : model.elements) {
      if (element.kind == model::ElementKind::truss) trusses_.insert(element.number);
    }
  }

  void add_of(const model::CaseLoads& loads) {
    if (trusses_.empty()) return;
    for (const model::SpanLoad& load : loads.span) add(load.elements, load.direction);
    for (const model::PointLoad& load : loads.points) {
      if (load.at > 0.0 && load.at < 1.0) add(load.elements, load.direction);
    }
  }
  const std::set<model::Number>& numbers() const { return bent_; }

 private:
  void add(const model::Targets& targets, const model::LoadDirection& direction) {
    if (targets.all) {
      for (const model::Number number : trusses_) add(number, direction);
    }
    for (const model::Number number : targets.numbers) {
      if (trusses_.contains(number)) add(number, direction);
    }
  }
  void add(model::Number truss, const model::LoadDirection& direction) {
    if (!acts_along(direction, *model_.elements.find(truss), model_)) bent_.insert(truss);
  }

  const model::Model& model_;
  std::set<model::Number> trusses_, bent_;
};

}  // namespace

std::optional<Remark> bent_trusses(Subject& subject) {
  const model::Model& model = subject.model;
  BentTrusses bent(model);
  for (const model::LoadCase& load_case : model.load_cases) bent.add_of(load_case.loads);
  Concerned concerned;
  for (const model::Number number : bent.numbers()) concerned.add(*model.elements.find(number));
  if (concerned.empty()) return std::nullopt;
  return concerned.remark(
      "truss",
      texts::translatable("loads between the ends of trusses go to their nodes: their bending is "
                          "left out; use beams with released ends"));
}

}  // namespace aluframe::remarks
