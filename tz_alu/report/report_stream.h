#pragma once

#include <fstream>
#include <locale>
#include <ostream>
#include <string>

#include "host/framework/cstring.h"
#include "tz_alu/report/report_locale.h"
#include "tz_alu/report/report_path.h"

// The stream that the calculation report is written through: wide characters in, the multibyte
// characters of the user's code page out.

/// How others may use the file while it is open. Carried for hosts that know sharing modes; a file
/// is never locked here.
enum class RPT_SHARE {
  DenyNone,
};

/// Wide output stream of a report.
template <class CHAR>
class rptbasic_ostream : public std::basic_ostream<CHAR> {
 public:
  using std::basic_ostream<CHAR>::basic_ostream;
};

inline std::wostream& operator<<(std::wostream& out, const CString& text) {
  return out << text.GetString();
}

/// A report's file. It opens with the constructor, in the fail state when that is not possible, and
/// closes with the destructor.
///
///     rptbasic_ofstream<wchar_t> out(path, std::ios_base::app, RPT_SHARE::DenyNone);
///     out << L"MEMBER NO = " << std::endl;
template <class CHAR>
class rptbasic_ofstream : public rptbasic_ostream<CHAR> {
 public:
  rptbasic_ofstream(const std::wstring& path, std::ios_base::openmode mode, RPT_SHARE /*share*/)
      : rptbasic_ostream<CHAR>(nullptr) {
    // Characters are converted from the first one on, so the buffer has its locale before it opens.
    this->init(&buffer_);
    this->imbue(alu_report::UserLocale());
    if (buffer_.open(alu_report::FilePath(path),
                     mode | std::ios_base::out | std::ios_base::binary) == nullptr) {
      this->setstate(std::ios_base::failbit);
    }
  }

 private:
  std::basic_filebuf<CHAR> buffer_;
};
