#pragma once

#include <string>
#include <utility>

/// Wide-character string value with the application framework's names, over `std::wstring`.
/// Comparison is exact and case-sensitive, by code unit.
///
///     CString grade(L"6061-T6");
///     if (grade == L"6061-T6") ...
class CString {
 public:
  CString() = default;
  CString(const wchar_t* text) : text_(text != nullptr ? text : L"") {}
  CString(std::wstring text) : text_(std::move(text)) {}

  int GetLength() const { return static_cast<int>(text_.size()); }
  bool IsEmpty() const { return text_.empty(); }
  void Empty() { text_.clear(); }

  /// Text as a zero-terminated array, valid until the string changes.
  const wchar_t* GetString() const { return text_.c_str(); }
  operator const wchar_t*() const { return text_.c_str(); }

  wchar_t GetAt(int index) const { return text_.at(static_cast<std::size_t>(index)); }
  /// Negative, 0 or positive as this text sorts before, equals or sorts after `other`.
  int Compare(const CString& other) const { return text_.compare(other.text_); }

  CString& operator+=(const CString& other) {
    text_ += other.text_;
    return *this;
  }
  friend CString operator+(CString left, const CString& right) { return left += right; }
  friend CString operator+(CString left, const wchar_t* right) { return left += right; }
  friend bool operator==(const CString& a, const CString& b) { return a.text_ == b.text_; }
  friend bool operator==(const CString& a, const wchar_t* b) { return a.text_ == b; }

 private:
  std::wstring text_;
};
