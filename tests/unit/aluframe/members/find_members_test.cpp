#include "aluframe/members/find_members.h"

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

TEST(FindMembers, EndAtABend) {
  FrameBuilder frame;
  frame.node(1, 0, 0, 0).node(2, 2, 0, 0).node(3, 4, 0.1, 0).beam(1, 1, 2).beam(2, 2, 3);
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

// 1 mm over 2 m is 0.5e-3 rad, 3 mm are 1.5e-3 rad; the limit is 1e-3 rad.
TEST(FindMembers, TakeCoordinatesRoundedToAMillimetreAsStraight) {
  FrameBuilder rounded, bent;
  rounded.node(1, 0, 0, 0).node(2, 2, 0, 0).node(3, 4, 0.001, 0).beam(1, 1, 2).beam(2, 2, 3);
  bent.node(1, 0, 0, 0).node(2, 2, 0, 0).node(3, 4, 0.003, 0).beam(1, 1, 2).beam(2, 2, 3);
  EXPECT_EQ(chains_of(rounded), both);
  EXPECT_THAT(chains_of(bent), IsEmpty());
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

TEST(FindMembers, EndWhereTheSectionIsTurned) {
  FrameBuilder frame = straight_beam();
  frame.with(2, [](Element& element) { element.beta = 90; });
  EXPECT_THAT(chains_of(frame), IsEmpty());
}

// Seen from its other end a section turned by 30° is turned by −30°.
TEST(FindMembers, CompareTheTurnOfElementsThatPointAgainstEachOther) {
  FrameBuilder alike, crossed;
  for (FrameBuilder* frame : {&alike, &crossed}) {
    frame->node(1, 0, 0, 0).node(2, 2, 0, 0).node(3, 4, 0, 0).beam(1, 1, 2).beam(2, 3, 2);
    frame->with(1, [](Element& element) { element.beta = 30; });
  }
  alike.with(2, [](Element& element) { element.beta = -30; });
  crossed.with(2, [](Element& element) { element.beta = 30; });
  EXPECT_EQ(chains_of(alike), both);
  EXPECT_THAT(chains_of(crossed), IsEmpty());
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
