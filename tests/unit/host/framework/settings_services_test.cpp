// Services of settings: the static calls, and what a host without settings dialogs answers.

#include "host/tz_db/settings_services.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

#include "host/tz_db/services.h"
#include "tests/support/dialog_host.h"

namespace {

using test_support::DialogHost;
using test_support::FakeHost;

std::vector<std::wstring> Texts(const CArray<CString>& list) {
  std::vector<std::wstring> texts;
  for (const CString& text : list) texts.emplace_back(text.GetString());
  return texts;
}

TEST(CodeNamesTest, TheListIsTheHostsInItsOrder) {
  DialogHost host;
  host.codes = {L"C", L"A"};
  CArray<CString> names;
  names.Add(L"before");
  CDBLib::GetAluCodeNameList(names);
  EXPECT_EQ(Texts(names), (std::vector<std::wstring>{L"C", L"A"}));
}

TEST(CodeNamesTest, TheIndicesCountTheNames) {
  DialogHost host;
  CArray<CString> names;
  CArray<int> indices;
  indices.Add(9);
  CDBLib::GetAluCodeNameList(names, &indices);
  EXPECT_EQ(std::vector<int>(indices.begin(), indices.end()), (std::vector<int>{0, 1, 2}));
}

TEST(CodeNamesTest, EachConversionGoesItsOwnWay) {
  DialogHost host;
  EXPECT_TRUE(CDBLib::ViewConvertCodeName(L"A") == L"shown A");
  EXPECT_TRUE(CDBLib::GetConvertCodeName(L"shown A") == L"A");
}

/// A host that offers no settings.
class NoSettingsTest : public testing::Test {
 protected:
  NoSettingsTest() { host::Bind(host_); }
  ~NoSettingsTest() override { host::Unbind(); }
  CDBDoc& Doc() { return *host_.DocPoint(); }

  FakeHost host_;
};

TEST_F(NoSettingsTest, StoresNothing) {
  EXPECT_EQ(Doc().GetDataCtrl().AddDalu(T_DALU_D()), 0);
  EXPECT_EQ(Doc().GetDataCtrl().AddMatd(1, T_MATD_D()), 0);
}

TEST_F(NoSettingsTest, HasNoPreference) {
  T_PREFERENCE preference;
  Doc().GetInitCtrl().GetPreference(preference);
  EXPECT_TRUE(preference.strAluCode.IsEmpty());
}

TEST_F(NoSettingsTest, HasAnEmptyDatabase) {
  CArray<CString> list;
  EXPECT_EQ(Doc().GetMatlDB().GetDesignCodeList(0, list), 0);
  EXPECT_EQ(Doc().GetMatlDB().GetAluminumNameList(L"GB", list), 0);
  EXPECT_TRUE(list.IsEmpty());
  CString text;
  T_ALUMINUM_DATA values;
  EXPECT_EQ(Doc().GetMatlDB().GetAluminumData(L"GB", L"6061-T6", text, values, 0, 0.0), 0);
}

TEST_F(NoSettingsTest, HasNoCodesAndLeavesTheirNames) {
  CArray<CString> names;
  CDBLib::GetAluCodeNameList(names);
  EXPECT_TRUE(names.IsEmpty());
  EXPECT_TRUE(CDBLib::ViewConvertCodeName(L"A") == L"A");
  EXPECT_TRUE(CDBLib::GetConvertCodeName(L"A") == L"A");
}

TEST_F(NoSettingsTest, DrawsNoDialogs) {
  EXPECT_EQ(host_.DialogToolkit(), nullptr);
}

}  // namespace
