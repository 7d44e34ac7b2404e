#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "tz_alu/report/report_locale.h"

namespace alu_report {

namespace {

UINT UserCodePage() {
  const char* value = std::getenv("LC_ALL");
  const bool bUtf8 = value != nullptr && std::string_view(value).ends_with(".UTF-8");
  return bUtf8 ? CP_UTF8 : GetACP();
}

bool IsLeadingHalf(wchar_t unit) {
  return unit >= 0xD800 && unit <= 0xDBFF;
}

/// Wide characters to the bytes of a code page, by the system's own tables: the standard library
/// has none of them here.
class CODE_PAGE_BYTES : public std::codecvt<wchar_t, char, std::mbstate_t> {
 public:
  explicit CODE_PAGE_BYTES(UINT nPage) : m_nPage(nPage) {}

 protected:
  result do_out(std::mbstate_t&, const wchar_t* from, const wchar_t* from_end,
                const wchar_t*& from_next, char* to, char* to_end, char*& to_next) const override {
    from_next = from;
    to_next = to;
    while (from_next != from_end) {
      const auto nRoom = (to_end - to_next) / kLongest;
      const auto nUnits = WholeCharacters(from_next, std::min(from_end - from_next, nRoom));
      if (nUnits == 0) return partial;
      const int nBytes = WideCharToMultiByte(m_nPage, 0, from_next, nUnits, to_next,
                                             static_cast<int>(to_end - to_next), nullptr, nullptr);
      if (nBytes == 0) return error;
      from_next += nUnits;
      to_next += nBytes;
    }
    return ok;
  }

  result do_unshift(std::mbstate_t&, char* to, char*, char*& to_next) const override {
    to_next = to;
    return noconv;
  }
  int do_encoding() const noexcept override { return 0; }
  bool do_always_noconv() const noexcept override { return false; }
  int do_max_length() const noexcept override { return kLongest; }

 private:
  /// Bytes of a 16-bit unit, at most.
  static constexpr int kLongest = 4;

  /// The units of a text up to a number of them, without one that is half a character.
  static int WholeCharacters(const wchar_t* text, std::ptrdiff_t nUnits) {
    const bool bHalf = nUnits > 0 && IsLeadingHalf(text[nUnits - 1]);
    return static_cast<int>(bHalf ? nUnits - 1 : nUnits);
  }

  UINT m_nPage;
};

}  // namespace

// Only the bytes are the user's: digits are the same everywhere.
std::locale UserLocale() {
  return {std::locale::classic(), new CODE_PAGE_BYTES(UserCodePage())};
}

}  // namespace alu_report
