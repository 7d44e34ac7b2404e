#include <exception>
#include <filesystem>
#include <stdexcept>
#include <utility>

#include "aluframe/files/publication.h"
#include "aluframe/io/failure.h"
#include "aluframe/io/json_edit.h"
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

bool names_catalogues(std::string_view text) {
  const std::size_t begin = text.size() - without_byte_order_mark(text).size();
  const auto fields = json_members(text, json_value_at(text, begin));
  return find_member(text, fields, "catalogues") != nullptr;
}

/// Fails when the catalogues that the text of a file names by paths from its folder are not found
/// from another folder, or make other sections there.
void require_same_sections(std::string_view text, const fs::path& file, const ModelFolder& folder,
                           const ModelFolder& other) {
  if (!names_catalogues(text)) return;
  const auto model = parse_model(text, {}, &folder);
  const auto copy = parse_model(text, {}, &other);
  if (const auto* problem = std::get_if<Problem>(&copy)) {
    throw Failure{problem->place,
                  texts::translated("{}; a copy keeps the paths of the catalogues: save it in the "
                                    "folder of {} or copy the catalogues first",
                                    problem->text, file.string())};
  }
  const auto& sections = std::get<model::Model>(model).sections;
  const auto& of_copy = std::get<model::Model>(copy).sections;
  for (std::size_t i = 0; i < sections.size(); ++i) {
    if (sections[i] == of_copy[i]) continue;
    throw Failure{"/sections/" + std::to_string(i),
                  texts::translated("the catalogues that a copy in this folder names make it "
                                    "another section; save the copy in the folder of {}",
                                    file.string())};
  }
}

/// Writes the text of a file, with changes, to another one.
std::optional<Problem> copy(std::string_view held, const fs::path& from, const fs::path& to,
                            const ModelChanges& changes, bool allow_outside) {
  const ModelFolder folder{from.parent_path(), allow_outside};
  const auto edited = edit_model_text(held, from.string(), changes, &folder);
  if (const auto* problem = std::get_if<Problem>(&edited)) return *problem;
  const auto& text = std::get<std::string>(edited);
  require_same_sections(text, from, folder, {to.parent_path(), allow_outside});
  files::Publication file(to, files::WhenBusy::wait);
  file.write(text);
  file.publish();
  return std::nullopt;
}

/// Whether both paths lead to the same name in the same folder, through links too.
bool same_path(const fs::path& a, const fs::path& b) {
  return fs::weakly_canonical(fs::absolute(a)) == fs::weakly_canonical(fs::absolute(b));
}

/// Runs what changes a file. @return why that failed
template <class Run>
std::optional<Problem> run_on(const fs::path& path, Run run) {
  try {
    return run();
  } catch (const Failure& failure) {
    return Problem{path.string(), failure.place, failure.text};
  } catch (const std::exception& error) {
    return Problem{path.string(), "", texts::translated("cannot be saved: {}", error.what()),
                   Problem::Kind::failure};
  }
}

}  // namespace

std::optional<Problem> change_model_file(const fs::path& path, const ChooseChanges& choose,
                                         bool allow_outside) {
  return run_on(path, [&] { return change(path, choose, allow_outside); });
}

std::optional<Problem> save_changes(const fs::path& path, const ModelChanges& changes) {
  if (changes.empty()) return std::nullopt;
  return change_model_file(path, [&](const model::Model&) { return changes; });
}

std::optional<Problem> save_changed_copy(const fs::path& from, const fs::path& to,
                                         const ModelChanges& changes, bool allow_outside) {
  if (same_path(from, to)) {
    return change_model_file(to, [&](const model::Model&) { return changes; }, allow_outside);
  }
  const auto text = text_of_file(from);
  if (const auto* problem = std::get_if<Problem>(&text)) return *problem;
  return save_changed_text(std::get<std::string>(text), from, to, changes, allow_outside);
}

Result<std::string> text_of_file(const fs::path& path) {
  try {
    return load_file(path);
  } catch (const Failure& failure) {
    return Problem{path.string(), failure.place, failure.text};
  }
}

std::optional<Problem> save_changed_text(std::string_view text, const fs::path& from,
                                         const fs::path& to, const ModelChanges& changes,
                                         bool allow_outside) {
  return run_on(to, [&] { return copy(text, from, to, changes, allow_outside); });
}

}  // namespace aluframe::io
