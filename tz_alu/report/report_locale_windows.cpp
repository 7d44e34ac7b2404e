// The user's locale where Windows is what knows his code page.

#include <windows.h>

#include <algorithm>
#include <cstdlib>
#include <string_view>

#include "tz_alu/report/report_locale.h"

namespace alu_report {

namespace {

constexpr wchar_t kFirstBeyondAscii = 0x80;
constexpr int kLongestCharacter = 8;  // bytes in any code page, with room

UINT UserCodePage() {
  const char* value = std::getenv("LC_ALL");
  const bool bUtf8 = value != nullptr && std::string_view(value).ends_with(".UTF-8");
  return bUtf8 ? CP_UTF8 : GetACP();
}

/// Characters become bytes of the user's code page; what that lacks becomes "?", as everywhere in
/// Windows, so that a report does not end at it. Reports are not read back.
class CODE_PAGE : public std::codecvt<wchar_t, char, std::mbstate_t> {
 public:
  explicit CODE_PAGE(UINT nPage) : m_nPage(nPage) {}

 protected:
  result do_out(std::mbstate_t& /*state*/, const wchar_t* from, const wchar_t* fromEnd,
                const wchar_t*& fromNext, char* to, char* toEnd, char*& toNext) const override {
    for (; from != fromEnd; from += Units(from, fromEnd)) {
      char bytes[kLongestCharacter];
      const int count = Bytes(from, Units(from, fromEnd), bytes);
      if (toEnd - to < count) break;
      to = std::copy(bytes, bytes + count, to);
    }
    fromNext = from;
    toNext = to;
    return from == fromEnd ? ok : partial;
  }
  result do_in(std::mbstate_t& /*state*/, const char* from, const char* /*fromEnd*/,
               const char*& fromNext, wchar_t* to, wchar_t* /*toEnd*/,
               wchar_t*& toNext) const override {
    fromNext = from;
    toNext = to;
    return error;
  }
  result do_unshift(std::mbstate_t& /*state*/, char* to, char* /*toEnd*/,
                    char*& toNext) const override {
    toNext = to;
    return noconv;
  }
  int do_encoding() const noexcept override { return 0; }
  bool do_always_noconv() const noexcept override { return false; }
  int do_max_length() const noexcept override { return kLongestCharacter; }

 private:
  /// Two for the halves of one character, else one.
  static int Units(const wchar_t* from, const wchar_t* fromEnd) {
    const bool pair = fromEnd - from > 1 && IS_SURROGATE_PAIR(from[0], from[1]);
    return pair ? 2 : 1;
  }
  int Bytes(const wchar_t* character, int units, char (&bytes)[kLongestCharacter]) const {
    if (*character < kFirstBeyondAscii) {
      bytes[0] = static_cast<char>(*character);
      return 1;
    }
    // No look-alikes: of the sign of infinity some code pages would make an 8.
    const DWORD flags = m_nPage == CP_UTF8 ? 0 : WC_NO_BEST_FIT_CHARS;
    return WideCharToMultiByte(m_nPage, flags, character, units, bytes, kLongestCharacter, nullptr,
                               nullptr);
  }

  UINT m_nPage;
};

}  // namespace

std::locale UserLocale() {
  static const std::locale locale(std::locale::classic(), new CODE_PAGE(UserCodePage()));
  return locale;
}

}  // namespace alu_report
