// Which texts of a dialog's template name its fields.
#include "aluframe/toolkit/template/field_captions.h"

#include <gmock/gmock.h>

#include <map>
#include <string>

#include "host/framework/extension.h"
#include "tz_alu/dialogs/resource.h"
#include "tz_alu/module/init_tz_aludll.h"

namespace aluframe::toolkit {
namespace {

using testing::ElementsAre;
using testing::Pair;
using testing::UnorderedElementsAre;

using Words = std::map<int, std::wstring>;
using Caption = std::optional<std::size_t> FieldCaptions::*;

/// The texts that stand for one kind of caption, by the identifiers of the controls that have one.
Words captions(std::span<const CONTROL_TEMPLATE> controls, Caption caption) {
  Words words;
  const auto found = captions_of(controls);
  EXPECT_EQ(found.size(), controls.size());
  for (std::size_t i = 0; i < found.size(); ++i) {
    if (found[i].*caption) words[controls[i].nId] = controls[*(found[i].*caption)].text;
  }
  return words;
}

Words captions_of_dialog(UINT dialog, Caption caption) {
  Init_tz_aludll();  // so that the module is loaded
  const DIALOG_TEMPLATE* found = AfxFindDialogTemplate(dialog);
  return found != nullptr ? captions(found->controls, caption) : Words();
}

TEST(FieldCaptions, EveryFieldOfTheMaterialsHasItsOwnLabel) {
  EXPECT_THAT(
      captions_of_dialog(IDD_DGN_ALU_MAT_DLG, &FieldCaptions::name),
      UnorderedElementsAre(Pair(IDC_DGN_STEELMAT_LIST, L"Material list"),
                           Pair(IDC_DGN_STEELMAT_CODE, L"Code:"),
                           Pair(IDC_DGN_STEEL_MAT, L"Grade:"), Pair(IDC_DGN_STEEL_MAT2, L"Grade:"),
                           Pair(IDC_DGN_STEEL_MATES, L"Modulus of Elasticity (Es)"),
                           Pair(IDC_DGN_STEEL_MATPS, L"Poisson's Ratio (Ps)"),
                           Pair(IDC_DGN_STEEL_MATF, L"Tensil Strength(Fu)"),
                           Pair(IDC_DGN_STEEL_MATFV, L"Yeild Strength(Fy1)"),
                           Pair(IDC_DGN_STEEL_MATF02, L"Yeild Strength(Fy2)")));
}

// Poisson's ratio has none.
TEST(FieldCaptions, TheUnitOfAFieldIsTheTextBehindIt) {
  EXPECT_THAT(captions_of_dialog(IDD_DGN_ALU_MAT_DLG, &FieldCaptions::unit),
              UnorderedElementsAre(
                  Pair(IDC_DGN_STEEL_MATES, L"Unit"), Pair(IDC_DGN_STEEL_MATF, L"Unit"),
                  Pair(IDC_DGN_STEEL_MATFV, L"Unit"), Pair(IDC_DGN_STEEL_MATF02, L"Unit")));
}

TEST(FieldCaptions, AFieldBesideACheckBoxIsNamedByIt) {
  EXPECT_THAT(
      captions_of_dialog(IDD_DGN_ALU_CODE_DLG, &FieldCaptions::name),
      UnorderedElementsAre(Pair(IDC_COMB_ALU_CODE, L"Design Code:"),
                           Pair(IDC_EDIT_ALU_SECRIB_RATIO, L"Section rib stiffener"),
                           Pair(IDC_EDIT_ALU_SECTSTENGTH, L"Adjustment ratio of strength design:"),
                           Pair(IDC_EDIT_ALU_GAMARE_STRENGTH, L"Strength GammaRE:"),
                           Pair(IDC_EDIT_ALU_GAMARE_STABILITY, L"Stability GammaRE:")));
  EXPECT_THAT(captions_of_dialog(IDD_DGN_ALU_CODE_DLG, &FieldCaptions::unit), testing::IsEmpty());
}

TEST(FieldCaptions, RadioButtonsHaveTheBoxAroundThemAsGroup) {
  EXPECT_THAT(captions_of_dialog(IDD_DGN_ALU_CODE_DLG, &FieldCaptions::group),
              ElementsAre(Pair(IDC_STATIC_ALU_SAFECLASS1, L"Select safe class"),
                          Pair(IDC_STATIC_ALU_SAFECLASS2, L"Select safe class"),
                          Pair(IDC_STATIC_ALU_SAFECLASS3, L"Select safe class")));
}

constexpr CONTROL_TEMPLATE label(int id, const wchar_t* text, int x, int y = 10) {
  return {CONTROL_KIND::Label, id, text, x, y, 20, 8, 0};
}
constexpr CONTROL_TEMPLATE edit(int id, int x, int y = 7) {
  return {CONTROL_KIND::Edit, id, L"", x, y, 20, 14, 0};
}

TEST(FieldCaptions, OfSeveralFieldsInARowEachHasTheNearestTexts) {
  const CONTROL_TEMPLATE row[] = {label(1, L"H", 0),  edit(2, 25),  label(3, L"mm", 50),
                                  label(4, L"B", 75), edit(5, 100), label(6, L"cm", 125)};
  EXPECT_THAT(captions(row, &FieldCaptions::name), ElementsAre(Pair(2, L"H"), Pair(5, L"B")));
  EXPECT_THAT(captions(row, &FieldCaptions::unit), ElementsAre(Pair(2, L"mm"), Pair(5, L"cm")));
}

TEST(FieldCaptions, AFieldThatNothingNamesHasNone) {
  const CONTROL_TEMPLATE alone[] = {edit(2, 25), label(3, L":", 0), label(4, L"below", 0, 30),
                                    edit(5, 50)};
  EXPECT_THAT(captions(alone, &FieldCaptions::name), testing::IsEmpty());
}

TEST(FieldCaptions, OfBoxesAroundAFieldTheSmallestWithATextNamesIt) {
  const CONTROL_TEMPLATE boxes[] = {{CONTROL_KIND::GroupBox, 1, L"outer", 0, 0, 200, 200, 0},
                                    {CONTROL_KIND::GroupBox, 2, L"inner", 10, 10, 100, 100, 0},
                                    {CONTROL_KIND::GroupBox, 3, L"", 15, 15, 50, 50, 0},
                                    {CONTROL_KIND::GroupBox, 4, L"elsewhere", 15, 60, 40, 20, 0},
                                    {CONTROL_KIND::List, 5, L"", 20, 20, 30, 30, 0}};
  EXPECT_THAT(captions(boxes, &FieldCaptions::name), ElementsAre(Pair(5, L"inner")));
}

}  // namespace
}  // namespace aluframe::toolkit
