// The head of a dialog, and its controls as a whole.

#include "tests/unit/tools/resources/read_one.h"

namespace resources {
namespace {

Dialog dialog_with(const std::string& statements) {
  return read("1 DIALOGEX 10, -20, 179, 193 " + statements + " BEGIN END").dialogs.at(0);
}

std::string refusal_with(const std::string& statements) {
  return refusal_of("1 DIALOGEX 0, 0, 1, 1\n" + statements + "\nBEGIN\nEND");
}

TEST(DialogStatement, KeepsTheSize) {
  EXPECT_EQ(dialog_with("").width, 179);
  EXPECT_EQ(dialog_with("").height, 193);
}

TEST(DialogStatement, HasNoCaptionUnlessItSaysSo) {
  EXPECT_EQ(dialog_with("").caption, U"");
  EXPECT_EQ(dialog_with("CAPTION \"Material \"").caption, U"Material ");
}

TEST(DialogStatement, StyleGivesFrameAndSystemMenu) {
  const Dialog both = dialog_with("STYLE DS_MODALFRAME | WS_POPUP | WS_CAPTION | WS_SYSMENU");
  EXPECT_TRUE(both.modal_frame);
  EXPECT_TRUE(both.system_menu);
  const Dialog neither = dialog_with("STYLE DS_SETFONT | WS_POPUP | WS_CAPTION");
  EXPECT_FALSE(neither.modal_frame);
  EXPECT_FALSE(neither.system_menu);
}

// A dialog without STYLE is a window with border and system menu.
TEST(DialogStatement, WithoutStyleItHasASystemMenuOnly) {
  EXPECT_FALSE(dialog_with("").modal_frame);
  EXPECT_TRUE(dialog_with("").system_menu);
}

TEST(DialogStatement, TakesTheFontInEveryForm) {
  EXPECT_EQ(dialog_with("FONT 8, \"Face\"").width, 179);
  EXPECT_EQ(dialog_with("FONT 8, \"Face\", 400, 0, 0x1 CAPTION \"a\"").caption, U"a");
}

TEST(DialogStatement, StatementsStandInAnyOrder) {
  const Dialog dialog = dialog_with("FONT 9, \"F\" CAPTION \"c\" STYLE DS_MODALFRAME");
  EXPECT_EQ(dialog.caption, U"c");
  EXPECT_TRUE(dialog.modal_frame);
}

TEST(DialogStatement, ControlsKeepTheirOrder) {
  const Script script =
      read(dialog_of("LTEXT \"b\", 2, 0,0,1,1\nLTEXT \"a\", -1, 0,0,1,1\nEDITTEXT 1, 0,0,1,1"));
  const std::vector<Control>& controls = script.dialogs.at(0).controls;
  ASSERT_EQ(controls.size(), 3U);
  EXPECT_EQ(controls[0].id, 2);
  EXPECT_EQ(controls[1].id, kNoControlId);
  EXPECT_EQ(controls[2].id, 1);
}

TEST(DialogStatement, TwoControlsOfOneNumberAreRefused) {
  EXPECT_EQ(refusal_of(dialog_of("LTEXT \"\", 5, 0,0,1,1\nEDITTEXT 5, 0,0,1,1")),
            "test.rc:5: found EDITTEXT, allowed a control whose identifier no other of the dialog "
            "has");
}

TEST(DialogStatement, ManyControlsMayHaveNoNumber) {
  EXPECT_EQ(refusal_of(dialog_of("LTEXT \"\", -1, 0,0,1,1\nLTEXT \"\", -1, 0,0,1,1")), "accepted");
}

TEST(DialogStatement, ControlsOfTwoDialogsMayShareANumber) {
  EXPECT_EQ(refusal_of("1 DIALOGEX 0,0,1,1 { EDITTEXT 5, 0,0,1,1 }"
                       "2 DIALOGEX 0,0,1,1 { EDITTEXT 5, 0,0,1,1 }"),
            "accepted");
}

TEST(DialogStatement, OtherStatementsAreRefused) {
  EXPECT_EQ(refusal_with("MENU 5"), "test.rc:2: found MENU, allowed STYLE, CAPTION, FONT or BEGIN");
}

TEST(DialogStatement, OtherStylesAreRefusedWithTheListOfAllowedOnes) {
  EXPECT_EQ(refusal_with("STYLE WS_POPUP | WS_TABSTOP"),
            "test.rc:2: found WS_TABSTOP, allowed NOT, DS_3DLOOK, DS_FIXEDSYS, DS_SETFONT, "
            "DS_SHELLFONT, DS_MODALFRAME, WS_CAPTION, WS_POPUP, WS_SYSMENU, WS_VISIBLE");
}

TEST(DialogStatement, ANumberForACaptionIsRefused) {
  EXPECT_EQ(refusal_with("CAPTION 5"), "test.rc:2: found 5, allowed a caption in double quotes");
}

TEST(DialogStatement, ANegativeSizeIsRefused) {
  EXPECT_EQ(refusal_of("1 DIALOGEX 0, 0, -1, 5 BEGIN END"),
            "test.rc:1: found '-', allowed a width from 0 to 32767");
}

TEST(DialogStatement, AMissingEndIsRefused) {
  EXPECT_THAT(refusal_of("1 DIALOGEX 0, 0, 1, 1 BEGIN\n"),
              testing::StartsWith("test.rc:2: found the end of the file, allowed END, CONTROL, "));
}

}  // namespace
}  // namespace resources
