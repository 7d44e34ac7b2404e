// What has a deflection of its own, and what it is limited to.

#include "aluframe/deflections/spans.h"

#include "searches.h"

namespace aluframe::deflections {
namespace {

TEST(Spans, MembersComeFirstAndElementsAloneBehindThem) {
  model::Model model = cut(simple_beam(6000.0), 2);
  add_node(model, 99, 6000, 0, 3000);
  model.elements.add(beam(50, 10, 99));
  add_support(model, 99, pinned);
  const auto spans = spans_of(model);
  ASSERT_EQ(spans.size(), 2U);
  EXPECT_EQ(spans[0].member, 7U);
  EXPECT_EQ(spans[0].elements.size(), 2U);
  EXPECT_EQ(spans[1].member, 0U);
  EXPECT_EQ(model.elements[spans[1].elements[0].place].number, 50U);
  EXPECT_EQ(spans[1].length, 3000.0);
}

// The file may say that there are no members, and design may part them: they bend as one all the
// same.
TEST(Spans, PiecesOfABeamThatAreNoMemberBendAsOne) {
  model::Model model = cut(simple_beam(6000.0), 3);
  model.members = {};
  model.finds_members = false;
  model::Element piece = model.elements[1];
  piece.design.length_factors = {2.0, 2.0};
  model.elements.replace(piece);
  const auto spans = spans_of(model);
  ASSERT_EQ(spans.size(), 1U);
  EXPECT_EQ(spans[0].member, 0U);
  EXPECT_EQ(spans[0].elements.size(), 3U);
  EXPECT_EQ(spans[0].length, 6000.0);
}

TEST(Spans, TrussesHaveNone) {
  model::Model model = simple_beam(6000.0);
  add_node(model, 99, 6000, 0, 3000);
  model.elements.add(truss(50, 10, 99));
  add_support(model, 99, pinned);
  EXPECT_EQ(spans_of(model).size(), 1U);
}

TEST(Spans, ArmWithABracketOnItsTipIsACantilever) {
  model::Model model = straight_beam(2000.0);
  add_support(model, 20, clamped);
  add_node(model, 30, 2000, 0, -300);
  model.elements.add(beam(6, 10, 30));
  const auto spans = spans_of(model);
  ASSERT_EQ(spans.size(), 2U);
  EXPECT_EQ(spans[0].kind, SpanKind::cantilever);
  EXPECT_EQ(model.nodes[spans[0].start].number, 20U);
}

TEST(Spans, BeamBetweenTwoColumnsIsNone) {
  model::Model model = bare_model();
  add_node(model, 1, 0, 0, 0);
  add_node(model, 2, 0, 0, 3000);
  add_node(model, 3, 5000, 0, 3000);
  add_node(model, 4, 5000, 0, 0);
  for (const auto& [number, start, end] : {std::array{1, 1, 2}, {2, 2, 3}, {3, 4, 3}}) {
    model.elements.add(beam(static_cast<model::Number>(number), static_cast<model::Number>(start),
                            static_cast<model::Number>(end)));
  }
  add_support(model, 1, clamped);
  add_support(model, 4, clamped);
  for (const Span& span : spans_of(model)) EXPECT_EQ(span.kind, SpanKind::between);
}

/// Those along z (1) or y (0), with their nodes.
std::vector<std::array<model::Number, 2>> ends_along(std::size_t axis, const model::Model& model) {
  std::vector<std::array<model::Number, 2>> ends;
  for (const Span& span : spans_of(model)) {
    if (span.axes[axis]) {
      ends.push_back({model.nodes[span.start].number, model.nodes[span.end].number});
    }
  }
  return ends;
}

using Ends = std::vector<std::array<model::Number, 2>>;

// Purlins hold a rafter sideways: downwards it spans from end to end, whoever calls it a member.
TEST(Spans, SupportPartsThemAlongTheAxesThatItHolds) {
  model::Model model = cut(simple_beam(8000.0), 4);
  for (const model::Number node : {1001U, 1002U, 1003U}) {
    model.supports.push_back({node, {false, true, false, false, false, false}, {}});
  }
  const Ends parts{{20, 1001}, {1001, 1002}, {1002, 1003}, {1003, 10}};
  Ends with_whole = parts;
  with_whole.push_back({20, 10});
  EXPECT_EQ(ends_along(1, model), (Ends{{20, 10}}));
  EXPECT_EQ(ends_along(0, model), with_whole);
  model.members = {};
  EXPECT_EQ(ends_along(1, model), (Ends{{20, 10}}));
  EXPECT_EQ(ends_along(0, model), parts);
}

// What holds the tip sideways, along the arm, or against turning about it, lets it sink.
TEST(Spans, TipIsHeldAlongTheAxesOfItsSupportOnly) {
  const auto kinds = [](const model::Support& tip) {
    model::Model model = straight_beam(2000.0);
    add_support(model, 20, clamped);
    model.supports.push_back(tip);
    std::array<SpanKind, 2> out{};
    for (const Span& span : spans_of(model)) {
      for (std::size_t axis = 0; axis < 2; ++axis) {
        if (span.axes[axis]) out[axis] = span.kind;
      }
    }
    return out;
  };
  using enum SpanKind;
  const std::array both{cantilever, cantilever}, only_z{between, cantilever};
  EXPECT_EQ(kinds({10, {true, false, false, false, false, false}, {}}), both);
  EXPECT_EQ(kinds({10, {false, true, false, false, false, false}, {}}), only_z);
  EXPECT_EQ(kinds({10, {false, false, false, true, false, false}, {}}), both);
  EXPECT_EQ(kinds({10, {}, {0, 0, 0, 1.0, 0, 0}}), both);
  EXPECT_EQ(kinds({10, {false, true, true, false, false, false}, {}}),
            (std::array{between, between}));
}

// A member over three columns is judged between them as well.
TEST(Spans, ColumnsUnderAMemberPartIt) {
  for (const bool is_prop : {false, true}) {
    model::Model model = cut(simple_beam(8000.0), 2);
    model.supports = {};
    model::Number number = 50;
    for (const model::Number node : {20U, 1001U, 10U}) {
      const model::Node top = *model.nodes.find(node);
      add_node(model, node + 5000, top.x, top.y, top.z - 3000.0);
      add_support(model, node + 5000, is_prop ? pinned : clamped);
      ++number;
      model.elements.add(is_prop ? truss(number, node + 5000, node)
                                 : beam(number, node + 5000, node));
    }
    Ends of_member;
    for (const Span& span : spans_of(model)) {
      if (span.member != 7 || !span.axes[1]) continue;
      of_member.push_back({model.nodes[span.start].number, model.nodes[span.end].number});
    }
    EXPECT_EQ(of_member, (Ends{{20, 1001}, {1001, 10}, {20, 10}})) << is_prop;
  }
}

Span span_of(double length, SpanKind kind = SpanKind::between) {
  Span span;
  span.length = length;
  span.kind = kind;
  return span;
}

TEST(AllowedDeflection, IsTheSmallerOfBothLimits) {
  const model::DeflectionLimit both{180.0, 20.0};
  EXPECT_DOUBLE_EQ(allowed(both, span_of(1800.0)), 10.0);
  EXPECT_DOUBLE_EQ(allowed(both, span_of(5400.0)), 20.0);
  EXPECT_DOUBLE_EQ(allowed({std::nullopt, 15.0}, span_of(100.0)), 15.0);
  EXPECT_TRUE(std::isinf(allowed({}, span_of(100.0))));
}

TEST(AllowedDeflection, CantileverCountsTwice) {
  const Span span = span_of(1800.0, SpanKind::cantilever);
  EXPECT_DOUBLE_EQ(allowed({180.0, std::nullopt}, span), 20.0);
  EXPECT_DOUBLE_EQ(allowed({180.0, 12.0}, span), 12.0);
}

TEST(DeflectionLimitOfAMember, GoesBeforeThatOfAll) {
  model::Model model = cut(simple_beam(6000.0), 2);
  model.serviceability.deflection = {200.0, std::nullopt};
  const Span span = spans_of(model)[0];
  EXPECT_EQ(limit_of(model, span).span, 200.0);
  model::Member member = model.members[0];
  member.deflection_limit = model::DeflectionLimit();
  model.members.replace(member);
  EXPECT_EQ(limit_of(model, span), model::DeflectionLimit());
  member.deflection_limit = model::DeflectionLimit{std::nullopt, 8.0};
  model.members.replace(member);
  EXPECT_EQ(limit_of(model, span).absolute, 8.0);
}

}  // namespace
}  // namespace aluframe::deflections
