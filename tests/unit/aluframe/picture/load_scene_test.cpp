#include <type_traits>

#include "frames.h"

namespace aluframe::picture {
namespace {

Scene with_loads(const model::CaseLoads& loads) {
  model::Model model = beam();
  model::LoadCase load_case;
  load_case.number = 1;
  load_case.name = "DL";
  load_case.loads = loads;
  model.load_cases.add(load_case);
  Content content = along_y();
  content.loads = 1;
  return draw(model, content);
}

/// Loads of the kinds that are given.
template <class... Loads>
Scene with(const Loads&... loads) {
  model::CaseLoads all;
  const auto add = [&all](const auto& load) {
    if constexpr (std::is_same_v<std::decay_t<decltype(load)>, model::SpanLoad>) {
      all.span.push_back(load);
    } else if constexpr (std::is_same_v<std::decay_t<decltype(load)>, model::PointLoad>) {
      all.points.push_back(load);
    } else {
      all.nodal.push_back(load);
    }
  };
  (add(loads), ...);
  return with_loads(all);
}

model::SpanLoad span(double from_value, double to_value) {
  model::SpanLoad load;
  load.elements.all = true;
  load.from_value = from_value;
  load.to_value = to_value;
  return load;
}

/// The area under the load, as a picture of a distributed load begins.
const Shape& comb_of(const std::vector<Shape>& shapes) {
  return *std::ranges::find_if(
      shapes, [](const Shape& shape) { return shape.is_closed && shape.lines[0].size() == 4; });
}

// Along Z, downwards where negative: the arrows come from above, as high as the load is large.
TEST(LoadScene, DrawsADistributedLoadAboveWhereItPushesDown) {
  const Scene scene = with(span(-3, -6));
  const auto shapes = shapes_of(scene, Layer::loads);
  const auto& corners = comb_of(shapes).lines[0];
  EXPECT_EQ(corners[1].at, (Point3{0, 0, 3000}));
  EXPECT_EQ(corners[2].at, (Point3{4000, 0, 3000}));
  const double base = corners[0].paper.y;
  EXPECT_GT(base, 0.0);
  EXPECT_NEAR(corners[2].paper.y - base, 2.0 * (corners[1].paper.y - base), 1e-9);
  EXPECT_EQ(texts_of(scene, Layer::loads), (std::vector<std::string>{"3 kN/m", "6 kN/m"}));
  EXPECT_EQ(scene.subtitle, "loads, load case 1 \"DL\"; view along Y (XZ)");
}

TEST(LoadScene, DrawsAPartOfAnElementAndLoadsAboveEachOther) {
  model::SpanLoad part = span(-2, -2);
  part.from = 0.25;
  part.to = 0.75;
  const Scene scene = with(span(-2, -2), part);
  std::vector<Shape> combs;
  for (const Shape& shape : shapes_of(scene, Layer::loads)) {
    if (shape.is_closed && shape.lines[0].size() == 4) combs.push_back(shape);
  }
  ASSERT_EQ(combs.size(), 2U);
  EXPECT_EQ(combs[1].lines[0][0].at, (Point3{1000, 0, 3000}));
  EXPECT_EQ(combs[1].lines[0][3].at, (Point3{3000, 0, 3000}));
  EXPECT_GT(combs[1].lines[0][0].paper.y, combs[0].lines[0][1].paper.y);
}

TEST(LoadScene, DrawsPartsSideBySideOnOneBase) {
  model::SpanLoad first = span(-2, -2), second = span(-2, -2);
  first.to = second.from = 0.5;
  const Scene scene = with(first, second);
  const auto shapes = shapes_of(scene, Layer::loads);
  std::vector<double> bases;
  for (const Shape& shape : shapes) {
    if (shape.is_closed && shape.lines[0].size() == 4) bases.push_back(shape.lines[0][0].paper.y);
  }
  ASSERT_EQ(bases.size(), 2U);
  EXPECT_EQ(bases[0], bases[1]);
}

/// What an area load puts on the beam: 0 to 6, 6 and 6 to 3 kN/m.
Scene with_pieces() {
  std::vector<model::SpanLoad> pieces{span(0, -6), span(-6, -6), span(-6, -3)};
  for (std::size_t i = 0; i < pieces.size(); ++i) {
    pieces[i].elements = {.all = false, .numbers = {1}};
    pieces[i].of_area = 0;
    pieces[i].from = 0.25 * static_cast<double>(i);
    pieces[i].to = 0.25 * static_cast<double>(i + 1);
  }
  return with(pieces[0], pieces[1], pieces[2]);
}

TEST(LoadScene, DrawsThePiecesOfAnAreaLoadToOneScale) {
  std::vector<double> heights;
  for (const Shape& shape : shapes_of(with_pieces(), Layer::loads)) {
    if (!shape.is_closed || shape.lines[0].size() != 4) continue;
    const auto& corners = shape.lines[0];
    heights.push_back(corners[1].paper.y - corners[0].paper.y);
    heights.push_back(corners[2].paper.y - corners[3].paper.y);
  }
  ASSERT_EQ(heights.size(), 6U);
  const double full = heights[1];
  EXPECT_GT(full, 0.0);
  const std::vector<double> shares{0, 1, 1, 1, 1, 0.5};
  for (std::size_t i = 0; i < heights.size(); ++i) EXPECT_NEAR(heights[i], shares[i] * full, 1e-9);
}

TEST(LoadScene, LabelsAnAreaLoadWhereItIsLargest) {
  EXPECT_EQ(texts_of(with_pieces(), Layer::loads), (std::vector<std::string>{"6 kN/m", "6 kN/m"}));
}

TEST(LoadScene, ShowsLoadsAlongTheElementAndEndOnAsRows) {
  model::SpanLoad along = span(2, 2);
  along.direction = {model::LoadAxes::local, 0};
  const Scene arrows = with(along);
  EXPECT_TRUE(markers_of(arrows, Layer::loads).empty());
  model::SpanLoad away = span(2, 2);
  away.direction = {model::LoadAxes::global, 1};
  // Along Y is away from the eye: rings with crosses, and none with a dot.
  const Scene rings = with(away);
  for (const Marker& ring : markers_of(rings, Layer::loads)) EXPECT_EQ(ring.radius, 1.2);
  EXPECT_GE(markers_of(rings, Layer::loads).size(), 2U);
}

TEST(LoadScene, PutsTheTipOfAForceAtItsNode) {
  model::NodalLoad load;
  load.nodes.numbers = {2};
  load.components = {0, 0, -8000, 0, 0, 0};
  const Scene scene = with(load);
  const auto shapes = shapes_of(scene, Layer::loads);
  const auto head = std::ranges::find(shapes, true, &Shape::is_closed);
  ASSERT_NE(head, shapes.end());
  EXPECT_EQ(head->subject.kind, Subject::Kind::node);
  EXPECT_EQ(head->lines[0][0].at, (Point3{4000, 0, 3000}));
  EXPECT_LT(head->lines[0][0].paper.y, head->lines[0][1].paper.y);  // points downwards
  EXPECT_EQ(texts_of(scene, Layer::loads), std::vector<std::string>{"8 kN"});
}

// About +Y seen along Y, the eye looks along the axis: right-handed is clockwise.
TEST(LoadScene, TurnsAMomentAsItIsSeen) {
  model::PointLoad load;
  load.elements.all = true;
  load.direction = {model::LoadAxes::global, 1};
  load.kind = model::PointLoad::Kind::moment;
  load.value = 5e6;
  load.at = 0.25;
  const Scene scene = with(load);
  const auto shapes = shapes_of(scene, Layer::loads);
  const auto arc = std::ranges::find(shapes, false, &Shape::is_closed);
  ASSERT_NE(arc, shapes.end());
  const auto& line = arc->lines[0];
  EXPECT_EQ(line[0].at, (Point3{1000, 0, 3000}));
  const Point2 a = line[0].paper, b = line[1].paper;
  EXPECT_LT(a.x * b.y - a.y * b.x, 0.0);  // clockwise
  EXPECT_EQ(texts_of(scene, Layer::loads), std::vector<std::string>{"5 kN·m"});
}

TEST(LoadScene, SaysWhatHasNoPlace) {
  model::TemperatureLoad sun;
  sun.elements.numbers = {1};
  sun.change = -20;
  model::Settlement settlement;
  settlement.node = 2;
  settlement.displacements[2] = -5;
  model::CaseLoads loads;
  loads.self_weight = {0, 0, -1};
  loads.temperature = {sun};
  loads.settlements = {settlement};
  const Scene scene = with_loads(loads);
  EXPECT_TRUE(has_note(scene, "with the self-weight of all elements"));
  EXPECT_TRUE(has_note(scene, "temperature −20 K: element 1"));
  EXPECT_TRUE(has_note(scene, "settlement of node 2: Dz −5 mm"));
}

}  // namespace
}  // namespace aluframe::picture
