#include "aluframe/io/catalogue_csv.h"
#include "aluframe/io/model_reader.h"

namespace aluframe::io {

std::vector<catalogue::Profile> read_catalogues(const JsonObject& root,
                                                const std::filesystem::path* folder) {
  std::vector<catalogue::Profile> own;
  const auto files = root.optional("catalogues");
  if (!files) return own;
  for (const JsonValue file : files->list()) {
    const std::string_view name = file.string();
    if (name.empty()) file.fail("found \"\", must be the path of a file");
    if (folder == nullptr) file.fail("a model that is in no file can name no catalogue");
    // A path is UTF-8 in the model, whatever the machine's own encoding.
    const std::filesystem::path path(std::u8string(name.begin(), name.end()));
    const auto read = read_catalogue_csv(*folder / path, own);
    if (const auto* problem = std::get_if<Problem>(&read)) file.fail(problem->message());
  }
  return own;
}

}  // namespace aluframe::io
