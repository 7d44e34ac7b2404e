#include <filesystem>
#include <system_error>

#include "aluframe/io/catalogue_csv.h"
#include "aluframe/io/model_reader.h"
#include "aluframe/io/text_file.h"
#include "aluframe/platform/path_text.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

namespace fs = std::filesystem;

/// Whether a path from a folder leads to a file outside of it, through links too.
bool leads_outside(const fs::path& folder, const fs::path& path) {
  std::error_code error;
  const fs::path inside = fs::weakly_canonical(fs::absolute(folder.empty() ? "." : folder), error);
  const fs::path file = fs::weakly_canonical(fs::absolute(folder / path), error);
  const fs::path way = file.lexically_relative(inside);
  return error || way.empty() || *way.begin() == "..";
}

}  // namespace

std::vector<catalogue::Profile> read_catalogues(const JsonObject& root, const ModelFolder* folder) {
  std::vector<catalogue::Profile> own;
  const auto files = root.optional("catalogues");
  if (!files) return own;
  for (const JsonValue file : files->list()) {
    const std::string_view name = file.string();
    if (name.empty()) file.fail(texts::translated("found \"\", must be the path of a file"));
    if (folder == nullptr)
      file.fail(texts::translated("a model that is in no file can name no catalogue"));
    // A path is UTF-8 in the model, whatever the machine's own encoding.
    const std::filesystem::path path = platform::path_of(name);
    if (!folder->allow_outside && leads_outside(folder->path, path)) {
      file.fail(
          texts::translated("found \"{}\", which lies outside of the model's folder; "
                            "--allow-outside reads it all the same",
                            shown(name)));
    }
    const auto read = read_catalogue_csv(folder->path / path, own);
    if (const auto* problem = std::get_if<Problem>(&read)) file.fail(problem->message());
  }
  return own;
}

}  // namespace aluframe::io
