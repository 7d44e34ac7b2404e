#include "apps/desktop/prepared_input.h"

#include <exception>
#include <utility>
#include <variant>

#include "aluframe/files/error_text.h"
#include "aluframe/run/results.h"

namespace aluframe::desktop {

namespace {

run::Result<run::Input> prepared(const std::filesystem::path& model) {
  try {
    return run::prepare_like(run::result_path_of(model), {.model = model}, {});
  } catch (const std::exception& error) {
    return run::Problem{files::error_text(error)};
  }
}

}  // namespace

PreparedInput::PreparedInput(Workspace& workspace) : workspace_(workspace) {
  beginning_.setSingleShot(true);
  beginning_.setInterval(0);
  connect(&beginning_, &QTimer::timeout, this, [this] { start(); });
  connect(&workspace_, &Workspace::document_changed, this, [this] { forget(); });
  connect(&workspace_, &Workspace::edited, this, [this] { forget(); });
  connect(&workspace_, &Workspace::results_changed, this, [this] { forget(); });
}

void PreparedInput::forget() {
  beginning_.stop();
  job_.drop();
  input_.reset();
  problem_.clear();
  Q_EMIT changed();
}

void PreparedInput::want() {
  if (workspace_.document() == nullptr || input_ || !problem_.empty()) return;
  if (!job_.is_running()) beginning_.start();
}

void PreparedInput::start() {
  job_.start([this, model = workspace_.document()->path()]() -> BackgroundJob::Done {
    const auto found = std::make_shared<run::Result<run::Input>>(prepared(model));
    return [this, found] {
      if (auto* problem = std::get_if<run::Problem>(found.get())) {
        problem_ = std::move(problem->text);
      } else {
        input_ = std::make_shared<const run::Input>(std::get<run::Input>(std::move(*found)));
      }
      Q_EMIT changed();
    };
  });
}

}  // namespace aluframe::desktop
