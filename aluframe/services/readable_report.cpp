#include "aluframe/services/readable_report.h"

#include <iconv.h>

#include <stdexcept>
#include <utility>
#include <vector>

#include "aluframe/services/text.h"
#include "aluframe/texts/text.h"
#include "tz_alu/report/report_literals.h"

namespace aluframe::services {

namespace {

/// A conversion between character sets.
class Converter {
 public:
  Converter(const std::string& to, const std::string& from)
      : descriptor_(iconv_open(to.c_str(), from.c_str())), from_(from) {
    // NOLINTNEXTLINE(performance-no-int-to-ptr): how iconv_open says that it failed
    if (descriptor_ == reinterpret_cast<iconv_t>(-1)) {
      throw std::runtime_error(texts::translated("no conversion from {} to {}", from, to));
    }
  }
  Converter(const Converter&) = delete;
  Converter& operator=(const Converter&) = delete;
  ~Converter() { iconv_close(descriptor_); }

  std::string operator()(std::string text) {
    constexpr std::size_t longest_growth = 4;
    std::string out(text.size() * longest_growth, '\0');
    char* in = text.data();
    std::size_t in_left = text.size();
    char* end = out.data();
    std::size_t out_left = out.size();
    if (iconv(descriptor_, &in, &in_left, &end, &out_left) == static_cast<std::size_t>(-1)) {
      throw std::runtime_error(texts::translated("holds bytes that are not {}", from_));
    }
    out.resize(out.size() - out_left);
    return out;
  }

 private:
  iconv_t descriptor_;
  std::string from_;
};

struct Replacement {
  std::string stored;
  std::string readable;
};

/// The stored texts, those that contain another one first.
std::vector<Replacement> make_replacements() {
  using namespace alu_report;
  Converter to_stored("CP949", "UTF-8");
  Converter to_readable("UTF-8", "GBK");
  std::vector<Replacement> all;
  for (const wchar_t* text :
       {kCombinationsTitle, kStabilityYTitle, kStabilityZTitle, kShearYTitle, kShearZTitle,
        kStabilityTitle, kStrengthTitle, kSlendernessTitle, kInPlaneText, kOutOfPlaneText,
        kShearYText, kShearZText, kCompressedText, kPulledText, kDash, kSeismicFactor}) {
    std::string stored = to_utf8(text);
    std::string readable = to_readable(to_stored(stored));
    all.push_back({std::move(stored), std::move(readable)});
  }
  return all;
}

void replace_all(std::string& text, const Replacement& what) {
  for (std::size_t at = text.find(what.stored); at != std::string::npos;
       at = text.find(what.stored, at + what.readable.size())) {
    text.replace(at, what.stored.size(), what.readable);
  }
}

}  // namespace

std::string readable_text(std::string utf8) {
  static const std::vector<Replacement> replacements = make_replacements();
  for (const Replacement& replacement : replacements) replace_all(utf8, replacement);
  return utf8;
}

}  // namespace aluframe::services
