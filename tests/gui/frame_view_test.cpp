// The view of the frame: what it shows and how elements are picked in it.

#include "apps/desktop/frame_view.h"

#include <QSignalSpy>
#include <QTest>
#include <QThreadPool>
#include <QWheelEvent>
#include <algorithm>
#include <fstream>
#include <limits>

#include "aluframe/run/check.h"
#include "apps/desktop/model_document.h"
#include "apps/desktop/shown_forces.h"
#include "tests/gui/desktop_test.h"

namespace gui_test {
namespace {

using namespace aluframe;
using desktop::Colour;
using desktop::DisplayState;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

constexpr int patience = 20'000;  ///< ms

/// The portal of two frames with crane brackets, 31 elements, of which element 3 fails.
class FrameViewTest : public DesktopTest {
 protected:
  FrameViewTest() : view(workspace, display) {
    view.resize(900, 600);
    open(file);
    view.show();
    EXPECT_TRUE(QTest::qWaitForWindowExposed(&view));
    view.fit();
  }

  void open(const std::filesystem::path& model) {
    auto opened = desktop::ModelDocument::open(model);
    workspace.show_document(std::get<desktop::ModelDocument>(std::move(opened)));
  }
  /// A frame whose forces follow from its loads.
  void open_loaded_frame() {
    open(std::filesystem::path(EXAMPLE_MODEL).parent_path() / "platform-roof.json");
  }

  void check(const run::Selection& selection = {}) {
    const auto prepared = run::prepare({.model = file}, selection);
    run::CheckOptions options;
    options.results = run::result_path_of(file);
    run::check(std::get<run::Input>(prepared), options);
    workspace.refresh_results();
  }
  /// Where a part of an element stands in the view.
  QPoint place_of(model::Number element, double fraction) {
    const std::size_t i = workspace.model().elements.position(element);
    const auto& line = view.content().lines[i];
    const auto pixel =
        view.camera().pixel_of(between(line.start, line.end, fraction), view.view_size());
    return QPointF(pixel->x, pixel->y).toPoint();
  }
  void click(model::Number element, Qt::KeyboardModifiers modifiers = Qt::NoModifier) {
    QTest::mouseClick(&view, Qt::LeftButton, modifiers, place_of(element, 0.35));
  }
  void drag(const QPoint& from, const QPoint& to, Qt::MouseButton button = Qt::LeftButton) {
    QTest::mousePress(&view, button, {}, from);
    QTest::mouseMove(&view, (from + to) / 2);
    QTest::mouseMove(&view, to);
    QTest::mouseRelease(&view, button, {}, to);
  }
  QImage picture() {
    QCoreApplication::processEvents();
    return view.picture();
  }

  std::vector<std::string> legend() const {
    std::vector<std::string> texts;
    for (const picture::LegendEntry& entry : view.legend()) texts.push_back(entry.text);
    return texts;
  }

  desktop::Workspace workspace;
  desktop::Display display;
  desktop::FrameView view;
};

/// The legend of ratios, counted one by one.
/// @param without elements that have none
std::vector<std::string> counted(const std::vector<double>& ratios, std::size_t without) {
  const auto line = [](const std::string& text, std::size_t count) {
    return text + ": " + std::to_string(count) + (count == 1 ? " element" : " elements");
  };
  const auto above = [&](double least, double most) {
    return static_cast<std::size_t>(std::ranges::count_if(
        ratios, [=](double ratio) { return ratio > least && ratio <= most; }));
  };
  constexpr double infinity = std::numeric_limits<double>::infinity();
  std::vector<std::string> lines{
      line("ratio up to 0.25", above(-1, 0.25)),    line("ratio 0.25 to 0.50", above(0.25, 0.5)),
      line("ratio 0.50 to 0.75", above(0.5, 0.75)), line("ratio 0.75 to 0.90", above(0.75, 0.9)),
      line("ratio 0.90 to 1", above(0.9, 1)),       line("ratio over 1", above(1, infinity))};
  if (without > 0) lines.push_back(line("without a result", without));
  return lines;
}

TEST_F(FrameViewTest, AClickSelectsAndAnotherOneBesideClears) {
  click(1);
  EXPECT_THAT(workspace.selection(), ElementsAre(1));
  click(14);
  EXPECT_THAT(workspace.selection(), ElementsAre(14));
  EXPECT_EQ(workspace.current(), 14U);
  QTest::mouseClick(&view, Qt::LeftButton, {}, {450, 560});
  EXPECT_THAT(workspace.selection(), IsEmpty());
}

TEST_F(FrameViewTest, CtrlAddsAndTakesAway) {
  click(1);
  click(14, Qt::ControlModifier);
  EXPECT_THAT(workspace.selection(), ElementsAre(1, 14));
  click(1, Qt::ControlModifier);
  EXPECT_THAT(workspace.selection(), ElementsAre(14));
}

TEST_F(FrameViewTest, ABandToTheRightTakesWhatLiesInItAndToTheLeftWhatItTouches) {
  const QPoint corner(3, 3), other(897, 400);
  drag(corner, other);
  const auto whole = workspace.selection();
  EXPECT_FALSE(whole.contains(4));
  drag(other, corner);
  const auto touched = workspace.selection();
  EXPECT_GT(touched.size(), whole.size());
  for (const model::Number element : whole) EXPECT_TRUE(touched.contains(element));
  EXPECT_TRUE(touched.contains(4));
}

TEST_F(FrameViewTest, HiddenElementsAreNeitherDrawnNorPicked) {
  click(1);
  workspace.hide_selected();
  const QImage without = picture();
  click(1);
  EXPECT_FALSE(workspace.is_selected(1));
  workspace.clear_selection();
  workspace.show_all();
  EXPECT_NE(picture(), without);
  click(1);
  EXPECT_TRUE(workspace.is_selected(1));
}

TEST_F(FrameViewTest, IsolatingShowsTheSelectionAlone) {
  click(1);
  workspace.isolate_selected();
  EXPECT_EQ(workspace.hidden_count(), workspace.model().elements.size() - 1);
  EXPECT_FALSE(workspace.is_hidden(1));
}

TEST_F(FrameViewTest, TurnsByRightDragAndArrows) {
  const picture::View before = view.camera().view();
  drag({400, 300}, {500, 330}, Qt::RightButton);
  const picture::View turned = view.camera().view();
  EXPECT_FALSE(turned == before);
  QTest::keyClick(&view, Qt::Key_Left);
  EXPECT_FALSE(view.camera().view() == turned);
  EXPECT_THAT(workspace.selection(), IsEmpty());
}

TEST_F(FrameViewTest, TheCubeLeadsToTheStandardViews) {
  const auto sides = desktop::cube_sides(view.camera().view(), view.view_size(),
                                         QFontMetricsF(view.font()).height());
  ASSERT_EQ(sides.size(), 3U);
  const QPointF middle = 0.5 * (sides[0].outline[0] + sides[0].outline[2]);
  QTest::mouseClick(&view, Qt::LeftButton, {}, middle.toPoint());
  EXPECT_NEAR(length_of(view.camera().view().right - sides[0].view.right), 0.0, 1e-9);
  EXPECT_NEAR(length_of(view.camera().view().up - sides[0].view.up), 0.0, 1e-9);
}

TEST_F(FrameViewTest, KeysZoomFitAndClear) {
  click(1);
  const double before = view.camera().pixels_per_mm({}, view.view_size());
  QTest::keyClick(&view, Qt::Key_Plus);
  EXPECT_NEAR(view.camera().pixels_per_mm({}, view.view_size()), 1.2 * before, 1e-9);
  QTest::keyClick(&view, Qt::Key_F);
  EXPECT_NEAR(view.camera().pixels_per_mm({}, view.view_size()), before, 1e-9);
  QTest::keyClick(&view, Qt::Key_Escape);
  EXPECT_THAT(workspace.selection(), IsEmpty());
}

TEST_F(FrameViewTest, TheFittedFrameLeavesRoomForTheLegend) {
  check();
  const viewport::Size size = view.view_size();
  const QRectF legend = desktop::legend_box(view.font(), "Governing ratio", view.legend(), size);
  ASSERT_GT(legend.width(), 100.0);
  const QRectF window(0.0, 0.0, size.width, size.height);
  for (const viewport::ElementLine& line : view.content().lines) {
    const auto ends = view.camera().pixels_of(line.start, line.end, size);
    ASSERT_TRUE(ends) << line.number;
    for (int step = 0; step <= 20; ++step) {
      const double share = step / 20.0;
      const QPointF at((1.0 - share) * (*ends)[0].x + share * (*ends)[1].x,
                       (1.0 - share) * (*ends)[0].y + share * (*ends)[1].y);
      EXPECT_FALSE(legend.contains(at)) << line.number;
      EXPECT_TRUE(window.contains(at)) << line.number;
    }
  }
}

TEST_F(FrameViewTest, AFittedFrameStaysSoInAnotherSize) {
  const double before = view.camera().pixels_per_mm({}, view.view_size());
  view.resize(1800, 1200);
  EXPECT_NEAR(view.camera().pixels_per_mm({}, view.view_size()), 2.0 * before, 1e-9);
}

TEST_F(FrameViewTest, WhatTheUserHasTurnedStaysAsItIs) {
  QTest::keyClick(&view, Qt::Key_Left);
  const viewport::Pixel before = *view.camera().pixel_of({1000, 2000, 3000}, view.view_size());
  check();
  const viewport::Pixel after = *view.camera().pixel_of({1000, 2000, 3000}, view.view_size());
  EXPECT_EQ(after.x, before.x);
  EXPECT_EQ(after.y, before.y);
}

TEST_F(FrameViewTest, SmallFramesTurnAsTheyStand) {
  QTest::keyClick(&view, Qt::Key_Left);
  EXPECT_FALSE(view.is_drawn_quickly());
}

TEST_F(FrameViewTest, TellsWhatThePointerIsOver) {
  check();
  const QSignalSpy told(&view, &desktop::FrameView::pointed_at);
  QTest::mouseMove(&view, place_of(3, 0.5));
  ASSERT_FALSE(told.isEmpty());
  const std::string text = told.last().first().toString().toStdString();
  EXPECT_THAT(text, HasSubstr("element 3"));
  EXPECT_THAT(text, HasSubstr("ratio 1.0"));
}

TEST_F(FrameViewTest, ColoursByTheRatiosOfTheResults) {
  const auto colour_of = [this](model::Number element) {
    return view.content().looks[workspace.model().elements.position(element)].colour;
  };
  display.change([](DisplayState& state) { state.colour = Colour::worst_ratio; });
  EXPECT_EQ(colour_of(3), colour_of(1)) << "without results all are alike";
  check();
  EXPECT_EQ(colour_of(3), QColor("#e05000"));
  EXPECT_NE(colour_of(1), colour_of(3));
  display.change([](DisplayState& state) {
    state.colour = Colour::item;
    state.item = RALU_SHEAR_Y;
  });
  EXPECT_NE(colour_of(3), QColor("#e05000"));
}

// Element 31 of another material than aluminium would be; here what no check was made for.
TEST_F(FrameViewTest, WhatHasNoResultOfTheItemIsHatched) {
  check();
  display.change([](DisplayState& state) {
    state.colour = Colour::item;
    state.item = RALU_COMBINED_STABILITY;
  });
  std::size_t hatched = 0;
  for (const model::Element& element : workspace.model().elements) {
    const auto& look = view.content().looks[workspace.model().elements.position(element.number)];
    const auto* row = workspace.results()->find(element.number)->find(RALU_COMBINED_STABILITY);
    const bool has_result = row != nullptr && run::was_judged(*row);
    EXPECT_EQ(look.is_hatched, !has_result) << element.number;
    hatched += look.is_hatched ? 1 : 0;
  }
  EXPECT_GT(hatched, 0U);
}

TEST_F(FrameViewTest, TheLegendCountsTheElementsOfEachClassOfRatios) {
  display.change([](DisplayState& state) { state.colour = Colour::worst_ratio; });
  EXPECT_THAT(legend(), IsEmpty()) << "without results colours mean nothing";
  check();
  std::vector<double> ratios;
  for (const auto& [number, element] : workspace.results()->elements) {
    ratios.push_back(element.worst().governing.Ratio());
  }
  ASSERT_EQ(ratios.size(), 31U) << "all of the example's elements have a ratio";
  EXPECT_EQ(legend(), counted(ratios, 0));
  EXPECT_EQ(legend().back(), "ratio over 1: 1 element") << "element 3";
}

TEST_F(FrameViewTest, TheLegendCountsTheRatiosOfOneItem) {
  check();
  display.change([](DisplayState& state) {
    state.colour = Colour::item;
    state.item = RALU_COMBINED_STABILITY;
  });
  std::vector<double> ratios;
  for (const auto& [number, element] : workspace.results()->elements) {
    const store::GoverningRow* row = element.find(RALU_COMBINED_STABILITY);
    if (row != nullptr) ratios.push_back(row->governing.Ratio());
  }
  ASSERT_THAT(ratios.size(), testing::AllOf(testing::Gt(0U), testing::Lt(31U)));
  EXPECT_EQ(legend(), counted(ratios, 31 - ratios.size()));
}

TEST_F(FrameViewTest, TheLegendCountsNoRatiosOfChecksWithoutALimit) {
  // Bending alone: its slenderness is worked out, and set against nothing.
  file = file.parent_path() / "cantilever.json";
  std::ofstream(file) << R"({"format": "aluframe-model", "version": 1,
    "units": {"force": "kN", "length": "m"}, "materials": [{"number": 1, "alloy": "6061-T6"}],
    "sections": [{"number": 1, "shape": "P", "dimensions": {"D": 100, "t": 8}}],
    "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 1, "y": 0, "z": 0}],
    "supports": [{"node": 1, "restrained": "all"}],
    "elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1}],
    "load_cases": [{"number": 1, "nodal": [{"nodes": [2], "Fz": -1}]}],
    "combinations": [{"number": 1, "terms": [{"case": 1}]}]})";
  open(file);
  check();
  display.change([](DisplayState& state) {
    state.colour = Colour::item;
    state.item = RALU_SLENDERNESS_Y;
  });
  ASSERT_NE(workspace.results()->find(1)->find(RALU_SLENDERNESS_Y), nullptr);
  EXPECT_EQ(legend(), counted({}, 1));
}

TEST_F(FrameViewTest, TheLegendCountsTheElementsThatWereNotChecked) {
  check({.elements = std::get<model::NumberRanges>(model::parse_number_ranges("1-5")),
         .combinations = {}});
  display.change([](DisplayState& state) { state.colour = Colour::worst_ratio; });
  ASSERT_FALSE(legend().empty());
  EXPECT_EQ(legend().back(), "without a result: 26 elements") << "5 of 31 were checked";
}

TEST_F(FrameViewTest, TheLegendFollowsTheResultsAndTheColour) {
  check();
  display.change([](DisplayState& state) { state.colour = Colour::worst_ratio; });
  EXPECT_EQ(legend().size(), 6U);
  std::filesystem::remove(run::result_path_of(file));
  workspace.refresh_results();
  EXPECT_THAT(legend(), IsEmpty());
  display.change([](DisplayState& state) { state.colour = Colour::material; });
  // The example has one material for all of its elements.
  EXPECT_THAT(legend(), ElementsAre(testing::EndsWith(": 31 elements")));
}

TEST_F(FrameViewTest, ForcesAndDisplacementsAreComputedBesideAndDrawn) {
  open_loaded_frame();
  const QImage before = picture();
  display.change([](DisplayState& state) {
    state.diagram = picture::ForceComponent::my;
    state.diagram_of = desktop::CombinationSubject{1};
  });
  ASSERT_TRUE(QThreadPool::globalInstance()->waitForDone(patience));
  EXPECT_NE(picture(), before);
  display.change([](DisplayState& state) {
    state.diagram.reset();
    state.deformed = desktop::LoadCaseSubject{1};
  });
  ASSERT_TRUE(QTest::qWaitFor([&] { return view.content().deformed.has_value(); }, patience));
  EXPECT_EQ(view.content().deformed->lines.size(), workspace.model().elements.size());
}

TEST_F(FrameViewTest, BucklingModesAreDrawn) {
  open_loaded_frame();
  display.change([](DisplayState& state) { state.deformed = desktop::ModeSubject{2, 0}; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return view.content().deformed.has_value(); }, patience));
  double largest = 0.0;
  for (const auto& line : view.content().deformed->lines) {
    for (const auto& place : line.places) {
      largest = std::max(largest, length_of(place.displacement));
    }
  }
  EXPECT_NEAR(largest, 1.0, 1e-12);
}

TEST_F(FrameViewTest, SaysThatTheModelLacksTheCombinationOfAMode) {
  open_loaded_frame();
  desktop::ShownForces forces(workspace, display);
  display.change([](DisplayState& state) { state.deformed = desktop::ModeSubject{2, 0}; });
  ASSERT_TRUE(QTest::qWaitFor([&] { return forces.is_mode(); }, patience));
  display.change([](DisplayState& state) { state.deformed = desktop::ModeSubject{999, 0}; });
  ASSERT_TRUE(
      QTest::qWaitFor([&] { return !forces.notes().join(u' ').contains(u"computing"); }, patience));
  EXPECT_FALSE(forces.deformed().has_value());
  EXPECT_THAT(forces.notes().join(u'\n').toStdString(), HasSubstr("there is no combination 999"));
}

TEST_F(FrameViewTest, IsSafeToCloseWhileForcesAreComputed) {
  open_loaded_frame();
  auto other = std::make_unique<desktop::FrameView>(workspace, display);
  display.change([](DisplayState& state) { state.deformed = desktop::LoadCaseSubject{1}; });
  other.reset();
  ASSERT_TRUE(QTest::qWaitFor([&] { return view.content().deformed.has_value(); }, patience));
}

}  // namespace
}  // namespace gui_test
