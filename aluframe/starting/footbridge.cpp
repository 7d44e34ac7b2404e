#include <fmt/format.h>

#include "aluframe/starting/builder.h"

namespace aluframe::starting {

namespace {

enum Sections : model::Number { chord = 1, post, diagonal, cross_beam, bracing };

using Line = std::vector<model::Number>;

Line nodes_along(Builder& frame, const char* name, double length, int panels, double y, double z) {
  Line line;
  for (int i = 0; i <= panels; ++i) {
    line.push_back(frame.node(fmt::format("{} {}", name, i), length * i / panels, y, z));
  }
  return line;
}

void truss(Builder& frame, const char* side, const Line& lower, const Line& upper) {
  const std::size_t panels = lower.size() - 1;
  for (std::size_t i = 0; i < panels; ++i) {
    frame.element(fmt::format("Lower chord {} {}", side, i + 1), lower[i], lower[i + 1], chord);
    frame.element(fmt::format("Upper chord {} {}", side, i + 1), upper[i], upper[i + 1], chord);
    // Down to the middle, so that the diagonals are pulled.
    const bool falls = 2 * i < panels;
    frame.element(fmt::format("Diagonal {} {}", side, i + 1), falls ? upper[i] : lower[i],
                  falls ? lower[i + 1] : upper[i + 1], diagonal);
  }
  for (std::size_t i = 0; i <= panels; ++i) {
    frame.element(fmt::format("Post {} {}", side, i), lower[i], upper[i], post);
  }
}

}  // namespace

/// A trough bridge: two trusses of rigid joints, cross beams between their lower chords, which with
/// the posts hold the upper chords as U-frames.
model::Model make_footbridge(const Sizes& sizes) {
  const double span = sizes.at("span"), width = sizes.at("width"), height = sizes.at("height");
  const int panels = static_cast<int>(sizes.at("panels"));
  Builder frame(fmt::format("Footbridge of {} m", size_text(span)),
                fmt::format("Two trusses, {} m apart and {} m high, with the deck on cross beams "
                            "between the lower chords; posts and "
                            "cross beams hold the upper chords. Its forces follow from the loads: "
                            "deck 0.5 kN/m², crowd 4 kN/m², wind "
                            "0.5 kN/m² on 0.4 m of each chord from either side. Change: pressures, "
                            "sections, panels. Combinations are made by the "
                            "rule of GB 50068-2018.",
                            size_text(width), size_text(height)),
                "GB 50068-2018");
  frame.use_buckling_modes();
  frame.section(chord, "Chord box 150x120", model::Shape::box, {150, 120, 8, 8});
  frame.section(post, "Post box 120x120", model::Shape::box, {120, 120, 6, 6});
  frame.section(diagonal, "Diagonal box 80x80", model::Shape::box, {80, 80, 5, 5});
  frame.section(cross_beam, "Cross beam box 160x120", model::Shape::box, {160, 120, 6, 8});
  frame.section(bracing, "Bracing pipe 80x5", model::Shape::pipe, {80, 5});
  const Line lower_r = nodes_along(frame, "Lower right", span, panels, 0, 0);
  const Line lower_l = nodes_along(frame, "Lower left", span, panels, width, 0);
  const Line upper_r = nodes_along(frame, "Upper right", span, panels, 0, height);
  const Line upper_l = nodes_along(frame, "Upper left", span, panels, width, height);
  truss(frame, "right", lower_r, upper_r);
  truss(frame, "left", lower_l, upper_l);
  Line beams;
  for (std::size_t i = 0; i < lower_r.size(); ++i) {
    beams.push_back(
        frame.element(fmt::format("Cross beam {}", i), lower_r[i], lower_l[i], cross_beam));
  }
  for (std::size_t i = 0; i + 1 < lower_r.size(); ++i) {
    frame.element(fmt::format("Bracing {}", i + 1), lower_r[i], lower_l[i + 1], bracing);
    frame.make_truss();
  }
  frame.support(lower_r.front(), {true, true, true, false, false, false});
  frame.support(lower_l.front(), {true, false, true, false, false, false});
  frame.support(lower_r.back(), {false, true, true, false, false, false});
  frame.support(lower_l.back(), {false, false, true, false, false, false});
  const auto on_deck = [&](double pressure) {
    model::AreaLoad load;
    load.region.nodes = {lower_r.front(), lower_r.back(), lower_l.back(), lower_l.front()};
    load.elements = {false, beams};
    load.span = std::array{1.0, 0.0, 0.0};
    load.direction = model::LoadDirection{model::LoadAxes::global, 2};
    load.pressure = -per_area * pressure;
    return load;
  };
  model::CaseLoads& weight = frame.load_case("Weight", {.kind = model::ActionKind::permanent});
  weight.self_weight = {0, 0, -1};
  weight.area.push_back(on_deck(0.5));
  model::CaseLoads& crowd =
      frame.load_case("Crowd", {.kind = model::ActionKind::live, .category = "crowded corridor"});
  crowd.area.push_back(on_deck(4.0));
  for (const double sense : {1.0, -1.0}) {
    model::CaseLoads& wind =
        frame.load_case(sense > 0 ? "Wind from the right" : "Wind from the left",
                        {.kind = model::ActionKind::wind, .exclusive = "wind"});
    Line chords;
    for (std::size_t i = 0; i < lower_r.size() - 1; ++i) {
      for (const std::size_t side : {0, 1}) {
        const auto first = static_cast<model::Number>(
            side * (3 * (lower_r.size() - 1) + lower_r.size()) + 3 * i + 1);
        chords.push_back(first);
        chords.push_back(first + 1);
      }
    }
    wind.area.push_back(by_spacing(chords, 0.4, {model::LoadAxes::global, 1}, sense * 0.5));
  }
  return frame.finish();
}

}  // namespace aluframe::starting
