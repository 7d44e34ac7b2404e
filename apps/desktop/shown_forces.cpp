#include "apps/desktop/shown_forces.h"

#include <exception>
#include <memory>
#include <utility>

#include "aluframe/run/mode_lines.h"
#include "aluframe/run/picture.h"
#include "aluframe/texts/sentence.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

template <class Subject, class Variant>
std::optional<model::Number> number_of(const Variant& subject) {
  const auto* found = std::get_if<Subject>(&subject);
  return found == nullptr ? std::nullopt : std::optional(found->number);
}

/// The problem of an option of the command line begins with its name, which says nothing here.
std::string without_option(const std::string& text) {
  const std::size_t end = text.find(": ");
  return text.starts_with("--") && end != std::string::npos ? text.substr(end + 2) : text;
}

}  // namespace

ShownForces::ShownForces(Workspace& workspace, Display& display)
    : workspace_(workspace), display_(display) {
  connect(&display_, &Display::changed, this, [this] {
    if (wanted_now() != wanted_) refresh();
  });
  connect(&workspace_, &Workspace::document_changed, this, [this] { refresh(); });
  connect(&workspace_, &Workspace::edited, this, [this] { refresh(); });
}

ShownForces::Wanted ShownForces::wanted_now() const {
  const DisplayState& state = display_.state();
  Wanted wanted{state.diagram, state.diagram_of, state.deformed};
  if (!wanted.diagram || std::holds_alternative<std::monostate>(wanted.diagram_of)) {
    wanted.diagram = std::nullopt;
    wanted.diagram_of = std::monostate();
  }
  return wanted;
}

void ShownForces::forget() {
  diagram_.reset();
  deformed_.reset();
  notes_.clear();
  is_mode_ = false;
  job_.drop();
}

void ShownForces::refresh() {
  wanted_ = wanted_now();
  forget();
  if (workspace_.document() != nullptr && wanted_ != Wanted{}) {
    run::Input input;
    input.file = workspace_.document()->path();
    input.model = workspace_.model();
    job_.start([this, input = std::move(input), wanted = wanted_]() -> BackgroundJob::Done {
      auto computed = std::make_shared<Computed>(compute(input, wanted));
      return [this, computed] { take(std::move(*computed)); };
    });
  }
  Q_EMIT changed();
}

void ShownForces::take(Computed computed) {
  diagram_ = std::move(computed.diagram);
  deformed_ = std::move(computed.deformed);
  notes_ = std::move(computed.notes);
  is_mode_ = computed.is_mode;
  Q_EMIT changed();
}

ShownForces::Computed ShownForces::compute(const run::Input& input, const Wanted& wanted) {
  Computed out;
  try {
    run::PictureOptions options;
    options.diagram = wanted.diagram;
    options.load_case = number_of<LoadCaseSubject>(wanted.diagram_of);
    options.combination = number_of<CombinationSubject>(wanted.diagram_of);
    options.deformed = number_of<LoadCaseSubject>(wanted.deformed);
    auto content = run::picture_content(input, {.model = input.file}, options);
    if (const auto* problem = std::get_if<run::Problem>(&content)) {
      out.notes.push_back(without_option(problem->text));
    } else {
      auto& its = std::get<run::PictureContent>(content).content;
      out.diagram = std::move(its.diagram);
      out.deformed = std::move(its.deformed);
      out.notes = std::move(its.notes);
    }
    if (const auto* mode = std::get_if<ModeSubject>(&wanted.deformed)) {
      auto modes = run::drawn_modes(input, mode->combination, mode->mode + 1);
      if (const auto* problem = std::get_if<run::Problem>(&modes)) {
        out.notes.push_back(texts::sentence_in_words(problem->text));
        return out;
      }
      auto& all = std::get<std::vector<run::DrawnMode>>(modes);
      if (all.size() <= static_cast<std::size_t>(mode->mode)) {
        out.notes.push_back(texts::translated("the combination has no such buckling mode"));
        return out;
      }
      run::DrawnMode& drawn = all.back();
      out.is_mode = true;
      out.notes.push_back(texts::translated("buckling mode {} of combination {}, factor {:.3f}: {}",
                                            mode->mode + 1, mode->combination, drawn.factor,
                                            texts::sentence_in_words(drawn.text)));
      out.deformed = picture::Deformed{{}, std::move(drawn.lines)};
    }
  } catch (const std::exception& error) {
    out.notes.emplace_back(error.what());
  }
  return out;
}

QStringList ShownForces::notes() const {
  QStringList out;
  if (job_.is_running()) out.push_back(ui_text(translatable("computing the forces...")));
  for (const std::string& note : notes_) out.push_back(QString::fromStdString(note));
  return out;
}

}  // namespace aluframe::desktop
