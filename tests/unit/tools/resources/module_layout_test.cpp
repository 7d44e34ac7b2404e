// Places of the controls in the module's dialogs, in dialog units.

#include <gmock/gmock.h>

#include <optional>
#include <utility>
#include <vector>

#include "tests/unit/tools/resources/module_dialogs.h"

namespace {

using module_dialogs::Control;
using module_dialogs::DesignCode;
using module_dialogs::Materials;

// Usual measures: the margin around a dialog, the height of edits, push buttons and closed lists.
constexpr int kMargin = 7;
constexpr int kLineHeight = 14;

struct RECTANGLE {
  int left;
  int top;
  int right;
  int bottom;
};

// Of a drop-down list: of the closed one.
RECTANGLE Place(const CONTROL_TEMPLATE& control) {
  const bool list = control.kind == CONTROL_KIND::DropDownList;
  return {control.x, control.y, control.x + control.width,
          control.y + (list ? kLineHeight : control.height)};
}

bool Contains(const RECTANGLE& outer, const RECTANGLE& inner) {
  return inner.left > outer.left && inner.right < outer.right && inner.top > outer.top &&
         inner.bottom < outer.bottom;
}

bool Overlap(const RECTANGLE& a, const RECTANGLE& b) {
  return a.left < b.right && b.left < a.right && a.top < b.bottom && b.top < a.bottom;
}

// A control may lie inside a group box, and the material's name takes the place of its grade.
bool MayOverlap(const CONTROL_TEMPLATE& a, const CONTROL_TEMPLATE& b) {
  if (a.kind == CONTROL_KIND::GroupBox) return Contains(Place(a), Place(b));
  if (b.kind == CONTROL_KIND::GroupBox) return Contains(Place(b), Place(a));
  return a.nId == 6654 && b.nId == 1001;
}

class Layout : public testing::TestWithParam<UINT> {
 protected:
  const DIALOG_TEMPLATE& TheDialog() const { return module_dialogs::Dialog(GetParam()); }
  std::span<const CONTROL_TEMPLATE> Controls() const { return TheDialog().controls; }
};

INSTANTIATE_TEST_SUITE_P(Dialogs, Layout, testing::Values(7963U, 7964U));

TEST_P(Layout, KeepsTheMargins) {
  for (const CONTROL_TEMPLATE& control : Controls()) {
    SCOPED_TRACE(control.nId);
    EXPECT_GE(Place(control).left, kMargin);
    EXPECT_GE(Place(control).top, kMargin);
    EXPECT_LE(Place(control).right, TheDialog().width - kMargin);
    EXPECT_LE(Place(control).bottom, TheDialog().height - kMargin);
  }
}

TEST_P(Layout, NoTwoControlsOverlap) {
  for (std::size_t i = 0; i < Controls().size(); ++i) {
    for (std::size_t j = i + 1; j < Controls().size(); ++j) {
      const CONTROL_TEMPLATE& a = Controls()[i];
      const CONTROL_TEMPLATE& b = Controls()[j];
      EXPECT_TRUE(!Overlap(Place(a), Place(b)) || MayOverlap(a, b)) << a.nId << ", " << b.nId;
    }
  }
}

// Lists and group boxes are as high as what they hold; a drop-down list's height is the open one's.
std::optional<int> UsualHeight(CONTROL_KIND kind) {
  switch (kind) {
    case CONTROL_KIND::Edit:
    case CONTROL_KIND::PushButton:
      return kLineHeight;
    case CONTROL_KIND::Label:
      return 8;
    case CONTROL_KIND::CheckBox:
    case CONTROL_KIND::RadioButton:
      return 10;
    default:
      return std::nullopt;
  }
}

TEST_P(Layout, ControlsHaveTheUsualHeight) {
  for (const CONTROL_TEMPLATE& control : Controls()) {
    EXPECT_EQ(UsualHeight(control.kind).value_or(control.height), control.height) << control.nId;
  }
}

TEST_P(Layout, DropDownListsOpenForSeveralEntries) {
  for (const CONTROL_TEMPLATE& control : Controls()) {
    if (control.kind != CONTROL_KIND::DropDownList) continue;
    EXPECT_GE(control.height, kLineHeight + 5 * 12) << control.nId;
  }
}

// Controls that belong together, the left one first.
using PAIR = std::pair<int, int>;

void ExpectOnOneLine(const DIALOG_TEMPLATE& dialog, const std::vector<PAIR>& pairs) {
  for (const auto& [left, right] : pairs) {
    SCOPED_TRACE(std::to_string(left) + " and " + std::to_string(right));
    const RECTANGLE a = Place(Control(dialog, left));
    const RECTANGLE b = Place(Control(dialog, right));
    EXPECT_EQ(a.top + a.bottom, b.top + b.bottom) << "twice the height of the middle";
    EXPECT_LE(a.right, b.left);
  }
}

TEST(DesignCodeLayout, LabelsStandOnOneLineWithWhatTheyName) {
  ExpectOnOneLine(DesignCode(),
                  {{7959, 7960}, {3240, 1001}, {7961, 7962}, {7963, 7964}, {7965, 7966}, {1, 2}});
}

TEST(MaterialLayout, LabelsStandOnOneLineWithWhatTheyName) {
  ExpectOnOneLine(Materials(), {{7835, 6680},
                                {6680, 7678},
                                {7678, 6654},
                                {7678, 1001},
                                {6564, 7857},
                                {7857, 6656},
                                {6656, 6657},
                                {6601, 7846},
                                {7846, 6672},
                                {6591, 6518},
                                {6518, 7956},
                                {7956, 7959},
                                {6592, 6519},
                                {6519, 7957},
                                {7957, 7960},
                                {6593, 6559},
                                {6559, 7958},
                                {7958, 7961},
                                {6682, 2}});
}

TEST(MaterialLayout, TheNameStandsInThePlaceOfTheGrade) {
  const RECTANGLE grade = Place(Control(Materials(), 6654));
  const RECTANGLE name = Place(Control(Materials(), 1001));
  EXPECT_EQ(name.left, grade.left);
  EXPECT_EQ(name.top, grade.top);
  EXPECT_EQ(name.right, grade.right);
  EXPECT_EQ(name.bottom, grade.bottom);
}

void ExpectColumn(const DIALOG_TEMPLATE& dialog, const std::vector<int>& ids) {
  for (const int id : ids) {
    SCOPED_TRACE(id);
    EXPECT_EQ(Place(Control(dialog, id)).left, Place(Control(dialog, ids[0])).left);
    EXPECT_EQ(Place(Control(dialog, id)).right, Place(Control(dialog, ids[0])).right);
  }
}

TEST(DesignCodeLayout, EditsStandInOneColumn) {
  ExpectColumn(DesignCode(), {1001, 7962, 7964, 7966});
}

TEST(MaterialLayout, ValuesStandInColumns) {
  ExpectColumn(Materials(), {6564, 6601, 6591, 6592, 6593});
  ExpectColumn(Materials(), {7857, 7846, 6518, 6519, 6559});
  ExpectColumn(Materials(), {6656, 6672, 7956, 7957, 7958});
  ExpectColumn(Materials(), {6657, 7959, 7960, 7961});
}

void ExpectInside(const DIALOG_TEMPLATE& dialog, const CONTROL_TEMPLATE& box,
                  const std::vector<int>& ids) {
  for (const int id : ids) {
    EXPECT_TRUE(Contains(Place(box), Place(Control(dialog, id)))) << id;
  }
}

TEST(DesignCodeLayout, GroupBoxesEncloseTheirControls) {
  ExpectInside(DesignCode(), Control(DesignCode(), 7955), {7956, 7957, 7958});
  ExpectInside(DesignCode(), Control(DesignCode(), kNoControlId), {3244, 7963, 7965, 7964, 7966});
}

TEST(MaterialLayout, GroupBoxesEncloseTheirControls) {
  ExpectInside(Materials(), Control(Materials(), 7834), {6681});
  ExpectInside(Materials(), Control(Materials(), 7955),
               {7835, 6680, 7678, 6654, 1001, 6564, 7857, 6656, 6657, 6601, 7846, 6672,
                6591, 6518, 7956, 7959, 6592, 6519, 7957, 7960, 6593, 6559, 7958, 7961});
}

// Widths of the texts in DejaVu Sans: the sum of its glyphs' advances, in quarters of the mean
// advance of the letters A to Z and a to z. A box or a circle before a text takes 14 units more,
// the arrow of a list 12, the frame of a button 8, that of a group box 12.
struct TEXT_WIDTH {
  int nId;
  double width;
};

void ExpectRoom(const DIALOG_TEMPLATE& dialog, const std::vector<TEXT_WIDTH>& texts) {
  constexpr double reserve = 1.05;  // for other fonts
  for (const auto& [id, width] : texts) {
    EXPECT_GE(Control(dialog, id).width, reserve * width) << id;
  }
}

TEST(DesignCodeLayout, TextsHaveRoom) {
  ExpectRoom(DesignCode(), {{7959, 43.2},
                            {7960, 48.9 + 12},  // "GB50429-2007"
                            {1, 8.8 + 8},
                            {2, 17.6 + 8},
                            {3240, 63.7 + 14},
                            {7955, 53.8 + 12},
                            {7956, 33.8 + 14},
                            {7957, 33.6 + 14},
                            {7958, 39.1 + 14},
                            {7961, 117.7},
                            {3244, 41.2 + 14},
                            {7963, 66.5},
                            {7965, 64.9}});
}

TEST(MaterialLayout, TextsHaveRoom) {
  ExpectRoom(Materials(), {{7834, 37.9 + 12},
                           {7835, 18.8},
                           {6680, 50.1 + 12},  // "GB50429-07(A)"
                           {7678, 21.9},
                           {6654, 36.0 + 12},  // "5083-H112"
                           {6564, 81.2},
                           {7857, 2.2},
                           {6657, 29.2},  // "N/mm^2"
                           {6601, 62.8},
                           {6591, 62.1},
                           {6592, 62.6},
                           {6593, 62.6},
                           {6682, 21.6 + 8},
                           {2, 17.6 + 8}});
}

}  // namespace
