#pragma once

#include <QObject>
#include <cstdint>
#include <filesystem>
#include <memory>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

#include "aluframe/run/shown_results.h"
#include "apps/desktop/model_document.h"

namespace aluframe::desktop {

/// What becomes of the selection when elements are picked.
enum class Picking { replace, add, toggle };

/// What the parts of the window share: the open model, its results, and which elements are selected
/// and hidden. A part shows what it finds here and changes it here; the others hear of it by the
/// signals. All calls come from the window's thread.
class Workspace : public QObject {
  Q_OBJECT

 public:
  Workspace();
  ~Workspace() override;

  /// Null when no model is open.
  const ModelDocument* document() const { return document_.get(); }
  ModelDocument* document() { return document_.get(); }
  /// The open model with the changes that are not saved. There must be one.
  const model::Model& model() const { return document_->model(); }
  /// Puts a model in the place of the one that is open, and reads its results.
  void show_document(ModelDocument document);
  /// Tells everybody that the open model was changed, or saved.
  void tell_edited();

  /// The results that stand beside the model; null: there are none that can be read.
  const run::ShownResults* results() const { return results_ ? &*results_ : nullptr; }
  /// Why there are none though a file of results is there; empty otherwise.
  const std::string& results_problem() const { return results_problem_; }
  /// Reads them again.
  void refresh_results();
  /// Whether their file is another one than when they were read.
  bool have_results_changed() const;

  /// Selected elements, by number.
  const std::set<model::Number>& selection() const { return selection_; }
  bool is_selected(model::Number element) const { return selection_.contains(element); }
  /// The element that details are shown of: the one that was picked last, while it is selected.
  std::optional<model::Number> current() const;
  /// Numbers without an element are left out.
  void select(const std::vector<model::Number>& elements, Picking picking = Picking::replace);
  void select_all();
  void clear_selection();

  bool is_hidden(model::Number element) const { return hidden_.contains(element); }
  std::size_t hidden_count() const { return hidden_.size(); }
  void hide_selected();
  /// Hides all but the selected elements.
  void isolate_selected();
  void show_all();

  /// Whether a run or a dialog of the design module is going on: only one of them, and no
  /// explanation of a check beside it.
  bool is_busy() const { return is_busy_; }
  void set_busy(bool is_busy);

  /// A line for the history.
  void tell(const std::string& text) { Q_EMIT told(QString::fromStdString(text)); }

 Q_SIGNALS:
  void document_changed();  ///< another model, or the same one read again
  void edited();            ///< settings, materials, sections or design attributes; or saved
  void typing();            ///< of an attribute began, went on or ended
  void results_changed();
  void selection_changed();
  void visibility_changed();
  void busy_changed();
  void told(const QString& line);

 private:
  /// When it was written, and its size.
  using FileState = std::pair<std::filesystem::file_time_type, std::uintmax_t>;
  /// Nothing: there is none.
  std::optional<FileState> state_of_results() const;

  void keep_existing();

  std::unique_ptr<ModelDocument> document_;
  std::optional<run::ShownResults> results_;
  std::string results_problem_;
  std::optional<FileState> results_file_;
  std::set<model::Number> selection_, hidden_;
  std::optional<model::Number> current_;
  bool is_busy_ = false;
};

}  // namespace aluframe::desktop
