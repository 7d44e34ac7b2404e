// The module's name and the symbols that it carries.

#include <gmock/gmock.h>

#include <string>
#include <utility>
#include <vector>

#include "tests/unit/tools/resources/module_dialogs.h"

namespace {

using testing::ElementsAre;

std::span<const unsigned char> Binary(UINT id) {
  for (const BINARY_RESOURCE& binary : kModuleResources.binaries) {
    if (binary.nId == id) return binary.bytes;
  }
  throw std::runtime_error("no binary " + std::to_string(id));
}

// Symbols and numbers of both dialogs, typed from their tables of controls.
const std::vector<std::pair<std::string, int>> kSymbols = {
    {"IDD_DGN_ALU_CODE_DLG", 7963},
    {"IDC_STATIC_ALU_CODE", 7959},
    {"IDC_COMB_ALU_CODE", 7960},
    {"IDOK", 1},
    {"IDCANCEL", 2},
    {"IDC_CHECK_ALU_SECT_RIB", 3240},
    {"IDC_STATIC_ALU_SAFECLASS", 7955},
    {"IDC_STATIC_ALU_SAFECLASS1", 7956},
    {"IDC_STATIC_ALU_SAFECLASS2", 7957},
    {"IDC_STATIC_ALU_SAFECLASS3", 7958},
    {"IDC_STATIC_ALU_SECTSTENGTH", 7961},
    {"IDC_EDIT_ALU_SECTSTENGTH", 7962},
    {"IDC_CHECK_ALU_CONSIDE_SESI", 3244},
    {"IDC_STATIC_ALU_GAMARE_STRENGTH", 7963},
    {"IDC_STATIC_ALU_GAMARE_STABILITY", 7965},
    {"IDC_EDIT_ALU_GAMARE_STRENGTH", 7964},
    {"IDC_EDIT_ALU_GAMARE_STABILITY", 7966},
    {"IDC_EDIT_ALU_SECRIB_RATIO", 1001},
    {"IDD_DGN_ALU_MAT_DLG", 7964},
    {"IDC_TZ_DGN_STATIC_LIST", 7834},
    {"IDC_DGN_STEELMAT_LIST", 6681},
    {"IDC_DGN_ALU_GROUP", 7955},
    {"IDC_TZ_DGN_STATIC_CODE", 7835},
    {"IDC_DGN_STEELMAT_CODE", 6680},
    {"IDC_STATIC_MATNAME", 7678},
    {"IDC_DGN_STEEL_MAT", 6654},
    {"IDC_DGN_STEEL_MAT2", 1001},
    {"IDC_DGN_STATIC_ES", 6564},
    {"IDC_TZ_DGN_STATIC3", 7857},
    {"IDC_DGN_STEEL_MATES", 6656},
    {"IDC_DGN_STEEL_MATESUNIT", 6657},
    {"IDC_DGN_STATIC_PS", 6601},
    {"IDC_TZ_DGN_STATIC2", 7846},
    {"IDC_DGN_STEEL_MATPS", 6672},
    {"IDC_DGN_STATIC_MATFU", 6591},
    {"IDC_DGN_STATIC2_FU", 6518},
    {"IDC_DGN_STEEL_MATF", 7956},
    {"IDC_DGN_STEEL_MATFUNIT", 7959},
    {"IDC_DGN_STATIC_MATFY1", 6592},
    {"IDC_DGN_STATIC2_FY1", 6519},
    {"IDC_DGN_STEEL_MATFV", 7957},
    {"IDC_DGN_STEEL_MATFVUNIT", 7960},
    {"IDC_DGN_STATIC_MATFY2", 6593},
    {"IDC_DGN_STATIC_COLON1", 6559},
    {"IDC_DGN_STEEL_MATF02", 7958},
    {"IDC_DGN_STEEL_MATF02UNIT", 7961},
    {"IDC_DGN_STEELMAT_MODIFY", 6682},
};

TEST(ModuleBinaries, AreTheNameAndTheSymbols) {
  ASSERT_EQ(kModuleResources.binaries.size(), 2U);
  EXPECT_EQ(kModuleResources.binaries[0].nId, 65533U);
  EXPECT_EQ(kModuleResources.binaries[1].nId, 65534U);
  EXPECT_EQ(std::wstring(kModuleResources.binaries[0].type), L"BINARY");
  EXPECT_EQ(std::wstring(kModuleResources.binaries[1].type), L"BINARY");
}

TEST(ModuleBinaries, TheNameIsSixBytes) {
  EXPECT_THAT(Binary(65533), ElementsAre('t', 'z', '_', 'a', 'l', 'u'));
}

TEST(ModuleBinaries, TheSymbolsBeginWithAByteOrderMark) {
  ASSERT_GE(Binary(65534).size(), 2U);
  EXPECT_EQ(Binary(65534)[0], 0xFF);
  EXPECT_EQ(Binary(65534)[1], 0xFE);
}

TEST(ModuleBinaries, TheSymbolsAreALineEachInUtf16) {
  std::u16string expected;
  for (const auto& [name, number] : kSymbols) {
    const std::string line = "#define " + name + " " + std::to_string(number) + "\r\n";
    expected.append(line.begin(), line.end());
  }
  const auto bytes = Binary(65534);
  ASSERT_EQ(bytes.size() % 2, 0U);
  std::u16string found;
  for (std::size_t i = 2; i < bytes.size(); i += 2) {
    found += static_cast<char16_t>(bytes[i] | (bytes[i + 1] << 8U));
  }
  EXPECT_EQ(found, expected);
}

}  // namespace
