#include "aluframe/document/member_diagram.h"

#include <gmock/gmock.h>

namespace aluframe::document {
namespace {

using testing::HasSubstr;
using testing::Not;

/// Two elements of 2 m and 1 m on a line, the second of which points back.
model::Model chain() {
  model::Model model;
  model.units = {.force = model::ForceUnit::kilonewton, .length = model::LengthUnit::metre};
  model.nodes.add({1, "", 0, 0, 0});
  model.nodes.add({2, "", 2000, 0, 0});
  model.nodes.add({3, "", 3000, 0, 0});
  model::Element element;
  element.number = 1;
  element.nodes = {1, 2};
  model.elements.add(element);
  element.number = 2;
  element.nodes = {3, 2};
  model.elements.add(element);
  return model;
}

run::GoverningMember governing() {
  run::GoverningMember member{.member = 1,
                              .elements = {1, 2},
                              .section = 1,
                              .worst = {},
                              .forces = {},
                              .ratios = {{0.2, 0.4, 0.6, 0.8, 1.2}, {0.1, 0.1, 0.1, 0.1, 0.1}}};
  // My falls from 12 kN·m to 0 along both elements, and the second one ends where it begins.
  member.forces[4] = {{1, {{0.0, 12e6}, {1.0, 4e6}}, {}}, {2, {{0.0, 0.0}, {1.0, 4e6}}, {}}};
  return member;
}

TEST(MemberDiagram, HasAStripForEachForceThatActsAndOneForTheRatio) {
  const std::string svg = member_diagram(chain(), governing(), "m", "Member 1");
  EXPECT_THAT(svg, HasSubstr(">My [kN·m]</text>"));
  EXPECT_THAT(svg, HasSubstr(">max 12.000</text>"));
  EXPECT_THAT(svg, HasSubstr(">ratio</text>"));
  EXPECT_THAT(svg, HasSubstr(">max 1.200</text>"));
  EXPECT_THAT(svg, Not(HasSubstr(">N [kN]</text>")));
}

TEST(MemberDiagram, GoesAlongTheMemberWhicheverWayItsElementsPoint) {
  // By hand: strips begin at 38 mm and end at 176 mm, so the joint at 2 of 3 m is at 130 mm. Down
  // from the top at 2 mm, 19 mm stand for 12 kN·m: 4 kN·m are at 8.33 mm.
  const std::string svg = member_diagram(chain(), governing(), "m", "Member 1");
  EXPECT_THAT(svg, HasSubstr("points=\"38.00,2.00 38.00,21.00 130.00,8.33 130.00,2.00\""));
  EXPECT_THAT(svg, HasSubstr("points=\"130.00,2.00 130.00,8.33 176.00,2.00 176.00,2.00\""));
}

TEST(MemberDiagram, MarksRatiosOverOne) {
  const std::string svg = member_diagram(chain(), governing(), "m", "Member 1");
  EXPECT_THAT(svg, HasSubstr("<circle cx=\"130.00\""));
  run::GoverningMember sound = governing();
  sound.ratios[0][4] = 0.9;
  EXPECT_THAT(member_diagram(chain(), sound, "m", "Member 1"), Not(HasSubstr("<circle")));
}

TEST(MemberDiagram, ShowsNamesAsTheyAre) {
  EXPECT_THAT(member_diagram(chain(), governing(), "m", "<b>"),
              HasSubstr("<title id=\"m-title\">&lt;b&gt;</title>"));
}

}  // namespace
}  // namespace aluframe::document
