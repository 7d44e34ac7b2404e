// The panel of design attributes.

#include "apps/desktop/attribute_panel.h"

#include <QElapsedTimer>
#include <QLabel>
#include <QUndoStack>
#include <algorithm>
#include <fstream>
#include <functional>
#include <sstream>

#include "tests/gui/attribute_user.h"
#include "tests/gui/checked_model.h"
#include "tests/support/used_language.h"

namespace gui_test {
namespace {

using namespace aluframe;
using desktop::AttributePanel;
using model::Element;
using testing::Contains;
using testing::Each;
using testing::ElementsAre;
using testing::HasSubstr;

const QString type_title = QStringLiteral("Member type");
const QString factors_title = QStringLiteral("Effective length factors");
const QString coefficients_title = QStringLiteral("Stability coefficients in bending");
const QString moments_title = QStringLiteral("Equivalent moment factors");
const QString rib_title = QStringLiteral("Rib stiffeners");
const QString weld_title = QStringLiteral("Weld coefficient");
const QString haz_title = QStringLiteral("Heat-affected width beside welds");
const QString limits_title = QStringLiteral("Slenderness limits");

std::vector<std::string> lines_of(const std::string& text) {
  std::vector<std::string> lines;
  std::istringstream in(text);
  for (std::string line; std::getline(in, line);) lines.push_back(line);
  return lines;
}

/// Elements 1 and 4 are columns of members with factors 1.3 and 0.7 and have a heat-affected width
/// of 25 mm; brackets 3 and 6 have factors 2 and 2; crane rail 19 has nothing.
class AttributePanelTest : public CheckedModelTest {
 protected:
  AttributePanelTest() : panel(workspace, undo), user(panel) {
    panel.resize(420, 900);
    panel.show();
  }

  QUndoStack undo;
  AttributePanel panel;
  AttributeUser user;

  const Element& element(model::Number number) { return *workspace.model().elements.find(number); }
  std::string heading() { return panel.findChild<QLabel*>()->text().toStdString(); }
  bool is_modified() { return workspace.document()->is_modified(); }
  void save() { ASSERT_TRUE(workspace.document()->save().is_saved()); }
};

TEST_F(AttributePanelTest, WithoutASelectionItSaysWhatToDo) {
  EXPECT_EQ(heading(), "Select elements to see and change how they are designed.");
  EXPECT_FALSE(user.group(type_title).isVisible());
  workspace.select({1});
  EXPECT_EQ(heading(), "Element 1");
  EXPECT_TRUE(user.group(type_title).isVisible());
  workspace.clear_selection();
  EXPECT_FALSE(user.group(type_title).isVisible());
}

TEST_F(AttributePanelTest, WithoutAModelItIsEmpty) {
  desktop::Workspace none;
  AttributePanel other(none, undo);
  other.show();
  EXPECT_FALSE(AttributeUser(other).group(type_title).isVisible());
}

TEST_F(AttributePanelTest, ShowsWhatIsGiven) {
  workspace.select({3});
  EXPECT_TRUE(user.given(factors_title).isChecked());
  EXPECT_EQ(user.line(factors_title, 0).text(), "2");
  EXPECT_EQ(user.line(factors_title, 1).text(), "2");
  EXPECT_EQ(user.line(haz_title).text(), "25");
  EXPECT_EQ(user.origin(haz_title), "");
}

TEST_F(AttributePanelTest, SaysWhereTheRestComesFrom) {
  workspace.select({1});
  EXPECT_FALSE(user.given(factors_title).isChecked());
  EXPECT_FALSE(user.line(factors_title).isVisible());
  EXPECT_EQ(user.origin(factors_title), "given for member 1: Ky = 1.3, Kz = 0.7");
  EXPECT_EQ(user.origin(rib_title), "by the design settings: without ribs");
  EXPECT_EQ(user.origin(type_title), "by the direction of the element");
  workspace.select({19});
  EXPECT_EQ(user.origin(factors_title), "by the program, from the frame");
  EXPECT_EQ(user.origin(haz_title), "30 mm");
}

TEST_F(AttributePanelTest, SettingsThatChangeShowAtOnce) {
  workspace.select({1});
  workspace.document()->editable().design->rib = true;
  workspace.document()->editable().design->rib_ratio = 1.5;
  workspace.tell_edited();
  EXPECT_EQ(user.origin(rib_title), "by the design settings: with ribs, ratio 1.5");
}

TEST_F(AttributePanelTest, SaysWhereElementsDiffer) {
  workspace.select({1, 4});
  EXPECT_EQ(heading(), "2 elements together");
  EXPECT_EQ(user.origin(factors_title), "varies") << "of members 1 and 2";
  workspace.select({1, 3});
  EXPECT_EQ(user.given(factors_title).checkState(), Qt::PartiallyChecked);
  EXPECT_EQ(user.origin(factors_title), "varies");
  EXPECT_EQ(user.line(haz_title).text(), "25") << "in common";
  workspace.select({3, 13});
  EXPECT_EQ(user.line(factors_title).text(), "");
  EXPECT_EQ(user.line(factors_title).placeholderText(), "varies");
}

TEST_F(AttributePanelTest, ChangesOneNumberOfAllSelectedElements) {
  workspace.select({3, 13});
  user.type(factors_title, "1.75", 1);
  EXPECT_EQ(element(3).design.length_factors->z, 1.75);
  EXPECT_EQ(element(13).design.length_factors->z, 1.75);
  EXPECT_EQ(element(3).design.length_factors->y, 2.0) << "the other number stays";
  EXPECT_EQ(element(13).design.length_factors->y, 1.2);
  EXPECT_EQ(element(6).design.length_factors->z, 2.0) << "not selected";
  EXPECT_EQ(undo.count(), 1) << "one step for both";
  EXPECT_EQ(user.line(factors_title, 1).text(), "1.75");
}

TEST_F(AttributePanelTest, WhatIsNotAllowedGoesBack) {
  workspace.select({3});
  for (const char* wrong : {"abc", "", "0", "-1", "nan", "inf", "1e999", "-1e999", "1,5", "2 2"}) {
    user.type(factors_title, wrong);
    EXPECT_EQ(user.line(factors_title).text(), "2") << wrong;
  }
  user.type(haz_title, "-0.5");
  EXPECT_EQ(user.line(haz_title).text(), "25");
  EXPECT_EQ(undo.count(), 0);
  EXPECT_FALSE(is_modified());
}

TEST_F(AttributePanelTest, WhatIsNotAllowedGoesBackToDifferentValuesToo) {
  workspace.select({3, 13});
  user.type(factors_title, "0");
  EXPECT_EQ(user.line(factors_title).text(), "");
  EXPECT_FALSE(is_modified());
}

TEST_F(AttributePanelTest, TheSameValueIsNoChange) {
  workspace.select({3});
  user.type(factors_title, "2.0");
  EXPECT_EQ(undo.count(), 0);
  EXPECT_EQ(user.line(factors_title).text(), "2");
}

TEST_F(AttributePanelTest, AHeatAffectedWidthMayBeZero) {
  workspace.select({1});
  user.type(haz_title, " 0 ");
  EXPECT_EQ(element(1).design.haz_width, 0.0);
}

TEST_F(AttributePanelTest, GivesAndTakesAway) {
  workspace.select({1, 3});
  user.click_given(factors_title);
  EXPECT_EQ(element(1).design.length_factors, (model::ElementDesign::AxisPair{1.0, 1.0}));
  EXPECT_EQ(element(3).design.length_factors, (model::ElementDesign::AxisPair{2.0, 2.0}))
      << "has them already";
  user.click_given(factors_title);
  EXPECT_FALSE(element(1).design.length_factors);
  EXPECT_FALSE(element(3).design.length_factors);
  EXPECT_EQ(undo.count(), 2);
}

TEST_F(AttributePanelTest, StepsAreUndoneAndDoneAgainOneByOne) {
  workspace.select({3, 6});
  user.type(factors_title, "1.5");
  user.click_given(haz_title);
  EXPECT_TRUE(is_modified());
  undo.undo();
  EXPECT_EQ(element(6).design.haz_width, 25.0);
  EXPECT_EQ(element(6).design.length_factors->y, 1.5);
  EXPECT_TRUE(is_modified());
  undo.undo();
  EXPECT_EQ(element(6).design.length_factors->y, 2.0);
  EXPECT_EQ(user.line(factors_title).text(), "2");
  EXPECT_FALSE(is_modified());
  undo.redo();
  undo.redo();
  EXPECT_EQ(element(3).design.length_factors->y, 1.5);
  EXPECT_FALSE(element(3).design.haz_width);
}

TEST_F(AttributePanelTest, AStepNamesItsAttribute) {
  workspace.select({3});
  user.type(factors_title, "1.5");
  EXPECT_EQ(undo.undoText(), factors_title);
}

TEST_F(AttributePanelTest, UndoingLeavesWhatAnotherStepChangedLater) {
  workspace.select({3});
  user.type(factors_title, "1.5");
  workspace.select({6});
  user.type(factors_title, "1.6");
  undo.undo();
  EXPECT_EQ(element(3).design.length_factors->y, 1.5);
  EXPECT_EQ(element(6).design.length_factors->y, 2.0);
}

TEST_F(AttributePanelTest, WaitsForTheEndOfARun) {
  workspace.select({3});
  workspace.set_busy(true);
  EXPECT_FALSE(panel.isEnabled());
  workspace.set_busy(false);
  EXPECT_TRUE(panel.isEnabled());
}

TEST_F(AttributePanelTest, EveryWidgetHasANameForReaders) {
  workspace.select({13});
  for (const auto& title : {type_title, factors_title, coefficients_title, moments_title, rib_title,
                            weld_title, haz_title, limits_title}) {
    std::vector<QString> names;
    for (const QWidget* widget : user.group(title).findChildren<QWidget*>()) {
      if (qobject_cast<const QLineEdit*>(widget) == nullptr &&
          qobject_cast<const QComboBox*>(widget) == nullptr) {
        continue;
      }
      EXPECT_TRUE(widget->accessibleName().startsWith(title));
      EXPECT_FALSE(widget->accessibleName().endsWith(u' '));
      names.push_back(QString::fromLatin1(widget->metaObject()->className()) +
                      widget->accessibleName());
    }
    std::ranges::sort(names);
    EXPECT_EQ(std::ranges::adjacent_find(names), names.end()) << title.toStdString();
  }
}

TEST_F(AttributePanelTest, ItsTextsCanBeChinese) {
  const test_support::UsedLanguage used(texts::Language::chinese);
  AttributePanel chinese(workspace, undo);
  chinese.show();
  workspace.select({1, 4});
  for (const QGroupBox* group : chinese.findChildren<QGroupBox*>()) {
    EXPECT_TRUE(std::ranges::any_of(group->title(), [](QChar c) { return c >= u'\u4E00'; }));
  }
  EXPECT_EQ(AttributeUser(chinese).given(u"\u8BA1\u7B97\u957F\u5EA6\u7CFB\u6570"_qs).text(),
            u"\u7ED9\u5B9A"_qs);
}

/// What a user does to an attribute of two elements, and what the file says then of each.
struct Edit {
  const char* name;
  std::function<void(AttributeUser&)> act;
  std::function<bool(const Element&)> is_held;
};

std::vector<Edit> edits() {
  using model::MemberType;
  std::vector<Edit> all;
  const MemberType types[]{MemberType::column, MemberType::beam, MemberType::brace,
                           MemberType::truss};
  for (int row = 0; row < 4; ++row) {
    all.push_back({"type",
                   [row](AttributeUser& user) {
                     user.click_given(type_title);
                     user.choose(type_title, row);
                   },
                   [type = types[row]](const Element& e) { return e.member_type == type; }});
  }
  const auto both = [](const QString& title) {
    return [title](AttributeUser& user) {
      user.click_given(title);
      user.type(title, "0.61", 0);
      user.type(title, "1.072", 1);
    };
  };
  const auto is_both = [](const std::optional<model::ElementDesign::AxisPair>& pair) {
    return pair && pair->y == 0.61 && pair->z == 1.072;
  };
  all.push_back({"length factors", both(factors_title),
                 [=](const Element& e) { return is_both(e.design.length_factors); }});
  all.push_back({"coefficients", both(coefficients_title),
                 [=](const Element& e) { return is_both(e.design.stability_coefficients); }});
  for (int loading = 0; loading < 4; ++loading) {
    all.push_back({"loadings",
                   [loading](AttributeUser& user) {
                     user.click_given(moments_title);
                     user.choose(moments_title, loading, 0);
                     user.choose(moments_title, 3 - loading, 1);
                   },
                   [loading](const Element& e) {
                     const auto& factors = e.design.moment_factors;
                     return factors && !factors->y.value && factors->y.loading == loading &&
                            !factors->z.value && factors->z.loading == 3 - loading;
                   }});
  }
  all.push_back({"moment values",
                 [](AttributeUser& user) {
                   user.click_given(moments_title);
                   user.type(moments_title, "0.85", 0);
                   user.type(moments_title, "-0.4", 1);
                 },
                 [](const Element& e) {
                   const auto& factors = e.design.moment_factors;
                   return factors && factors->y.value == 0.85 && factors->z.value == -0.4;
                 }});
  for (const bool on : {false, true}) {
    all.push_back({"ribs",
                   [on](AttributeUser& user) {
                     user.click_given(rib_title);
                     user.choose(rib_title, on ? 1 : 0);
                     user.type(rib_title, "1.37");
                   },
                   [on](const Element& e) {
                     return e.design.rib && e.design.rib->stiffened == on &&
                            e.design.rib->ratio == 1.37;
                   }});
    all.push_back({"slenderness",
                   [on](AttributeUser& user) {
                     user.click_given(limits_title);
                     user.choose(limits_title, on ? 1 : 0);
                     user.type(limits_title, "160", 0);
                     user.type(limits_title, "0", 1);
                   },
                   [on](const Element& e) {
                     const auto& limits = e.design.slenderness_limits;
                     return limits && limits->checked == on && limits->compression == 160.0 &&
                            limits->tension == 0.0;
                   }});
  }
  all.push_back({"weld",
                 [](AttributeUser& user) {
                   user.click_given(weld_title);
                   user.type(weld_title, "0.7");
                 },
                 [](const Element& e) { return e.design.weld_coefficient == 0.7; }});
  all.push_back({"width",
                 [](AttributeUser& user) {
                   user.click_given(haz_title);
                   user.type(haz_title, "27.5");
                 },
                 [](const Element& e) { return e.design.haz_width == 27.5; }});
  return all;
}

// Each element of the example is a line of its file.
TEST_F(AttributePanelTest, EveryAttributeGetsIntoTheFileAndTheRestStays) {
  const std::vector<std::string> before = lines_of(text_of_file());
  for (const Edit& edit : edits()) {
    workspace.select({19, 22});
    edit.act(user);
    save();
    const model::Model saved = model_of_file();
    for (const model::Number number : {19U, 22U}) {
      EXPECT_TRUE(edit.is_held(*saved.elements.find(number))) << edit.name;
    }
    const std::vector<std::string> after = lines_of(text_of_file());
    ASSERT_EQ(after.size(), before.size());
    for (std::size_t i = 0; i < before.size(); ++i) {
      const bool is_theirs = before[i].find("\"Crane rail A1\"") != std::string::npos ||
                             before[i].find("\"Crane rail B2\"") != std::string::npos;
      EXPECT_EQ(after[i] == before[i], !is_theirs) << edit.name << ": " << after[i];
    }
    while (undo.canUndo()) undo.undo();
    save();
    EXPECT_EQ(lines_of(text_of_file()), before) << edit.name;
    undo.clear();
  }
}

/// Gives every two elements a member of their own.
void add_members(const std::filesystem::path& model, int elements) {
  std::ostringstream text;
  text << std::ifstream(model).rdbuf();
  std::string changed = text.str();
  changed.resize(changed.rfind('}'));
  changed += ",\n\"members\": [";
  for (int i = 1; i < elements; i += 2) {
    changed += (i == 1 ? "" : ",") + std::string("\n{\"number\": ") + std::to_string(i / 2 + 1) +
               ", \"elements\": [" + std::to_string(i) + ", " + std::to_string(i + 1) +
               "], \"length_factors\": {\"y\": 1.2, \"z\": 1.1}}";
  }
  std::ofstream(model) << changed << "]}\n";
}

TEST_F(AttributePanelTest, ManySelectedElementsTakeNoWidgetsOfTheirOwnAndNoTime) {
  constexpr int many = 20'000;
  workspace.select({1});
  const auto before = panel.findChildren<QWidget*>().size();
  const std::filesystem::path row = write_row_of_beams(many);
  add_members(row, many);
  open(row);
  QElapsedTimer timer;
  timer.start();
  workspace.select_all();
  user.click_given(weld_title);
  constexpr int at_most = 1000;  // ms; what a user hardly waits for
  EXPECT_LT(timer.elapsed(), at_most);
  EXPECT_EQ(heading(), "20000 elements together");
  EXPECT_EQ(panel.findChildren<QWidget*>().size(), before);
  EXPECT_EQ(user.origin(factors_title), "varies") << "of two members";
  EXPECT_EQ(element(many).design.weld_coefficient, 0.5);
  EXPECT_EQ(undo.count(), 1);
}

}  // namespace
}  // namespace gui_test
