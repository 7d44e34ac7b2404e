// Combinations and load cases as the report's list reads them.

#include <gtest/gtest.h>

#include "aluframe/model/envelopes.h"
#include "aluframe/services/session.h"
#include "aluframe/services/text.h"
#include "tests/unit/aluframe/services/sample_model.h"

namespace aluframe::services {
namespace {

/// The sample with a load case of every kind and a combination of all of them and another one.
model::Model model_of_all_kinds() {
  std::string text = sample_text;
  const std::size_t begin = text.find("\"load_cases\"");
  text.replace(begin, text.find("\"forces\"") - begin, R"json(
    "moving_load_code": 3,
    "load_cases": [ { "number": 11, "name": "DL" },
      { "number": 12, "name": "EQ", "kind": "seismic_static" },
      { "number": 13, "name": "RX", "kind": "response_spectrum" },
      { "number": 14, "name": "EX", "kind": "eccentric_spectrum" },
      { "number": 15, "name": "TH", "kind": "time_history" },
      { "number": 16, "name": "MV", "kind": "moving" },
      { "number": 17, "name": "SM", "kind": "settlement" },
      { "number": 18, "name": "梁吊车", "kind": "crane" }, { "number": 19 } ],
    "combinations": [
      { "number": 1, "name": "ALL", "terms": [ { "case": 11, "factor": 1.3 }, { "case": 12 },
        { "case": 13 }, { "case": 14 }, { "case": 15 }, { "case": 16 }, { "case": 17 },
        { "case": 18, "factor": -0.5 }, { "combination": 2 } ] },
      { "number": 2, "kind": "envelope", "terms": [ { "case": 11 } ], "design": false } ],)json");
  text.resize(text.find("\"forces\""));
  return parsed(text + "\"forces\": [] }");
}

class LoadCasesTest : public testing::Test {
 protected:
  CAttrCtrl& attributes() { return session_.DocPoint()->GetAttrCtrl(); }

  const model::Model model_ = model_of_all_kinds();
  Session session_{model_, {}};
};

TEST_F(LoadCasesTest, ACombinationHasItsNameAndItsTermsInOrder) {
  T_LCOM_D combination;
  ASSERT_EQ(attributes().GetLcom(6, 1, combination), 1);
  EXPECT_EQ(combination.strName, CString(L"ALL"));
  ASSERT_EQ(combination.aEntry.GetSize(), 9);
  const std::vector<UINT> numbers{11, 12, 13, 14, 15, 16, 17, 18, 2};
  for (std::ptrdiff_t i = 0; i < 9; ++i) {
    EXPECT_EQ(combination.aEntry[i].nNumber, numbers.at(static_cast<std::size_t>(i)));
  }
  EXPECT_EQ(combination.aEntry[0].dFactor, 1.3);
  EXPECT_EQ(combination.aEntry[1].dFactor, 1.0);
  EXPECT_EQ(combination.aEntry[7].dFactor, -0.5);
}

// The kinds as the list of combinations numbers them: static 1, seismic static 13, response
// spectrum 2, the same with eccentricity 14, time history 3, moving 4, settlement 5, crane 19,
// combination 8.
TEST_F(LoadCasesTest, EveryTermHasTheKindOfItsLoadCase) {
  T_LCOM_D combination;
  attributes().GetLcom(6, 1, combination);
  std::vector<int> kinds;
  for (const T_LCOM_ENTRY_D& entry : combination.aEntry) kinds.push_back(entry.nKind);
  EXPECT_EQ(kinds, (std::vector<int>{1, 13, 2, 14, 3, 4, 5, 19, 8}));
}

TEST_F(LoadCasesTest, AnEnvelopeIsMarkedAsOne) {
  T_LCOM_D combination;
  attributes().GetLcom(6, 1, combination);
  EXPECT_EQ(combination.nType, 0);
  attributes().GetLcom(6, 2, combination);
  EXPECT_EQ(combination.nType, 1);
}

TEST_F(LoadCasesTest, ACombinationThatIsPartOfAnotherIsReadAsSuch) {
  T_LCOM_D combination;
  ASSERT_EQ(attributes().GetLcom(2, 2, combination), 1);
  EXPECT_EQ(combination.aEntry.GetSize(), 1);
}

TEST_F(LoadCasesTest, ACombinationWithoutNameIsKnownByItsNumber) {
  T_LCOM_D combination;
  attributes().GetLcom(6, 2, combination);
  EXPECT_EQ(combination.strName, CString(L"2"));
}

TEST_F(LoadCasesTest, ACombinationForgetsTheTermsThatItsRecordHeld) {
  T_LCOM_D combination;
  attributes().GetLcom(6, 1, combination);
  attributes().GetLcom(6, 2, combination);
  EXPECT_EQ(combination.aEntry.GetSize(), 1);
}

TEST_F(LoadCasesTest, AnUnknownCombinationLeavesItsRecord) {
  T_LCOM_D combination;
  combination.strName = L"as it was";
  EXPECT_EQ(attributes().GetLcom(6, 99, combination), 0);
  EXPECT_EQ(combination.strName, CString(L"as it was"));
}

TEST_F(LoadCasesTest, StaticCasesAreKnownByName) {
  T_STLD_D found;
  ASSERT_EQ(session_.DocPoint()->GetPostCtrl().GetStld(11, found), 1);
  EXPECT_EQ(found.strName, CString(L"DL"));
}

TEST_F(LoadCasesTest, ACaseWithoutNameIsKnownByItsNumber) {
  T_STLD_D found;
  ASSERT_EQ(session_.DocPoint()->GetPostCtrl().GetStld(19, found), 1);
  EXPECT_EQ(found.strName, CString(L"19"));
}

TEST_F(LoadCasesTest, AnUnknownStaticCaseLeavesItsRecord) {
  T_STLD_D found;
  found.strName = L"as it was";
  EXPECT_EQ(session_.DocPoint()->GetPostCtrl().GetStld(99, found), 0);
  EXPECT_EQ(found.strName, CString(L"as it was"));
}

/// Name of a case by one of the contract's operations; "none" when it has no such case.
template <class Case>
std::wstring name_by(const CAttrCtrl& attributes, int (CAttrCtrl::*get)(UINT, Case&) const,
                     UINT number) {
  Case found;
  return (attributes.*get)(number, found) == 1 ? found.strName.GetString() : L"none";
}

TEST_F(LoadCasesTest, CasesOfTheOtherKindsAreKnownByName) {
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetSgld, 12), L"EQ");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetSplc, 13), L"RX");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetSplc, 14), L"EX");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetThis, 15), L"TH");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetSmlc, 17), L"SM");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetCran, 18), L"梁吊车");
}

TEST_F(LoadCasesTest, AMovingCaseIsKnownByNameUnderEveryCode) {
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetMvld, 16), L"MV");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetMvldch, 16), L"MV");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetMvldjp, 16), L"MV");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetMvldid, 16), L"MV");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetMvldbs, 16), L"MV");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetMvldfr, 16), L"MV");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetMvldtr, 16), L"MV");
}

TEST_F(LoadCasesTest, UnknownCasesOfTheOtherKindsAreNotThere) {
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetSgld, 99), L"none");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetSplc, 99), L"none");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetThis, 99), L"none");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetSmlc, 99), L"none");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetCran, 99), L"none");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetMvld, 99), L"none");
  EXPECT_EQ(name_by(attributes(), &CAttrCtrl::GetMvldtr, 99), L"none");
}

TEST_F(LoadCasesTest, TheCodeOfTheMovingLoadsIsThatOfTheModel) {
  T_MVCD_D code;
  ASSERT_EQ(attributes().GetMvcd(code), 1);
  EXPECT_EQ(code.nCode, 3);
}

TEST(LoadCasesOfStates, TheNameOfAStateBeginsWithItsNumber) {
  std::string text = sample_text;
  const std::size_t begin = text.find("\"combinations\"");
  text.replace(begin, text.find("\"forces\"") - begin, R"json("combinations": [ { "number": 7,
    "name": "Extremes", "kind": "envelope", "terms": [ { "case": 2, "factor": 1.5 } ] } ],)json");
  model::Model model = parsed(text);
  ASSERT_EQ(model::expand_envelopes(model), std::nullopt);
  Session session(model, {});
  T_LCOM_D state;
  ASSERT_EQ(session.DocPoint()->GetAttrCtrl().GetLcom(6, 7001, state), 1);
  EXPECT_EQ(to_utf8(state.strName), "7001 = 7 Extremes: 1.5 case 2");
  EXPECT_EQ(state.nType, 0);
  ASSERT_EQ(state.aEntry.GetSize(), 1);
  EXPECT_EQ(state.aEntry[0].nNumber, 2U);
  EXPECT_EQ(state.aEntry[0].dFactor, 1.5);
}

TEST(LoadCasesOfAPlainModel, HaveNoCodeOfMovingLoads) {
  const model::Model model = sample_model();
  Session session(model, {});
  T_MVCD_D code;
  ASSERT_EQ(session.DocPoint()->GetAttrCtrl().GetMvcd(code), 1);
  EXPECT_EQ(code.nCode, 0);
}

}  // namespace
}  // namespace aluframe::services
