#include "aluframe/model/meeting.h"

#include "tests/unit/aluframe/model/models.h"

namespace aluframe::model {
namespace {

/// A chain of 1 and 2 between the nodes 1, 2 and 3; a beam ends at node 2 and a truss at node 3.
Model branched() {
  Model model;
  for (const Number n : {1U, 2U, 3U, 4U}) model.nodes.add(node(n, n, n * n, 0));
  model.elements.add(element(1, 1, 2));
  model.elements.add(element(2, 2, 3));
  model.elements.add(element(3, 2, 4));
  Element truss = element(4, 3, 4);
  truss.kind = ElementKind::truss;
  model.elements.add(truss);
  return model;
}

bool meets(Number node, Meeting counted) {
  const Model model = branched();
  return meets_others(model, Connectivity(model), node, {1, 2}, counted);
}

TEST(MeetsOthers, ElementsOfTheChainAreNone) {
  EXPECT_FALSE(meets(1, Meeting::any));
}

TEST(MeetsOthers, ABeamCountsAlways) {
  EXPECT_TRUE(meets(2, Meeting::any));
  EXPECT_TRUE(meets(2, Meeting::beams));
}

TEST(MeetsOthers, ATrussCountsAmongAnyAlone) {
  EXPECT_TRUE(meets(3, Meeting::any));
  EXPECT_FALSE(meets(3, Meeting::beams));
}

}  // namespace
}  // namespace aluframe::model
