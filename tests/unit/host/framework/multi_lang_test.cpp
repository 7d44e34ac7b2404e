// Resource symbols of modules, read from what they carry.

#include "host/tz_base/multi_lang.h"

#include <gtest/gtest.h>

#include <string>
#include <vector>

namespace {

constexpr UINT kHeader = 65534;

/// A module with a text as its resource header: UTF-16, little-endian.
class HEADER {
 public:
  explicit HEADER(const std::u16string& text) {
    for (const char16_t unit : text) {
      m_bytes.push_back(static_cast<unsigned char>(unit & 0xFFU));
      m_bytes.push_back(static_cast<unsigned char>(unit >> 8U));
    }
  }
  std::vector<unsigned char>& Bytes() { return m_bytes; }

  /// Loads the header, asked for by a type. @return what the load gives
  int Load(XMultiLang& symbols, const CString& type = L"Binary") const {
    const BINARY_RESOURCE binary{kHeader, L"BINARY", m_bytes};
    const MODULE_RESOURCES module{{}, {&binary, 1}};
    return symbols.LoadResourceHeaderByDLL(kHeader, type, &module);
  }

 private:
  std::vector<unsigned char> m_bytes;
};

/// Number of a symbol; 0 when it is unknown.
UINT NumberOf(const XMultiLang& symbols, const CString& name) {
  UINT id = 0;
  return symbols.GetResourceId(name, id) != 0 ? id : 0;
}

TEST(MultiLangTest, SymbolsHaveTheirNumbers) {
  XMultiLang symbols;
  EXPECT_EQ(HEADER(u"\uFEFF#define IDOK 1\r\n#define IDD_X 7963\r\n").Load(symbols), 2);
  EXPECT_EQ(NumberOf(symbols, L"IDOK"), 1U);
  EXPECT_EQ(NumberOf(symbols, L"IDD_X"), 7963U);
}

TEST(MultiLangTest, TheLastLineNeedsNoEnd) {
  XMultiLang symbols;
  EXPECT_EQ(HEADER(u"\uFEFF#define IDOK 1").Load(symbols), 1);
  EXPECT_EQ(NumberOf(symbols, L"IDOK"), 1U);
}

TEST(MultiLangTest, AnUnknownSymbolLeavesTheNumber) {
  XMultiLang symbols;
  HEADER(u"\uFEFF#define IDOK 1\r\n").Load(symbols);
  UINT id = 42;
  EXPECT_EQ(symbols.GetResourceId(L"IDNO", id), 0);
  EXPECT_EQ(symbols.GetResourceId(L"idok", id), 0);
  EXPECT_EQ(id, 42U);
}

TEST(MultiLangTest, WithoutAByteOrderMarkItIsNoHeader) {
  XMultiLang symbols;
  EXPECT_EQ(HEADER(u"#define IDOK 1\r\n").Load(symbols), 0);
  EXPECT_EQ(NumberOf(symbols, L"IDOK"), 0U);
}

TEST(MultiLangTest, WithTheMarkOfTheOtherByteOrderItIsNoHeader) {
  XMultiLang symbols;
  EXPECT_EQ(HEADER(u"\uFFFE#define IDOK 1\r\n").Load(symbols), 0);
}

TEST(MultiLangTest, WithHalfACharacterItIsNoHeader) {
  HEADER header(u"\uFEFF#define IDOK 1\r\n");
  header.Bytes().push_back('\0');
  XMultiLang symbols;
  EXPECT_EQ(header.Load(symbols), 0);
}

TEST(MultiLangTest, NothingAtAllIsNoHeader) {
  XMultiLang symbols;
  EXPECT_EQ(HEADER(u"").Load(symbols), 0);
  EXPECT_EQ(HEADER(u"\uFEFF").Load(symbols), 0);
}

TEST(MultiLangTest, TheTypeIsAskedForInAnyCaseButNotByAnotherName) {
  const HEADER header(u"\uFEFF#define IDOK 1\r\n");
  XMultiLang symbols;
  EXPECT_EQ(header.Load(symbols, L"Text"), 0);
  EXPECT_EQ(header.Load(symbols, L"binary"), 1);
}

TEST(MultiLangTest, AModuleWithoutTheResourceGivesNoSymbols) {
  const MODULE_RESOURCES nothing{{}, {}};
  XMultiLang symbols;
  EXPECT_EQ(symbols.LoadResourceHeaderByDLL(kHeader, L"BINARY", &nothing), 0);
  EXPECT_EQ(symbols.LoadResourceHeaderByDLL(kHeader, L"BINARY", nullptr), 0);
}

TEST(MultiLangTest, LinesThatDefineNothingArePassedOver) {
  XMultiLang symbols;
  EXPECT_EQ(HEADER(u"\uFEFF// controls\r\n"
                   u"\r\n"
                   u"#define\r\n"
                   u"#define IDC_NONE\r\n"
                   u"#define IDC_TEXT text\r\n"
                   u"#undef IDC_GONE 3\r\n"
                   u"#define IDC_GOOD 4\r\n")
                .Load(symbols),
            1);
  EXPECT_EQ(NumberOf(symbols, L"IDC_GOOD"), 4U);
  for (const wchar_t* name : {L"IDC_NONE", L"IDC_TEXT", L"IDC_GONE"}) {
    EXPECT_EQ(NumberOf(symbols, name), 0U);
  }
}

TEST(MultiLangTest, ASecondLoadAddsToTheFirst) {
  XMultiLang symbols;
  HEADER(u"\uFEFF#define IDOK 1\r\n").Load(symbols);
  HEADER(u"\uFEFF#define IDCANCEL 2\r\n").Load(symbols);
  EXPECT_EQ(NumberOf(symbols, L"IDOK"), 1U);
  EXPECT_EQ(NumberOf(symbols, L"IDCANCEL"), 2U);
}

/// Symbols of one name and number.
XMultiLang* Symbols(const std::u16string& line) {
  auto* symbols = new XMultiLang;
  HEADER(u"\uFEFF" + line).Load(*symbols);
  return symbols;
}

TEST(ResourceManagerTest, AModulesSymbolsAreFoundByItsName) {
  XMultiLang* const symbols = Symbols(u"#define IDOK 1");
  INIResourceManager::AppendMap(L"manager test one", symbols);
  EXPECT_EQ(INIResourceManager::GetMap(L"manager test one"), symbols);
}

TEST(ResourceManagerTest, AnUnknownModuleHasNoSymbols) {
  EXPECT_EQ(INIResourceManager::GetMap(L"manager test none"), nullptr);
}

TEST(ResourceManagerTest, ModulesKeepTheirSymbolsApart) {
  INIResourceManager::AppendMap(L"manager test two", Symbols(u"#define IDC 2"));
  INIResourceManager::AppendMap(L"manager test three", Symbols(u"#define IDC 3"));
  EXPECT_EQ(NumberOf(*INIResourceManager::GetMap(L"manager test two"), L"IDC"), 2U);
  EXPECT_EQ(NumberOf(*INIResourceManager::GetMap(L"manager test three"), L"IDC"), 3U);
}

// That the symbols before are deleted shows under the leak checker.
TEST(ResourceManagerTest, SymbolsUnderTheSameNameReplaceThoseBefore) {
  INIResourceManager::AppendMap(L"manager test", Symbols(u"#define IDC_OLD 1"));
  INIResourceManager::AppendMap(L"manager test", Symbols(u"#define IDC_NEW 2"));
  const XMultiLang& symbols = *INIResourceManager::GetMap(L"manager test");
  EXPECT_EQ(NumberOf(symbols, L"IDC_OLD"), 0U);
  EXPECT_EQ(NumberOf(symbols, L"IDC_NEW"), 2U);
}

}  // namespace
