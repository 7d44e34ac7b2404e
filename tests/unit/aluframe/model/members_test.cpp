#include "aluframe/model/members.h"

#include <cmath>
#include <numbers>

#include "models.h"

namespace aluframe::model {
namespace {

/// A model with one element from the origin.
Model element_to(double x, double y, double z) {
  Model model;
  model.nodes.add(node(1, 0, 0, 0));
  model.nodes.add(node(2, x, y, z));
  model.elements.add(element(1, 1, 2));
  return model;
}

MemberType type_of(const Model& model) {
  return member_type(model, model.elements[0]);
}

/// Type of an element of 5 m at this angle to the horizontal, seen from above at 30°.
MemberType type_at(double degrees) {
  const double angle = degrees * std::numbers::pi / 180;
  const double run = 5000 * std::cos(angle);
  return type_of(element_to(run * std::cos(0.5), run * std::sin(0.5), 5000 * std::sin(angle)));
}

TEST(ElementLength, IsTheDistanceBetweenItsNodes) {
  const Model model = element_to(2, 3, -6);
  EXPECT_DOUBLE_EQ(element_length(model, model.elements[0]), 7);
}

TEST(MemberType, IsColumnForAVerticalElementUpOrDown) {
  EXPECT_EQ(type_at(90), MemberType::column);
  EXPECT_EQ(type_at(-90), MemberType::column);
}

TEST(MemberType, IsBeamForAHorizontalElement) {
  EXPECT_EQ(type_at(0), MemberType::beam);
  EXPECT_EQ(type_of(element_to(-1, 0, 0)), MemberType::beam);
}

TEST(MemberType, IsBeamUpToTenDegreesFromTheHorizontal) {
  EXPECT_EQ(type_at(10), MemberType::beam);
  EXPECT_EQ(type_at(-10), MemberType::beam);
  EXPECT_EQ(type_at(10.000001), MemberType::brace);
  EXPECT_EQ(type_at(-10.000001), MemberType::brace);
}

TEST(MemberType, IsColumnUpToTenDegreesFromTheVertical) {
  EXPECT_EQ(type_at(80), MemberType::column);
  EXPECT_EQ(type_at(-80), MemberType::column);
  EXPECT_EQ(type_at(79.999999), MemberType::brace);
  EXPECT_EQ(type_at(-79.999999), MemberType::brace);
}

TEST(MemberType, IsTrussForAnAxialElementInAnyDirection) {
  Model model;
  model.nodes.add(node(1, 0, 0, 0));
  model.nodes.add(node(2, 0, 0, 1));
  Element bar = element(1, 1, 2);
  bar.kind = ElementKind::truss;
  EXPECT_EQ(member_type(model, bar), MemberType::truss);
}

TEST(MemberType, IsTheElementsOwnBeforeAnythingElse) {
  Model model;
  model.nodes.add(node(1, 0, 0, 0));
  model.nodes.add(node(2, 0, 0, 1));
  Element bar = element(1, 1, 2);
  bar.kind = ElementKind::truss;
  bar.member_type = MemberType::beam;
  EXPECT_EQ(member_type(model, bar), MemberType::beam);
}

/// Elements 1-2, 2-3, 3-4, … by their node numbers.
class Chains : public testing::Test {
 protected:
  Chains() {
    model_.elements.add(element(10, 1, 2));
    model_.elements.add(element(20, 2, 3));
    model_.elements.add(element(30, 3, 4));
    model_.elements.add(element(35, 4, 3));  // beside 30, the other way round
    model_.elements.add(element(40, 4, 1));
    model_.elements.add(element(50, 2, 7));
    model_.elements.add(element(60, 5, 6));
    model_.elements.add(element(70, 8, 8));
  }

  std::optional<std::string> problem(std::vector<Number> elements) const {
    Member member;
    member.number = 1;
    member.elements = std::move(elements);
    return find_chain_problem(model_, member);
  }

  Model model_;
};

TEST_F(Chains, MayBeOneElementOrNone) {
  EXPECT_EQ(problem({10}), std::nullopt);
  EXPECT_EQ(problem({}), std::nullopt);
}

TEST_F(Chains, GoFromNodeToNodeInEitherDirection) {
  EXPECT_EQ(problem({10, 20, 30}), std::nullopt);
  EXPECT_EQ(problem({30, 20, 10}), std::nullopt);
  EXPECT_EQ(problem({20, 35}), std::nullopt);
}

TEST_F(Chains, BreakWhereElementsDoNotMeet) {
  EXPECT_EQ(problem({10, 60}), "element 60 does not meet element 10 at a node");
  EXPECT_EQ(problem({10, 20, 60}), "element 60 does not meet element 20 at a node");
  EXPECT_EQ(problem({10, 30, 20}), "element 30 does not meet element 10 at a node");
}

TEST_F(Chains, DoNotBranch) {
  EXPECT_EQ(problem({10, 20, 50}), "node 2 is passed twice");
}

TEST_F(Chains, DoNotClose) {
  EXPECT_EQ(problem({10, 20, 30, 40}), "node 1 is passed twice");
  EXPECT_EQ(problem({10, 20, 35, 40}), "node 1 is passed twice");
  EXPECT_EQ(problem({30, 35}), "node 3 is passed twice");
  EXPECT_EQ(problem({70}), "node 8 is passed twice");
}

TEST_F(Chains, DoNotRepeatAnElement) {
  EXPECT_EQ(problem({10, 20, 10}), "element 10 is in the member twice");
}

class Connections : public testing::Test {
 protected:
  Connections() {
    model_.elements.add(element(3, 1, 2));
    model_.elements.add(element(1, 2, 5));
    model_.elements.add(element(2, 5, 6));
    Member member;
    member.number = 4;
    member.elements = {3, 1};
    model_.members.add(member);
    model_.supports.push_back({.node = 1, .restrained = {true, true, true}});
  }

  Model model_;
};

TEST_F(Connections, FindTheMemberOfAnElement) {
  const Connectivity connectivity(model_);
  EXPECT_EQ(connectivity.member_of(3), model_.members.find(4));
  EXPECT_EQ(connectivity.member_of(1), model_.members.find(4));
  EXPECT_EQ(connectivity.member_of(2), nullptr);
  EXPECT_EQ(connectivity.member_of(99), nullptr);
}

TEST_F(Connections, ListTheElementsAtANodeInTheOrderOfTheFile) {
  const Connectivity connectivity(model_);
  EXPECT_EQ(connectivity.elements_at(2), (std::vector<Number>{3, 1}));
  EXPECT_EQ(connectivity.elements_at(6), (std::vector<Number>{2}));
  EXPECT_TRUE(connectivity.elements_at(99).empty());
}

TEST_F(Connections, FindTheSupportOfANode) {
  const Connectivity connectivity(model_);
  ASSERT_NE(connectivity.support_of(1), nullptr);
  EXPECT_TRUE(connectivity.support_of(1)->restrained[2]);
  EXPECT_EQ(connectivity.support_of(2), nullptr);
}

}  // namespace
}  // namespace aluframe::model
