// Remarks on load cases that no check looks at.

#include "remark_frames.h"

namespace aluframe::remarks {
namespace {

using model::Combination;
using model::CombinationKind;
using Source = model::CombinationTerm::Source;
using testing::HasSubstr;
using testing::IsEmpty;
using testing::SizeIs;

/// The portal with load cases of these numbers, each under self-weight.
Frame with_cases(std::initializer_list<Number> numbers) {
  Frame frame = portal();
  for (const Number number : numbers) {
    model::LoadCase load_case;
    load_case.number = number;
    load_case.loads.self_weight = {0.0, 0.0, -1.0};
    frame.model().load_cases.add(load_case);
  }
  return frame;
}

Combination combination(Number number, std::vector<model::CombinationTerm> terms) {
  Combination out;
  out.number = number;
  out.terms = std::move(terms);
  return out;
}

TEST(UnusedCases, AreThoseThatNoCombinationNames) {
  Frame frame = with_cases({1, 5, 4, 7});
  frame.model().combinations.add(combination(9, {{Source::load_case, 1}}));
  const auto remarks = frame.remarks("cases");
  ASSERT_THAT(remarks, SizeIs(1));
  EXPECT_THAT(remarks[0].text, HasSubstr("no checked combination contains load case 4-5, 7:"));
  EXPECT_THAT(remarks[0].elements, IsEmpty());
}

TEST(UnusedCases, AreNoneInACombinationWithinAnother) {
  Frame frame = with_cases({1, 2});
  Combination inner = combination(8, {{Source::load_case, 2}});
  inner.kind = CombinationKind::envelope;
  inner.design = false;
  frame.model().combinations.add(inner);
  frame.model().combinations.add(
      combination(9, {{Source::load_case, 1}, {Source::combination, 8}}));
  EXPECT_THAT(frame.remarks("cases"), IsEmpty());
}

TEST(UnusedCases, AreThoseOfACombinationThatIsNotCheckedItself) {
  Frame frame = with_cases({1, 2});
  Combination part = combination(8, {{Source::load_case, 2}});
  part.design = false;
  frame.model().combinations.add(part);
  frame.model().combinations.add(combination(9, {{Source::load_case, 1}}));
  EXPECT_THAT(frame.remarks("cases").at(0).text, HasSubstr("load case 2: its loads"));
}

TEST(UnusedCases, AreNoneInAnEnvelopeThatIsCheckedByItsStates) {
  Frame frame = with_cases({1});
  Combination envelope = combination(8, {{Source::load_case, 1, 0.0}});
  envelope.design = false;
  envelope.states = {8001};
  frame.model().combinations.add(envelope);
  EXPECT_THAT(frame.remarks("cases"), IsEmpty());
}

TEST(UnusedCases, AreThoseWithForcesOtherThanZero) {
  Frame frame = with_cases({1});
  for (const Number number : {2, 3}) {
    model::LoadCase load_case;
    load_case.number = number;
    frame.model().load_cases.add(load_case);
  }
  frame.model().combinations.add(combination(9, {{Source::load_case, 1}}));
  model::Model& model = frame.model();
  model.forces.resize(model.elements.size(), model.load_cases.size());
  model::CaseForces forces;
  model.forces.set(0, 1, forces);
  EXPECT_THAT(frame.remarks("cases"), IsEmpty());
  forces.at[4][5] = 1.0F;
  model.forces.set(1, 2, forces);
  EXPECT_THAT(frame.remarks("cases").at(0).text, HasSubstr("load case 3: its"));
}

TEST(UnusedCases, AreNotNamedWhereNothingIsChecked) {
  Frame frame = with_cases({1, 2});
  EXPECT_THAT(frame.remarks("cases"), IsEmpty());
  Combination part = combination(8, {{Source::load_case, 2}});
  part.design = false;
  frame.model().combinations.add(part);
  EXPECT_THAT(frame.remarks("cases"), IsEmpty());
}

}  // namespace
}  // namespace aluframe::remarks
