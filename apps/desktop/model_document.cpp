#include "apps/desktop/model_document.h"

#include <utility>

#include "aluframe/files/output_guard.h"
#include "aluframe/run/input.h"
#include "aluframe/run/results.h"
#include "aluframe/texts/text.h"

namespace aluframe::desktop {

using texts::translatable;

namespace {

/// Of a file that was read a moment ago; empty when it cannot be read any more.
std::string text_of(const std::filesystem::path& path) {
  const auto text = io::text_of_file(path);
  const auto* found = std::get_if<std::string>(&text);
  return found != nullptr ? *found : std::string();
}

}  // namespace

std::variant<ModelDocument, std::string> ModelDocument::open(const std::filesystem::path& path) {
  auto read = run::read_input({.model = path});
  if (const auto* problem = std::get_if<run::Problem>(&read)) return problem->text;
  return ModelDocument(std::get<run::Input>(std::move(read)), text_of(path));
}

ModelDocument::ModelDocument(run::Input input, std::string text)
    : path_(std::move(input.file)),
      text_(std::move(text)),
      model_(std::move(input.model)),
      digest_(std::move(input.digest)),
      saved_(io::editable_of(model_)) {}

io::ModelChanges ModelDocument::changes() const {
  return io::changes_since(saved_, model_);
}

bool ModelDocument::is_gone() const {
  std::error_code unknown;  // what cannot be examined is not known to be gone
  return !std::filesystem::exists(path_, unknown) && !unknown;
}

std::optional<std::string> ModelDocument::save() {
  const auto choose = [this](const model::Model& now) -> io::Result<io::ModelChanges> {
    if (!io::changes_since(saved_, now).empty()) {
      return io::Problem{path_.string(), "",
                         texts::translated("another program has changed its settings, materials, "
                                           "sections or design attributes since it was opened; "
                                           "open it again")};
    }
    return changes();
  };
  const auto problem = is_gone() ? io::save_changed_text(text_, path_, path_, changes())
                                 : io::change_model_file(path_, choose);
  if (problem) return problem->message();
  note_saved();
  return std::nullopt;
}

std::optional<std::string> ModelDocument::save_as(const std::filesystem::path& path) {
  if (run::result_path_of(path) == path) {
    return texts::translated("{}: is the name of a result file; choose another one for the model",
                             path.string());
  }
  const files::OutputFile copy{translatable("the model"), path, files::FileKind::model};
  if (auto problem = files::find_overwriting({copy}, {})) return problem;
  const auto problem = is_gone() ? io::save_changed_text(text_, path_, path, changes())
                                 : io::save_changed_copy(path_, path, changes());
  if (problem) return problem->message();
  path_ = path;
  note_saved();
  return std::nullopt;
}

void ModelDocument::note_saved() {
  saved_ = io::editable_of(model_);
  text_ = text_of(path_);
  // The file may hold a length less exactly than the window did.
  const auto read = run::read_input({.model = path_});
  if (const auto* input = std::get_if<run::Input>(&read)) digest_ = input->digest;
}

}  // namespace aluframe::desktop
