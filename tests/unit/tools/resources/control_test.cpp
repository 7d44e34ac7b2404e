// One control: its statement, its style, and what the library carries of it.

#include "tests/unit/tools/resources/read_one.h"

namespace resources {
namespace {

// Defaults of the statements, from the conventional form of resource scripts: what can be used has
// a tab stop, a label begins a group, an edit has a border.
struct StatementCase {
  const char* statement;
  CONTROL_KIND kind;
  UINT flags;
};

std::ostream& operator<<(std::ostream& out, const StatementCase& c) {
  return out << c.statement;
}

class ControlStatements : public testing::TestWithParam<StatementCase> {};

TEST_P(ControlStatements, HaveTheirKindAndFlags) {
  const Control control = control_of(GetParam().statement);
  EXPECT_EQ(control.kind, GetParam().kind);
  EXPECT_EQ(control.flags, GetParam().flags);
}

INSTANTIATE_TEST_SUITE_P(
    Plain, ControlStatements,
    testing::Values(
        StatementCase{"LTEXT \"a\", 5, 1,2,3,4", CONTROL_KIND::Label, CONTROL_GROUP},
        StatementCase{"RTEXT \"a\", 5, 1,2,3,4", CONTROL_KIND::Label, CONTROL_GROUP},
        StatementCase{"CTEXT \"a\", 5, 1,2,3,4", CONTROL_KIND::Label, CONTROL_GROUP},
        StatementCase{"GROUPBOX \"a\", 5, 1,2,3,4", CONTROL_KIND::GroupBox, 0},
        StatementCase{"PUSHBUTTON \"a\", 5, 1,2,3,4", CONTROL_KIND::PushButton, CONTROL_TAB_STOP},
        StatementCase{"DEFPUSHBUTTON \"a\", 5, 1,2,3,4", CONTROL_KIND::PushButton,
                      CONTROL_TAB_STOP | CONTROL_DEFAULT},
        StatementCase{"AUTOCHECKBOX \"a\", 5, 1,2,3,4", CONTROL_KIND::CheckBox, CONTROL_TAB_STOP},
        StatementCase{"AUTORADIOBUTTON \"a\", 5, 1,2,3,4", CONTROL_KIND::RadioButton,
                      CONTROL_TAB_STOP},
        StatementCase{"EDITTEXT 5, 1,2,3,4", CONTROL_KIND::Edit, CONTROL_TAB_STOP | CONTROL_BORDER},
        StatementCase{"COMBOBOX 5, 1,2,3,4, CBS_DROPDOWNLIST", CONTROL_KIND::DropDownList,
                      CONTROL_TAB_STOP}));

INSTANTIATE_TEST_SUITE_P(
    Styled, ControlStatements,
    testing::Values(StatementCase{"LTEXT \"a\", 5, 1,2,3,4, NOT WS_GROUP", CONTROL_KIND::Label, 0},
                    StatementCase{"RTEXT \"a\", 5, 1,2,3,4, SS_RIGHT | WS_DISABLED",
                                  CONTROL_KIND::Label, CONTROL_GROUP | CONTROL_DISABLED},
                    StatementCase{"AUTORADIOBUTTON \"a\", 5, 1,2,3,4, WS_GROUP",
                                  CONTROL_KIND::RadioButton, CONTROL_TAB_STOP | CONTROL_GROUP},
                    StatementCase{"AUTORADIOBUTTON \"a\", 5, 1,2,3,4, NOT WS_TABSTOP",
                                  CONTROL_KIND::RadioButton, 0},
                    StatementCase{"EDITTEXT 5, 1,2,3,4, ES_AUTOHSCROLL | NOT WS_BORDER",
                                  CONTROL_KIND::Edit, CONTROL_TAB_STOP | CONTROL_AUTO_SCROLL},
                    StatementCase{"EDITTEXT 5, 1,2,3,4, NOT WS_VISIBLE | NOT WS_TABSTOP",
                                  CONTROL_KIND::Edit, CONTROL_BORDER | CONTROL_HIDDEN},
                    StatementCase{"COMBOBOX 5, 1,2,3,4, CBS_DROPDOWNLIST | WS_VSCROLL",
                                  CONTROL_KIND::DropDownList,
                                  CONTROL_TAB_STOP | CONTROL_VERTICAL_SCROLL},
                    // The later word holds.
                    StatementCase{"EDITTEXT 5, 1,2,3,4, NOT WS_BORDER | WS_BORDER",
                                  CONTROL_KIND::Edit, CONTROL_TAB_STOP | CONTROL_BORDER},
                    StatementCase{"CHECKBOX \"a\", 5, 1,2,3,4, BS_AUTOCHECKBOX",
                                  CONTROL_KIND::CheckBox, CONTROL_TAB_STOP}));

// CONTROL means nothing by itself.
INSTANTIATE_TEST_SUITE_P(
    Generic, ControlStatements,
    testing::Values(
        StatementCase{"CONTROL \"a\", 5, \"Static\", SS_LEFT, 1,2,3,4", CONTROL_KIND::Label, 0},
        StatementCase{"CONTROL \"a\", 5, \"Static\", SS_CENTER | WS_GROUP, 1,2,3,4",
                      CONTROL_KIND::Label, CONTROL_GROUP},
        StatementCase{"CONTROL \"a\", 5, \"Button\", BS_PUSHBUTTON | WS_TABSTOP, 1,2,3,4",
                      CONTROL_KIND::PushButton, CONTROL_TAB_STOP},
        StatementCase{"CONTROL \"a\", 5, \"Button\", BS_DEFPUSHBUTTON, 1,2,3,4",
                      CONTROL_KIND::PushButton, CONTROL_DEFAULT},
        StatementCase{"CONTROL \"a\", 5, \"Button\", BS_AUTOCHECKBOX | WS_TABSTOP, 1,2,3,4",
                      CONTROL_KIND::CheckBox, CONTROL_TAB_STOP},
        StatementCase{"CONTROL \"a\", 5, \"Button\", BS_AUTORADIOBUTTON, 1,2,3,4",
                      CONTROL_KIND::RadioButton, 0},
        StatementCase{"CONTROL \"a\", 5, \"Button\", BS_GROUPBOX, 1,2,3,4", CONTROL_KIND::GroupBox,
                      0},
        StatementCase{
            "CONTROL \"a\", 5, \"Edit\", ES_AUTOHSCROLL | WS_BORDER | WS_TABSTOP, 1,2,3,4",
            CONTROL_KIND::Edit, CONTROL_AUTO_SCROLL | CONTROL_BORDER | CONTROL_TAB_STOP},
        StatementCase{"CONTROL \"a\", 5, \"ComboBox\", CBS_DROPDOWNLIST | WS_VSCROLL, 1,2,3,4",
                      CONTROL_KIND::DropDownList, CONTROL_VERTICAL_SCROLL},
        StatementCase{"CONTROL \"a\", 5, \"SysListView32\", LVS_REPORT, 1,2,3,4",
                      CONTROL_KIND::List, CONTROL_REPORT_VIEW},
        StatementCase{"CONTROL \"\", 5, \"SysListView32\", LVS_REPORT | LVS_SINGLESEL | "
                      "LVS_SHOWSELALWAYS | NOT WS_VISIBLE, 1,2,3,4",
                      CONTROL_KIND::List,
                      CONTROL_REPORT_VIEW | CONTROL_SINGLE_SELECTION | CONTROL_HIDDEN}));

TEST(ControlStatement, KeepsIdTextAndPlace) {
  const Control control = control_of("LTEXT \"&Name \"\"x\"\"\", 5, -1, 2, 3, 4");
  EXPECT_EQ(control.id, 5);
  EXPECT_EQ(control.text, U"&Name \"x\"");
  EXPECT_EQ(control.x, -1);
  EXPECT_EQ(control.y, 2);
  EXPECT_EQ(control.width, 3);
  EXPECT_EQ(control.height, 4);
}

TEST(ControlStatement, GenericOneKeepsIdTextAndPlace) {
  const Control control = control_of("CONTROL \"t\", IDC_NAME, \"Static\", SS_LEFT, 1, 2, 3, 4");
  EXPECT_EQ(control.id, 200);
  EXPECT_EQ(control.text, U"t");
  EXPECT_EQ(control.x, 1);
  EXPECT_EQ(control.y, 2);
  EXPECT_EQ(control.width, 3);
  EXPECT_EQ(control.height, 4);
}

TEST(ControlStatement, MayStandOnSeveralLines) {
  EXPECT_EQ(control_of("EDITTEXT\n5,\n1,2,\n3,4,\nES_AUTOHSCROLL").width, 3);
}

struct BadControl {
  const char* statement;
  const char* message;  ///< behind the place
};

std::ostream& operator<<(std::ostream& out, const BadControl& c) {
  return out << c.statement;
}

class BadControls : public testing::TestWithParam<BadControl> {};

TEST_P(BadControls, AreRefused) {
  EXPECT_EQ(refusal_of(dialog_of(GetParam().statement)),
            std::string("test.rc:4: found ") + GetParam().message);
}

INSTANTIATE_TEST_SUITE_P(
    Syntax, BadControls,
    testing::Values(
        BadControl{"SCROLLBAR 5, 1,2,3,4",
                   "SCROLLBAR, allowed END, CONTROL, LTEXT, RTEXT, CTEXT, GROUPBOX, PUSHBUTTON, "
                   "DEFPUSHBUTTON, CHECKBOX, AUTOCHECKBOX, AUTORADIOBUTTON, EDITTEXT, COMBOBOX"},
        BadControl{"LTEXT 5, 1,2,3,4", "5, allowed the control's text in double quotes"},
        BadControl{"LTEXT \"a\" 5, 1,2,3,4", "5, allowed ','"},
        BadControl{"LTEXT \"a\", IDC_WRONG, 1,2,3,4",
                   "IDC_WRONG, allowed a symbol of the included header or a number"},
        BadControl{"LTEXT \"a\", -2, 1,2,3,4",
                   "2, allowed a symbol of the included header or a number from -1 to 65535"},
        BadControl{"LTEXT \"a\", 5, 1,2,3", "END, allowed ','"},
        BadControl{"LTEXT \"a\", 5, 1,2,3,-4", "'-', allowed a height from 0 to 32767"},
        BadControl{"LTEXT \"a\", 5, 32768,2,3,4",
                   "32768, allowed a coordinate from -32767 to 32767"},
        BadControl{"CONTROL \"a\", 5, \"Slider\", SS_LEFT, 1,2,3,4",
                   "\"Slider\", allowed \"Static\", \"Button\", \"Edit\", \"ComboBox\", "
                   "\"SysListView32\""}));

INSTANTIATE_TEST_SUITE_P(
    Styles, BadControls,
    testing::Values(
        BadControl{"EDITTEXT 5, 1,2,3,4, BS_GROUPBOX",
                   "BS_GROUPBOX, allowed NOT, ES_LEFT, ES_AUTOHSCROLL, WS_BORDER, WS_CHILD, "
                   "WS_DISABLED, WS_GROUP, WS_TABSTOP, WS_VISIBLE"},
        BadControl{"EDITTEXT 5, 1,2,3,4, NOT ES_NUMBER",
                   "ES_NUMBER, allowed ES_LEFT, ES_AUTOHSCROLL, WS_BORDER, WS_CHILD, WS_DISABLED, "
                   "WS_GROUP, WS_TABSTOP, WS_VISIBLE"},
        BadControl{"EDITTEXT 5, 1,2,3,4, WS_GROUP |",
                   "END, allowed NOT, ES_LEFT, ES_AUTOHSCROLL, WS_BORDER, WS_CHILD, WS_DISABLED, "
                   "WS_GROUP, WS_TABSTOP, WS_VISIBLE"},
        BadControl{"COMBOBOX 5, 1,2,3,4, CBS_SORT",
                   "CBS_SORT, allowed NOT, CBS_DROPDOWNLIST, WS_VSCROLL, WS_BORDER, WS_CHILD, "
                   "WS_DISABLED, WS_GROUP, WS_TABSTOP, WS_VISIBLE"}));

INSTANTIATE_TEST_SUITE_P(
    NotCarried, BadControls,
    testing::Values(
        BadControl{"COMBOBOX 5, 1,2,3,4",
                   "COMBOBOX, allowed a combo box of style CBS_DROPDOWNLIST"},
        BadControl{"CHECKBOX \"a\", 5, 1,2,3,4",
                   "CHECKBOX, allowed a push button, a group box, or a check box or radio button "
                   "that changes by itself"},
        BadControl{"CONTROL \"\", 5, \"SysListView32\", LVS_SINGLESEL, 1,2,3,4",
                   "CONTROL, allowed a list of style LVS_REPORT"}));

}  // namespace
}  // namespace resources
