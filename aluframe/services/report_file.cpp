#include "aluframe/services/report_file.h"

#include <algorithm>
#include <charconv>
#include <sstream>
#include <string_view>
#include <system_error>

#include "aluframe/platform/code_page.h"
#include "aluframe/platform/open_file.h"
#include "aluframe/texts/system_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::services {

namespace {

namespace fs = std::filesystem;

/// More than a file system may still find room for in the last block of a file.
constexpr std::size_t probe_bytes = std::size_t{1} << 16;

constexpr std::string_view member_text = "  MEMBER NO = ";
constexpr std::string_view check_text = "  [[[*]]]   ";
constexpr std::string_view verdict_text = "---->";
constexpr std::string_view failing_text = "Not Acceptable!";

/// Number behind the text that a line begins with; 0 when there is none.
std::uint32_t number_behind(const std::string& line, std::string_view text) {
  std::uint32_t number = 0;
  std::from_chars(line.data() + text.size(), line.data() + line.size(), number);
  return number;
}

Verdict verdict_of(const std::string& line) {
  if (line.find(verdict_text) == std::string::npos) return Verdict::none;
  return line.find(failing_text) == std::string::npos ? Verdict::passes : Verdict::fails;
}

/// Writes some bytes behind the end.
std::error_code append_probe(const fs::path& path) {
  std::error_code error;
  const auto file = platform::OpenFile::open(path, platform::Purpose::appending, error);
  return error ? error : file.write(std::string(probe_bytes, ' '));
}

}  // namespace

std::string reason_of_lost_blocks(const fs::path& report, int lost_blocks) {
  std::error_code error;
  const std::uintmax_t size = fs::file_size(report, error);
  if (error) return texts::translated("cannot be read: {}", texts::system_text(error));
  const std::error_code failed = append_probe(report);
  fs::resize_file(report, size, error);
  if (failed) return texts::system_text(failed);
  const std::string lost =
      texts::counted(static_cast<std::size_t>(lost_blocks), texts::translatable("{} block"),
                     texts::translatable("{} blocks"));
  const bool lacks_none = platform::user_charset().value_or("UTF-8") == "UTF-8";
  if (lacks_none) return texts::translated("writing failed for a moment, in {}; try again", lost);
  return texts::translated(
      "a character that the environment's character set lacks, in {} (LC_ALL=C.UTF-8 has them "
      "all), or writing failed for a moment",
      lost);
}

ReportedElements reported_elements(const std::string& text) {
  ReportedElements elements;
  std::istringstream file(text);
  for (std::string line; std::getline(file, line);) {
    if (line.starts_with(member_text)) {
      elements.numbers.push_back(number_behind(line, member_text));
      elements.verdicts.emplace_back();
    } else if (elements.numbers.empty()) {
      continue;
    } else if (line.starts_with(check_text)) {
      elements.verdicts.back().push_back(Verdict::none);
    } else if (!elements.verdicts.back().empty()) {
      Verdict& verdict = elements.verdicts.back().back();
      verdict = std::max(verdict, verdict_of(line));
    }
  }
  return elements;
}

}  // namespace aluframe::services
