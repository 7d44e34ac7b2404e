// What a compiled sample carries; expected values are those that sample.rc shows.

#include <gmock/gmock.h>

#include <string>

#include "tz_alu/dialogs/module_resources.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const DIALOG_TEMPLATE& Sample() {
  return kModuleResources.dialogs[0];
}

void ExpectControl(std::size_t index, const CONTROL_TEMPLATE& expected) {
  const CONTROL_TEMPLATE& control = Sample().controls[index];
  EXPECT_EQ(control.kind, expected.kind);
  EXPECT_EQ(control.nId, expected.nId);
  EXPECT_EQ(std::wstring(control.text), expected.text);
  EXPECT_EQ(control.x, expected.x);
  EXPECT_EQ(control.y, expected.y);
  EXPECT_EQ(control.width, expected.width);
  EXPECT_EQ(control.height, expected.height);
  EXPECT_EQ(control.flags, expected.flags);
}

TEST(CompiledSample, HasBothDialogs) {
  ASSERT_EQ(kModuleResources.dialogs.size(), 2U);
  EXPECT_EQ(Sample().nId, 101U);
  EXPECT_EQ(kModuleResources.dialogs[1].nId, 102U);
}

TEST(CompiledSample, CarriesTheHeadOfADialog) {
  EXPECT_EQ(std::wstring(Sample().caption), L"\u94DD\u5408\u91D1 \"A\\B\"");
  EXPECT_EQ(Sample().width, 300);
  EXPECT_EQ(Sample().height, 200);
  EXPECT_TRUE(Sample().bModalFrame);
  EXPECT_FALSE(Sample().bSystemMenu);
}

TEST(CompiledSample, CarriesEveryKindOfControl) {
  ASSERT_EQ(Sample().controls.size(), 8U);
  ExpectControl(0, {CONTROL_KIND::Label, -1, L"&Gr\u00F6\u00DFe:", 1, 2, 3, 4, CONTROL_GROUP});
  ExpectControl(1, {CONTROL_KIND::Edit, 201, L"", 5, 6, 7, 8,
                    CONTROL_TAB_STOP | CONTROL_HIDDEN | CONTROL_BORDER | CONTROL_AUTO_SCROLL});
  ExpectControl(2, {CONTROL_KIND::DropDownList, 300, L"", 9, 10, 11, 12,
                    CONTROL_TAB_STOP | CONTROL_DISABLED | CONTROL_VERTICAL_SCROLL});
  ExpectControl(3, {CONTROL_KIND::List, 301, L"", 0, 0, 1, 1,
                    CONTROL_BORDER | CONTROL_REPORT_VIEW | CONTROL_SINGLE_SELECTION});
  ExpectControl(4, {CONTROL_KIND::GroupBox, 302, L"g", 0, 0, 1, 1, 0});
  ExpectControl(5, {CONTROL_KIND::CheckBox, 303, L"c", 0, 0, 1, 1, CONTROL_TAB_STOP});
  ExpectControl(6, {CONTROL_KIND::RadioButton, 304, L"line\none", 0, 0, 1, 1,
                    CONTROL_TAB_STOP | CONTROL_GROUP});
  ExpectControl(7, {CONTROL_KIND::PushButton, 1, L"\U0001F600", -5, -6, 0, 0,
                    CONTROL_TAB_STOP | CONTROL_DEFAULT});
}

TEST(CompiledSample, ADialogMayBeEmpty) {
  EXPECT_THAT(kModuleResources.dialogs[1].controls, IsEmpty());
}

TEST(CompiledSample, CarriesBinaries) {
  ASSERT_EQ(kModuleResources.binaries.size(), 3U);
  EXPECT_EQ(std::wstring(kModuleResources.binaries[0].type), L"BINARY");
  EXPECT_THAT(kModuleResources.binaries[0].bytes, ElementsAre('a', 'b', 'c'));
  EXPECT_THAT(kModuleResources.binaries[2].bytes, IsEmpty());
}

TEST(CompiledSample, CarriesItsSymbols) {
  std::string ascii;
  const auto bytes = kModuleResources.binaries[1].bytes;
  for (std::size_t i = 2; i < bytes.size(); i += 2) ascii += static_cast<char>(bytes[i]);
  EXPECT_EQ(ascii, "#define IDD_SAMPLE 101\r\n#define IDC_SAMPLE_NAME 201\r\n");
}

}  // namespace
