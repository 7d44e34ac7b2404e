#include "host/tz_base/multi_lang.h"

#include <sstream>

namespace {

using SYMBOL_MAPS = std::map<std::wstring, std::unique_ptr<XMultiLang>>;

SYMBOL_MAPS& SymbolMaps() {
  static SYMBOL_MAPS maps;
  return maps;
}

// Text of UTF-16, little-endian, with a byte-order mark; empty when the bytes are none. Symbols are
// ASCII, so a unit is a character.
std::wstring DecodeUtf16(std::span<const unsigned char> bytes) {
  if (bytes.size() < 2 || bytes.size() % 2 != 0) return {};
  if (bytes[0] != 0xFF || bytes[1] != 0xFE) return {};
  std::wstring text;
  for (std::size_t i = 2; i < bytes.size(); i += 2) {
    text += static_cast<wchar_t>(bytes[i] | (bytes[i + 1] << 8U));
  }
  return text;
}

}  // namespace

XMultiLang::XMultiLang() = default;
XMultiLang::~XMultiLang() = default;

int XMultiLang::LoadResourceHeaderByDLL(UINT id, const CString& type, HINSTANCE module) {
  const BINARY_RESOURCE* header = AfxFindBinary(module, id, type);
  if (header == nullptr) return 0;
  std::wistringstream lines(DecodeUtf16(header->bytes));
  int count = 0;
  for (std::wstring line; std::getline(lines, line);) {
    std::wistringstream words(line);
    std::wstring keyword;
    std::wstring symbol;
    UINT number = 0;
    if (!(words >> keyword >> symbol >> number) || keyword != L"#define") continue;
    m_aSymbol[symbol] = number;
    ++count;
  }
  return count;
}

int XMultiLang::GetResourceId(const CString& symbol, UINT& id) const {
  const auto found = m_aSymbol.find(symbol.GetString());
  if (found == m_aSymbol.end()) return 0;
  id = found->second;
  return 1;
}

void INIResourceManager::AppendMap(const CString& module, XMultiLang* symbols) {
  SymbolMaps()[module.GetString()].reset(symbols);
}

const XMultiLang* INIResourceManager::GetMap(const CString& module) {
  const auto found = SymbolMaps().find(module.GetString());
  return found != SymbolMaps().end() ? found->second.get() : nullptr;
}
