#include "aluframe/members/find_members.h"

#include <cmath>
#include <numbers>

#include "aluframe/io/model_file.h"
#include "frames.h"

namespace aluframe::members {
namespace {

using model::Element;
using testing::ElementsAre;
using testing::IsEmpty;

using Chains = std::vector<std::vector<Number>>;

Chains chains_of(FrameBuilder& frame) {
  Chains chains;
  for (const model::Member& member : find_members(frame.model())) chains.push_back(member.elements);
  return chains;
}

/// Two elements of 2 m along X, 1 (nodes 1, 2) and 2 (2, 3), without supports.
FrameBuilder straight_beam() {
  FrameBuilder frame;
  frame.node(1, 0, 0, 3).node(2, 2, 0, 3).node(3, 4, 0, 3).beam(1, 1, 2).beam(2, 2, 3);
  return frame;
}

/// The same upright: a column of 6 m, and node 4 beside its middle.
FrameBuilder straight_column() {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 3).node(3, 0, 0, 6).node(4, 4, 0, 3);
  return frame.beam(1, 1, 2).beam(2, 2, 3);
}

const Chains both{{1, 2}};

TEST(FindMembers, JoinsCollinearElements) {
  FrameBuilder frame = straight_beam();
  EXPECT_EQ(chains_of(frame), both);
}

TEST(FindMembers, LeavesASingleElementAlone) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 2, 0, 0).beam(1, 1, 2);
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

TEST(FindMembers, RunsTheWayOfTheEarliestElementThroughElementsThatPointEitherWay) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 3).node(2, 2, 0, 3).node(3, 4, 0, 3).node(4, 6, 0, 3);
  frame.beam(5, 3, 2).beam(9, 1, 2).beam(7, 3, 4);
  EXPECT_EQ(chains_of(frame), (Chains{{7, 5, 9}}));
}

/// Two elements of 2 m, the second turned upwards by an angle.
Chains chains_with_kink(double degrees) {
  FrameBuilder frame;
  const double angle = degrees * std::numbers::pi / 180.0;
  frame.node(1, 0, 0, 0).node(2, 2, 0, 0);
  frame.node(3, 2 + 2 * std::cos(angle), 0, 2 * std::sin(angle));
  frame.beam(1, 1, 2).beam(2, 2, 3);
  return chains_of(frame);
}

TEST(FindMembers, RunOnThroughAGentleKink) {
  for (const double degrees : {0.02, 0.2, 5.0, 14.9}) {
    EXPECT_EQ(chains_with_kink(degrees), both) << degrees;
    EXPECT_EQ(chains_with_kink(-degrees), both) << degrees;
  }
}

TEST(FindMembers, EndAtABend) {
  for (const double degrees : {15.1, 45.0, 90.0}) {
    EXPECT_THAT(chains_with_kink(degrees), IsEmpty()) << degrees;
  }
}

// From upright over inclined to level elements: an arch is one member.
TEST(FindMembers, TakeAnArchForOneMember) {
  FrameBuilder frame;
  constexpr Number pieces = 16;
  for (Number i = 0; i <= pieces; ++i) {
    const double turn = std::numbers::pi * i / pieces;
    frame.node(i + 1, -5 * std::cos(turn), 0, 5 * std::sin(turn));
    if (i > 0) frame.beam(i, i, i + 1);
  }
  frame.hinged(1).hinged(pieces + 1);
  ASSERT_EQ(chains_of(frame).size(), 1U);
  EXPECT_EQ(chains_of(frame)[0].size(), pieces);
}

TEST(FindMembers, DoNotCloseARing) {
  FrameBuilder frame;
  constexpr Number pieces = 36;
  for (Number i = 0; i < pieces; ++i) {
    const double turn = 2 * std::numbers::pi * i / pieces;
    frame.node(i + 1, 5 * std::cos(turn), 5 * std::sin(turn), 0);
  }
  for (Number i = 0; i < pieces; ++i) frame.beam(i + 1, i + 1, (i + 1) % pieces + 1);
  ASSERT_EQ(chains_of(frame).size(), 1U);
  EXPECT_EQ(chains_of(frame)[0].size(), pieces - 1);
}

TEST(FindMembers, EndAtAKinkWhereSomethingHoldsThem) {
  for (const bool is_held : {false, true}) {
    FrameBuilder frame;
    frame.node(1, 0, 0, 0).node(2, 2, 0, 0.1).node(3, 4, 0, 0).node(4, 2, 0, 1);
    frame.beam(1, 1, 2).beam(2, 2, 3).truss(3, 2, 4).hinged(1).hinged(3);
    if (is_held) frame.hinged(4);
    EXPECT_EQ(chains_of(frame), is_held ? Chains{} : both) << is_held;
  }
}

TEST(FindMembers, EndWhereElementsFoldBack) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 2, 0, 0).node(3, 1, 0, 0).beam(1, 1, 2).beam(2, 2, 3);
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

TEST(FindMembers, EndAtAnotherSection) {
  FrameBuilder frame = straight_beam();
  frame.with(2, [](Element& element) { element.section = 2; });
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

TEST(FindMembers, EndAtAnotherMaterial) {
  FrameBuilder frame = straight_beam();
  frame.with(2, [](Element& element) { element.material = 2; });
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

TEST(FindMembers, RunOnWhereTheSectionIsTurned) {
  for (const double beta : {30.0, 90.0, 180.0}) {
    FrameBuilder frame = straight_beam();
    frame.with(2, [&](Element& element) { element.beta = beta; });
    EXPECT_EQ(chains_of(frame), both) << beta;
  }
}

// The second element of the column points down: its z axis lies the other way.
TEST(FindMembers, JoinElementsThatPointAgainstEachOther) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 0, 0, 3).node(3, 0, 0, 6).beam(1, 1, 2).beam(2, 3, 2);
  EXPECT_EQ(chains_of(frame), both);
}

TEST(FindMembers, EndAtAnotherMemberType) {
  FrameBuilder frame = straight_beam();
  frame.with(2, [](Element& element) { element.member_type = model::MemberType::brace; });
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

TEST(FindMembers, EndAtAReleaseOfEitherElement) {
  for (const Number number : {1U, 2U}) {
    FrameBuilder frame = straight_beam();
    frame.release(number, {number == 1 ? my_end : my_start});
    EXPECT_THAT(chains_of(frame), IsEmpty()) << "element " << number;
  }
}

TEST(FindMembers, GoOnPastReleasesAtTheirOwnEnds) {
  FrameBuilder frame = straight_beam();
  frame.release(1, {my_start}).release(2, {my_end});
  EXPECT_EQ(chains_of(frame), both);
}

TEST(FindMembers, EndAtASupportOrASpring) {
  FrameBuilder held = straight_beam(), sprung = straight_beam();
  held.support(2, {false, false, true, false, false, false});
  sprung.support(2, {}, {0, 0, 10, 0, 0, 0});
  EXPECT_THAT(chains_of(held), IsEmpty());
  EXPECT_THAT(chains_of(sprung), IsEmpty());
}

TEST(FindMembers, LeaveAxialElementsAlone) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 2, 0, 0).node(3, 4, 0, 0).truss(1, 1, 2).truss(2, 2, 3);
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

TEST(FindMembers, LeaveElementsWithFactorsOfTheirOwnAlone) {
  FrameBuilder frame = straight_beam();
  frame.with(2, [](Element& element) {
    element.design.length_factors = model::ElementDesign::AxisPair{0.7, 0.7};
  });
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

TEST(FindMembers, EndColumnsAtABeamThatFramesIn) {
  FrameBuilder frame = straight_column();
  frame.beam(3, 2, 4);
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

/// A column on supports at both ends, with a rigid arm at its middle.
FrameBuilder column_with_arm() {
  FrameBuilder frame = straight_column();
  return frame.beam(3, 2, 4).hinged(1).support(3, {true, true, false, false, false, false});
}

TEST(FindMembers, RunColumnsOnPastAnArmThatNothingHolds) {
  FrameBuilder free = column_with_arm(), held = column_with_arm();
  held.hinged(4);
  EXPECT_EQ(chains_of(free), both);
  EXPECT_THAT(chains_of(held), IsEmpty());
}

// Two arms with a post between their tips: a bracket with a way back to the column alone.
TEST(FindMembers, RunColumnsOnPastABracketThatLeadsBackToThem) {
  FrameBuilder frame;
  for (Number i = 0; i < 4; ++i) frame.node(i + 1, 0, 0, 2.0 * i);
  frame.beam(1, 1, 2).beam(2, 2, 3).beam(3, 3, 4);
  frame.node(5, 1, 0, 2).node(6, 1, 0, 4).beam(4, 2, 5).beam(5, 3, 6).beam(6, 5, 6);
  frame.hinged(1).support(4, {true, true, false, false, false, false});
  EXPECT_EQ(chains_of(frame), (Chains{{1, 2, 3}}));
}

// The way from the arm to the ground leads along the column to the beam at its other joint.
TEST(FindMembers, EndColumnsAtTheBeamThatHoldsThemAndNotAtAnArmBesideIt) {
  FrameBuilder frame;
  for (Number i = 0; i < 4; ++i) frame.node(i + 1, 0, 0, 2.0 * i);
  frame.beam(1, 1, 2).beam(2, 2, 3).beam(3, 3, 4);
  frame.node(5, 1, 0, 2).node(6, 4, 0, 4).beam(4, 2, 5).beam(5, 3, 6).fixed(6);
  frame.hinged(1).support(4, {true, true, false, false, false, false});
  EXPECT_EQ(chains_of(frame), both);
}

TEST(FindMembers, RunBeamsOnUnderAPostThatNothingElseHolds) {
  for (const bool is_held : {false, true}) {
    FrameBuilder frame = straight_beam();
    frame.node(4, 2, 0, 5).beam(3, 2, 4).hinged(1).hinged(3);
    if (is_held) frame.hinged(4);
    EXPECT_EQ(chains_of(frame), is_held ? Chains{} : both) << is_held;
  }
}

// The columns of a portal hold each other's heads; each has a way to the ground past the other.
TEST(FindMembers, EndStoreysAtBeamsToOtherColumns) {
  FrameBuilder frame;
  for (const double x : {0.0, 4.0}) {
    const Number first = x == 0.0 ? 1 : 4;
    for (Number i = 0; i < 3; ++i) frame.node(first + i, x, 0, 3.0 * i);
    frame.beam(first, first, first + 1).beam(first + 1, first + 1, first + 2).fixed(first);
  }
  frame.beam(7, 2, 5).beam(8, 3, 6);
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

TEST(FindMembers, RunColumnsOnPastAHingedBeam) {
  FrameBuilder frame = straight_column();
  frame.beam(3, 2, 4).release(3, {my_start});
  EXPECT_EQ(chains_of(frame), both);
}

TEST(FindMembers, RunColumnsOnPastATie) {
  FrameBuilder frame = straight_column();
  frame.truss(3, 2, 4);
  EXPECT_EQ(chains_of(frame), both);
}

TEST(FindMembers, EndBeamsOnAColumnEvenWhenItIsHinged) {
  FrameBuilder frame = straight_beam();
  frame.node(4, 2, 0, 0).beam(3, 4, 2).release(3, {my_end, mz_end});
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

TEST(FindMembers, RunBeamsOnPastOtherBeamsAndBraces) {
  FrameBuilder frame = straight_beam();
  frame.node(4, 2, 2, 3).node(5, 0, 0, 1).beam(3, 2, 4).beam(4, 2, 5);
  EXPECT_EQ(chains_of(frame), both);
}

// Elements 2 and 3 lie over one another: which of them goes on from 1 is anybody's guess.
TEST(FindMembers, EndWhereTwoElementsCouldGoOn) {
  FrameBuilder frame = straight_beam();
  frame.node(4, 5, 0, 3).beam(3, 2, 4);
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

TEST(FindMembers, NumberThemWithTheLowestFreeNumbersInTheOrderOfTheFile) {
  FrameBuilder frame = straight_beam();
  for (const Number row : {1U, 2U}) {
    const Number first = 10 * row;
    frame.node(first, 0, row, 3).node(first + 1, 2, row, 3).node(first + 2, 4, row, 3);
    frame.beam(first, first, first + 1).beam(first + 1, first + 1, first + 2);
  }
  frame.member({.number = 2, .name = {}, .elements = {10, 11}, .length_factors = {}});
  const std::vector<model::Member> found = find_members(frame.model());
  ASSERT_EQ(found.size(), 2U) << "elements 10 and 11 have a member";
  EXPECT_EQ(found[0].number, 1U);
  EXPECT_THAT(found[0].elements, ElementsAre(1, 2));
  EXPECT_EQ(found[1].number, 3U);
  EXPECT_THAT(found[1].elements, ElementsAre(20, 21));
}

TEST(Complete, AddsWhatIsFoundOnce) {
  FrameBuilder frame = straight_beam();
  EXPECT_EQ(complete(frame.model()), 1U);
  EXPECT_EQ(complete(frame.model()), 0U);
  ASSERT_EQ(frame.model().members.size(), 1U);
  EXPECT_THAT(frame.model().members[0].elements, ElementsAre(1, 2));
}

/// The straight beam as a file, with this for its members.
model::Model read_with(const std::string& members) {
  auto read = io::parse_model(
      R"({"format": "aluframe-model", "version": 1,
          "materials": [{"number": 1, "alloy": "6061-T6"}],
          "sections": [{"number": 1, "shape": "SR", "dimensions": {"D": 50}}],
          "nodes": [{"number": 1, "x": 0, "y": 0, "z": 0}, {"number": 2, "x": 2, "y": 0, "z": 0},
                    {"number": 3, "x": 4, "y": 0, "z": 0}],)" +
          members +
          R"("elements": [{"number": 1, "nodes": [1, 2], "section": 1, "material": 1},
                       {"number": 2, "nodes": [2, 3], "section": 1, "material": 1}]})",
      "beam.json");
  if (const auto* problem = std::get_if<io::Problem>(&read)) {
    throw std::runtime_error(problem->message());
  }
  return std::get<model::Model>(std::move(read));
}

TEST(Complete, FindsMembersForAFileThatNamesNone) {
  model::Model model = read_with("");
  EXPECT_EQ(complete(model), 1U);
}

TEST(Complete, TakesAnEmptyListAsGiven) {
  model::Model model = read_with(R"("members": [],)");
  EXPECT_EQ(complete(model), 0U);
  EXPECT_TRUE(model.members.empty());
}

TEST(Complete, KeepsWhatItFoundOutOfTheFile) {
  model::Model model = read_with("");
  const std::string before = io::write_model(model);
  complete(model);
  EXPECT_EQ(io::write_model(model), before);
}

}  // namespace
}  // namespace aluframe::members
