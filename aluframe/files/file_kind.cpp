#include "aluframe/files/file_kind.h"

#include <algorithm>
#include <fstream>
#include <string>
#include <string_view>
#include <system_error>

namespace aluframe::files {

namespace {

constexpr std::size_t block_size = std::size_t{1} << 20;
constexpr std::string_view blanks = " \t\r\n";

std::string_view behind_blanks(std::string_view text) {
  if (text.starts_with("\xEF\xBB\xBF")) text.remove_prefix(3);
  text.remove_prefix(std::min(text.find_first_not_of(blanks), text.size()));
  return text;
}

/// SQLite's file format: 16 letters at the beginning, the application id in the bytes 68 to 71.
bool begins_as_results(std::string_view text) {
  constexpr std::string_view beginning("SQLite format 3\0", 16);
  if (!text.starts_with(beginning) || text.size() < 72) return false;
  std::uint32_t mark = 0;
  for (const char byte : text.substr(68, 4)) mark = mark << 8U | static_cast<unsigned char>(byte);
  return mark == result_file_mark;
}

/// Whether a text ends with `word`, blanks aside, which are taken off with it.
bool take_off_end(std::string_view& text, std::string_view word) {
  text = text.substr(0, text.find_last_not_of(blanks) + 1);
  if (!text.ends_with(word)) return false;
  text.remove_suffix(word.size());
  return true;
}

/// Whether the field that says so stands in the text: "format": "aluframe-model".
bool names_model_format(std::string_view text) {
  constexpr std::string_view name = "\"aluframe-model\"";
  for (std::size_t at = text.find(name); at != std::string_view::npos;
       at = text.find(name, at + 1)) {
    std::string_view before = text.substr(0, at);
    if (take_off_end(before, ":") && take_off_end(before, "\"format\"")) return true;
  }
  return false;
}

/// Cells of one line, in lower case and without blanks and quotes.
bool has_cell(std::string_view line, std::string_view name) {
  std::string plain = ",";
  for (const char c : line) {
    if (c == '"' || c == ' ' || c == '\t' || c == '\r') continue;
    plain += c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
  }
  return (plain + ',').find("," + std::string(name) + ",") != std::string::npos;
}

/// The header is the first line with any text in its cells.
bool begins_as_catalogue(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t\r\n,\""), text.size()));
  return has_cell(text.substr(0, text.find('\n')), "name") &&
         has_cell(text.substr(0, text.find('\n')), "shape");
}

bool begins_as_forces(std::string_view text) {
  const std::string_view header = text.substr(0, text.find('\n'));
  return has_cell(header, "element") && has_cell(header, "case") && has_cell(header, "position");
}

/// Reads on behind `text`, the beginning of the file: the field may stand at the end of a long one.
bool is_model(std::string text, std::ifstream& file) {
  if (!behind_blanks(text).starts_with('{')) return false;
  constexpr std::size_t longest_field = 4096;  // with any blanks that a writer would put in it
  while (!names_model_format(text)) {
    if (text.size() > longest_field) text.erase(0, text.size() - longest_field);
    const std::size_t kept = text.size();
    text.resize(kept + block_size);
    file.read(text.data() + kept, static_cast<std::streamsize>(block_size));
    if (file.gcount() <= 0) return false;
    text.resize(kept + static_cast<std::size_t>(file.gcount()));
  }
  return true;
}

}  // namespace

FileKind kind_of(const std::filesystem::path& path) {
  std::error_code ignored;
  if (!std::filesystem::is_regular_file(path, ignored)) return FileKind::other;
  std::ifstream file(path, std::ios::binary);
  std::string text(block_size, '\0');
  file.read(text.data(), static_cast<std::streamsize>(text.size()));
  text.resize(static_cast<std::size_t>(file.gcount()));
  if (begins_as_results(text)) return FileKind::results;
  if (begins_as_catalogue(behind_blanks(text))) return FileKind::catalogue;
  if (begins_as_forces(behind_blanks(text))) return FileKind::forces;
  return is_model(std::move(text), file) ? FileKind::model : FileKind::other;
}

}  // namespace aluframe::files
