#include "apps/desktop/force_chart.h"

#include <QFormLayout>
#include <QLabel>
#include <QSignalBlocker>
#include <QVBoxLayout>
#include <exception>
#include <limits>
#include <utility>
#include <variant>

#include "aluframe/files/error_text.h"
#include "aluframe/model/members.h"
#include "aluframe/run/element_result.h"
#include "aluframe/run/force_lines.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/force_plot.h"
#include "apps/desktop/result_words.h"
#include "apps/desktop/steady_choice.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using picture::ForceComponent;
using texts::translatable;

constexpr std::size_t components = 6;

QComboBox* create_components() {
  auto* box = new SteadyChoice;
  for (std::size_t i = 0; i < components; ++i) {
    const std::string_view heading = picture::heading_of(static_cast<ForceComponent>(i));
    box->addItem(QString::fromUtf8(heading.data(), static_cast<qsizetype>(heading.size())));
  }
  box->setCurrentIndex(static_cast<int>(ForceComponent::my));
  return box;
}

/// Of a state its envelope and its own name.
QString label_of(const model::Combination& combination) {
  return with_name(combination.state_of.value_or(combination.number), combination.name);
}

QComboBox* create_combinations() {
  auto* box = new SteadyChoice;
  // Names may be long; the list shows them whole.
  box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
  box->setMinimumContentsLength(12);
  box->setSizePolicy(QSizePolicy::Expanding, QSizePolicy::Fixed);
  return box;
}

QLabel* create_words(const char* name) {
  auto* label = new QLabel;
  label->setTextFormat(Qt::PlainText);
  label->setWordWrap(true);
  label->setTextInteractionFlags(Qt::TextSelectableByMouse);
  label->setObjectName(QString::fromLatin1(name));
  return label;
}

void add_row(QFormLayout& form, const char* name, QComboBox* box) {
  auto* label = new QLabel(ui_text(name));
  label->setBuddy(box);
  box->setAccessibleName(ui_text(name));
  form.addRow(label, box);
}

}  // namespace

ForceChart::ForceChart(Workspace& workspace, PreparedInput& prepared)
    : workspace_(workspace),
      prepared_(prepared),
      component_(create_components()),
      combination_(create_combinations()),
      said_(create_words("said")),
      plot_(new ForcePlot),
      cursor_(create_words("cursor")),
      convention_(create_words("convention")) {
  auto* form = new QFormLayout;
  add_row(*form, translatable("Force"), component_);
  add_row(*form, translatable("Combination"), combination_);
  auto* layout = new QVBoxLayout(this);
  layout->addLayout(form);
  layout->addWidget(said_);
  layout->addWidget(plot_, 1);
  layout->addWidget(cursor_);
  layout->addWidget(convention_);
  connect(component_, &QComboBox::currentIndexChanged, this, [this] { tell_changed(); });
  connect(combination_, &QComboBox::currentIndexChanged, this, [this] { tell_changed(); });
  connect(plot_, &ForcePlot::cursor_moved, this,
          [this] { cursor_->setText(plot_->cursor_text()); });
  connect(&prepared_, &PreparedInput::changed, this, [this] { tell_changed(); });
  connect(&workspace_, &Workspace::results_changed, this, [this] { forget_results(); });
  connect(&workspace_, &Workspace::document_changed, this,
          [this] { are_combinations_behind_ = true; });
}

void ForceChart::forget_results() {
  reader_.reset();
  tell_changed();
}

void ForceChart::say(const QString& text) {
  said_->setText(text);
  said_->setVisible(!text.isEmpty());
}

/// The governing one, then all; what was chosen stays chosen while it is there.
void ForceChart::fill_combinations() {
  if (!std::exchange(are_combinations_behind_, false)) return;
  const QSignalBlocker blocker(combination_);
  const QVariant chosen = combination_->currentData();
  combination_->clear();
  combination_->addItem(QString(), 0U);
  for (const model::Combination& combination : workspace_.model().combinations) {
    combination_->addItem(label_of(combination), combination.number);
  }
  combination_->setCurrentIndex(std::max(0, combination_->findData(chosen)));
}

std::optional<model::Number> ForceChart::governing_combination(model::Number element) const {
  const model::Model& model = workspace_.model();
  if (const run::ShownResults* results = workspace_.results()) {
    const run::ElementResult* result = results->find(element);
    if (result != nullptr) {
      const model::Number number = result->worst().governing.nLComb;
      if (model.combinations.find(number) != nullptr) return number;
    }
  }
  for (const model::Combination& combination : model.combinations) {
    if (combination.design) return combination.number;
  }
  return std::nullopt;
}

std::optional<model::Number> ForceChart::chosen_combination(model::Number element) const {
  const model::Number chosen = combination_->currentData().toUInt();
  return chosen != 0 ? std::optional(chosen) : governing_combination(element);
}

void ForceChart::name_governing(model::Number element) {
  const auto number = governing_combination(element);
  std::string text = texts::translated("no combination");
  if (number) {
    const std::string label =
        label_of(*workspace_.model().combinations.find(*number)).toStdString();
    const run::ShownResults* results = workspace_.results();
    text = results != nullptr && results->find(element) != nullptr
               ? texts::translated("governing: {}", label)
               : texts::translated("first: {}", label);
  }
  combination_->setItemText(0, shown(text));
}

void ForceChart::refresh() {
  const auto element = workspace_.current();
  if (!element) {
    job_.drop();
    computing_.reset();
    say(QString());
    return plot_->show_nothing();
  }
  fill_combinations();
  name_governing(*element);
  convention_->setText(
      shown(picture::convention_of(static_cast<ForceComponent>(component_->currentIndex()))));
  const auto combination = chosen_combination(*element);
  if (!combination) {
    plot_->show_nothing();
    return say(ui_text(translatable("The model has no combination for design.")));
  }
  prepared_.want();
  if (!prepared_.problem().empty()) {
    plot_->show_nothing();
    return say(shown(prepared_.problem()));
  }
  const Wanted wanted{prepared_.input(), *element, *combination};
  if (wanted.input && computed_ == wanted) return show_lines(*element);
  plot_->show_nothing();
  say(ui_text(translatable("The forces are being computed...")));
  if (wanted.input && !(computing_ == wanted && job_.is_running())) compute(wanted);
}

void ForceChart::compute(const Wanted& wanted) {
  computing_ = wanted;
  job_.start([this, wanted]() -> BackgroundJob::Done {
    auto lines = std::make_shared<Lines>();
    std::string problem;
    try {
      const model::Model& model = wanted.input->model;
      // The file may have changed since it was opened.
      const bool is_there = model.elements.find(wanted.element) != nullptr &&
                            model.combinations.find(wanted.combination) != nullptr;
      if (is_there) {
        *lines = run::force_lines_along(*wanted.input, wanted.combination, {wanted.element});
      }
    } catch (const std::exception& error) {
      problem = files::error_text(error);
    }
    return [this, wanted, lines, problem] {
      computing_.reset();
      if (!problem.empty()) return say(shown(problem));
      computed_ = wanted;
      lines_ = std::move(*lines);
      tell_changed();
    };
  });
}

void ForceChart::show_lines(model::Number element) {
  const model::Model& model = workspace_.model();
  PlottedElement plotted{.length = model::element_length(model, *model.elements.find(element)),
                         .units = model.units,
                         .component = static_cast<ForceComponent>(component_->currentIndex()),
                         .force = {},
                         .ratios = ratios_of(element)};
  const auto& lines = lines_.at(static_cast<std::size_t>(component_->currentIndex()));
  if (!lines.empty()) plotted.force = lines.front();
  QStringList said;
  if (workspace_.document()->is_modified()) {
    said.push_back(ui_text(translatable("Changes that are not saved are left out.")));
  }
  if (plotted.is_known_at_ends_only()) {
    said.push_back(ui_text(translatable("Forces are known at the two ends alone.")));
  }
  say(said.join(u'\n'));
  plot_->show_element(std::move(plotted));
}

std::array<double, kCheckPositions> ForceChart::ratios_of(model::Number element) {
  std::array<double, kCheckPositions> none{};
  none.fill(std::numeric_limits<double>::quiet_NaN());
  const run::ShownResults* results = workspace_.results();
  if (results == nullptr || results->find(element) == nullptr) return none;
  try {
    if (!reader_) reader_ = store::ResultReader::open(results->file);
    return run::ratios_along(*reader_, element);
  } catch (const std::exception& error) {
    workspace_.tell(files::error_text(error));
    return none;
  }
}

}  // namespace aluframe::desktop
