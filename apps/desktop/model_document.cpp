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

SaveEnd ModelDocument::save(const io::AskKeep& ask) {
  SaveEnd end;
  if (is_gone()) {
    if (const auto problem = io::save_changed_text(text_, path_, path_, changes())) {
      end.problem = problem->message();
    }
  } else {
    end.was_changed_outside = text_of(path_) != text_;
    const io::Saved saved = io::save_merged(path_, saved_, model_, ask);
    if (saved.problem) end.problem = saved.problem->message();
    end.is_cancelled = saved.is_cancelled;
  }
  if (end.is_saved()) note_saved(end.was_changed_outside);
  return end;
}

SaveEnd ModelDocument::write_copy(const std::filesystem::path& path, const io::AskKeep& ask) const {
  const auto ended = [](const std::optional<io::Problem>& problem) {
    return problem ? SaveEnd{problem->message()} : SaveEnd{};
  };
  if (is_gone()) return ended(io::save_changed_text(text_, path_, path, changes()));
  const auto theirs = io::read_model(path_);
  if (const auto* problem = std::get_if<io::Problem>(&theirs)) return ended(*problem);
  io::Merge merge = merge_into(std::get<model::Model>(theirs), io::Keep::theirs);
  if (!merge.conflicts.empty()) {
    const auto keep = ask ? ask(merge.conflicts) : std::nullopt;
    if (!keep) return {.is_cancelled = true};
    merge = merge_into(std::get<model::Model>(theirs), *keep);
  }
  return ended(io::save_changed_copy(path_, path, merge.changes));
}

SaveEnd ModelDocument::save_as(const std::filesystem::path& path, const io::AskKeep& ask) {
  if (run::result_path_of(path) == path) {
    return {texts::translated("{}: is the name of a result file; choose another one for the model",
                              path.string())};
  }
  const files::OutputFile copy{translatable("the model"), path, files::FileKind::model};
  if (auto problem = files::find_overwriting({copy}, {})) return {std::move(problem)};
  const bool was_changed_outside = !is_gone() && text_of(path_) != text_;
  SaveEnd end = write_copy(path, ask);
  if (!end.is_saved()) return end;
  end.was_changed_outside = was_changed_outside;
  path_ = path;
  note_saved(was_changed_outside);
  return end;
}

void ModelDocument::note_saved(bool was_changed_outside) {
  text_ = text_of(path_);
  auto read = run::read_input({.model = path_});
  if (auto* input = std::get_if<run::Input>(&read)) {
    // The file may hold a length less exactly than the window did.
    digest_ = input->digest;
    if (was_changed_outside) model_ = std::move(input->model);
  }
  saved_ = io::editable_of(model_);
}

}  // namespace aluframe::desktop
