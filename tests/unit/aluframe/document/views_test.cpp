#include "aluframe/document/views.h"

#include <gmock/gmock.h>

namespace aluframe::document {
namespace {

using picture::View;
using testing::ElementsAre;

model::Model with_nodes(const std::vector<model::Node>& nodes) {
  model::Model model;
  for (const model::Node& node : nodes) model.nodes.add(node);
  return model;
}

TEST(DocumentViews, OfASpaceFrameAreAll) {
  EXPECT_THAT(views_of(with_nodes({{1, "", 1000, 0, 0}, {2, "", 0, 2000, 0}, {3, "", 0, 0, 3000}})),
              ElementsAre(View::iso, View::xz, View::yz, View::xy));
}

TEST(DocumentViews, LeaveOutThoseInWhichAPlaneFrameIsALine) {
  EXPECT_THAT(views_of(with_nodes({{1, "", 0, 0, 0}, {2, "", 4000, 0, 0}, {3, "", 0, 0, 3000}})),
              ElementsAre(View::iso, View::xz));
}

}  // namespace
}  // namespace aluframe::document
