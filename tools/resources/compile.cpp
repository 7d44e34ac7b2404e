#include "tools/resources/compile.h"

#include <fstream>
#include <iterator>
#include <ostream>
#include <stdexcept>
#include <string>

#include "tools/resources/script.h"
#include "tools/resources/symbols.h"
#include "tools/resources/writer.h"

namespace resources {

namespace {

namespace fs = std::filesystem;

std::string read_file(const fs::path& path) {
  std::ifstream file(path, std::ios::binary);
  if (!file.is_open() || fs::is_directory(path)) {
    throw std::runtime_error(path.string() + ": cannot be read");
  }
  std::string bytes{std::istreambuf_iterator<char>(file), {}};
  return bytes;
}

/// Writes beside the file and renames, so that a full disk leaves no half of it.
void write_file(const fs::path& path, const std::string& bytes) {
  fs::path beside = path;
  beside += ".new";
  std::ofstream file(beside, std::ios::binary);
  file << bytes;
  file.close();
  std::error_code error;
  if (file) fs::rename(beside, path, error);
  if (file && !error) return;
  fs::remove(beside, error);
  throw std::runtime_error(path.string() + ": cannot be written");
}

void compile_or_throw(const Paths& paths) {
  const auto symbols = read_symbols(paths.header.string(), read_file(paths.header));
  const Script script = read_script(paths.script.string(), read_file(paths.script),
                                    paths.header.filename().string(), symbols);
  write_file(paths.output / header_resource_file, header_resource(symbols));
  write_file(paths.output / "module_resources.cpp", cpp_source(script));
}

}  // namespace

int compile(const Paths& paths, std::ostream& errors) {
  try {
    compile_or_throw(paths);
    return 0;
  } catch (const std::exception& error) {
    errors << error.what() << '\n';
    return 1;
  }
}

}  // namespace resources
