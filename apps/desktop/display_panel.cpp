#include "apps/desktop/display_panel.h"

#include <QCheckBox>
#include <QFormLayout>
#include <QGroupBox>
#include <QSlider>
#include <QVBoxLayout>
#include <array>
#include <cmath>

#include "aluframe/forces/compute_forces.h"
#include "aluframe/tables/names.h"
#include "aluframe/texts/text.h"
#include "apps/desktop/steady_choice.h"
#include "apps/desktop/ui_texts.h"

namespace aluframe::desktop {

namespace {

using texts::translatable;

/// Rows of the colours that are always offered, in their order; items and combinations follow.
constexpr std::array<std::pair<Colour, const char*>, 6> plain_colours{
    {{Colour::plain, translatable("one colour")},
     {Colour::section, translatable("section")},
     {Colour::material, translatable("material")},
     {Colour::worst_ratio, translatable("governing ratio")},
     {Colour::safe_ratio, translatable("safe ratio (second opinion)")},
     {Colour::deflection, translatable("deflection over its limit")}}};
constexpr std::array<int, 7> items{
    RALU_STRENGTH,           RALU_SHEAR_Y,       RALU_SHEAR_Z,      RALU_STABILITY,
    RALU_COMBINED_STABILITY, RALU_SLENDERNESS_Y, RALU_SLENDERNESS_Z};
constexpr int offered_modes = 3;

/// What a row of a choice stands for, as its data.
enum Key { key_kind = Qt::UserRole, key_number };

void add_row(QComboBox& box, const QString& text, int kind, qulonglong number = 0) {
  box.addItem(text);
  box.setItemData(box.count() - 1, kind, key_kind);
  box.setItemData(box.count() - 1, number, key_number);
}

int find_row(const QComboBox& box, int kind, qulonglong number) {
  for (int row = 0; row < box.count(); ++row) {
    if (box.itemData(row, key_kind).toInt() == kind &&
        box.itemData(row, key_number).toULongLong() == number)
      return row;
  }
  return 0;
}

QString named(const std::string& text, const std::string& name) {
  return QString::fromStdString(name.empty() ? text : text + " " + name);
}

QString text_of(const model::LoadCase& load_case) {
  return named(texts::translated("case {}", load_case.number), load_case.name);
}

QString text_of(const model::Combination& combination) {
  return named(texts::translated("combination {}", combination.number), combination.name);
}

/// States of envelopes are no combinations of the user's.
template <class Use>
void for_each_combination(const model::Model& model, const Use& use) {
  for (const model::Combination& combination : model.combinations) {
    if (!combination.state_of) use(combination);
  }
}

/// Kinds of rows behind the first one, which stands for nothing.
enum SubjectKind { of_nothing, of_case, of_combination, of_mode };

/// A buckling mode as one number.
qulonglong mode_number(model::Number combination, int mode) {
  return static_cast<qulonglong>(combination) * offered_modes + static_cast<qulonglong>(mode);
}

}  // namespace

DisplayPanel::DisplayPanel(Workspace& workspace, Display& display)
    : workspace_(workspace), display_(display) {
  auto* layout = new QVBoxLayout(this);
  auto* form = new QFormLayout;
  layout->addLayout(form);
  const auto add_choice_to_form = [form](const char* name) {
    auto* box = new SteadyChoice;
    box->setSizeAdjustPolicy(QComboBox::AdjustToMinimumContentsLengthWithIcon);
    box->setMinimumContentsLength(12);
    form->addRow(ui_text(name), box);
    box->setAccessibleName(ui_text(name));
    return box;
  };
  colour_ = add_choice_to_form(translatable("Colour by"));
  loads_ = add_choice_to_form(translatable("Loads"));
  force_ = add_choice_to_form(translatable("Diagram"));
  force_of_ = add_choice_to_form(translatable("Diagram of"));
  deformed_ = add_choice_to_form(translatable("Displaced"));
  auto* scale = new QSlider(Qt::Horizontal);
  // Doublings of the scale that suits the frame, in quarters.
  scale->setRange(-16, 16);
  scale->setAccessibleName(ui_text(translatable("Scale of displacements")));
  form->addRow(ui_text(translatable("Scale")), scale);
  connect(scale, &QSlider::valueChanged, this, [this](int value) {
    display_.change(
        [value](DisplayState& state) { state.deformed_factor = std::exp2(0.25 * value); });
  });
  const auto add = [&](const char* name, bool DisplayState::* member) {
    auto* box = new QCheckBox(ui_text(name));
    layout->addWidget(box);
    connect(box, &QCheckBox::toggled, this, [this, member](bool is_on) {
      display_.change([member, is_on](DisplayState& state) { state.*member = is_on; });
    });
    return box;
  };
  animated_ = add(translatable("Animate displacements"), &DisplayState::animated);
  solid_ = add(translatable("Sections in their shape"), &DisplayState::solid);
  perspective_ = new QCheckBox(ui_text(translatable("Perspective")));
  layout->addWidget(perspective_);
  connect(perspective_, &QCheckBox::toggled, this, [this](bool is_on) {
    display_.change([is_on](DisplayState& state) {
      state.projection = is_on ? viewport::Projection::perspective : viewport::Projection::parallel;
    });
  });
  supports_ = add(translatable("Supports"), &DisplayState::supports);
  releases_ = add(translatable("Releases"), &DisplayState::releases);
  axes_ = add(translatable("Local axes"), &DisplayState::local_axes);
  nodes_ = add(translatable("Node numbers"), &DisplayState::node_numbers);
  elements_ = add(translatable("Element numbers"), &DisplayState::element_numbers);
  legend_ = add(translatable("Legend"), &DisplayState::legend);
  layout->addStretch(1);

  add_row(*force_, ui_text(translatable("none")), -1);
  for (int i = 0; i < 6; ++i) {
    const auto component = static_cast<picture::ForceComponent>(i);
    const std::string heading(picture::heading_of(component));
    add_row(*force_, QString::fromStdString(heading), i);
  }
  connect(colour_, &QComboBox::activated, this, [this](int row) { choose_colour(row); });
  connect(loads_, &QComboBox::activated, this, [this](int row) {
    const auto number = static_cast<model::Number>(loads_->itemData(row, key_number).toUInt());
    display_.change([row, number](DisplayState& state) {
      state.loads = row == 0 ? std::nullopt : std::optional(number);
    });
  });
  connect(force_, &QComboBox::activated, this, [this] { choose_diagram(); });
  connect(force_of_, &QComboBox::activated, this, [this] { choose_diagram(); });
  connect(deformed_, &QComboBox::activated, this, [this](int row) { choose_deformed(row); });
  connect(&workspace_, &Workspace::document_changed, this, [this] { refresh_choices(); });
  connect(&workspace_, &Workspace::results_changed, this, [this] { refresh_choices(); });
  connect(&display_, &Display::changed, this, [this] { show_state(); });
  refresh_choices();
}

void DisplayPanel::refresh_choices() {
  refresh_colours();
  refresh_diagrams();
  refresh_deformed();
  show_state();
}

void DisplayPanel::refresh_colours() {
  colour_->clear();
  for (const auto& [colour, name] : plain_colours) {
    add_row(*colour_, ui_text(name), static_cast<int>(colour));
  }
  if (workspace_.results() == nullptr) return;
  for (const int item : items) {
    const std::string name(texts::translation_of(tables::item_name(item)));
    add_row(*colour_, QString::fromStdString(texts::translated("ratio of {}", name)),
            static_cast<int>(Colour::item), static_cast<qulonglong>(item));
  }
  for_each_combination(workspace_.model(), [this](const model::Combination& combination) {
    add_row(*colour_,
            QString::fromStdString(
                texts::translated("ratio in {}", text_of(combination).toStdString())),
            static_cast<int>(Colour::combination), combination.number);
  });
}

void DisplayPanel::refresh_diagrams() {
  loads_->clear();
  force_of_->clear();
  add_row(*loads_, ui_text(translatable("none")), of_nothing);
  if (workspace_.document() == nullptr) return;
  const model::Model& model = workspace_.model();
  for_each_combination(model, [this](const model::Combination& combination) {
    add_row(*force_of_, text_of(combination), of_combination, combination.number);
  });
  for (const model::LoadCase& load_case : model.load_cases) {
    add_row(*force_of_, text_of(load_case), of_case, load_case.number);
    if (forces::has_loads(load_case)) {
      add_row(*loads_, text_of(load_case), of_case, load_case.number);
    }
  }
}

void DisplayPanel::refresh_deformed() {
  deformed_->clear();
  add_row(*deformed_, ui_text(translatable("none")), of_nothing);
  if (workspace_.document() == nullptr) return;
  for (const model::LoadCase& load_case : workspace_.model().load_cases) {
    if (forces::has_loads(load_case)) {
      add_row(*deformed_, text_of(load_case), of_case, load_case.number);
    }
  }
  for_each_combination(workspace_.model(), [this](const model::Combination& combination) {
    for (int mode = 0; mode < offered_modes; ++mode) {
      add_row(*deformed_,
              QString::fromStdString(texts::translated("buckling mode {} of {}", mode + 1,
                                                       text_of(combination).toStdString())),
              of_mode, mode_number(combination.number, mode));
    }
  });
}

void DisplayPanel::show_state() {
  const DisplayState& state = display_.state();
  const qulonglong of_colour = state.colour == Colour::item ? static_cast<qulonglong>(state.item)
                               : state.colour == Colour::combination ? state.combination
                                                                     : 0;
  colour_->setCurrentIndex(find_row(*colour_, static_cast<int>(state.colour), of_colour));
  loads_->setCurrentIndex(state.loads ? find_row(*loads_, of_case, *state.loads) : 0);
  force_->setCurrentIndex(state.diagram ? static_cast<int>(*state.diagram) + 1 : 0);
  if (const auto* of = std::get_if<LoadCaseSubject>(&state.diagram_of)) {
    force_of_->setCurrentIndex(find_row(*force_of_, of_case, of->number));
  } else if (const auto* combination = std::get_if<CombinationSubject>(&state.diagram_of)) {
    force_of_->setCurrentIndex(find_row(*force_of_, of_combination, combination->number));
  }
  force_of_->setEnabled(state.diagram.has_value());
  if (const auto* of = std::get_if<LoadCaseSubject>(&state.deformed)) {
    deformed_->setCurrentIndex(find_row(*deformed_, of_case, of->number));
  } else if (const auto* mode = std::get_if<ModeSubject>(&state.deformed)) {
    deformed_->setCurrentIndex(
        find_row(*deformed_, of_mode, mode_number(mode->combination, mode->mode)));
  } else {
    deformed_->setCurrentIndex(0);
  }
  animated_->setChecked(state.animated);
  solid_->setChecked(state.solid);
  perspective_->setChecked(state.projection == viewport::Projection::perspective);
  supports_->setChecked(state.supports);
  releases_->setChecked(state.releases);
  axes_->setChecked(state.local_axes);
  nodes_->setChecked(state.node_numbers);
  elements_->setChecked(state.element_numbers);
  legend_->setChecked(state.legend);
}

void DisplayPanel::choose_colour(int row) {
  const auto colour = static_cast<Colour>(colour_->itemData(row, key_kind).toInt());
  const qulonglong number = colour_->itemData(row, key_number).toULongLong();
  display_.change([colour, number](DisplayState& state) {
    state.colour = colour;
    if (colour == Colour::item) state.item = static_cast<int>(number);
    if (colour == Colour::combination) state.combination = static_cast<model::Number>(number);
  });
}

void DisplayPanel::choose_diagram() {
  const int component = force_->currentData(key_kind).toInt();
  const int kind = force_of_->currentData(key_kind).toInt();
  const auto number = static_cast<model::Number>(force_of_->currentData(key_number).toUInt());
  display_.change([&](DisplayState& state) {
    state.diagram = std::nullopt;
    state.diagram_of = std::monostate();
    if (component < 0) return;
    state.diagram = static_cast<picture::ForceComponent>(component);
    if (kind == of_case) state.diagram_of = LoadCaseSubject{number};
    if (kind == of_combination) state.diagram_of = CombinationSubject{number};
  });
}

void DisplayPanel::choose_deformed(int row) {
  const int kind = deformed_->itemData(row, key_kind).toInt();
  const qulonglong number = deformed_->itemData(row, key_number).toULongLong();
  display_.change([&](DisplayState& state) {
    state.deformed = std::monostate();
    if (kind == of_case) state.deformed = LoadCaseSubject{static_cast<model::Number>(number)};
    if (kind == of_mode) {
      state.deformed = ModeSubject{static_cast<model::Number>(number / offered_modes),
                                   static_cast<int>(number % offered_modes)};
    }
  });
}

}  // namespace aluframe::desktop
