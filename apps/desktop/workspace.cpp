#include "apps/desktop/workspace.h"

#include <utility>
#include <variant>

#include "aluframe/run/results.h"

namespace aluframe::desktop {

Workspace::Workspace() = default;
Workspace::~Workspace() = default;

void Workspace::show_document(ModelDocument document) {
  const bool is_other = !document_ || document_->path() != document.path();
  document_ = std::make_unique<ModelDocument>(std::move(document));
  if (is_other) {
    selection_.clear();
    hidden_.clear();
    current_.reset();
  }
  keep_existing();
  Q_EMIT document_changed();
  refresh_results();
  Q_EMIT visibility_changed();
  Q_EMIT selection_changed();
}

/// A file that was changed outside may have lost elements.
void Workspace::keep_existing() {
  const auto is_gone = [this](model::Number element) {
    return model().elements.find(element) == nullptr;
  };
  std::erase_if(selection_, is_gone);
  std::erase_if(hidden_, is_gone);
}

void Workspace::tell_edited() {
  Q_EMIT edited();
}

std::optional<Workspace::FileState> Workspace::state_of_results() const {
  const std::filesystem::path file = run::result_path_of(document_->path());
  std::error_code error;
  const auto time = std::filesystem::last_write_time(file, error);
  if (error) return std::nullopt;
  const auto size = std::filesystem::file_size(file, error);
  return error ? std::nullopt : std::optional(FileState(time, size));
}

bool Workspace::have_results_changed() const {
  return state_of_results() != results_file_;
}

void Workspace::refresh_results() {
  // Before it is read: what is written meanwhile is a change.
  results_file_ = state_of_results();
  results_.reset();
  results_problem_.clear();
  auto read = run::shown_results({.model = document_->path()}, document_->digest());
  if (auto* problem = std::get_if<run::Problem>(&read)) {
    results_problem_ = std::move(problem->text);
  } else {
    results_ = std::get<std::optional<run::ShownResults>>(std::move(read));
  }
  Q_EMIT results_changed();
}

void Workspace::set_busy(bool is_busy) {
  if (is_busy_ == is_busy) return;
  is_busy_ = is_busy;
  Q_EMIT busy_changed();
}

std::optional<model::Number> Workspace::current() const {
  if (current_ && selection_.contains(*current_)) return current_;
  return selection_.empty() ? std::nullopt : std::optional(*selection_.begin());
}

void Workspace::select(const std::vector<model::Number>& elements, Picking picking) {
  const std::set<model::Number> before = selection_;
  const std::optional<model::Number> current_before = current();
  if (picking == Picking::replace) selection_.clear();
  for (const model::Number element : elements) {
    if (model().elements.find(element) == nullptr) continue;
    if (picking == Picking::toggle && selection_.erase(element) > 0) continue;
    selection_.insert(element);
    current_ = element;
  }
  if (selection_ != before || current() != current_before) Q_EMIT selection_changed();
}

void Workspace::select_all() {
  std::vector<model::Number> elements;
  for (const model::Element& element : model().elements) {
    if (!is_hidden(element.number)) elements.push_back(element.number);
  }
  select(elements);
}

void Workspace::clear_selection() {
  select({});
}

void Workspace::hide_selected() {
  hidden_.insert(selection_.begin(), selection_.end());
  Q_EMIT visibility_changed();
  clear_selection();
}

void Workspace::isolate_selected() {
  if (selection_.empty()) return;
  hidden_.clear();
  for (const model::Element& element : model().elements) {
    if (!is_selected(element.number)) hidden_.insert(element.number);
  }
  Q_EMIT visibility_changed();
}

void Workspace::show_all() {
  hidden_.clear();
  Q_EMIT visibility_changed();
}

}  // namespace aluframe::desktop
