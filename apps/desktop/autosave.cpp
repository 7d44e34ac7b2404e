#include "apps/desktop/autosave.h"

#include <QCryptographicHash>
#include <exception>
#include <fstream>
#include <iterator>
#include <utility>

#include "aluframe/files/error_text.h"
#include "aluframe/files/publication.h"
#include "aluframe/io/model_edit.h"
#include "aluframe/io/model_file.h"
#include "aluframe/texts/text.h"

namespace aluframe::desktop {

namespace {

namespace fs = std::filesystem;

constexpr int kept_after = 3000;  ///< ms without another change

std::string text_of(const fs::path& file) {
  std::ifstream in(file, std::ios::binary);
  return {std::istreambuf_iterator<char>(in), {}};
}

/// The text of a model's file with changes in it. @return what stood in the way; empty: nothing
std::string write_changed(const fs::path& model, const fs::path& file,
                          const io::ModelChanges& changes, const std::atomic<bool>& is_wanted) {
  try {
    const io::ModelFolder folder{model.parent_path(), false};
    auto text = io::edit_model_text(text_of(model), model.string(), changes, &folder);
    if (const auto* problem = std::get_if<io::Problem>(&text)) return problem->message();
    if (!is_wanted) return {};
    fs::create_directories(file.parent_path());
    files::publish_text(file, std::get<std::string>(text));
  } catch (const std::exception& error) {
    return files::error_text(error);
  }
  return {};
}

}  // namespace

Autosave::Autosave(Workspace& workspace, fs::path folder)
    : workspace_(workspace), folder_(std::move(folder)) {
  later_.setSingleShot(true);
  later_.setInterval(kept_after);
  connect(&later_, &QTimer::timeout, this, [this] { keep(); });
  connect(&workspace_, &Workspace::edited, this, [this] {
    const ModelDocument* document = workspace_.document();
    if (document == nullptr) return;
    if (document->is_modified()) {
      later_.start();
    } else {
      drop();
    }
  });
}

/// Of its whole path, so that models of one name in two folders have a file each.
fs::path Autosave::file_of(const fs::path& model) const {
  std::error_code ignored;
  const std::string path = fs::weakly_canonical(fs::absolute(model, ignored), ignored).string();
  const QByteArray digest =
      QCryptographicHash::hash(QByteArray::fromStdString(path), QCryptographicHash::Sha1).toHex();
  return folder_ / (digest.toStdString() + ".json");
}

void Autosave::keep() {
  const ModelDocument* document = workspace_.document();
  if (document == nullptr || !document->is_modified()) return;
  const fs::path model = document->path(), file = file_of(model);
  is_wanted_ = std::make_shared<std::atomic<bool>>(true);
  job_.start([this, model, file, changes = document->changes(),
              is_wanted = is_wanted_]() -> BackgroundJob::Done {
    const std::string problem = write_changed(model, file, changes, *is_wanted);
    return [this, problem] {
      if (problem.empty()) return;
      workspace_.tell(texts::translated("changes that are not saved cannot be kept: {}", problem));
    };
  });
}

void Autosave::drop() {
  later_.stop();
  job_.drop();
  if (is_wanted_) *is_wanted_ = false;
  if (workspace_.document() == nullptr) return;
  std::error_code ignored;
  fs::remove(file_of(workspace_.document()->path()), ignored);
}

std::optional<LeftChanges> Autosave::left_for(const ModelDocument& document) const {
  const fs::path file = file_of(document.path());
  std::error_code ignored;
  if (!fs::exists(file, ignored)) return std::nullopt;
  const io::ModelFolder folder{document.path().parent_path(), false};
  auto read = io::parse_model(text_of(file), file.string(), &folder);
  const auto* left = std::get_if<model::Model>(&read);
  if (left == nullptr) return std::nullopt;
  // Members that the program finds are no part of a file.
  model::Model as_left = *left;
  if (as_left.finds_members) as_left.members = document.model().members;
  LeftChanges out{QDateTime::fromSecsSinceEpoch(
                      std::chrono::duration_cast<std::chrono::seconds>(
                          std::chrono::file_clock::to_sys(fs::last_write_time(file, ignored))
                              .time_since_epoch())
                          .count()),
                  parts_changed(document.model(), as_left),
                  parts_changed(as_left, document.model())};
  return out.after.empty() ? std::nullopt : std::optional(std::move(out));
}

}  // namespace aluframe::desktop
