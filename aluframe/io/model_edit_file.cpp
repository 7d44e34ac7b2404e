#include <exception>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "aluframe/files/publication.h"
#include "aluframe/io/failure.h"
#include "aluframe/io/model_edit.h"
#include "aluframe/io/text_file.h"
#include "aluframe/texts/text.h"

namespace aluframe::io {

namespace {

namespace fs = std::filesystem;

/// A program that knows of no lock may have saved the file since it was read.
void require_unchanged(const fs::path& path, std::string_view text) {
  if (load_file(path) == text) return;
  throw std::runtime_error(
      texts::translated("another program has changed it meanwhile; try again"));
}

/// What is to be changed in a text of the file.
Result<ModelChanges> chosen(std::string_view text, const fs::path& path,
                            const ChooseChanges& choose, const ModelFolder& folder) {
  const auto model = parse_model(text, path.string(), &folder);
  if (const auto* problem = std::get_if<Problem>(&model)) return *problem;
  return choose(std::get<model::Model>(model));
}

std::optional<Problem> change(const fs::path& path, const ChooseChanges& choose,
                              bool allow_outside) {
  const ModelFolder folder{path.parent_path(), allow_outside};
  const auto wanted = chosen(load_file(path), path, choose, folder);
  if (const auto* problem = std::get_if<Problem>(&wanted)) return *problem;
  if (std::get<ModelChanges>(wanted).empty()) return std::nullopt;
  files::Publication file(path, files::WhenBusy::wait);
  const std::string text = load_file(path);
  const auto changes = chosen(text, path, choose, folder);
  if (const auto* problem = std::get_if<Problem>(&changes)) return *problem;
  const auto edited =
      edit_model_text(text, path.string(), std::get<ModelChanges>(changes), &folder);
  if (const auto* problem = std::get_if<Problem>(&edited)) return *problem;
  file.write(std::get<std::string>(edited));
  require_unchanged(path, text);
  file.publish();
  return std::nullopt;
}

}  // namespace

std::optional<Problem> change_model_file(const fs::path& path, const ChooseChanges& choose,
                                         bool allow_outside) {
  try {
    return change(path, choose, allow_outside);
  } catch (const Failure& failure) {
    return Problem{path.string(), failure.place, failure.text};
  } catch (const std::exception& error) {
    return Problem{path.string(), "", texts::translated("cannot be saved: {}", error.what()),
                   Problem::Kind::failure};
  }
}

std::optional<Problem> save_changes(const fs::path& path, const ModelChanges& changes) {
  if (changes.empty()) return std::nullopt;
  return change_model_file(path, [&](const model::Model&) { return changes; });
}

}  // namespace aluframe::io
