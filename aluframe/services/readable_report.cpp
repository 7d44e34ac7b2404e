#include "aluframe/services/readable_report.h"

#include <optional>
#include <stdexcept>
#include <vector>

#include "aluframe/platform/code_page.h"
#include "aluframe/services/text.h"
#include "aluframe/texts/text.h"
#include "tz_alu/report/report_literals.h"

namespace aluframe::services {

namespace {

constexpr platform::CodePage stored_by = 949;
constexpr platform::CodePage read_by = 936;

/// The characters whose bytes in the one code page are those of the stored text in the other.
std::string readable(const std::string& stored) {
  const std::optional<std::string> bytes = platform::in_code_page(stored, stored_by);
  const auto text = bytes ? platform::utf8_of(*bytes, read_by) : std::nullopt;
  if (text) return *text;
  throw std::runtime_error(texts::translated("no conversion from {} to {}", "CP949", "GBK"));
}

struct Replacement {
  std::string stored;
  std::string readable;
};

/// The stored texts, those that contain another one first.
std::vector<Replacement> make_replacements() {
  using namespace alu_report;
  std::vector<Replacement> all;
  for (const wchar_t* text :
       {kCombinationsTitle, kStabilityYTitle, kStabilityZTitle, kShearYTitle, kShearZTitle,
        kStabilityTitle, kStrengthTitle, kSlendernessTitle, kInPlaneText, kOutOfPlaneText,
        kShearYText, kShearZText, kCompressedText, kPulledText, kDash, kSeismicFactor}) {
    const std::string stored = to_utf8(text);
    all.push_back({stored, readable(stored)});
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
